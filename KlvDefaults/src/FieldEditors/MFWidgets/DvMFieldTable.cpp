#include "FieldEditors/MFWidgets/DvMFieldTable.h"

#include "FieldEditors/DvSlider.h"
#include "FieldEditors/KlvMFAddRowsCommand.h"
#include "FieldEditors/KlvMFDeleteRowsCommand.h"
#include "FieldEditors/KlvMFSwapRowsCommand.h"
#include "FieldEditors/MFWidgets/AccessButtonPrivate.h"
#include "FieldEditors/MFWidgets/DvMFieldTableItemDelegate.h"
#include "FieldEditors/MFWidgets/DvMFieldWidget.h"
#include "FieldEditors/MFWidgets/DvTableClipboard.h"

#include <KlvExtender/KlvEditScope.h>
#include <KlvExtender/KlvServices.h>

#include <Inventor/fields/SoMField.h>

#include <QAccessible>
#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <cstdio>

DvMFieldTable::DvMFieldTable(DvMFieldWidget* owner, QWidget* parent, const char* name)
    : QTableWidget(parent)
    , m_owner(owner)
{
    setObjectName(QString::fromUtf8(name ? name : "DvMFieldTable"));
    initClass();
}

DvMFieldTable::~DvMFieldTable() = default;

void DvMFieldTable::initClass()
{
    m_delegate = new DvMFieldTableItemDelegate(m_owner, this);
    m_delegate->setCellType(TextCell);
    setItemDelegate(m_delegate);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionMode(NoSelection);
    // Tab leaves the table; it may have a million cells.
    setTabKeyNavigation(false);
    setAccessibleName(tr("Elements"));
    // One height for all rows, so that none of them has to be measured.
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    fitRows();
    horizontalHeader()->setStretchLastSection(true);
    connect(this, SIGNAL(currentCellChanged(int, int, int, int)), this, SLOT(followCurrentRow(int)));
}

void DvMFieldTable::fitRows()
{
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
}

void DvMFieldTable::changeEvent(QEvent* event)
{
    QTableWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fitRows();
}

void DvMFieldTable::setCellType(MFTableTypeCell type)
{
    m_delegate->setCellType(type);
}

void DvMFieldTable::setIntEditorRange(int min, int max)
{
    m_delegate->setIntEditorRange(min, max);
}

void DvMFieldTable::setDoubleEditorRange(double min, double max)
{
    m_delegate->setDoubleEditorRange(min, max);
}

void DvMFieldTable::setBoundedValue(bool bounded)
{
    m_delegate->setBoundedValue(bounded);
}

QString DvMFieldTable::withinBounds(const QString& text) const
{
    return m_delegate->withinBounds(text);
}

void DvMFieldTable::setSingleColumn()
{
    setColumnCount(1);
    // The column's item needs a row, which goes again below.
    setRowCount(1);
    setItem(0, 0, new QTableWidgetItem(QTableWidgetItem::Type));
    horizontalHeader()->setSectionResizeMode(0, QHeaderView::Interactive);
    horizontalHeader()->hide();
    setNumRows(0);
}

void DvMFieldTable::setNumRows(int count)
{
    if (count < 0)
        return;
    setBoxRange(count > 0 ? 1 : 0, count);
    if (count == rowCount())
        return;
    // What was entered for an element that is gone must not bring it back.
    if (currentRow() >= count)
        abandonEditor();
    setRowCount(count);
    followCurrentRow(currentRow());
}

void DvMFieldTable::showTableRow(int row)
{
    if (m_settingBox || row < 0 || row >= rowCount())
        return;
    const QScopedValueRollback<bool> showing(m_showingRow, true);
    scrollTo(model()->index(row, 0));
    setCurrentCell(row, 0);
}

void DvMFieldTable::followCurrentRow(int row)
{
    // What was selected with Shift stays selected until another row is chosen.
    if (!m_multiRow)
        clearSelection();
    if (QAccessible::isActive())
        setAccessibleDescription(m_owner->getShownText(row, currentColumn()));
    if (row >= 0 && !m_showingRow)
        showInBox(row);
}

void DvMFieldTable::showInBox(int row)
{
    const QScopedValueRollback<bool> setting(m_settingBox, true);
    if (AccessButtonPrivate* box = m_owner->getAccessBox())
        box->setNewValue(row);
}

void DvMFieldTable::setBoxRange(int minimum, int maximum)
{
    const QScopedValueRollback<bool> setting(m_settingBox, true);
    if (AccessButtonPrivate* box = m_owner->getAccessBox()) {
        box->setMinimum(minimum);
        box->setMaximum(maximum);
    }
}

void DvMFieldTable::swapRows(int row1, int row2)
{
    SoMField* field = m_owner->getField();
    const auto [first, last] = std::minmax(row1, row2);
    if (!field || first < 0 || last >= field->getNum())
        return;
    const KlvEditScope scope(field, first, last - first + 1);
    KlvServices::getInstance()->pushCommand(new KlvMFSwapRowsCommand(field, row1, row2));
}

void DvMFieldTable::swapUpRow()
{
    const int row = m_owner->getAccessBox()->value() - 1;
    std::fprintf(stderr, "DvMFieldTable::swapUpRow() %d\n", row);
    if (row > 0)
        moveRow(row, row - 1);
}

void DvMFieldTable::swapDownRow()
{
    const int row = m_owner->getAccessBox()->value() - 1;
    std::fprintf(stderr, "DvMFieldTable::swapDownRow() %d\n", row);
    if (row >= 0 && row + 1 < rowCount())
        moveRow(row, row + 1);
}

void DvMFieldTable::moveRow(int row, int target)
{
    commitEditor();
    swapRows(row, target);
    setCurrentCell(target, 0);
    showInBox(target);
}

void DvMFieldTable::addRow()
{
    SoMField* field = m_owner->getField();
    if (!field)
        return;
    commitEditor();
    const int current = currentRow();
    const int added = current + 1;
    insertRow(added);
    for (int column = 0; column < columnCount(); ++column)
        setItem(added, column, new QTableWidgetItem);
    setBoxRange(1, rowCount());
    {
        const KlvEditScope scope(field, added, 0);
        KlvServices::getInstance()->pushCommand(new KlvMFAddRowsCommand(field, added, 1));
    }
    if (current < 0) {
        setCurrentCell(0, 0);
        return;
    }
    setCurrentCell(current, 0);
    Q_EMIT currentCellChanged(current, 0, added, 0);
}

void DvMFieldTable::deleteRow()
{
    if (!m_multiRow)
        deleteRows({currentRow(), 1});
    else if (!selectedRanges().isEmpty())
        deleteRows(rowsInUse());
}

void DvMFieldTable::deleteRows(Rows rows)
{
    SoMField* field = m_owner->getField();
    if (!field || rows.first < 0 || rowCount() == 0)
        return;
    commitEditor();
    const int left = rowCount() - rows.count;
    setBoxRange(left > 0 ? 1 : 0, left);
    {
        const KlvEditScope scope(field, rows.first, rows.count);
        KlvServices::getInstance()->pushCommand(new KlvMFDeleteRowsCommand(field, rows.first, rows.count));
    }
    // The change of the field may have refreshed the table already.
    if (rowCount() > left)
        model()->removeRows(rows.first, rowCount() - left);
    // Those who go on deleting go on downwards.
    setCurrentCell(std::min(rows.first, left - 1), 0, QItemSelectionModel::NoUpdate);
    followCurrentRow(currentRow());
}

DvMFieldTable::Rows DvMFieldTable::rowsInUse() const
{
    const QList<QTableWidgetSelectionRange> ranges = selectedRanges();
    return ranges.isEmpty() ? Rows{currentRow(), currentRow() < 0 ? 0 : 1}
                            : Rows{ranges.first().topRow(), ranges.first().rowCount()};
}

void DvMFieldTable::copyRows()
{
    commitEditor();
    const Rows rows = rowsInUse();
    DvTableClipboard(m_owner, this).copy(rows.first, rows.count);
}

void DvMFieldTable::pasteRows()
{
    commitEditor();
    const Rows rows = rowsInUse();
    DvTableClipboard(m_owner, this).paste(rows.first, rows.count);
}

void DvMFieldTable::setMultiRow(bool on)
{
    m_multiRow = on;
    setSelectionMode(on ? ContiguousSelection : NoSelection);
}

void DvMFieldTable::keyPressEvent(QKeyEvent* event)
{
    // What a cell editor has no use for comes here as well, and is meant for the editor.
    const int key = isEditing() ? 0 : event->key();
    if (key == Qt::Key_Delete || key == Qt::Key_Minus)
        deleteRow();
    else if (key == Qt::Key_Plus)
        addRow();
    else if (key == Qt::Key_Shift)
        setMultiRow(true);
    else if (event->matches(QKeySequence::Copy))
        copyRows();
    else if (event->matches(QKeySequence::Paste))
        pasteRows();
    else
        QTableWidget::keyPressEvent(event);
    event->accept();
}

void DvMFieldTable::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Shift)
        setMultiRow(false);
    else
        QTableWidget::keyReleaseEvent(event);
}

void DvMFieldTable::mousePressEvent(QMouseEvent* event)
{
    // Shift may have been pressed while another window or input had the keyboard.
    if (event->modifiers() & Qt::ShiftModifier)
        setMultiRow(true);
    QTableWidget::mousePressEvent(event);
}

void DvMFieldTable::focusOutEvent(QFocusEvent* event)
{
    // The release of Shift would go elsewhere.
    setMultiRow(false);
    QTableWidget::focusOutEvent(event);
}

void DvMFieldTable::commitData(QWidget* editor)
{
    // Return is followed up when the event loop comes round, and the editor may have been closed by then.
    if (editor && !editor->isHidden())
        QTableWidget::commitData(editor);
}

void DvMFieldTable::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint)
{
    if (!editor || editor->isHidden())
        return;
    // The base class only looks after an editor that has the focus itself, not in one of its parts.
    const bool hadFocus = editor->isAncestorOf(QApplication::focusWidget());
    QTableWidget::closeEditor(editor, hint);
    if (hadFocus && !isEditing())
        setFocus();
}

bool DvMFieldTable::isEditing() const
{
    return isPersistentEditorOpen(currentIndex());
}

void DvMFieldTable::commitEditor()
{
    if (QWidget* editor = indexWidget(currentIndex())) {
        commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
}

void DvMFieldTable::abandonEditor()
{
    QWidget* editor = indexWidget(currentIndex());
    // A slider would still commit what was typed when it is hidden.
    if (auto* slider = qobject_cast<DvSlider*>(editor))
        slider->updateEdit();
    if (editor)
        closeEditor(editor, QAbstractItemDelegate::RevertModelCache);
}

void DvMFieldTable::editorDestroyed(QObject* editor)
{
    const auto* slider = qobject_cast<DvSlider*>(editor);
    if (slider && (slider->isAncestorOf(QApplication::focusWidget()) ||
                   slider->rect().contains(slider->mapFromGlobal(QCursor::pos()))))
        return;
    QTableWidget::editorDestroyed(editor);
}
