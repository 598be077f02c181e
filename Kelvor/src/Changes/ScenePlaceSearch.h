#pragma once

#include "Changes/ScenePlace.h"
#include "Models/SceneWalk.h"

#include <KlvExtender/KlvContainerRef.h>

#include <QHash>
#include <QSet>

/// Looks for where several containers are in a scene, in one walk for all of them, which ends when all are
/// found. User-interface thread only.
class ScenePlaceSearch
{
public:
    /// By container. The addresses are keys only.
    using Places = QHash<SoFieldContainer*, ScenePlace>;

    /// The containers are alive and are not followed later; the root, which may be null, is referenced.
    ScenePlaceSearch(SoNode* root, const QSet<SoFieldContainer*>& wanted);

    /// Goes on for some milliseconds, or to the end with -1; true when that is reached. The graph may change
    /// between two calls: what was found before may then no longer be valid.
    bool run(int milliseconds);
    /// Of all that is looked for. Those not found so far are not known, and gone at the end.
    const Places& places() const { return m_places; }

    /// All at once, which takes as long as it takes.
    static Places findAll(SoNode* root, const QSet<SoFieldContainer*>& wanted);

private:
    KlvContainerRef m_root;
    SceneWalk m_walk;
    Places m_places;
    QSet<SoFieldContainer*> m_missing;
};
