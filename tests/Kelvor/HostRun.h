#pragma once

#include "TestMain.h"

#include "Window/HostPlugins.h"
#include "Window/HostShell.h"

#include <KlvExtender/KlvExtension.h>
#include <KlvExtender/KlvPluginsManager.h>
#include <KlvExtender/KlvProfile.h>
#include <KlvExtender/SceneGraph/SbStringText.h>

/// One run of the host without its window, in a configuration folder that outlives it.
struct HostRun
{
    explicit HostRun(const QString& folder, const QString& profile = QString())
        : plugins((QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder),
                   QStringLiteral(KELVOR_DEFAULT_PLUGIN)))
        , problems(plugins.profiles().problems() + plugins.loadRemembered())
        , found(plugins.activateProfile(profile))
    {
    }

    static QString module(const QString& name)
    {
        return QStringLiteral(KELVOR_TEST_PLUGINDIR "/%1.so").arg(name);
    }
    static QString activeName()
    {
        return toUtf16(KlvPluginsManager::getInstance()->getActiveProfile()->getName());
    }
    static void click(const QWidget& dialog, const QString& text)
    {
        for (auto* button : dialog.findChildren<QPushButton*>()) {
            if (button->text() == text && button->isEnabled())
                return QTest::mouseClick(button, Qt::LeftButton);
        }
        QFAIL(qPrintable(text));
    }

    QMainWindow window;
    HostShell shell{&window};
    HostPlugins plugins;
    const QStringList problems;
    const bool found;
};
