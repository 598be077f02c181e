#pragma once

#include <QLineEdit>

/// The entry for one line of text that stands for a whole value: it takes texts of any length and keeps line
/// breaks and tabs, so that a value shown and committed is the same value afterwards.
class DvLineEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit DvLineEdit(QWidget* parent);

    /// Shows by a tint and a tool tip that a field did not take the text.
    void setRefused(bool refused);

protected:
    void changeEvent(QEvent* event) override;

private:
    void showTint();

    bool m_refused = false;
};
