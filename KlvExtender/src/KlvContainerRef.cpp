#include <KlvExtender/KlvContainerRef.h>

#include <Inventor/engines/SoEngine.h>
#include <Inventor/fields/SoMFEngine.h>
#include <Inventor/fields/SoMFNode.h>
#include <Inventor/fields/SoSFEngine.h>
#include <Inventor/fields/SoSFNode.h>
#include <Inventor/nodes/SoNode.h>

#include <QHash>

#include <utility>

namespace {

QHash<const SoFieldContainer*, int>& ownReferences()
{
    static QHash<const SoFieldContainer*, int> references;
    return references;
}

template <class Single, class Multi>
void count(const SoField& field, std::vector<KlvContainerRef>& counted)
{
    if (field.isOfType(Single::getClassTypeId()))
        counted.push_back(KlvContainerRef::countingOther(static_cast<const Single&>(field).getValue()));
    if (!field.isOfType(Multi::getClassTypeId()))
        return;
    const auto& list = static_cast<const Multi&>(field);
    for (int i = 0; i < list.getNum(); ++i)
        counted.push_back(KlvContainerRef::countingOther(list[i]));
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

std::vector<KlvContainerRef> KlvContainerRef::countingAllOf(const SoField& field)
{
    std::vector<KlvContainerRef> counted;
    count<SoSFNode, SoMFNode>(field, counted);
    count<SoSFEngine, SoMFEngine>(field, counted);
    return counted;
}

bool KlvContainerRef::isHeldElsewhere(const SoFieldContainer* container)
{
    return container->getRefCount() > ownReferences().value(container);
}
