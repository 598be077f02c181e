#include "Models/ObjectLabel.h"

#include <Inventor/SbName.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoFieldContainer.h>
#include <Inventor/misc/SoBase.h>

#include <QCoreApplication>

QString objectLabel(const SoBase* object)
{
    if (!object)
        return QCoreApplication::translate("ObjectLabel", "none");
    const QString type = QString::fromUtf8(object->getTypeId().getName().getString());
    const QString name = QString::fromUtf8(object->getName().getString());
    return name.isEmpty() ? type : QStringLiteral("%1 \"%2\"").arg(type, name);
}

QString objectKey(const SoBase* object)
{
    const SbName name = object->getName();
    return QString::fromUtf8((name.getLength() > 0 ? name : object->getTypeId().getName()).getString());
}

QString fieldLabel(const SoField& field)
{
    // Coin does not tell the container of every field.
    if (!field.getContainer())
        return QString::fromUtf8(field.getTypeId().getName().getString());
    SbName name;
    field.getContainer()->getFieldName(&field, name);
    return objectKey(field.getContainer()) + QLatin1Char('.') + QString::fromUtf8(name.getString());
}
