#include "KlvProfileSelectorExtension.h"

#include "FieldEditors/DvWheelGuard.h"

#include <KlvExtender/KlvPluginsManager.h>
#include <KlvExtender/KlvProfile.h>
#include <KlvExtender/KlvShell.h>
#include <KlvExtender/SceneGraph/SbStringText.h>

#include <QSignalBlocker>

namespace {

QString nameOf(const KlvProfile* profile)
{
    return QString::fromLatin1(toLatin1(profile->getName()));
}

} // namespace

KlvProfileSelectorExtension::KlvProfileSelectorExtension()
{
    m_author = "QRV";
    m_description = "A toolbar to select the active profile.";
    m_version = "1.0.0";
    m_name = "Profile Selector";
}

KlvProfileSelectorExtension::~KlvProfileSelectorExtension() = default;

void KlvProfileSelectorExtension::load()
{
    m_toolBar = new QToolBar;
    // The host keeps the window's layout by object name.
    m_toolBar->setObjectName(QStringLiteral("KlvProfileSelectorExtension"));
    m_toolBar->setWindowTitle(tr("Profile Selector"));
    m_comboBox = new QComboBox(m_toolBar);
    m_comboBox->setToolTip(tr("Select the active profile."));
    m_comboBox->setAccessibleName(tr("Active profile"));
    m_comboBox->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    DvWheelGuard::install(m_comboBox);
    m_toolBar->addWidget(m_comboBox);
}

void KlvProfileSelectorExtension::unload()
{
    delete m_comboBox;
    delete m_toolBar;
}

void KlvProfileSelectorExtension::activate()
{
    KlvExtension::activate();
    if (!m_comboBox)
        return;
    listProfiles();
    connect(m_comboBox, SIGNAL(currentIndexChanged(int)), this, SLOT(s_currentIndexChanged(int)));
    KlvPluginsManager* manager = KlvPluginsManager::getInstance();
    connect(manager, SIGNAL(profilesChanged()), this, SLOT(listProfiles()));
    connect(manager, SIGNAL(activeProfileChanged(KlvProfile*)), this, SLOT(followActiveProfile(KlvProfile*)));
    if (KlvShell* shell = KlvShell::getInstance()) {
        shell->addToolBar(m_toolBar);
        shell->extensionActivated(this, 1);
    }
    show();
}

void KlvProfileSelectorExtension::deactivate()
{
    KlvExtension::deactivate();
    if (m_comboBox)
        disconnect(m_comboBox, SIGNAL(currentIndexChanged(int)), this, SLOT(s_currentIndexChanged(int)));
    KlvPluginsManager::getInstance()->disconnect(this);
    if (KlvShell* shell = KlvShell::getInstance()) {
        shell->removeToolBar(m_toolBar);
        shell->extensionDeactivated(this);
    }
}

void KlvProfileSelectorExtension::show()
{
    KlvExtension::show();
    if (m_toolBar)
        m_toolBar->show();
}

void KlvProfileSelectorExtension::hide()
{
    KlvExtension::hide();
    if (m_toolBar)
        m_toolBar->hide();
}

void KlvProfileSelectorExtension::listProfiles()
{
    if (!m_comboBox)
        return;
    const QSignalBlocker silent(m_comboBox);
    const KlvPluginsManager* manager = KlvPluginsManager::getInstance();
    const QList<KlvProfile*>& profiles = manager->getProfilesList();
    m_comboBox->clear();
    for (const KlvProfile* profile : profiles)
        m_comboBox->addItem(nameOf(profile));
    m_comboBox->setCurrentIndex(int(profiles.indexOf(manager->getActiveProfile())));
}

void KlvProfileSelectorExtension::followActiveProfile(KlvProfile* profile)
{
    // A profile that was chosen here is shown already, where the list has grown perhaps.
    if (!m_comboBox || !profile || m_comboBox->currentText() == nameOf(profile))
        return;
    const QSignalBlocker silent(m_comboBox);
    m_comboBox->setCurrentIndex(m_comboBox->findText(nameOf(profile)));
}

void KlvProfileSelectorExtension::s_currentIndexChanged(int index)
{
    if (!m_comboBox)
        return;
    KlvPluginsManager* manager = KlvPluginsManager::getInstance();
    const QList<KlvProfile*> profiles = manager->getProfilesList();
    const auto chosen = index >= 0 && index < profiles.size() ? index : -1;
    const auto visited = chosen < 0 ? profiles : profiles.first(chosen + 1);
    {
        // The first entry of an empty list becomes the current one, which chooses nothing.
        const QSignalBlocker silent(m_comboBox);
        for (const KlvProfile* profile : visited)
            m_comboBox->addItem(nameOf(profile));
    }
    // Last: it may deactivate this extension.
    if (chosen >= 0)
        manager->setActiveProfile(profiles[chosen]);
}
