#pragma once

#include <KlvExtender/KlvContainerRef.h>

#include <QList>

class SoDirectionalLight;
class SoNode;
class SoPath;
class SoSeparator;

/// What a view draws: the graph that is inspected, which it leaves as it is, with a headlight and a camera
/// beside it.
class ViewStage
{
public:
    /// Takes the node of the view's own camera.
    explicit ViewStage(SoNode* camera);
    ~ViewStage();
    ViewStage(const ViewStage&) = delete;
    ViewStage& operator=(const ViewStage&) = delete;

    SoNode* node() const;

    /// The graph to show, or nothing (null). It is referenced while it is shown.
    void setRoot(SoNode* root);
    SoNode* root() const { return m_root; }

    void setHeadlight(bool on);
    /// Whether a light in the graph is on. Looks through the whole graph: 90 ms for a million nodes.
    bool hasOwnLight() const;

    /// A new path from here to the root; there must be one.
    SoPath* newPathToRoot() const;
    /// The child indices that lead from the root to the end of a path that begins here; hidden children
    /// count, too.
    static QList<int> childPath(const SoPath& path);

private:
    SoSeparator* m_node;
    SoDirectionalLight* m_headlight;
    SoNode* m_root = nullptr;
    KlvContainerRef m_counted; // the stage's reference to the root
};
