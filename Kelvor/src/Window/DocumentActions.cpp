#include "DocumentActions.h"

#include "HistoryKeys.h"
#include "RecentFiles.h"
#include "Scene/SceneDocument.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QMimeData>
#include <QUndoStack>
#include <QUrl>

namespace {

QString sceneFilter()
{
    return DocumentActions::tr("Scenes (*.iv *.wrl *.iv.gz *.wrl.gz *.wrz);;All files (*)");
}

} // namespace

DocumentActions::DocumentActions(SceneDocument* document, QUndoStack* history, const HostShell* shell,
                                 QWidget* window)
    : QObject(window)
    , m_document(document)
    , m_history(history)
    , m_shell(shell)
    , m_window(window)
    , m_recent(new RecentFiles(window))
{
    connect(m_recent, &RecentFiles::chosen, this, &DocumentActions::open);
}

void DocumentActions::addTo(QMenu* menu)
{
    menu->addAction(tr("&Open…"), QKeySequence::Open, this, &DocumentActions::chooseAndOpen);
    menu->addMenu(m_recent);
    QAction* reloadAction =
        menu->addAction(tr("&Reload"), QKeySequence(Qt::Key_F5), this, &DocumentActions::reload);
    menu->addSeparator();
    menu->addAction(tr("Save &As…"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S), this,
                    &DocumentActions::chooseAndSave);
    menu->addSeparator();
    menu->addAction(tr("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), m_window, &QWidget::close);

    const auto update = [this, reloadAction] { reloadAction->setEnabled(!m_document->fileName().isEmpty()); };
    connect(menu, &QMenu::aboutToShow, this, update);
}

void DocumentActions::open(const QString& file)
{
    if (mayDiscard())
        load(file);
}

bool DocumentActions::openAtStart(const QString& file, QString* error)
{
    if (!m_document->open(file, error))
        return false;
    m_recent->add(file);
    return true;
}

void DocumentActions::load(const QString& file)
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QString error;
    const bool opened = openAtStart(file, &error);
    QApplication::restoreOverrideCursor();
    if (!opened)
        showFailure(error);
}

bool DocumentActions::mayDiscard()
{
    // What has been typed but not yet taken is a change, too.
    HistoryKeys::commitPendingInput(*m_shell);
    if (m_history->isClean())
        return true;
    const auto answer = QMessageBox::question(
        m_window, tr("Unsaved changes"), tr("The scene has been changed. Save the changes?"),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    return answer == QMessageBox::Discard || (answer == QMessageBox::Save && chooseAndSave());
}

QString DocumentActions::sceneFile(const QMimeData* data)
{
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 ? urls.constFirst().toLocalFile() : QString();
}

void DocumentActions::chooseAndOpen()
{
    const QString file =
        QFileDialog::getOpenFileName(m_window, tr("Open Scene"), m_document->fileName(), sceneFilter());
    if (!file.isEmpty())
        open(file);
}

bool DocumentActions::chooseAndSave()
{
    HistoryKeys::commitPendingInput(*m_shell);
    const QString file =
        QFileDialog::getSaveFileName(m_window, tr("Save Scene As"), m_document->fileName(), sceneFilter());
    if (file.isEmpty())
        return false;
    QString error;
    if (!m_document->save(file, &error)) {
        showFailure(error);
        return false;
    }
    m_history->setClean();
    m_recent->add(file);
    return true;
}

void DocumentActions::reload()
{
    const QString file = m_document->fileName();
    if (!file.isEmpty())
        open(file);
}

void DocumentActions::showFailure(const QString& sentence)
{
    QMessageBox::warning(m_window, QApplication::applicationDisplayName(), sentence);
}
