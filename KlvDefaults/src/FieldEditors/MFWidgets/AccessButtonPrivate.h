#pragma once

#include <QSpinBox>

/// The quick access to the rows of an element table: a spin box that counts them from 1.
class AccessButtonPrivate : public QSpinBox
{
    Q_OBJECT

public:
    /// `name` becomes the object name.
    AccessButtonPrivate(QWidget* parent, const char* name);
    AccessButtonPrivate(int minimum, int maximum, int step, QWidget* parent, const char* name);
    ~AccessButtonPrivate() override;

public Q_SLOTS:
    /// Shows a row that is counted from 0.
    void setNewValue(int row);

protected:
    /// Return says the value once more, which jumps to its row again.
    void keyPressEvent(QKeyEvent* event) override;
};
