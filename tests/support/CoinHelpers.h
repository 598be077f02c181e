#pragma once

#include <Inventor/errors/SoErrors.h>
#include <Inventor/fields/SoFields.h>
#include <Inventor/nodes/SoNodes.h>
#include <Inventor/sensors/SoFieldSensor.h>
#include <Inventor/sensors/SoSensorManager.h>

#include <QByteArray>
#include <QStringList>

#include <memory>

/// Collects the errors of a class that are posted while it lives.
template <class Error>
struct PostedErrors
{
    PostedErrors() { Error::setHandlerCallback(hear, &messages); }
    ~PostedErrors() { Error::setHandlerCallback(m_handler, m_data); }

    QStringList messages;

private:
    static void hear(const SoError* error, void* messages)
    {
        if (error->getTypeId() == Error::getClassTypeId())
            *static_cast<QStringList*>(messages) << QString::fromUtf8(error->getDebugString().getString());
    }
    SoErrorCB* m_handler = Error::getHandlerCallback();
    void* m_data = Error::getHandlerData();
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

template <class Field = SoField>
std::unique_ptr<Field> newField(const char* type)
{
    return std::unique_ptr<Field>(static_cast<Field*>(SoType::fromName(type).createInstance()));
}

inline QByteArray textOf(SoField& field)
{
    SbString text;
    field.get(text);
    return text.getString();
}

/// The scene of an Inventor file, given without its header line, or of a file of another kind.
inline SoSeparator* sceneOf(QByteArray text)
{
    if (!text.startsWith('#'))
        text.prepend("#Inventor V2.1 ascii\n");
    SoInput input;
    input.setBuffer(text.constData(), std::size_t(text.size()));
    return SoDB::readAll(&input);
}

inline void processSensors()
{
    SoDB::getSensorManager()->processDelayQueue(TRUE);
}
