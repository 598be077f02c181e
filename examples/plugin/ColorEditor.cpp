#include "ColorEditor.h"

#include "ColorCommand.h"

#include <KlvExtender/KlvServices.h>

#include <Inventor/fields/SoSFColor.h>

#include <QColor>
#include <QLineEdit>

ColorEditor::ColorEditor()
    : m_sensor([](void* editor, SoSensor*) { static_cast<ColorEditor*>(editor)->refresh(); }, this)
{
    m_name = "Color Editor";
    m_description = "Edits a colour as #rrggbb.";
    m_author = "An example";
    m_version = "1.0.0";
    m_handledType = SoSFColor::getClassTypeId();
}

ColorEditor::~ColorEditor()
{
    delete m_widget;
}

void ColorEditor::load()
{
    KlvEditor::load();
    m_edit = new QLineEdit;
    m_edit->setAccessibleName(tr("Color"));
    connect(m_edit, &QLineEdit::editingFinished, this, &ColorEditor::commit);
    m_widget = m_edit;
}

void ColorEditor::activate()
{
    KlvEditor::activate();
    if (field())
        m_sensor.attach(field());
    refresh();
}

void ColorEditor::deactivate()
{
    m_sensor.detach();
    KlvEditor::deactivate();
}

void ColorEditor::unload()
{
    delete m_widget;
    KlvEditor::unload();
}

SoSFColor* ColorEditor::field() const
{
    return static_cast<SoSFColor*>(getEditedObject().toField());
}

void ColorEditor::commit()
{
    const QColor color(m_edit->text());
    // Leaving the line without a change writes nothing: the colour itself is finer than what the line shows.
    if (m_edit->isModified() && field() && color.isValid())
        KlvServices::getInstance()->pushCommand(
            new ColorCommand(field(), SbColor(color.redF(), color.greenF(), color.blueF())));
}

void ColorEditor::refresh()
{
    if (!field())
        return;
    const SbColor color = field()->getValue();
    m_edit->setText(QColor::fromRgbF(color[0], color[1], color[2]).name());
}
