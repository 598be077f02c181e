#include "Person.h"

#include <QtTest>
#include <QtWidgets>

namespace {

const QStringList keys =
    QString("Return Tab Shift+Tab Esc Space Del Backspace Up Down Left Right PgUp PgDown Home End F2 F3 F4 "
            "F5 F10 Menu Ctrl+A Ctrl+C Ctrl+V Ctrl+X Ctrl+F Ctrl+Z Ctrl+Y Ctrl+S Ctrl+Q Ctrl+W Ctrl+Return "
            "Alt+Left Alt+Right Alt+F Alt+E Alt+V Alt+T Shift+Down Shift+F3 / A F H L O S")
        .split(' ');

} // namespace

const QStringList& Person::texts()
{
    static const QStringList texts{"1",
                                   "-0.5 2 3e2",
                                   "[0.1 0.2 0.3, 1 1 1]",
                                   "TRUE",
                                   "\"a\" \"ä\n\\\"",
                                   "0 1 0 1.5",
                                   "~",
                                   "LINES",
                                   "",
                                   "1e400 nan",
                                   "type:Material transparency>0.5",
                                   "is:changed c",
                                   "2 2 3 0xff0000 0x00ff00 0x0000ff 0xffffff",
                                   "99999999999",
                                   "Separator { Cube {} }"};
    return texts;
}

QWidget* Person::front() const
{
    QWidget* question = QApplication::activePopupWidget();
    question = question ? question : QApplication::activeModalWidget();
    return question ? question : m_window;
}

template <class Widget>
QList<Widget*> Person::visible(Qt::FocusPolicy policy)
{
    QList<Widget*> widgets = front()->findChildren<Widget*>();
    widgets.removeIf([policy](const Widget* widget) {
        return !widget->isVisible() || (widget->focusPolicy() & policy) != policy;
    });
    return widgets;
}

void Person::press(const QString& keys, const QString& text)
{
    const QKeySequence sequence(keys);
    const QKeyCombination key = sequence.isEmpty() ? QKeyCombination(Qt::Key_unknown) : sequence[0];
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        const QWidget* popup = QApplication::activePopupWidget();
        if (QWindow* window = popup ? popup->windowHandle() : QApplication::focusWindow())
            qt_handleKeyEvent(window, type, key.key(), key.keyboardModifiers(), text);
    }
}

void Person::edit()
{
    const QList<QLineEdit*> inputs = visible<QLineEdit>(Qt::TabFocus);
    if (inputs.isEmpty())
        return;
    m_chance.pickFrom(inputs)->setFocus();
    press("Ctrl+A");
    for (const QChar character : m_chance.pickFrom(texts()))
        press(character.toUpper(), character);
    press(m_chance.pick(3) ? "Return" : "Tab");
}

void Person::click(Qt::MouseButton button, int clicks, int moves)
{
    const QList<QWidget*> widgets = visible<QWidget>(m_chance.pick(2) ? Qt::TabFocus : Qt::NoFocus);
    const QWidget* widget = widgets.isEmpty() ? front() : m_chance.pickFrom(widgets);
    const QPointer<QWindow> window = widget->window()->windowHandle();
    QPoint position = widget->mapTo(widget->window(), m_chance.pickPoint(widget));
    const Qt::KeyboardModifiers modifiers(m_chance.pick(4) ? 0 : int(Qt::ShiftModifier) << m_chance.pick(2));
    const auto send = [&](QEvent::Type type, Qt::MouseButtons held, Qt::MouseButton changed) {
        if (window)
            qt_handleMouseEvent(window, position, window->mapToGlobal(position), held, changed, type,
                                modifiers, ++m_time);
    };
    m_time += 1000; // more than parts a double click
    send(QEvent::MouseMove, {}, Qt::NoButton);
    for (int click = 0; click < clicks; ++click) {
        send(QEvent::MouseButtonPress, button, button);
        for (int move = 0; move < moves; ++move) {
            position += QPoint{m_chance.pick(121) - 60, m_chance.pick(121) - 60};
            send(QEvent::MouseMove, button, Qt::NoButton);
            QApplication::processEvents();
        }
        send(QEvent::MouseButtonRelease, {}, button);
    }
}

void Person::turnWheel()
{
    const QPoint position = m_chance.pickPoint(front());
    QWidget* child = front()->childAt(position);
    QWheelEvent event(position, front()->mapToGlobal(position), {}, {0, 120 * (m_chance.pick(7) - 3)},
                      Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(child ? child : front(), &event);
}

void Person::pressAny()
{
    press(m_chance.pickFrom(keys));
}
