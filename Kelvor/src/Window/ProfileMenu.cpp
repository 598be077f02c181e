#include "ProfileMenu.h"

#include <KlvExtender/KlvPluginsManager.h>
#include <KlvExtender/KlvProfile.h>
#include <KlvExtender/SceneGraph/SbStringText.h>

#include <QActionGroup>

ProfileMenu::ProfileMenu(QWidget* parent)
    : QMenu(tr("&Active Profile"), parent)
    , m_choices(new QActionGroup(this))
{
    connect(this, &QMenu::aboutToShow, this, &ProfileMenu::fill);
}

void ProfileMenu::fill()
{
    clear();
    KlvPluginsManager* manager = KlvPluginsManager::getInstance();
    for (KlvProfile* profile : manager->getProfilesList()) {
        QAction* action =
            addAction(toUtf16(profile->getName()).replace(QLatin1Char('&'), QLatin1String("&&")));
        action->setCheckable(true);
        m_choices->addAction(action);
        action->setChecked(profile == manager->getActiveProfile());
        // The manager ignores one that has gone meanwhile.
        connect(action, &QAction::triggered, manager,
                [manager, profile] { manager->setActiveProfile(profile); });
    }
}
