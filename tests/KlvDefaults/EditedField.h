#pragma once

#include <KlvExtender/KlvServices.h>

#include <Inventor/SoDB.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/sensors/SoSensorManager.h>

#include <QApplication>
#include <QLineEdit>
#include <QUndoStack>
#include <QVBoxLayout>

inline void processSensors()
{
    SoDB::getSensorManager()->processDelayQueue(TRUE);
}

inline QByteArray textOf(SoField* field)
{
    SbString text;
    field->get(text);
    return text.getString();
}

/// An editor at work on one field, in a window that also has another input and is the active one. Its first
/// line edit, if it has one, has the keyboard focus.
template <typename Editor>
class Edited
{
public:
    explicit Edited(SoField* field)
    {
        history->clear();
        KlvServices::getInstance()->setSelectedField(field);
        editor.load();
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(editor.getWidget());
        layout->addWidget(outside);
        editor.setEditedObject(field);
        editor.activate();
        window.show();
        window.activateWindow();
        line = editor.getWidget()->template findChild<QLineEdit*>();
        if (line)
            line->setFocus();
        QApplication::processEvents();
    }
    ~Edited()
    {
        editor.deactivate();
        editor.unload();
        editor.getWidget()->setParent(nullptr);
        KlvServices::getInstance()->setSelectedNode(nullptr);
    }
    template <typename Widget>
    Widget* child(const char* name)
    {
        return editor.getWidget()->template findChild<Widget*>(QString::fromUtf8(name));
    }
    template <typename Widget>
    QList<Widget*> children()
    {
        return editor.getWidget()->template findChildren<Widget*>();
    }

    QUndoStack* history = KlvServices::getInstance()->getUndoStack();
    QWidget window;
    QLineEdit* outside = new QLineEdit;
    Editor editor{nullptr};
    QLineEdit* line = nullptr;
};
