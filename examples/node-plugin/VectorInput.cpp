#include "VectorInput.h"

#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QSignalBlocker>

#include <limits>

VectorInput::VectorInput(const QString& name, double step)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    for (int column = 0; column < 3; ++column) {
        auto* box = new QDoubleSpinBox;
        const QString axis = QStringLiteral("xyz").mid(column, 1);
        box->setAccessibleName(name + QLatin1Char(' ') + axis);
        box->setPrefix(axis + QStringLiteral("  "));
        box->setDecimals(4);
        box->setRange(std::numeric_limits<float>::lowest(), std::numeric_limits<float>::max());
        box->setSingleStep(step);
        // The range asks for much more room than most numbers need.
        box->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        box->setMinimumWidth(box->fontMetrics().horizontalAdvance(QStringLiteral("x  -00.0000")) + 30);
        // A number counts once it is entered, not with each digit.
        box->setKeyboardTracking(false);
        connect(box, &QDoubleSpinBox::valueChanged, this,
                [this, column](double number) { Q_EMIT edited(column, float(number)); });
        layout->addWidget(box);
        m_boxes[column] = box;
    }
    setFocusProxy(m_boxes[0]);
}

void VectorInput::setNumbers(const SbVec3f& numbers)
{
    for (int column = 0; column < 3; ++column) {
        if (numbers[column] == m_numbers[column] && m_boxes[column]->hasFocus())
            continue;
        const QSignalBlocker silent(m_boxes[column]);
        m_boxes[column]->setValue(numbers[column]);
    }
    m_numbers = numbers;
}
