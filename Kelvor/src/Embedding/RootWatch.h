#pragma once

#include <QObject>

class SceneDocument;

/// Notices when an application has deleted the scene that the document shows, which is when nobody but the
/// inspector holds it any more, although somebody else did before; then lets go of it as well.
class RootWatch : public QObject
{
    Q_OBJECT

public:
    /// The document outlives it.
    explicit RootWatch(SceneDocument* document);

Q_SIGNALS:
    /// The scene has been let go of; the document is empty.
    void released();

private:
    void look();
    void releaseIfAbandoned();

    SceneDocument* m_document;
    bool m_heldElsewhere = false; ///< somebody besides the inspector has been seen to hold the scene
    bool m_posted = false;
};
