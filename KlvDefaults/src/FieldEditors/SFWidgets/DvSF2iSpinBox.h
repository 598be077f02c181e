#pragma once

#include "FieldEditors/SFWidgets/DvSFColumnsWidget.h"

#include <array>

class QSpinBox;

/// Base of the editors of values with two integer components, one spin box each. They commit with every
/// change.
class DvSF2iSpinBox : public DvSFColumnsWidget
{
    Q_OBJECT

public:
    using Component = int;

    void load() override;
    /// Shows the components. A text that is being typed stays if the refresh is but the echo of an edit made
    /// here.
    void refresh() override;
    /// Sets what can be entered once the editor is loaded: 0 for 16-bit components, 1 and 2 for 32-bit ones;
    /// any other leaves it.
    void setLimits(int kind);

    ~DvSF2iSpinBox() override;

public Q_SLOTS:
    /// Writes the components into the field and records that.
    void applyChanges() override;

protected:
    /// The editor of the fields of a kind, whose components have those limits. `name` becomes the object
    /// name.
    DvSF2iSpinBox(SoType kind, const char* kindName, int limits, const char* name);

    /// Makes one column.
    void buildComponent(QSpinBox*& box, QLabel*& label);
    /// Reads the components of the field, which is set.
    virtual void getComponents(int* components) const = 0;
    /// Writes the components into the field, which is set. Every pair within the limits is a value.
    virtual bool setComponents(const int* components) = 0;

private:
    int m_limits;
    std::array<QSpinBox*, 2> m_boxes{};
    /// What the boxes showed when they and the field last agreed.
    std::array<int, 2> m_shown{};
};
