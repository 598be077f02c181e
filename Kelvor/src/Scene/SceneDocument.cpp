#include "SceneDocument.h"

#include "SceneReader.h"
#include "SceneWriter.h"

#include <Inventor/SoInput.h>
#include <Inventor/nodes/SoSeparator.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <utility>

namespace {

void report(const QString& sentence, QString* error)
{
    if (error)
        *error = sentence;
}

} // namespace

SceneDocument::SceneDocument(QObject* parent)
    : QObject(parent)
{
}

SceneDocument::~SceneDocument()
{
    setFileName(QString());
}

bool SceneDocument::open(const QString& name, QString* error, const SceneInput::Progress& progress)
{
    const QString file = QFileInfo(name).absoluteFilePath();
    const SourceFile source(file);
    const SceneReader::Result scene = SceneReader::read(file, progress);
    if (!scene.root && scene.reason.isEmpty()) {
        report(QString(), error);
        return false;
    }
    if (!scene.root) {
        report(tr("\"%1\" cannot be read: %2.").arg(QDir::toNativeSeparators(name), scene.reason), error);
        return false;
    }
    m_source = source;
    replace(scene.root, file, scene.warnings);
    return true;
}

bool SceneDocument::save(const QString& name, QString* error)
{
    if (!root()) {
        report(tr("There is no scene to save."), error);
        return false;
    }
    const QString reason = SceneWriter::write(*root(), name);
    if (!reason.isEmpty()) {
        report(tr("\"%1\" cannot be saved: %2.").arg(QDir::toNativeSeparators(name), reason), error);
        return false;
    }
    if (!m_fileName.isEmpty()) {
        m_warnings.clear(); // the file holds all that is in the scene
        setFileName(QFileInfo(name).absoluteFilePath());
        m_source = SourceFile(m_fileName);
        Q_EMIT fileNameChanged();
    }
    return true;
}

bool SceneDocument::canOverwrite() const
{
    QFile file(m_fileName);
    return m_warnings.isEmpty() && QFileInfo(m_fileName).isWritable() && file.open(QIODevice::ReadOnly) &&
           file.peek(2) != QByteArray("\x1f\x8b");
}

void SceneDocument::setRoot(SoNode* root)
{
    if (root != this->root() || !m_fileName.isEmpty())
        replace(root, QString(), {});
}

SoNode* SceneDocument::root() const
{
    return static_cast<SoNode*>(m_root.get());
}

QString SceneDocument::fileName() const
{
    return m_fileName;
}

QStringList SceneDocument::warnings() const
{
    return m_warnings;
}

void SceneDocument::replace(SoNode* root, const QString& file, const QStringList& warnings)
{
    // Whoever shows the earlier scene still finds it alive while it is told of the new one.
    const StraySources oldSources = std::move(m_sources);
    const KlvContainerRef old(std::exchange(m_root, KlvContainerRef(root)));
    m_sources = file.isEmpty() ? StraySources() : StraySources(*root);
    m_warnings = warnings;
    setFileName(file);
    Q_EMIT fileNameChanged();
    Q_EMIT rootChanged(root);
}

void SceneDocument::setFileName(const QString& file)
{
    m_fileName = file;
    // Coin keeps the list as a stack: the same folder may stand in it for several users, each removes one
    // entry.
    const QByteArray folder =
        file.isEmpty() ? QByteArray() : QFile::encodeName(QFileInfo(file).absolutePath());
    if (!folder.isEmpty())
        SoInput::addDirectoryFirst(folder.constData());
    if (!m_searchedFolder.isEmpty())
        SoInput::removeDirectory(m_searchedFolder.constData());
    m_searchedFolder = folder;
}
