#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

class MainWindow;

/// Writes a picture of the whole window once the scene has been drawn and nothing moves any more in its
/// layout.
class Screenshot : public QObject
{
    Q_OBJECT

public:
    /// Starts waiting; the window is shown already and outlives it.
    Screenshot(MainWindow* window, const QString& file);

Q_SIGNALS:
    /// The picture has been written, or not: then `error` is one sentence.
    void finished(const QString& error);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void take();

    MainWindow* m_window;
    QString m_file;
    QTimer m_settled;
};
