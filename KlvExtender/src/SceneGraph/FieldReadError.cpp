#include "FieldReadError.h"

#include <KlvExtender/SceneGraph/ObjectLabel.h>
#include <KlvExtender/SceneGraph/SbStringText.h>

#include <Inventor/fields/SoFieldContainer.h>
#include <Inventor/fields/SoMField.h>

#include <QString>

namespace {

constexpr qsizetype ShownCharacters = 60;

/// `field "width" of Cube "Crate"`
QString describe(const SoField& field)
{
    const SoFieldContainer* container = field.getContainer();
    SbName name;
    if (!container || !container->getFieldName(&field, name))
        return QStringLiteral("a field of type %1").arg(field.getTypeId().getName().getString());
    return QStringLiteral("field \"%1\" of %2")
        .arg(QString::fromUtf8(name.getString()), objectLabel(container));
}

/// The beginning of a text, on one line.
QString shortened(std::string_view text)
{
    // A character has four bytes at most.
    QString shown = toUtf16(SbString(std::string(text.substr(0, 4 * ShownCharacters + 4)).c_str()));
    const bool cut = shown.size() > ShownCharacters || text.size() > 4 * ShownCharacters + 4;
    shown.truncate(ShownCharacters);
    if (!shown.isEmpty() && shown.back().isHighSurrogate())
        shown.chop(1);
    shown.replace('\n', QStringLiteral("\\n")).replace('\r', QStringLiteral("\\r"));
    return cut ? shown + QChar(0x2026) : shown;
}

SbString message(const QString& what, std::string_view text)
{
    return fromUtf16(QStringLiteral("Coin read error: %1 does not take \"%2\"").arg(what, shortened(text)));
}

} // namespace

void FieldReadError::post(const SoField& field, std::string_view text)
{
    FieldReadError(message(describe(field), text).getString()).handle();
}

void FieldReadError::post(const SoMField& field, int index, std::string_view text)
{
    // Tables count their rows from 1.
    const QString element = QStringLiteral("element %1 of %2").arg(qint64(index) + 1).arg(describe(field));
    FieldReadError(message(element, text).getString()).handle();
}

FieldReadError::FieldReadError(const char* message)
{
    setDebugString(message);
}

void FieldReadError::handle()
{
    SoErrorCB* handler = getHandlerCallback();
    if (handler && handler != defaultHandlerCB)
        handler(this, getHandlerData());
    else
        handleError();
}
