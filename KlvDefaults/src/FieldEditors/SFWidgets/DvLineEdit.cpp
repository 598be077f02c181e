#include "FieldEditors/SFWidgets/DvLineEdit.h"

#include <QEvent>

#include <limits>
#include <utility>

namespace {

/// Three parts of a colour and one of red.
QColor reddened(const QColor& color)
{
    return QColor((3 * color.red() + 220) / 4, (3 * color.green() + 40) / 4, (3 * color.blue() + 40) / 4);
}

} // namespace

DvLineEdit::DvLineEdit(QWidget* parent)
    : QLineEdit(parent)
{
    setObjectName(QStringLiteral("lineEdit"));
    setAccessibleName(tr("Value"));
    setAlignment(Qt::AlignLeft);
    setMaxLength(std::numeric_limits<int>::max());
}

void DvLineEdit::setRefused(bool refused)
{
    if (std::exchange(m_refused, refused) == refused)
        return;
    setToolTip(refused ? tr("The field does not take this text") : QString());
    showTint();
}

void DvLineEdit::showTint()
{
    QPalette tinted; // unset, it follows the theme
    if (m_refused)
        tinted.setColor(QPalette::Base, reddened(parentWidget()->palette().color(QPalette::Base)));
    setPalette(tinted);
}

void DvLineEdit::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange && m_refused)
        showTint();
    QLineEdit::changeEvent(event);
}
