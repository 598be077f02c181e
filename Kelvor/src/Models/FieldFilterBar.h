#pragma once

#include <QWidget>

class FieldFilter;
class QLineEdit;
class QToolButton;

/// The line and the two switches of a field filter. Down and Return go on to the list, Esc clears the line
/// and then goes back to the list.
class FieldFilterBar : public QWidget
{
    Q_OBJECT

public:
    /// The filter outlives the bar.
    explicit FieldFilterBar(FieldFilter* filter, QWidget* parent = nullptr);

    /// Gives the line the focus, with its text selected.
    void start();
    /// Clears the line and the switches.
    void showAll();

Q_SIGNALS:
    /// The list is wanted: its current row, or the first one.
    void entered();
    /// The line was left as it was entered.
    void left();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QLineEdit* m_line;
    QToolButton* m_onlySet;
    QToolButton* m_onlyChanged;
};
