#pragma once

#include <KlvExtender/KlvExtension.h>

#include <QComboBox>
#include <QPointer>
#include <QToolBar>

class KlvProfile;

/// A tool bar with a list of the profiles that makes the chosen one active.
///
/// The list is filled when the extension is activated, and anew when profiles come, go or are renamed.
class KlvProfileSelectorExtension : public KlvExtension
{
    Q_OBJECT

public:
    KlvProfileSelectorExtension();

    /// Lists the profiles with the active one chosen, and places the tool bar in the host's window.
    void activate() override;
    /// Takes the tool bar out of the host's window. This may happen from within `s_currentIndexChanged()`.
    void deactivate() override;
    void hide() override;
    /// Creates the tool bar and the list.
    void load() override;
    void show() override;
    /// Deletes them.
    void unload() override;

    ~KlvProfileSelectorExtension() override;

public Q_SLOTS:
    /// Makes the profile at `index` of the manager's present list active; an index beyond it changes nothing.
    /// Every profile up to and including that one is listed once more at the end: the list grows with each
    /// choice until it is filled again, kept for those who rely on it.
    void s_currentIndexChanged(int index);

private Q_SLOTS:
    /// Fills the list, at activation and when profiles come, go or are renamed, without choosing one.
    void listProfiles();
    /// Shows a profile that was made active elsewhere.
    void followActiveProfile(KlvProfile* profile);

private:
    QPointer<QToolBar> m_toolBar;
    QPointer<QComboBox> m_comboBox;
};
