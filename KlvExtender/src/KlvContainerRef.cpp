#include <KlvExtender/KlvContainerRef.h>

#include <Inventor/fields/SoFieldContainer.h>

#include <QHash>

#include <utility>

namespace {

QHash<const SoFieldContainer*, int>& ownReferences()
{
    static QHash<const SoFieldContainer*, int> references;
    return references;
}

} // namespace

KlvContainerRef::KlvContainerRef(SoFieldContainer* container)
    : m_container(container)
{
    if (m_container) {
        m_container->ref();
        ++ownReferences()[m_container];
    }
}

KlvContainerRef::~KlvContainerRef()
{
    if (!m_container)
        return;
    auto own = ownReferences().find(m_container);
    if (--own.value() == 0)
        ownReferences().erase(own);
    if (m_owns)
        m_container->unref();
}

KlvContainerRef::KlvContainerRef(KlvContainerRef&& other) noexcept
    : m_container(std::exchange(other.m_container, nullptr))
    , m_owns(other.m_owns)
{
}

KlvContainerRef& KlvContainerRef::operator=(KlvContainerRef&& other) noexcept
{
    std::swap(m_container, other.m_container);
    std::swap(m_owns, other.m_owns);
    return *this;
}

KlvContainerRef KlvContainerRef::countingOther(SoFieldContainer* container)
{
    KlvContainerRef counted;
    counted.m_container = container;
    counted.m_owns = false;
    if (container)
        ++ownReferences()[container];
    return counted;
}

bool KlvContainerRef::isHeldElsewhere(const SoFieldContainer* container)
{
    return container->getRefCount() > ownReferences().value(container);
}
