#pragma once

#include "FieldEditors/SFWidgets/DvSFColumnsWidget.h"

class DvFloatEdit;
class QLineEdit;

/// Base of the editors of values with two to four single-precision components, one line edit each.
///
/// An edit is committed by Return and by leaving a line edit. The components that were not edited keep the
/// value that the field has, to the bit.
class DvSFFloatColumns : public DvSFColumnsWidget
{
    Q_OBJECT

public:
    using Component = float;

    void load() override;
    /// Shows the components with all carets at the start. What is being typed is lost, unless the refresh is
    /// but the echo of an edit made here.
    void refresh() override;
    bool edited() override;
    /// Puts the caret of each line edit at its start; a text that is selected to be typed over stays so.
    void revertCursorPosition();

    ~DvSFFloatColumns() override;

public Q_SLOTS:
    /// Writes the components into the field, if one was entered, and records that.
    void applyChanges() override;

protected:
    static constexpr int maxComponents = 4;

    using DvSFColumnsWidget::DvSFColumnsWidget;

    /// Makes one column.
    void buildComponent(QLineEdit*& edit, QLabel*& label);
    /// Reads the components of the field, which is set.
    virtual void getComponents(float* components) const = 0;
    /// Writes the components into the field, which is set. False when they make no value of the kind; the
    /// field is then unchanged, and the user told.
    virtual bool setComponents(const float* components) = 0;
    const std::vector<DvFloatEdit*>& edits() const { return m_edits; }

private:
    std::vector<DvFloatEdit*> m_edits;
};
