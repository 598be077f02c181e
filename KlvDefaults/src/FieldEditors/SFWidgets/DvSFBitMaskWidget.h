#pragma once

#include "FieldEditors/SFWidgets/DvSFieldWidget.h"

#include <QList>
#include <QPointer>

class QCheckBox;
class QVBoxLayout;

/// The editor of bit mask fields: a check box for each named bit.
///
/// Other than all other editors it records no command, so that its edits are no steps of the history, though
/// noted as changes, and it shows the value that the field had when it was set: later changes from elsewhere,
/// undo included, show when the field is set again.
class DvSFBitMaskWidget : public DvSFieldWidget
{
    Q_OBJECT

public:
    /// `name` becomes the object name; null gives "DvSFBitMaskWidget".
    explicit DvSFBitMaskWidget(const char* name);

    void load() override;
    void unload() override;
    /// Makes the check boxes for the field's enumeration and sets them from its value.
    void setField(SoField* field) override;

    ~DvSFBitMaskWidget() override;

public Q_SLOTS:
    /// Gives the field the bits of the boxes that are checked.
    void setBitMaskValue();

private:
    void initClass();
    void clearEditor();

    QList<QCheckBox*> m_boxes;
    QPointer<QVBoxLayout> m_boxLayout;
};
