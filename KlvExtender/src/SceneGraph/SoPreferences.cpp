#include <KlvExtender/SceneGraph/SoPreferences.h>

#include <QByteArray>
#include <QByteArrayList>

SbBool SoPreferences::getBool(const SbString& name, SbBool defaultValue)
{
    const QByteArray value = qgetenv(name.getString()).toLower();
    static const QByteArrayList no = {"0", "false", "no", "off"};
    return value.isEmpty() ? defaultValue : SbBool(!no.contains(value));
}
