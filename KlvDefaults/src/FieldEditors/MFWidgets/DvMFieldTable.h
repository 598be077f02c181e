#pragma once

#include <QTableWidget>

class DvMFieldTableItemDelegate;
class DvMFieldWidget;

/// The table of a multi-value editor: one element of the field a row, one component a column.
///
/// Its cells hold no text. What is visible is painted straight from the field, so that neither a refresh nor
/// an edit depends on the number of elements. The row operations change the table at once and the field with
/// a command each.
///
/// Rows count from 0; the owner's access box counts from 1 and follows the current row.
class DvMFieldTable : public QTableWidget
{
    Q_OBJECT

public:
    /// What the cells hold, which decides on the validator of the cell editors.
    enum MFTableTypeCell
    {
        TextCell = 0,   ///< any text
        ShortCell = 1,  ///< 16-bit integers
        UShortCell = 2, ///< unsigned 16-bit integers
        IntCell = 3,    ///< 32-bit integers
        UIntCell = 4,   ///< unsigned 32-bit integers
        Int32Cell = 5,  ///< 32-bit integers, of which only what is confirmed counts
        UInt32Cell = 6, ///< unsigned 32-bit integers with 64-bit bounds
        FloatCell = 7,  ///< single-precision numbers
        DoubleCell = 8  ///< double-precision numbers
    };

    /// The table of `owner`, which must outlive it. `name` becomes the object name; null gives
    /// "DvMFieldTable".
    DvMFieldTable(DvMFieldWidget* owner, QWidget* parent, const char* name);
    ~DvMFieldTable() override;

    /// Chooses the validator of the cell editors that are opened from now on.
    void setCellType(MFTableTypeCell type);
    /// The range of the cells' sliders, for integers and for real numbers.
    void setIntEditorRange(int min, int max);
    void setDoubleEditorRange(double min, double max);
    /// Has cells edited with a slider (of the range that was set) instead of a line edit.
    void setBoundedValue(bool bounded);

    /// A value's text, brought into a range that is fixed; any other text as it is.
    QString withinBounds(const QString& text) const;

    /// Makes it a table of one column, without rows.
    void setSingleColumn();
    /// Sets the number of rows and the range of the access box; a negative number changes nothing.
    void setNumRows(int count);
    /// Closes a cell editor that is open: the first writes what was entered there into the field, as far as
    /// it can be, the second drops it.
    void commitEditor();
    void abandonEditor();

    /// Copies the selected rows, or the current one, to the clipboard: a line for each row, tabs between
    /// columns.
    void copyRows();
    /// Writes the clipboard's text into the elements from the first selected row or the current one on, as if
    /// it was typed: values outside a fixed range are brought into it. Tabs and line breaks separate cells.
    /// One value fills the selection; elements that are missing at the end are added. All of it is one step
    /// of the history.
    void pasteRows();

public Q_SLOTS:
    /// Deletes the selected rows while Shift is held, else the current row. The row that moves into the place
    /// of the first of them is current then; the last row if there is none.
    virtual void deleteRow();
    /// Adds a row below the current one, which stays current; a first row if there is no current one.
    virtual void addRow();
    /// Exchanges two elements with a command.
    virtual void swapRows(int row1, int row2);
    /// Move the element that the access box shows up or down by one. It stays current.
    void swapUpRow();
    void swapDownRow();
    /// Makes a row current and scrolls to it. What the access box shows arrives here as it is, one more than
    /// the row that it stands for.
    void showTableRow(int row);
    /// Lets go of a cell editor; a slider that is alive and in use stays.
    void editorDestroyed(QObject* editor);

protected:
    /// Delete and "-" delete, "+" adds, Shift has rows selected as a range while it is held.
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    void commitData(QWidget* editor) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

private Q_SLOTS:
    void followCurrentRow(int row);

private:
    struct Rows
    {
        int first;
        int count;
    };

    void initClass();
    void fitRows();
    void showInBox(int row);
    void setBoxRange(int minimum, int maximum);
    void setMultiRow(bool on);
    bool isEditing() const;
    Rows rowsInUse() const;
    void deleteRows(Rows rows);
    void moveRow(int row, int target);

    DvMFieldWidget* m_owner;
    DvMFieldTableItemDelegate* m_delegate = nullptr;
    bool m_multiRow = false;
    /// The access box is being set; what it says then is no wish to go anywhere.
    bool m_settingBox = false;
    /// A row is being shown because the access box says so, which keeps its value.
    bool m_showingRow = false;
};
