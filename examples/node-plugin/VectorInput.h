#pragma once

#include <Inventor/SbVec3f.h>

#include <QWidget>

#include <array>

class QDoubleSpinBox;

/// Three number inputs side by side.
class VectorInput : public QWidget
{
    Q_OBJECT

public:
    /// `name` tells people that cannot see it what the input is for, `step` is what an arrow key adds.
    VectorInput(const QString& name, double step);

    /// Shows numbers. The input that has the focus keeps what is being typed there unless its number changes.
    void setNumbers(const SbVec3f& numbers);
    /// The numbers as they were set last, finer than they are shown.
    const SbVec3f& numbers() const { return m_numbers; }

Q_SIGNALS:
    /// A number was entered; column 0 is x. The receiver sets the numbers that come of it.
    void edited(int column, float number);

private:
    std::array<QDoubleSpinBox*, 3> m_boxes;
    SbVec3f m_numbers{0, 0, 0};
};
