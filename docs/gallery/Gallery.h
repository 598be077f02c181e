#pragma once

#include <QImage>
#include <QMap>

class KlvEditor;
class KlvPlugin;
class SoField;
class SoNode;

/// A sheet with all editors of a plug-in, each showing a field of a scene.
class Gallery
{
public:
    /// Chooses a field for each editor: one of those that the editor is the most specific for, if possible
    /// with a value of its own. The plug-in is loaded; it and the scene outlive the gallery.
    Gallery(const KlvPlugin& plugin, SoNode* scene);

    /// The editors that the scene has no field for.
    QStringList missing() const;
    /// The sheet in the application's present palette.
    QImage paint() const;

private:
    QList<KlvEditor*> m_editors;
    QMap<KlvEditor*, SoField*> m_fields;
};
