#include "FieldEditors/DvSlider.h"

#include "FieldEditors/DvEscapeKey.h"
#include "FieldEditors/DvWheelGuard.h"
#include "FieldEditors/KlvFieldEditors.h"

#include <QCheckBox>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QSlider>

DvSlider::DvSlider(SliderParentType parentType, KlvFieldEditors* owner, QWidget* parent, int row, int column)
    : QFrame(parent)
    , m_parentType(parentType)
    , m_owner(owner)
    , m_row(row)
    , m_column(column)
{
    setObjectName(QStringLiteral("DvSliderFrame"));
    m_layout = new QHBoxLayout(this);
    const int margin = parentType == SingleValue ? 2 : 0;
    m_layout->setContentsMargins(margin, margin, margin, margin);
    m_layout->setSpacing(parentType == SingleValue ? 4 : 3);
    m_layout->setObjectName(QStringLiteral("kelvorslider"));

    m_checkBox = new QCheckBox(this);
    m_checkBox->setObjectName(QStringLiteral("checkBox"));
    m_checkBox->setChecked(true);
    m_checkBox->setFocusPolicy(Qt::StrongFocus);
    m_checkBox->setAccessibleName(tr("Live update"));
    m_checkBox->setToolTip(tr("Change the field while the slider moves"));
    m_layout->addWidget(m_checkBox);

    m_slider = new QSlider(Qt::Horizontal, this);
    m_slider->setObjectName(QStringLiteral("slider"));
    m_slider->setTracking(true);
    m_slider->setAccessibleName(tr("Slider"));
    m_slider->installEventFilter(this);
    DvWheelGuard::install(m_slider);
    m_layout->addWidget(m_slider, 2);

    m_lineEdit = new QLineEdit(this);
    m_lineEdit->setObjectName(QStringLiteral("lineEdit"));
    m_lineEdit->setAccessibleName(tr("Value"));
    m_lineEdit->installEventFilter(this);
    m_layout->addWidget(m_lineEdit, 3);
    // A cell of a table is reverted as a whole.
    if (parentType == SingleValue) {
        for (QWidget* input : {static_cast<QWidget*>(m_slider), static_cast<QWidget*>(m_lineEdit)})
            DvEscapeKey::install(input, m_lineEdit, [this] { m_owner->refresh(); });
    }

    connect(m_slider, SIGNAL(sliderPressed()), this, SLOT(beginCallback()));
    connect(m_slider, SIGNAL(valueChanged(int)), this, SLOT(valueChangeSlot(int)));
    connect(m_slider, SIGNAL(sliderReleased()), this, SLOT(finishCallback()));
    connect(m_lineEdit, SIGNAL(returnPressed()), this, SLOT(changeValueFromEdit()));
    connect(m_lineEdit, SIGNAL(editingFinished()), this, SLOT(changeValueFromEdit()));
    connect(m_checkBox, SIGNAL(toggled(bool)), this, SLOT(eventNotify(bool)));
    m_sliderSignalsOn = true;
}

DvSlider::~DvSlider() = default;

void DvSlider::setValue(QString) {}

void DvSlider::saveDataFromField() {}

void DvSlider::updateSlider()
{
    const QScopedValueRollback<bool> signalsOff(m_sliderSignalsOn, false);
    m_slider->setValue(m_currentPosition);
}

int DvSlider::getValue() const
{
    return m_slider->value();
}

QString DvSlider::getValueFromEdit() const
{
    return m_lineEdit->text();
}

void DvSlider::setText(const QString& text)
{
    m_lineEdit->setText(text);
    m_lineEdit->setCursorPosition(0);
    m_moved = false;
}

QString DvSlider::getText() const
{
    return withPrefix(m_lineEdit->text());
}

void DvSlider::setChecked(bool checked)
{
    m_checkBox->setChecked(checked);
}

bool DvSlider::isChecked() const
{
    return m_checkBox->isChecked();
}

bool DvSlider::isEdited() const
{
    return m_lineEdit->isModified();
}

void DvSlider::changeValueFromEdit()
{
    if (!m_lineEdit->isModified() || m_lineEdit->text().isEmpty())
        return;
    setValueFromEdit();
    updateSlider();
    commit();
}

void DvSlider::eventNotify(bool checked)
{
    m_liveUpdate = checked;
}

void DvSlider::beginCallback()
{
    m_sliderInUse = true;
}

void DvSlider::finishCallback()
{
    m_sliderInUse = false;
    // A slider that was only touched leaves the value, which a position may stand for inexactly.
    if (m_slider->value() != m_currentPosition)
        setValueFromSlider(m_slider->value());
    commit();
}

void DvSlider::valueChangeSlot(int position)
{
    if (!m_sliderSignalsOn)
        return;
    m_sliderInUse = true;
    setValueFromSlider(position);
    updateEdit();
    if (m_liveUpdate) {
        commit();
    } else {
        m_moved = true;
        m_lineEdit->setModified(true);
    }
    m_sliderInUse = false;
}

void DvSlider::changeValueFromSlider(int)
{
    if (m_sliderInUse && m_liveUpdate)
        commit();
}

void DvSlider::changeValueAfterFinish(int position)
{
    setValueFromSlider(position);
    commit();
}

bool DvSlider::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusOut) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (watched == m_lineEdit && reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason)
            dropUnacceptableText();
        else if (watched == m_slider && reason != Qt::PopupFocusReason)
            commitMoves();
    } else if (watched == m_slider && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if ((key == Qt::Key_Return || key == Qt::Key_Enter) && commitMoves())
            return true;
    } else if (watched == m_slider && event->type() == QEvent::MouseButtonRelease &&
               !m_slider->isSliderDown()) {
        // A click beside the handle moves the slider without a press of its own.
        commitMoves();
    }
    return QFrame::eventFilter(watched, event);
}

void DvSlider::dropUnacceptableText()
{
    if (m_lineEdit->isModified() && (m_lineEdit->text().isEmpty() || !m_lineEdit->hasAcceptableInput()))
        updateEdit();
}

void DvSlider::setPositions(int minimum, int maximum)
{
    {
        const QScopedValueRollback<bool> signalsOff(m_sliderSignalsOn, false);
        m_slider->setRange(minimum, maximum);
        m_slider->setPageStep(qMax(1, static_cast<int>((qint64(maximum) - minimum) / 10)));
    }
    updateSlider();
}

QString DvSlider::withPrefix(QString text) const
{
    const QLatin1String prefix(m_base == 16 ? "0x" : m_base == 8 ? "0" : "");
    const qsizetype digits = text.startsWith(QLatin1Char('-')) ? 1 : 0;
    if (!QStringView(text).sliced(digits).startsWith(prefix, Qt::CaseInsensitive))
        text.insert(digits, prefix);
    return text;
}

void DvSlider::commit()
{
    // Return is followed by the end of editing, which must not commit again.
    m_lineEdit->setModified(false);
    m_moved = false;
    if (m_parentType == SingleValue) {
        m_owner->applyChanges();
        return;
    }
    if (isTextRounded())
        return;
    m_written = true;
    m_owner->setRefresh(false);
    m_owner->set1Value(m_row, m_column, getText());
    m_owner->setRefresh(true);
}

bool DvSlider::commitMoves()
{
    const bool moved = m_moved;
    if (moved)
        commit();
    return moved;
}
