#pragma once

#include "ElementView.h"

#include <FieldEditors/MFWidgets/DvMFFloatWidget.h>
#include <FieldEditors/MFWidgets/DvMFieldTable.h>

#include <QUndoStack>
#include <QVBoxLayout>

#include <memory>

/// The inspector's own editor, at work on the selected field with the history behind it.
class EditorElementView : public ElementView
{
public:
    explicit EditorElementView(int size)
        : ElementView(size)
    {
        KlvServices::getInstance()->setSelectedField(&field());
        settle();
    }
    ~EditorElementView() override { KlvServices::getInstance()->setSelectedNode(nullptr); }

    void open() override
    {
        m_editor = std::make_unique<DvMFFloatWidget>(nullptr);
        m_editor->load();
        m_window = std::make_unique<QWidget>();
        (new QVBoxLayout(m_window.get()))->addWidget(m_editor->getWidget());
        m_window->resize(440, 600);
        m_editor->setEditedObject(&field());
        m_editor->activate();
        m_window->show();
        m_table = m_window->findChild<DvMFieldTable*>();
        settle();
    }
    void close() override
    {
        m_editor->deactivate();
        m_editor->unload();
        m_editor.reset();
        m_window.reset();
        KlvServices::getInstance()->getUndoStack()->clear();
    }
    void refresh() override
    {
        field().touch();
        settle();
    }
    void edit(int row, const QString& text) override
    {
        m_editor->set1Value(row, 0, text);
        settle();
    }
    void scrollTo(int row) override
    {
        m_table->showTableRow(row);
        settle();
    }
    void add(int row) override
    {
        m_table->setCurrentCell(row - 1, 0);
        m_table->addRow();
        settle();
    }
    void remove(int row) override
    {
        m_table->setCurrentCell(row, 0);
        m_table->deleteRow();
        settle();
    }
    void move(int row) override
    {
        m_table->swapRows(row, row - 1);
        settle();
    }

private:
    std::unique_ptr<DvMFFloatWidget> m_editor;
    std::unique_ptr<QWidget> m_window;
    DvMFieldTable* m_table = nullptr;
};
