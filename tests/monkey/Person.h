#pragma once

#include "Chance.h"

#include <QStringList>

/// Somebody at mouse and keyboard: everything goes the way of real input, into the window or into what has
/// opened above it.
class Person
{
public:
    explicit Person(Chance& chance)
        : m_chance(chance)
    {
    }
    void setWindow(QWidget* window) { m_window = window; }

    /// What a person types and has in the clipboard.
    static const QStringList& texts();

    /// What takes input now: an open menu or question, else the window.
    QWidget* front() const;
    void press(const QString& keys, const QString& text = QString());
    void pressAny();
    /// Types a text into one of the line edits.
    void edit();
    /// Clicks somewhere, with movements while the button is held.
    void click(Qt::MouseButton button, int clicks, int moves = 0);
    void turnWheel();

private:
    template <class Widget>
    QList<Widget*> visible(Qt::FocusPolicy policy);

    Chance& m_chance;
    QWidget* m_window = nullptr;
    int m_time = 0; // of the mouse, in milliseconds
};
