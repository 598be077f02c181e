#include "DocumentActions.h"

#include "Changes/SceneCode.h"
#include "HistoryKeys.h"
#include "LoadProgress.h"
#include "RecentFiles.h"
#include "Scene/SceneDocument.h"

#include <KlvExtender/KlvChanges.h>
#include <KlvExtender/KlvServices.h>

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QScopedValueRollback>
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
    QAction* saveAction = menu->addAction(tr("&Save"), QKeySequence::Save, this, &DocumentActions::save);
    saveAction->setEnabled(m_document->root());
    connect(m_document, &SceneDocument::rootChanged, saveAction, &QAction::setEnabled);
    addSaveAs(menu, {Qt::CTRL | Qt::SHIFT | Qt::Key_S});
    menu->addSeparator();
    menu->addAction(tr("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), m_window, &QWidget::close);

    const auto update = [this, reloadAction] { reloadAction->setEnabled(!m_document->fileName().isEmpty()); };
    connect(menu, &QMenu::aboutToShow, this, update);
}

void DocumentActions::addLiveTo(QMenu* menu)
{
    addSaveAs(menu, {Qt::CTRL | Qt::SHIFT | Qt::Key_S, Qt::CTRL | Qt::Key_S});
    menu->addSeparator();
    menu->addAction(tr("&Close"), QKeySequence(Qt::CTRL | Qt::Key_W), m_window, &QWidget::close);
}

void DocumentActions::addSaveAs(QMenu* menu, const QList<QKeySequence>& keys)
{
    QAction* action = menu->addAction(tr("Save &As…"), this, &DocumentActions::chooseAndSave);
    action->setShortcuts(keys);
    action->setEnabled(m_document->root());
    connect(m_document, &SceneDocument::rootChanged, action, &QAction::setEnabled);
}

void DocumentActions::open(const QString& file)
{
    if (mayDiscard())
        load(file);
}

bool DocumentActions::openAtStart(const QString& file, QString* error)
{
    LoadProgress progress(m_window, file);
    QString reason;
    if (m_document->open(file, &reason, [&progress](double share) { return progress.tell(share); }))
        m_recent->add(file);
    *error = reason;
    return reason.isEmpty();
}

void DocumentActions::load(const QString& file)
{
    // While one file is read, the event loop may bring another, dropped on the window.
    if (m_loading)
        return;
    const QScopedValueRollback<bool> loading(m_loading, true);
    QString error;
    if (!openAtStart(file, &error))
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
    return answer == QMessageBox::Discard || (answer == QMessageBox::Save && save());
}

bool DocumentActions::mayLeave()
{
    HistoryKeys::commitPendingInput(*m_shell);
    const QList<SoField*> changed = KlvServices::getInstance()->getChanges()->getFields();
    if (changed.isEmpty())
        return true;
    const QString question = changed.size() == 1
                                 ? tr("One field was changed. It stays changed in the application; the list "
                                      "of changes goes with this window.")
                                 : tr("%1 fields were changed. They stay changed in the application; the "
                                      "list of changes goes with this window.")
                                       .arg(changed.size());
    QMessageBox box(QMessageBox::Question, tr("Changes"), question, QMessageBox::Close | QMessageBox::Cancel,
                    m_window);
    const QPushButton* copy = box.addButton(tr("Copy as C++ and Close"), QMessageBox::AcceptRole);
    box.setDefaultButton(QMessageBox::Cancel);
    box.setEscapeButton(QMessageBox::Cancel);
    box.exec();
    if (box.clickedButton() != copy)
        return box.clickedButton() == box.button(QMessageBox::Close);
    // As the fields are now, whatever happened while the question was open.
    QGuiApplication::clipboard()->setText(
        SceneCode::cppStatements(KlvServices::getInstance()->getChanges()->getFields(), m_document->root()));
    return true;
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

bool DocumentActions::save()
{
    if (!m_document->canOverwrite())
        return chooseAndSave();
    HistoryKeys::commitPendingInput(*m_shell);
    return saveTo(m_document->fileName());
}

bool DocumentActions::chooseAndSave()
{
    HistoryKeys::commitPendingInput(*m_shell);
    const QString file =
        QFileDialog::getSaveFileName(m_window, tr("Save Scene As"), m_document->fileName(), sceneFilter());
    return !file.isEmpty() && saveTo(file);
}

bool DocumentActions::saveTo(const QString& file)
{
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
    QMessageBox::warning(m_window, tr("Kelvor"), sentence);
}
