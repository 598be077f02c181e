#pragma once

#include <KlvExtender/KlvExtenderExport.h>

#include <Inventor/SbString.h>

#include <QObject>

class KlvProfileSetting;

/// Something that a plug-in adds to the host: a dock, a tool bar, an editor.
///
/// The host calls `load()` once after the plug-in has registered the extension, `activate()` and
/// `deactivate()` as the active profile asks for, and `unload()` once before the plug-in goes. Everything
/// happens on the user-interface thread. An override calls the function of this class, which keeps the state.
class KLV_EXTENDER_EXPORT KlvExtension : public QObject
{
    Q_OBJECT

public:
    KlvExtension();

    /// Puts the extension to work: it connects to what it listens to and shows itself in the host.
    virtual void activate();
    /// Takes it out of the host again; it can be activated anew.
    virtual void deactivate();
    /// Hides its widgets.
    virtual void hide();
    /// Creates its widgets and sensors.
    virtual void load();
    /// Shows its widgets.
    virtual void show();
    /// Releases what `load()` created.
    virtual void unload();

    ~KlvExtension() override;

    /// Name shown to people, unique within its plug-in.
    const SbString& getName() const { return m_name; }
    /// One sentence on what it is for.
    const SbString& getDescription() const { return m_description; }
    const SbString& getAuthor() const { return m_author; }
    const SbString& getVersion() const { return m_version; }

    /// True between `activate()` and `deactivate()`.
    bool isActive() const { return m_active; }
    /// True between `show()` and `hide()`.
    bool isVisible() const { return m_visible; }

    /// The active profile's setting of this extension; null when no profile is active or the extension is not
    /// in it.
    KlvProfileSetting* getProfileSetting() const;

Q_SIGNALS:
    /// It became active or inactive, visible or hidden.
    void stateChanged();

protected:
    SbString m_name;
    SbString m_description;
    SbString m_author;
    SbString m_version;

private:
    void setState(bool KlvExtension::*state, bool value);

    bool m_active = false;
    bool m_visible = false;
};
