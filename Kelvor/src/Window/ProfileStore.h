#pragma once

#include "ProfileDescription.h"

#include <QCoreApplication>

/// The profiles of the host: those it comes with and the user's, kept in a JSON file in which only what
/// differs from what is shipped is written.
///
/// Each stands for one profile of the plug-ins manager, which this object adds and, when it goes, removes.
class ProfileStore
{
    Q_DECLARE_TR_FUNCTIONS(ProfileStore)

public:
    struct Entry
    {
        ProfileDescription description;
        KlvProfile* profile = nullptr; ///< the manager's; null until it has been stored
    };

    /// Reads the file, which need not exist.
    explicit ProfileStore(const QString& file);
    ~ProfileStore();

    ProfileStore(const ProfileStore&) = delete;
    ProfileStore& operator=(const ProfileStore&) = delete;

    /// The file in the user's configuration folder.
    static QString userFile();

    /// One sentence for each thing in the file that could not be read.
    const QStringList& problems() const { return m_problems; }

    /// The profiles that come with the host first, then the user's.
    const QList<Entry>& entries() const { return m_entries; }
    /// Replaces all profiles and makes one of them active; what they say takes effect at once. Entries taken
    /// from `entries()` keep their profile, also under another name. Gives one sentence when they could not
    /// be written: they then hold until the program ends.
    QString replace(QList<Entry> entries, qsizetype active);

    /// Tells the manager's profiles of the extensions that are loaded now; repeated when plug-ins come or go.
    void apply() const;

private:
    void read();
    void take(const ProfileDescription& description);
    QString write();
    QString putAside();

    QString m_file;
    QStringList m_problems;
    bool m_unread = false; ///< something in the file was not understood and would be lost by writing
    QList<Entry> m_entries;
};
