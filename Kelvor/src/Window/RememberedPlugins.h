#pragma once

#include <QStringList>

/// The plug-ins that a person has chosen to load at every start, kept in the user's settings: files beside
/// the default plug-in, and whether that one is wanted.
class RememberedPlugins
{
public:
    /// Absolute paths, in the order in which they were added.
    QStringList files() const;
    void add(const QString& file);
    /// One that is not remembered is ignored.
    void remove(const QString& file);

    /// True until the default plug-in was switched off.
    bool wantsDefault() const;
    void setWantsDefault(bool wanted);
};
