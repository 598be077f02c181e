#pragma once

#include <QMenu>

class QActionGroup;

/// The menu of the profiles that the plug-ins manager has, in its order, of which one is active. Profiles
/// without a profile selector are left here.
class ProfileMenu : public QMenu
{
    Q_OBJECT

public:
    explicit ProfileMenu(QWidget* parent = nullptr);

private:
    void fill();

    QActionGroup* m_choices;
};
