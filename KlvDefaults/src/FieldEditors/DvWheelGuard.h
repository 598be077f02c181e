#pragma once

#include <QObject>

class QWidget;

/// Leaves the wheel to the surroundings of an input that does not have the keyboard focus, so that scrolling
/// past an input never changes its value.
class DvWheelGuard : public QObject
{
    Q_OBJECT

public:
    /// Guards a spin box, a combo box or a slider for as long as it lives, and has it take the focus by key
    /// and by click only. The guard belongs to the input.
    static void install(QWidget* input);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit DvWheelGuard(QWidget* input);
};
