#include "FieldEditors/DvRangeComponent.h"

DvRangeComponent::DvRangeComponent(int min, int max, bool boundFixed)
    : m_iMin(min)
    , m_iMax(max)
    , m_boundFixed(boundFixed)
{
}

DvRangeComponent::DvRangeComponent(float min, float max, bool boundFixed)
    : m_fMin(min)
    , m_fMax(max)
    , m_boundFixed(boundFixed)
{
}

DvRangeComponent::DvRangeComponent(double min, double max, bool boundFixed)
    : m_boundFixed(boundFixed)
{
    setdRange(min, max);
}

void DvRangeComponent::setiRange(int min, int max)
{
    m_iMin = min;
    m_iMax = max;
}

void DvRangeComponent::setfRange(float min, float max)
{
    m_fMin = min;
    m_fMax = max;
}

void DvRangeComponent::setdRange(double min, double max)
{
    m_dMin = static_cast<float>(min);
    m_dMax = static_cast<float>(max);
}
