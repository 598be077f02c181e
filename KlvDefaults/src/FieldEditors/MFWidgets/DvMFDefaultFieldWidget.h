#pragma once

#include "FieldEditors/MFWidgets/DvMFColumnWidget.h"

/// The editor of any multi-value field, in the elements' text form. Nodes, engines and paths are shown in a
/// few words.
class DvMFDefaultFieldWidget : public DvMFColumnWidget
{
    Q_OBJECT

public:
    /// `name` becomes the object name; null gives "DvMFDefaultFieldWidget".
    explicit DvMFDefaultFieldWidget(const char* name);

    QString getShownText(int row, int column) const override;

    ~DvMFDefaultFieldWidget() override;
};
