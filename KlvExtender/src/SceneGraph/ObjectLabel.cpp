#include <KlvExtender/SceneGraph/ObjectLabel.h>

#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoFieldContainer.h>
#include <Inventor/misc/SoBase.h>

#include <QCoreApplication>

namespace {

/// Reaches what Coin writes at the beginning of an object.
class WrittenObject : public SoBase
{
public:
    static const char* typeOf(const SoBase& object) { return (object.*&WrittenObject::getFileFormatName)(); }
};

} // namespace

SbName objectType(const SoBase* object)
{
    const SbName written = WrittenObject::typeOf(*object);
    return written.getLength() > 0 ? written : object->getTypeId().getName();
}

QString objectLabel(const SoBase* object)
{
    if (!object)
        return QCoreApplication::translate("ObjectLabel", "none");
    const QString type = QString::fromUtf8(objectType(object).getString());
    const QString name = QString::fromUtf8(object->getName().getString());
    return name.isEmpty() ? type : QStringLiteral("%1 \"%2\"").arg(type, name);
}

QString objectKey(const SoBase* object)
{
    const SbName name = object->getName();
    return QString::fromUtf8((name.getLength() > 0 ? name : objectType(object)).getString());
}

QString fieldLabel(const SoField& field)
{
    const SoFieldContainer* container = field.getContainer();
    SbName name;
    if (!container || !container->getFieldName(&field, name))
        return QString::fromUtf8(field.getTypeId().getName().getString());
    return objectKey(container) + QLatin1Char('.') + QString::fromUtf8(name.getString());
}
