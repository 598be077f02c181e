#pragma once

#include <QMenu>

class QActionGroup;

/// The menu of the window's colours: as the system has them, light or dark. The choice is kept in the user's
/// settings; the environment variable KELVOR_COLORS (`system`, `light`, `dark`) goes before it.
class Appearance : public QMenu
{
    Q_OBJECT

public:
    /// Applies the choice of the last run, or of the environment, to the application.
    explicit Appearance(QWidget* parent = nullptr);

private:
    void choose(const QString& name);

    QActionGroup* m_choices;
};
