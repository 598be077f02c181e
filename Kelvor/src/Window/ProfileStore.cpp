#include "ProfileStore.h"

#include "HostSettings.h"
#include "ProfileJson.h"

#include <KlvExtender/KlvPluginsManager.h>
#include <KlvExtender/KlvProfile.h>
#include <KlvExtender/SceneGraph/SbStringText.h>

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <algorithm>

namespace {

const QLatin1String formatKey("format");
const QLatin1String profilesKey("profiles");
constexpr int format = 1;

} // namespace

ProfileStore::ProfileStore(const QString& file)
    : m_file(file)
{
    for (const ProfileDescription& description : ProfileDescription::shipped())
        m_entries.append({description, nullptr});
    read();
    m_unread = !m_problems.isEmpty();
    for (Entry& entry : m_entries) {
        entry.profile = new KlvProfile(fromUtf16(entry.description.name));
        KlvPluginsManager::getInstance()->addProfile(entry.profile);
    }
}

ProfileStore::~ProfileStore()
{
    for (const Entry& entry : std::as_const(m_entries))
        KlvPluginsManager::getInstance()->removeProfile(entry.profile);
}

QString ProfileStore::userFile()
{
    return QFileInfo(HostSettings().fileName()).dir().filePath(QStringLiteral("profiles.json"));
}

void ProfileStore::read()
{
    QFile file(m_file);
    if (!file.exists())
        return;
    if (!file.open(QIODevice::ReadOnly)) {
        m_problems << tr("The profiles in \"%1\" cannot be read: %2.").arg(m_file, file.errorString());
        return;
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    const QJsonValue profiles = document[profilesKey];
    if (document[formatKey].toInt() == format && profiles.isArray()) {
        for (const QString& key : document.object().keys()) {
            if (key != formatKey && key != profilesKey)
                m_problems << tr("In the file of profiles, \"%1\" is skipped: it is unknown.").arg(key);
        }
        for (const QJsonValue& value : profiles.toArray()) {
            if (const auto description = ProfileJson::read(value, m_problems))
                take(*description);
        }
        return;
    }
    const QString reason =
        error.error != QJsonParseError::NoError ? error.errorString() : tr("they have an unknown format");
    m_problems << tr("The profiles in \"%1\" cannot be read: %2; the file is kept as \"%1.damaged\" when "
                     "profiles are next saved.")
                      .arg(m_file, reason);
}

void ProfileStore::take(const ProfileDescription& description)
{
    const auto same = std::find_if(m_entries.begin(), m_entries.end(), [&](const Entry& entry) {
        return entry.description.name == description.name;
    });
    if (same == m_entries.end()) {
        m_entries.append({description, nullptr});
    } else if (same->description.isShipped && !same->description.isChanged()) {
        if (same->description.rule != description.rule)
            m_problems
                << tr("The rule \"%1\" of the profile \"%2\" is skipped: it stays the one that is shipped.")
                       .arg(description.rule, description.name);
        same->description.choices = description.choices;
        same->description.withheld = description.withheld;
    } else {
        m_problems << tr("A second profile \"%1\" is skipped.").arg(description.name);
    }
}

QString ProfileStore::replace(QList<Entry> entries, qsizetype active)
{
    KlvPluginsManager* manager = KlvPluginsManager::getInstance();
    QList<Entry> leaving = std::exchange(m_entries, std::move(entries));
    for (Entry& entry : m_entries) {
        // Any plug-in may have removed it from the manager.
        if (!manager->getProfilesList().contains(entry.profile))
            entry.profile = nullptr;
        leaving.removeIf([&entry](const Entry& old) { return old.profile == entry.profile; });
        const SbString name = fromUtf16(entry.description.name);
        if (entry.profile)
            manager->renameProfile(entry.profile, name);
        else
            manager->addProfile(entry.profile = new KlvProfile(name));
    }
    apply();
    manager->setActiveProfile(m_entries.at(active).profile);
    for (const Entry& entry : std::as_const(leaving))
        manager->removeProfile(entry.profile);
    return write();
}

void ProfileStore::apply() const
{
    for (const Entry& entry : m_entries) {
        // Any plug-in may have removed it from the manager.
        if (KlvPluginsManager::getInstance()->getProfilesList().contains(entry.profile))
            entry.description.applyTo(entry.profile);
    }
}

QString ProfileStore::write()
{
    QJsonArray profiles;
    for (const Entry& entry : std::as_const(m_entries)) {
        if (!entry.description.isShipped || entry.description.isChanged())
            profiles.append(ProfileJson::write(entry.description));
    }
    const QByteArray text = QJsonDocument({{formatKey, format}, {profilesKey, profiles}}).toJson();
    QString reason = putAside();
    if (reason.isEmpty()) {
        QDir().mkpath(QFileInfo(m_file).path());
        QSaveFile file(m_file);
        if (file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit())
            return QString();
        reason = file.errorString();
    }
    return tr("The profiles cannot be written to \"%1\" and hold until the program ends: %2.")
        .arg(m_file, reason);
}

QString ProfileStore::putAside()
{
    if (!m_unread || !QFileInfo::exists(m_file))
        return QString();
    const QString first = m_file + QLatin1String(".damaged");
    QString name = first;
    for (int i = 2; QFileInfo::exists(name); ++i)
        name = first + QString::number(i);
    QFile file(m_file);
    if (!file.copy(name))
        return file.errorString();
    m_unread = false;
    return QString();
}
