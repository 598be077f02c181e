#pragma once

#include <QCoreApplication>
#include <QList>
#include <QString>

#include <optional>

class SoFieldContainer;
class SoNode;

/// Where a node is in a scene: the way from the root to its first occurrence, as it was when it was found,
/// see `ScenePlaceSearch`. Holds nothing of the scene.
class ScenePlace
{
    Q_DECLARE_TR_FUNCTIONS(ScenePlace)

public:
    /// Not known yet.
    explicit ScenePlace(const SoFieldContainer* container);

    /// The child indices that lead from `root` to the container now.
    void setFound(SoNode* root, const QList<int>& indices);
    /// It was looked for in vain.
    void setGone() { m_gone = true; }

    /// The container is a node that is not in the scene. Engines and global fields never are.
    bool isGone() const { return m_gone; }
    /// False when the way no longer leads to the container, or it is gone.
    bool isValid(SoNode* root, const SoFieldContainer* container) const;

    /// The way for people: `Separator › Material "Gold"`; of what is not found only the last part.
    const QString& label() const { return m_label; }
    /// A C++ expression for the node, starting from a variable `root`; empty for what is not found. The way
    /// must be valid.
    QString expression(SoNode* root) const;

private:
    std::optional<QList<int>> m_indices; ///< of children, see `SceneChildren`
    bool m_gone = false;
    QString m_label;
};
