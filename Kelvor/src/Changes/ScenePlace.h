#pragma once

#include <QCoreApplication>
#include <QList>
#include <QString>

#include <optional>

class SoFieldContainer;
class SoNode;

/// Where a node is in a scene: the way from the root to its first occurrence, as it was when it was looked
/// for. Holds nothing of the scene.
class ScenePlace
{
    Q_DECLARE_TR_FUNCTIONS(ScenePlace)

public:
    /// Looks for a container below `root`, which may be null. The search is bounded: in scenes of more than a
    /// million nodes, what comes after these is not found.
    ScenePlace(SoNode* root, SoFieldContainer* container);

    /// The node is in the scene, as far as was looked.
    bool isFound() const { return m_indices.has_value(); }
    /// The container is a node that is certainly not in the scene. Engines and global fields never are.
    bool isGone() const { return m_gone; }
    /// True when the way still leads to the container, or there never was one and cannot be.
    bool isValid(SoNode* root, const SoFieldContainer* container) const;

    /// The way for people: `Separator › Material "Gold"`; of what was not found only the last part.
    const QString& label() const { return m_label; }
    /// What stands between the steps of a way.
    static QString separator() { return QStringLiteral(" › "); }
    /// A C++ expression for the node, starting from a variable `root`; empty for what was not found.
    QString expression(SoNode* root) const;

private:
    std::optional<QList<int>> m_indices; ///< of children, see `SceneChildren`
    bool m_gone = false;
    QString m_label;
};
