#include "LoadProgress.h"

#include <QFileInfo>
#include <QLabel>
#include <QProgressDialog>

namespace {

constexpr qint64 patience = 300; // ms
constexpr int steps = 1000;

} // namespace

LoadProgress::LoadProgress(QWidget* window, const QString& file)
    : m_window(window)
    , m_file(QFileInfo(file).fileName())
{
    m_sinceStart.start();
}

LoadProgress::~LoadProgress() = default;

bool LoadProgress::tell(double share)
{
    if (!m_dialog && m_sinceStart.elapsed() < patience)
        return true;
    if (!m_dialog)
        showDialog();
    m_dialog->setMaximum(share < 0.0 ? 0 : steps);
    m_dialog->setValue(share < 0.0 ? 0 : int(share * steps));
    QCoreApplication::processEvents();
    return !m_dialog->wasCanceled();
}

void LoadProgress::showDialog()
{
    m_window->show();
    m_dialog = std::make_unique<QProgressDialog>(m_window);
    m_dialog->setWindowTitle(tr("Open Scene"));
    auto* label = new QLabel(tr("Reading %1…").arg(m_file));
    label->setTextFormat(Qt::PlainText);
    m_dialog->setLabel(label);
    m_dialog->setWindowModality(Qt::WindowModal);
    m_dialog->setAutoReset(false);
    m_dialog->setMinimumWidth(360);
    m_dialog->setMinimumDuration(0);
}
