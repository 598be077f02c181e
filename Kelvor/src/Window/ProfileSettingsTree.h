#pragma once

#include "ProfileDescription.h"

#include <QTreeWidget>

/// What one profile says of the loaded extensions, with boxes to check: which are active and, below each dock
/// of editors, which editors it controls.
class ProfileSettingsTree : public QTreeWidget
{
    Q_OBJECT

public:
    explicit ProfileSettingsTree(QWidget* parent = nullptr);

    /// Shows a copy of a profile.
    void setProfile(const ProfileDescription& profile);
    /// The copy as it was edited.
    const ProfileDescription& profile() const { return m_profile; }

Q_SIGNALS:
    /// A box was checked or unchecked.
    void edited();

private:
    QTreeWidgetItem* makeItem(const ExtensionInfo& info) const;
    const ExtensionInfo& info(const QTreeWidgetItem* item) const;
    void takeBox(QTreeWidgetItem* item);

    const QList<ExtensionInfo> m_extensions;
    ProfileDescription m_profile;
};
