#include "ContainerRef.h"

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

ContainerRef::ContainerRef(SoFieldContainer* container)
    : m_container(container)
{
    if (m_container) {
        m_container->ref();
        ++ownReferences()[m_container];
    }
}

ContainerRef::~ContainerRef()
{
    if (!m_container)
        return;
    auto own = ownReferences().find(m_container);
    if (--own.value() == 0)
        ownReferences().erase(own);
    m_container->unref();
}

ContainerRef::ContainerRef(ContainerRef&& other) noexcept
    : m_container(std::exchange(other.m_container, nullptr))
{
}

ContainerRef& ContainerRef::operator=(ContainerRef&& other) noexcept
{
    std::swap(m_container, other.m_container);
    return *this;
}

bool ContainerRef::isHeldElsewhere(const SoFieldContainer* container)
{
    return container->getRefCount() > ownReferences().value(container);
}
