#pragma once

#include <QPushButton>

class QAction;
class QKeySequence;

/// A small button of a field editor that shows an icon only.
///
/// It never takes the focus from an input. An action does the same as a click, by a shortcut that works in
/// the whole editor and in the context menu. The button's tool tip is also its accessible name and the text
/// of the action.
class DvIconButton : public QPushButton
{
    Q_OBJECT

public:
    /// A button in `container`, which also gets the action. `name` becomes the object name.
    DvIconButton(const char* name, const QPixmap& icon, const QKeySequence& shortcut, QWidget* container);

    /// Makes it a button that stays in when it is pressed, with a paler icon while it is out.
    void setToggling();

protected:
    bool event(QEvent* event) override;

private:
    QAction* m_action;
};
