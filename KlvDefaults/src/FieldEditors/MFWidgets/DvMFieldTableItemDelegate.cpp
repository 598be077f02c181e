#include "FieldEditors/MFWidgets/DvMFieldTableItemDelegate.h"

#include "FieldEditors/DvIntSlider.h"
#include "FieldEditors/DvPastedNumber.h"
#include "FieldEditors/DvRealSlider.h"
#include "FieldEditors/DvUIntSlider.h"
#include "FieldEditors/MFWidgets/DvCellSliderGuard.h"
#include "FieldEditors/MFWidgets/DvCellValidators.h"
#include "FieldEditors/MFWidgets/DvMFieldWidget.h"
#include "FieldEditors/SFWidgets/DvLineEdit.h"

#include <Inventor/fields/SoMField.h>

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QLocale>
#include <QPainter>
#include <QPointer>

#include <algorithm>

namespace {

/// The property of a line edit that holds the text it was opened with.
constexpr char OpenedWith[] = "openedWith";

/// More of a text than fits into any cell; a text may have millions of characters.
constexpr qsizetype ShownLength = 1000;

QString onOneLine(const QString& text)
{
    QString line = text.left(ShownLength);
    std::replace_if(
        line.begin(), line.end(),
        [](QChar character) { return character.category() == QChar::Other_Control; }, u' ');
    return line;
}

/// True when an editor can be closed with what it shows: it can be written, or nothing was entered.
bool isDone(const QLineEdit* edit)
{
    return isCommittable(edit) || edit->text() == edit->property(OpenedWith).toString();
}

struct Cell
{
    DvMFieldWidget* owner;
    QWidget* parent;
    int row;
    int column;
    QString text;
};

template <bool isFloat>
DvSlider* createReal(const Cell& cell, int, int, double min, double max)
{
    auto* slider =
        new DvRealSlider(DvSlider::MultiValue, cell.owner, cell.parent, isFloat, cell.row, cell.column);
    slider->setValidLimits(min, max, true);
    slider->setRealValue(isFloat ? cell.text.toFloat() : cell.text.toDouble());
    return slider;
}

template <typename Slider, DvSlider::SliderType type>
DvSlider* createInteger(const Cell& cell, int min, int max, double, double)
{
    auto* slider = new Slider(type, DvSlider::MultiValue, cell.owner, cell.parent, cell.row, cell.column);
    if constexpr (std::is_same_v<Slider, DvUIntSlider>)
        slider->setValidLimits(std::max(min, 0), std::max(max, 0), true);
    else
        slider->setValidLimits(min, max, true);
    slider->setValue(cell.text);
    return slider;
}

/// What makes the slider frame for each cell type; text has none.
DvSlider* (*const createSlider[])(const Cell& cell, int intMin, int intMax, double min, double max) = {
    nullptr,
    createInteger<DvIntSlider, DvSlider::Int16>,
    createInteger<DvUIntSlider, DvSlider::UInt16>,
    createInteger<DvIntSlider, DvSlider::Int32>,
    createInteger<DvUIntSlider, DvSlider::UInt32>,
    createInteger<DvIntSlider, DvSlider::Int32>,
    createInteger<DvUIntSlider, DvSlider::UInt32>,
    createReal<true>,
    createReal<false>,
};

} // namespace

DvMFieldTableItemDelegate::DvMFieldTableItemDelegate(DvMFieldWidget* owner, QObject* parent)
    : QItemDelegate(parent)
    , m_owner(owner)
{
}

DvMFieldTableItemDelegate::~DvMFieldTableItemDelegate() = default;

void DvMFieldTableItemDelegate::setIntEditorRange(int min, int max)
{
    m_intMin = min;
    m_intMax = max;
}

void DvMFieldTableItemDelegate::setDoubleEditorRange(double min, double max)
{
    m_doubleMin = min;
    m_doubleMax = max;
}

QString DvMFieldTableItemDelegate::withinBounds(const QString& text) const
{
    bool isNumber = false;
    const double value = text.toDouble(&isNumber);
    const bool real = m_cellType == DvMFieldTable::FloatCell || m_cellType == DvMFieldTable::DoubleCell;
    if (!m_bounded || !real || !isNumber || !(m_doubleMin < m_doubleMax))
        return text;
    const double bounded = std::clamp(value, m_doubleMin, m_doubleMax);
    return bounded == value ? text : QString::number(bounded, 'g', QLocale::FloatingPointShortest);
}

void DvMFieldTableItemDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                      const QModelIndex& index) const
{
    QStyleOptionViewItem cell = setOptions(index, option);
    cell.displayAlignment = Qt::Alignment(m_owner->getTextFlags());
    // The current row shows also while the keyboard is elsewhere and nothing is selected.
    const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
    if (view && view->currentIndex() == index)
        cell.state |= QStyle::State_Selected;
    painter->save();
    drawBackground(painter, cell, index);
    drawDisplay(painter, cell, cell.rect, onOneLine(m_owner->getShownText(index.row(), index.column())));
    drawFocus(painter, cell, cell.rect);
    painter->restore();
}

QWidget* DvMFieldTableItemDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                                 const QModelIndex& index) const
{
    const Cell cell = {m_owner, parent, index.row(), index.column(),
                       m_owner->getFieldValue(index.row(), index.column())};
    if (m_bounded && m_cellType > DvMFieldTable::TextCell && m_cellType < std::ssize(createSlider)) {
        DvSlider* slider = createSlider[m_cellType](cell, m_intMin, m_intMax, m_doubleMin, m_doubleMax);
        slider->setAutoFillBackground(true);
        slider->setFocusProxy(slider->findChild<QLineEdit*>());
        new DvCellSliderGuard(slider, m_owner, index.row());
        return slider;
    }
    auto* edit = new DvLineEdit(parent);
    edit->setObjectName(QStringLiteral("qt_lineeditor"));
    edit->setFrame(false);
    edit->setFocusPolicy(Qt::StrongFocus);
    edit->setAlignment(Qt::Alignment(m_owner->getTextFlags()));
    edit->setText(cell.text);
    edit->setProperty(OpenedWith, cell.text);
    setValidator(edit);
    DvPastedNumber::install(edit);
    return edit;
}

void DvMFieldTableItemDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                                     const QModelIndex&) const
{
    editor->setGeometry(option.rect);
}

void DvMFieldTableItemDelegate::setEditorData(QWidget*, const QModelIndex&) const
{
    // An editor has its text from the moment it is made. This is called again whenever the table changes,
    // when it would overwrite what is being typed.
}

void DvMFieldTableItemDelegate::setModelData(QWidget* editor, QAbstractItemModel*,
                                             const QModelIndex& index) const
{
    const SoMField* field = m_owner->getField();
    const bool exists = field && index.row() < field->getNum();
    if (auto* slider = qobject_cast<DvSlider*>(editor)) {
        if (exists && slider->findChild<QLineEdit*>()->hasAcceptableInput())
            slider->changeValueFromEdit();
        else
            slider->updateEdit();
        return;
    }
    const auto* edit = qobject_cast<QLineEdit*>(editor);
    const bool entered =
        edit && (edit->isModified() || edit->text() != edit->property(OpenedWith).toString());
    if (entered && exists && isCommittable(edit))
        m_owner->set1Value(index.row(), index.column(), edit->text());
}

void DvMFieldTableItemDelegate::setValidator(QLineEdit* edit) const
{
    edit->setValidator(createCellValidator(m_cellType, edit->text(), edit));
}

bool DvMFieldTableItemDelegate::eventFilter(QObject* watched, QEvent* event)
{
    auto* guard = event->type() == QEvent::KeyPress ? watched->findChild<DvCellSliderGuard*>() : nullptr;
    if (guard && guard->handleKey(static_cast<QKeyEvent*>(event)->key()))
        return true;
    const QPointer<QLineEdit> edit = qobject_cast<QLineEdit*>(watched);
    if (!edit || edit->hasAcceptableInput() || !isDone(edit))
        return QItemDelegate::eventFilter(watched, event);
    // The base class closes no editor whose validator is not content, which some never are.
    const QValidator* validator = edit->validator();
    edit->setValidator(nullptr);
    const bool handled = QItemDelegate::eventFilter(watched, event);
    if (edit)
        edit->setValidator(validator);
    return handled;
}
