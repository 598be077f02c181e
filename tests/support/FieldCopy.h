#pragma once

#include "CoinHelpers.h"
#include "SceneGraph/FieldBits.h"

#include <Inventor/engines/SoEngineOutput.h>
#include <Inventor/lists/SoFieldList.h>

/// What a field gets its value from: fields, and the output of an engine or null.
struct FieldSources
{
    explicit FieldSources(const SoField& field)
    {
        field.getConnections(masters);
        field.getConnectedEngine(output);
    }
    bool operator==(const FieldSources&) const = default;

    SoFieldList masters;
    SoEngineOutput* output = nullptr;
};

/// All that looking, and an edit and its undo, must leave as it was: value, flags and connections of a field.
struct FieldCopy
{
    explicit FieldCopy(SoField* copied)
        : field(copied)
        , value(static_cast<SoField*>(field->getTypeId().createInstance()))
    {
        copyFieldValue(*value, *field);
        // Only now: reading a connected field may clear the flag.
        isDefault = field->isDefault();
    }

    /// What is different now, or nothing.
    QString difference() const
    {
        const auto text = [](SoField& of) { return QString::fromUtf8(textOf(of).left(80)).simplified(); };
        if (!identicalFields(*field, *value))
            return QStringLiteral("value %1 instead of %2").arg(text(*field), text(*value));
        const bool sameFlags = isDefault == field->isDefault() && isIgnored == field->isIgnored();
        return !sameFlags                        ? QStringLiteral("default or ignored flag")
               : sources == FieldSources(*field) ? QString()
                                                 : QStringLiteral("connections");
    }

    SoField* field;
    std::unique_ptr<SoField> value;
    FieldSources sources{*field};
    SbBool isIgnored = field->isIgnored();
    SbBool isDefault;
};
