#include "RootWatch.h"

#include "Scene/SceneDocument.h"

#include <KlvExtender/KlvContainerRef.h>

#include <QAbstractEventDispatcher>

RootWatch::RootWatch(SceneDocument* document)
    : m_document(document)
{
    connect(document, &SceneDocument::rootChanged, this, [this] {
        m_heldElsewhere = false;
        look();
    });
    // Nobody tells when a reference is given up, so it is looked at once for every turn of the event loop.
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, this, &RootWatch::look);
}

void RootWatch::look()
{
    const SoNode* root = m_document->root();
    if (!root || m_posted)
        return;
    if (KlvContainerRef::isHeldElsewhere(root)) {
        m_heldElsewhere = true;
    } else if (m_heldElsewhere) {
        // Not from inside the event dispatcher.
        m_posted = true;
        QMetaObject::invokeMethod(this, &RootWatch::releaseIfAbandoned, Qt::QueuedConnection);
    }
}

void RootWatch::releaseIfAbandoned()
{
    m_posted = false;
    const SoNode* root = m_document->root();
    if (!root || !m_heldElsewhere || KlvContainerRef::isHeldElsewhere(root))
        return;
    m_document->setRoot(nullptr);
    Q_EMIT released();
}
