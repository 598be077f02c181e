#pragma once

#include "FieldEditors/SFWidgets/DvSFieldWidget.h"

#include <QPointer>

class QComboBox;

/// The editor of enumeration fields: a combo box with the names of the field's enumeration.
class DvSFEnumWidget : public DvSFieldWidget
{
    Q_OBJECT

public:
    /// `name` becomes the object name; null gives "DvSFEnumWidget".
    explicit DvSFEnumWidget(const char* name);

    void load() override;
    /// Fills the combo box with the field's enumeration.
    void setField(SoField* field) override;
    /// Chooses the item that has the field's text. If none has, because the value is not in the enumeration,
    /// the chosen item shows that text in place of its own until the field has another value.
    void refresh() override;

    ~DvSFEnumWidget() override;

public Q_SLOTS:
    /// Writes the chosen name into the field, if the enumeration has it, and records that.
    void applyChanges() override;

private:
    void restoreItemText();

    QPointer<QComboBox> comboBox;
    int m_replacedItem = -1;
    QString m_replacedText;
};
