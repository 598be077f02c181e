#pragma once

#include <QObject>

#include <functional>

class QLineEdit;

/// Has Escape take back what was entered in a line edit and not committed. Without such a text the key goes
/// on to the surroundings of the line edit.
class DvEscapeKey : public QObject
{
    Q_OBJECT

public:
    /// Watches the keys of `input`, the line edit itself or another input of the same text. `takeBack` shows
    /// what the text was entered over. The watcher belongs to the input; the line edit must outlive it.
    static void install(QWidget* input, const QLineEdit* line, std::function<void()> takeBack);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    DvEscapeKey(QWidget* input, const QLineEdit* line, std::function<void()> takeBack);

    const QLineEdit* m_line;
    const std::function<void()> m_takeBack;
};
