#include "FieldEditors/DvEscapeKey.h"

#include <QKeyEvent>
#include <QLineEdit>

#include <utility>

DvEscapeKey::DvEscapeKey(QWidget* input, const QLineEdit* line, std::function<void()> takeBack)
    : QObject(input)
    , m_line(line)
    , m_takeBack(std::move(takeBack))
{
    input->installEventFilter(this);
}

void DvEscapeKey::install(QWidget* input, const QLineEdit* line, std::function<void()> takeBack)
{
    new DvEscapeKey(input, line, std::move(takeBack));
}

bool DvEscapeKey::eventFilter(QObject*, QEvent* event)
{
    const bool isPress = event->type() == QEvent::KeyPress;
    if ((!isPress && event->type() != QEvent::ShortcutOverride) || !m_line->isModified() ||
        !static_cast<QKeyEvent*>(event)->matches(QKeySequence::Cancel))
        return false;
    // First it is asked whether the key is for a shortcut of the window.
    event->accept();
    if (isPress)
        m_takeBack();
    return true;
}
