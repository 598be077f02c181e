#include "Models/FieldTrail.h"

#include "Models/FieldWatch.h"

#include <KlvExtender/KlvServices.h>

#include <Inventor/fields/SoField.h>

#include <algorithm>

namespace {

constexpr std::size_t longest = 50;

bool isElsewhere(const SoField* field)
{
    return field && field != KlvServices::getInstance()->getSelectedField();
}

} // namespace

FieldTrail::FieldTrail(QObject* parent)
    : QObject(parent)
{
    connect(KlvServices::getInstance(), &KlvServices::selectedFieldChanged, this, &FieldTrail::visited);
}

FieldTrail::~FieldTrail() = default;

SoField* FieldTrail::previous() const
{
    const auto found = std::find_if(m_fields.rbegin(), m_fields.rend(),
                                    [](const auto& watch) { return isElsewhere(watch->field()); });
    return found == m_fields.rend() ? nullptr : (*found)->field();
}

void FieldTrail::back()
{
    while (!m_fields.empty() && !isElsewhere(m_fields.back()->field()))
        m_fields.pop_back();
    if (!m_fields.empty())
        KlvServices::getInstance()->setSelectedField(m_fields.back()->field());
}

void FieldTrail::clear()
{
    m_fields.clear();
}

void FieldTrail::visited(SoField* field)
{
    std::erase_if(m_fields, [](const auto& watch) { return !watch->field(); });
    if (!field || !field->getContainer() || (!m_fields.empty() && m_fields.back()->field() == field))
        return;
    if (m_fields.size() == longest)
        m_fields.erase(m_fields.begin());
    m_fields.push_back(std::make_unique<FieldWatch>(field));
    m_fields.back()->setHearing(false);
}
