#include "FieldEditors/KlvFieldEditors.h"

#include "FieldEditors/DefaultField.h"
#include "FieldEditors/KlvFieldSetDefaultCommand.h"

#include <KlvExtender/KlvServices.h>
#include <KlvExtender/SceneGraph/SoFieldText.h>

#include <Inventor/SbString.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/sensors/SoFieldSensor.h>

#include <QApplication>

KlvFieldEditors::KlvFieldEditors()
{
    m_author = "QRV";
    m_description = "Field Editor for Kelvor.";
    m_version = "1.0.0";
    renewContainer();
}

KlvFieldEditors::~KlvFieldEditors()
{
    delete m_container;
}

bool KlvFieldEditors::renewContainer()
{
    if (m_container)
        return false;
    m_container = new QFrame;
    m_widget = m_container.data();
    connect(m_container, &QObject::destroyed, this, [this] {
        KlvEditor::hide();
        setField(nullptr);
    });
    return true;
}

void KlvFieldEditors::load()
{
    if (m_fieldSensor)
        setField(nullptr);
    hide();
    m_fieldSensor = std::make_unique<SoFieldSensor>(fieldSensorCB, this);
    m_fieldSensor->setDeleteCallback(fieldDestroyedCB, this);
}

void KlvFieldEditors::unload()
{
    setField(nullptr);
    m_fieldSensor.reset();
}

void KlvFieldEditors::activate()
{
    KlvEditor::activate();
    SoField* field = getEditedObject().toField();
    if (!field || !m_fieldSensor || !m_container)
        return;
    setField(field);
    refresh();
    show();
}

void KlvFieldEditors::deactivate()
{
    KlvEditor::deactivate();
    if (m_fieldSensor)
        m_fieldSensor->detach();
    // An input that loses the focus commits what was typed: the field goes last. Hiding takes the focus only
    // where the window has another place for it.
    if (QWidget* input = QApplication::focusWidget();
        input && m_container && m_container->isAncestorOf(input))
        input->clearFocus();
    hide();
    setField(nullptr);
}

void KlvFieldEditors::show()
{
    KlvEditor::show();
    if (m_container)
        m_container->show();
}

void KlvFieldEditors::hide()
{
    KlvEditor::hide();
    if (m_container)
        m_container->hide();
}

void KlvFieldEditors::setField(SoField* field)
{
    if (!m_fieldSensor)
        return;
    if (field)
        m_fieldSensor->attach(field);
    else
        m_fieldSensor->detach();
}

bool KlvFieldEditors::isRefreshPending() const
{
    return m_fieldSensor && m_fieldSensor->isScheduled();
}

void KlvFieldEditors::resetToDefault(SoField* field)
{
    const DefaultField defaultField(field);
    if (!defaultField.get())
        return;
    SbString text;
    defaultField.get()->get(text);
    if (!setFieldFromText(field, text))
        return;
    if (field->isSame(*defaultField.get()))
        field->setDefault(TRUE);
    KlvServices::getInstance()->pushCommand(new KlvFieldSetDefaultCommand(field, defaultField.get()));
}

void KlvFieldEditors::fieldSensorCB(void* data, SoSensor*)
{
    static_cast<KlvFieldEditors*>(data)->refresh();
}

void KlvFieldEditors::fieldDestroyedCB(void* data, SoSensor*)
{
    auto* editor = static_cast<KlvFieldEditors*>(data);
    editor->setField(nullptr);
    editor->setEditedObject(nullptr);
    editor->hide();
    Q_EMIT editor->editedObjectLost();
}
