#pragma once

#include "FieldEditors/MFWidgets/DvMFColumnWidget.h"

/// The editor of fields that hold strings. Every string is shown and kept as it is, without the quotes of the
/// text form, also bytes that are no valid UTF-8.
class DvMFStringWidget : public DvMFColumnWidget
{
    Q_OBJECT

public:
    /// `name` becomes the object name; null gives "DvMFStringWidget".
    explicit DvMFStringWidget(const char* name);

    /// The beginning of the string, which is as much as a cell has room for.
    QString getShownText(int row, int column) const override;
    /// Exchanges two elements with a command.
    void swapRows(int row1, int row2) override;

    ~DvMFStringWidget() override;

protected:
    SbString getSingleFieldValue(int row, int column) const override;
    bool writeElement(int row, const SbString& text) override;
};
