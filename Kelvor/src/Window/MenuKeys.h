#pragma once

#include <QObject>

class QWidget;

/// Keeps keys for the menus of a window while one of them is open, or the menu bar is. Where these keys are
/// also shortcuts of a view, the view would take them before the menu finds its letters.
class MenuKeys : public QObject
{
    Q_OBJECT

public:
    /// Watches the application for keys in the window's menus; belongs to the window.
    explicit MenuKeys(QWidget* window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
