#pragma once

#include "TestMain.h"

#include <KlvExtender/KlvServices.h>

/// An editor at work on one field, in a window that also has another input and is the active one. Its first
/// line edit, if it has one, has the keyboard focus.
template <typename Editor>
class Edited
{
public:
    explicit Edited(SoField* field, Editor* made = new Editor(nullptr))
        : owned(made)
    {
        history->clear();
        history->setClean();
        KlvServices::getInstance()->setSelectedField(field);
        editor.load();
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(widget);
        layout->addWidget(outside);
        editor.setEditedObject(field);
        editor.activate();
        window.show();
        window.activateWindow();
        line = widget->findChild<QLineEdit*>();
        if (line)
            line->setFocus();
        QApplication::processEvents();
    }
    ~Edited()
    {
        editor.deactivate();
        editor.unload();
        widget->setParent(nullptr);
        KlvServices::getInstance()->setSelectedNode(nullptr);
    }

    QUndoStack* history = KlvServices::getInstance()->getUndoStack();
    QWidget window;
    QLineEdit* outside = new QLineEdit;
    std::unique_ptr<Editor> owned;
    Editor& editor = *owned;
    QWidget* widget = editor.getWidget();
    QLineEdit* line = nullptr;
};
