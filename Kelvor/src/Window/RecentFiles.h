#pragma once

#include <QMenu>
#include <QStringList>

/// The menu of scenes opened lately, newest first, kept in the user's settings.
class RecentFiles : public QMenu
{
    Q_OBJECT

public:
    explicit RecentFiles(QWidget* parent = nullptr);

    /// Puts a file at the top.
    void add(const QString& file);
    QStringList files() const;

Q_SIGNALS:
    /// A file was chosen from the menu.
    void chosen(const QString& file);

private:
    void store(const QStringList& files);
    void fill();
};
