#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QString>

#include <memory>

class QProgressDialog;
class QWidget;

/// Tells how far the reading of a scene has come, and lets a person cancel it, in a dialog that appears when
/// it takes longer than people care to notice. Input to the window waits meanwhile.
class LoadProgress
{
    Q_DECLARE_TR_FUNCTIONS(LoadProgress)

public:
    /// The window need not be shown yet; it is, when the dialog is.
    LoadProgress(QWidget* window, const QString& file);
    ~LoadProgress();
    LoadProgress(const LoadProgress&) = delete;
    LoadProgress& operator=(const LoadProgress&) = delete;

    /// To be called now and then with the share that has been read, less than 0 when it is not known; false
    /// once a person has cancelled. Runs the event loop.
    bool tell(double share);

private:
    void showDialog();

    QWidget* m_window;
    const QString m_file;
    QElapsedTimer m_sinceStart;
    std::unique_ptr<QProgressDialog> m_dialog;
};
