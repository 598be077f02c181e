#include "FieldChange.h"

#include "FieldAccess.h"

#include <Inventor/fields/SoMField.h>
#include <Inventor/fields/SoSFTrigger.h>

#include <limits>

FieldChange::FieldChange(SoField& field)
    : m_field(field)
    , m_notifyEnabled(field.enableNotify(FALSE))
{
}

FieldChange::FieldChange(SoMField& field, int first, int count)
    : m_field(field)
    , m_elements(&field)
    , m_first(first)
    , m_count(count)
    , m_notifyEnabled(field.enableNotify(FALSE))
{
}

FieldChange::~FieldChange()
{
    m_field.enableNotify(m_notifyEnabled);
    if (m_elements)
        FieldAccess::setChangedElements(*m_elements, m_first, m_count);
    // A trigger's container hears of nothing but touches.
    if (m_field.isOfType(SoSFTrigger::getClassTypeId()))
        m_field.touch();
    else
        FieldAccess::notifyChanged(m_field);
    if (m_elements)
        FieldAccess::setChangedElements(*m_elements, -1, 0);
}

bool canHold(const SoMField& field, std::int64_t count)
{
    return count <= std::numeric_limits<int>::max() / 2 / FieldAccess::elementSize(field);
}
