#pragma once

#include <QLineEdit>

/// The entry for one line of text that stands for a whole value: it takes texts of any length and keeps line
/// breaks and tabs, so that a value shown and committed is the same value afterwards.
class DvLineEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit DvLineEdit(QWidget* parent);
};
