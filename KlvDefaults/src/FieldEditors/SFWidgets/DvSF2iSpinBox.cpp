#include "FieldEditors/SFWidgets/DvSF2iSpinBox.h"

#include "FieldEditors/DvWheelGuard.h"

#include <QSignalBlocker>
#include <QSpinBox>

#include <limits>

namespace {

struct Limits
{
    int minimum;
    int maximum;
};

template <typename Integer>
constexpr Limits limitsOf{std::numeric_limits<Integer>::min(), std::numeric_limits<Integer>::max()};

constexpr Limits limitsOfKind[] = {limitsOf<qint16>, limitsOf<qint32>, limitsOf<qint32>};

} // namespace

DvSF2iSpinBox::DvSF2iSpinBox(SoType kind, const char* kindName, int limits, const char* name)
    : DvSFColumnsWidget(
          kind, kindName,
          {"SF2BoxLayout", "SF4flabel", "SF2Box", "SF2BoxVSpacing", "SF2BoxHSpacing", "SF2BoxHMargin"},
          {QStringLiteral("x"), QStringLiteral("y")}, name)
    , m_limits(limits)
{
}

DvSF2iSpinBox::~DvSF2iSpinBox() = default;

void DvSF2iSpinBox::load()
{
    DvSFColumnsWidget::load();
    for (QSpinBox*& box : m_boxes) {
        QLabel* label = nullptr;
        buildComponent(box, label);
    }
    setNameLabels(captions().constData());
    setLimits(m_limits);
}

void DvSF2iSpinBox::buildComponent(QSpinBox*& box, QLabel*& label)
{
    box = new QSpinBox(m_editionFrame);
    box->setLocale(QLocale::c());
    DvWheelGuard::install(box);
    label = addColumn(box);
    connect(box, SIGNAL(valueChanged(int)), this, SLOT(setCommandValue()));
}

void DvSF2iSpinBox::setLimits(int kind)
{
    if (kind < 0 || kind >= int(std::size(limitsOfKind)))
        return;
    for (QSpinBox* box : m_boxes) {
        const QSignalBlocker blocker(box);
        box->setRange(limitsOfKind[kind].minimum, limitsOfKind[kind].maximum);
    }
}

void DvSF2iSpinBox::refresh()
{
    if (m_field) {
        const bool isEcho = takeEcho();
        getComponents(m_shown.data());
        for (size_t i = 0; i < m_boxes.size(); ++i) {
            // Setting the same value again would disturb a number that is being typed.
            if (isEcho && m_boxes[i]->value() == m_shown[i])
                continue;
            const QSignalBlocker blocker(m_boxes[i]);
            m_boxes[i]->setValue(m_shown[i]);
        }
    }
    DvSFieldWidget::refresh();
}

void DvSF2iSpinBox::applyChanges()
{
    if (!m_field)
        return;
    std::array<int, 2> components;
    getComponents(components.data());
    bool entered = false;
    for (size_t i = 0; i < m_boxes.size(); ++i) {
        // A component that was not changed here may have been elsewhere since it was shown.
        if (m_boxes[i]->value() == m_shown[i])
            continue;
        components[i] = m_shown[i] = m_boxes[i]->value();
        entered = true;
    }
    // A spin box tells of its value at each Return.
    if (entered) {
        setComponents(components.data());
        expectEcho();
    }
    recordValue();
}
