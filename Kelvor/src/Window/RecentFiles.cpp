#include "RecentFiles.h"

#include "HostSettings.h"

#include <QDir>
#include <QFileInfo>

namespace {

constexpr int mostFiles = 10;
const QString key = QStringLiteral("recentFiles");

} // namespace

RecentFiles::RecentFiles(QWidget* parent)
    : QMenu(tr("Open &Recent"), parent)
{
    setToolTipsVisible(true);
    connect(this, &QMenu::aboutToShow, this, &RecentFiles::fill);
    fill();
}

void RecentFiles::add(const QString& file)
{
    const QString path = QFileInfo(file).absoluteFilePath();
    QStringList list = files();
    list.removeAll(path);
    list.prepend(path);
    store(list.mid(0, mostFiles));
}

QStringList RecentFiles::files() const
{
    return HostSettings().value(key).toStringList();
}

void RecentFiles::store(const QStringList& files)
{
    HostSettings().setValue(key, files);
    fill();
}

void RecentFiles::fill()
{
    clear();
    const QStringList list = files();
    for (qsizetype i = 0; i < list.size(); ++i) {
        const QString file = list.at(i);
        QString name = QFileInfo(file).fileName();
        name.replace(QLatin1Char('&'), QLatin1String("&&"));
        QAction* action = addAction(QStringLiteral("&%1 %2").arg((i + 1) % 10).arg(name));
        action->setToolTip(QDir::toNativeSeparators(file));
        connect(action, &QAction::triggered, this, [this, file] { Q_EMIT chosen(file); });
    }
    addSeparator();
    QAction* forget = addAction(tr("&Clear List"));
    forget->setEnabled(!list.isEmpty());
    // Queued: the menu is filled anew, and the action with it, after it has been triggered.
    connect(
        forget, &QAction::triggered, this, [this] { store({}); }, Qt::QueuedConnection);
}
