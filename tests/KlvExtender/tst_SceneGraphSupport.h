#pragma once

#include <Inventor/SbString.h>
#include <Inventor/errors/SoReadError.h>
#include <Inventor/fields/SoMField.h>
#include <Inventor/lists/SoTypeList.h>
#include <Inventor/sensors/SoFieldSensor.h>

#include <QByteArray>
#include <QStringList>

#include <memory>

/// Collects the read errors that are posted while it lives.
struct ReadErrors
{
    ReadErrors()
    {
        SoReadError::setHandlerCallback(
            [](const SoError* error, void* data) {
                *static_cast<QStringList*>(data) << QString::fromUtf8(error->getDebugString().getString());
            },
            &messages);
    }
    ~ReadErrors() { SoReadError::setHandlerCallback(m_handler, m_data); }

    QStringList messages;

private:
    SoErrorCB* m_handler = SoReadError::getHandlerCallback();
    void* m_data = SoReadError::getHandlerData();
};

/// Counts the notifications of a field.
struct Notifications
{
    explicit Notifications(SoField& field)
        : m_sensor([](void* data, SoSensor*) { ++*static_cast<int*>(data); }, &count)
    {
        m_sensor.setPriority(0);
        m_sensor.attach(&field);
    }

    int count = 0;

private:
    SoFieldSensor m_sensor;
};

inline std::unique_ptr<SoField> newField(const char* type)
{
    return std::unique_ptr<SoField>(static_cast<SoField*>(SoType::fromName(type).createInstance()));
}

inline QByteArray textOf(SoField& field)
{
    SbString text;
    field.get(text);
    return text.getString();
}

/// Every field type that can be instantiated, by name.
inline QList<QByteArray> fieldTypes()
{
    SoTypeList types;
    SoType::getAllDerivedFrom(SoField::getClassTypeId(), types);
    QList<QByteArray> names;
    for (int i = 0; i < types.getLength(); ++i)
        if (types[i].canCreateInstance())
            names << types[i].getName().getString();
    return names;
}
