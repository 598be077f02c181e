#include "DocumentActions.h"

#include "Changes/SceneCode.h"
#include "HistoryKeys.h"
#include "LoadProgress.h"
#include "RecentFiles.h"
#include "Scene/SceneDocument.h"
#include "WindowDialogs.h"

#include <KlvExtender/KlvChanges.h>
#include <KlvExtender/KlvServices.h>

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QMimeData>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QUndoStack>
#include <QUrl>

#include <algorithm>
#include <iterator>

namespace {

/// What is asked before a file is replaced that holds more than the scene.
struct LossQuestion
{
    SourceFile::Loss loss;
    const char* question;
    const char* answer;
};

constexpr LossQuestion lossQuestions[] = {
    {SourceFile::Loss::Changes,
     QT_TRANSLATE_NOOP("DocumentActions", "\"%1\" has been changed by another program. Replace it?"),
     QT_TRANSLATE_NOOP("DocumentActions", "&Replace")},
    {SourceFile::Loss::Comments,
     QT_TRANSLATE_NOOP("DocumentActions", "Saving leaves out the comments in \"%1\"."),
     QT_TRANSLATE_NOOP("DocumentActions", "&Save")},
    {SourceFile::Loss::Binary,
     QT_TRANSLATE_NOOP("DocumentActions", "Saving makes a text file of the binary file \"%1\"."),
     QT_TRANSLATE_NOOP("DocumentActions", "&Save")},
};

/// The name that a scene from a file is saved under unless a person gives another: compressed files are only
/// read.
QString writableName(QString name)
{
    if (name.endsWith(QStringLiteral(".gz"), Qt::CaseInsensitive))
        name.chop(3);
    else if (name.endsWith(QStringLiteral(".wrz"), Qt::CaseInsensitive))
        name.replace(name.size() - 1, 1, QLatin1Char('l'));
    return name;
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
    // While one file is read, the event loop may bring another, dropped on the window.
    const QScopedValueRollback<bool> loading(m_loading, true);
    LoadProgress progress(m_window, file);
    QString reason;
    if (m_document->open(file, &reason, [&progress](double share) { return progress.tell(share); }))
        m_recent->add(file);
    *error = reason;
    return reason.isEmpty();
}

void DocumentActions::load(const QString& file)
{
    QString error;
    if (!m_loading && !openAtStart(file, &error))
        showFailure(error);
}

bool DocumentActions::mayDiscard()
{
    // What has been typed but not yet taken is a change, too.
    HistoryKeys::commitPendingInput(*m_shell);
    if (m_history->isClean())
        return true;
    const auto answer =
        ask(m_window, tr("Unsaved changes"), tr("The scene has been changed. Save the changes?"),
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
    execForWindow(box);
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
    const QString file = chooseFile(m_window, tr("Open Scene"), m_document->fileName(),
                                    tr("Scenes (*.iv *.wrl *.iv.gz *.wrl.gz *.wrz);;All files (*)"));
    if (!file.isEmpty())
        open(file);
}

bool DocumentActions::save()
{
    if (!m_document->canOverwrite())
        return chooseAndSave();
    HistoryKeys::commitPendingInput(*m_shell);
    const auto question = std::find_if(
        std::begin(lossQuestions), std::end(lossQuestions),
        [loss = m_document->sourceFile().lossWhenReplaced()](const auto& one) { return one.loss == loss; });
    if (question == std::end(lossQuestions))
        return saveTo(m_document->fileName());

    const QString name = QFileInfo(m_document->fileName()).fileName();
    QMessageBox box(QMessageBox::Question, tr("Save"), tr(question->question).arg(name),
                    QMessageBox::Save | QMessageBox::Cancel, m_window);
    box.button(QMessageBox::Save)->setText(tr(question->answer));
    QPushButton* saveAs = box.addButton(tr("Save &As…"), QMessageBox::ActionRole);
    box.setDefaultButton(saveAs);
    execForWindow(box);
    if (box.clickedButton() == saveAs)
        return chooseAndSave();
    return box.clickedButton() == box.button(QMessageBox::Save) && saveTo(m_document->fileName());
}

bool DocumentActions::chooseAndSave()
{
    HistoryKeys::commitPendingInput(*m_shell);
    const QFileInfo suggestion(writableName(m_document->fileName()));
    QFileDialog dialog(m_window, tr("Save Scene As"), suggestion.path(),
                       tr("Scenes (*.iv *.wrl);;All files (*)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(suggestion.suffix().isEmpty() ? QStringLiteral("iv") : suggestion.suffix());
    dialog.selectFile(suggestion.fileName());
    return execForWindow(dialog) == QDialog::Accepted && saveTo(dialog.selectedFiles().constFirst());
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
    warn(m_window, tr("Kelvor"), sentence);
}
