#include "FieldEditors/SFWidgets/DvSFFloatColumns.h"

#include "FieldEditors/DvEscapeKey.h"
#include "FieldEditors/SFWidgets/DvFloatEdit.h"

#include <algorithm>
#include <array>

DvSFFloatColumns::~DvSFFloatColumns() = default;

void DvSFFloatColumns::load()
{
    DvSFColumnsWidget::load();
    m_edits.clear();
    while (m_edits.size() < size_t(captions().size())) {
        QLineEdit* edit = nullptr;
        QLabel* label = nullptr;
        buildComponent(edit, label);
        m_edits.push_back(static_cast<DvFloatEdit*>(edit));
    }
    setNameLabels(captions().constData());
}

void DvSFFloatColumns::buildComponent(QLineEdit*& edit, QLabel*& label)
{
    edit = new DvFloatEdit(m_editionFrame);
    label = addColumn(edit);
    DvEscapeKey::install(edit, edit, [this] { refresh(); });
    connect(edit, SIGNAL(editingFinished()), this, SLOT(setFocusLeaveEvent()));
    connect(edit, SIGNAL(returnPressed()), this, SLOT(setCommandValue()));
}

void DvSFFloatColumns::refresh()
{
    if (m_field) {
        std::array<float, maxComponents> components;
        getComponents(components.data());
        // What was entered since the edit that echoes here is yet to be committed.
        const bool entering = takeEcho() && edited();
        for (size_t i = 0; i < m_edits.size(); ++i) {
            if (!entering || !m_edits[i]->isModified())
                m_edits[i]->showComponent(components[i]);
        }
        if (!entering)
            revertCursorPosition();
    }
    DvSFieldWidget::refresh();
}

bool DvSFFloatColumns::edited()
{
    return std::any_of(m_edits.begin(), m_edits.end(), [](DvFloatEdit* edit) { return edit->isModified(); });
}

void DvSFFloatColumns::revertCursorPosition()
{
    for (DvFloatEdit* edit : m_edits)
        edit->revertCursorPosition();
}

void DvSFFloatColumns::applyChanges()
{
    if (!m_field)
        return;
    std::array<float, maxComponents> components;
    getComponents(components.data());
    bool entered = false;
    for (size_t i = 0; i < m_edits.size(); ++i) {
        entered = entered || !m_edits[i]->isAsShown();
        components[i] = m_edits[i]->component(components[i]);
    }
    if (entered) {
        if (!setComponents(components.data()))
            return;
        expectEcho();
    }
    for (DvFloatEdit* edit : m_edits)
        edit->acceptText();
    recordValue();
}
