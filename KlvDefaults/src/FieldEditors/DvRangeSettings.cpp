#include "FieldEditors/DvRangeSettings.h"

#include <Inventor/nodes/SoComplexity.h>
#include <Inventor/nodes/SoDirectionalLight.h>
#include <Inventor/nodes/SoMaterial.h>

namespace {

struct FieldRangeRow
{
    const char* typeName;
    const char* fieldName;
    const char* minimum;
    const char* maximum;
    const char* kind;
    const char* boundFixed;
};

const FieldRangeRow FieldRangeSettings[] = {
    {"DefaultNode", "floatField", "0.0", "10.0", "f", "0"},
    {"DefaultNode", "doubleField", "0.0", "10.0", "d", "0"},
    {"DefaultNode", "intField", "0", "100", "i", "0"},
    {"Complexity", "value", "0.0", "1.0", "f", "1"},
    {"Complexity", "textureQuality", "0.0", "1.0", "f", "1"},
    {"DirectionalLight", "intensity", "0.0", "1.0", "f", "1"},
    {"Material", "transparency", "0.0", "1.0", "f", "1"},
    {nullptr, nullptr, nullptr, nullptr, nullptr, nullptr},
};

int toInt(const QString& text)
{
    return text.toInt(nullptr, DvRangeSettings::checkBase(text));
}

void setFloatRange(DvRangeComponent& range, const QString& min, const QString& max)
{
    range.setfRange(min.toFloat(), max.toFloat());
}

void setDoubleRange(DvRangeComponent& range, const QString& min, const QString& max)
{
    range.setdRange(min.toDouble(), max.toDouble());
}

void setIntRange(DvRangeComponent& range, const QString& min, const QString& max)
{
    range.setiRange(toInt(min), toInt(max));
}

const struct
{
    const char* kind;
    void (*setRange)(DvRangeComponent&, const QString&, const QString&);
} RangeKinds[] = {{"f", setFloatRange}, {"d", setDoubleRange}, {"i", setIntRange}};

/// The names run together without a separator, as callers that concatenate them themselves expect.
QString makeKey(const char* typeName, const char* fieldName)
{
    return QString::fromUtf8(typeName) + QString::fromUtf8(fieldName);
}

} // namespace

DvRangeSettings::DvRangeSettings()
{
    for (const FieldRangeRow* row = FieldRangeSettings; row->typeName; ++row) {
        const QString key = makeKey(row->typeName, row->fieldName);
        if (m_ranges.contains(key))
            continue;
        DvRangeComponent range;
        for (const auto& kind : RangeKinds) {
            if (qstrcmp(row->kind, kind.kind) == 0)
                kind.setRange(range, QString::fromUtf8(row->minimum), QString::fromUtf8(row->maximum));
        }
        range.setBoundFixed(QString::fromUtf8(row->boundFixed).toInt() != 0);
        m_ranges.insert(key, range);
    }
}

bool DvRangeSettings::isBounded(const char* typeName, const char* fieldName) const
{
    return m_ranges.contains(makeKey(typeName, fieldName));
}

DvRangeComponent DvRangeSettings::getFieldRange(const char* typeName, const char* fieldName) const
{
    return m_ranges.value(makeKey(typeName, fieldName));
}

DvRangeComponent DvRangeSettings::getRealRange(const SoFieldContainer* container,
                                               const char* defaultField) const
{
    const bool isFixed = container && (container->isOfType(SoComplexity::getClassTypeId()) ||
                                       container->isOfType(SoMaterial::getClassTypeId()) ||
                                       container->isOfType(SoDirectionalLight::getClassTypeId()));
    return isFixed ? getFieldRange("Complexity", "value") : getFieldRange("DefaultNode", defaultField);
}

int DvRangeSettings::checkBase(const QString& text)
{
    if (text.startsWith(QLatin1String("0x")))
        return text.size() > 2 ? 16 : 10;
    if (text.size() == 2 && text.startsWith(QLatin1Char('0')))
        return 8;
    return 10;
}
