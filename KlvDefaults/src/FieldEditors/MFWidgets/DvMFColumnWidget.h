#pragma once

#include "FieldEditors/MFWidgets/DvMFieldTable.h"
#include "FieldEditors/MFWidgets/DvMFieldWidget.h"

#include <Inventor/SbString.h>

/// Base of the editors that show an element a row, in one column. A cell holds the element's text form; what
/// is entered there is recorded as a command.
class DvMFColumnWidget : public DvMFieldWidget
{
    Q_OBJECT

public:
    void load() override;
    /// Exchanges two elements if both exist.
    void swapRows(int row1, int row2) override;
    /// Gives an element the value that a cell's text stands for. A row beyond the end adds the elements up to
    /// it. A text that the field cannot take leaves the element as it was, the element's present text leaves
    /// the field alone.
    void set1Value(int row, int column, QString text) override;
    QString getFieldValue(int row, int column) const override;
    /// True for fields of the handled type.
    bool checkField(SoField* field) override;

    ~DvMFColumnWidget() override;

protected:
    using CellType = DvMFieldTable::MFTableTypeCell;

    /// The editor of the fields of a kind, whose name without "So" is given; an empty one leaves the label
    /// empty.
    DvMFColumnWidget(SoType kind, const char* kindName, CellType cellType, const char* name);

    /// True when there is an element behind a cell.
    bool hasElement(int row, int column) const;
    /// Sets up the table: one column, no rows, the type of its cells.
    virtual void initClass();
    /// The text of the cell of an element that exists.
    virtual SbString getSingleFieldValue(int row, int column) const;
    /// Gives an element the value of a text and records it.
    virtual void setSingleFieldValue(SbString text, int row, int column);
    /// Gives an element the value of a text; false when the field cannot take it.
    virtual bool writeElement(int row, const SbString& text);

private:
    const CellType m_cellType;
};
