#include "Models/FieldTextCommand.h"

#include <KlvExtender/KlvEditScope.h>
#include <KlvExtender/KlvServices.h>
#include <KlvExtender/SceneGraph/SbStringText.h>
#include <KlvExtender/SceneGraph/SoFieldText.h>

#include <Inventor/fields/SoMFString.h>
#include <Inventor/fields/SoSFString.h>

#include <QRegularExpression>

#include <memory>
#include <vector>

namespace {

/// The value of the field's kind that a plain text stands for; null if the text is to be read by Coin.
std::unique_ptr<SoField> plainValue(const SoField& field, const QString& text)
{
    const QString begin = text.trimmed().left(1);
    if (begin == QLatin1String("\""))
        return nullptr;
    if (field.getTypeId() == SoSFString::getClassTypeId()) {
        auto string = std::make_unique<SoSFString>();
        string->setValue(fromUtf16(text));
        return string;
    }
    if (field.getTypeId() != SoMFString::getClassTypeId() || begin == QLatin1String("["))
        return nullptr;
    static const QRegularExpression lineBreak(QStringLiteral("\r\n|\r|\n"));
    QStringList lines = text.split(lineBreak);
    if (lines.last().isEmpty())
        lines.removeLast(); // the break at the end begins no other line
    std::vector<SbString> strings;
    for (const QString& line : lines)
        strings.push_back(fromUtf16(line));
    auto list = std::make_unique<SoMFString>();
    list->setValues(0, static_cast<int>(strings.size()), strings.data());
    return list;
}

} // namespace

QString FieldTextCommand::textOf(SoField& field)
{
    SbString text;
    field.get(text);
    return toUtf16(text);
}

bool FieldTextCommand::paste(SoField& field, const QString& text)
{
    const auto plain = plainValue(field, text);
    SbString before;
    field.get(before);
    const KlvEditScope scope(&field, tr("Paste into %1"));
    SbString after = fromUtf16(text);
    if (plain) {
        field.copyFrom(*plain); // exact where text is not
        field.get(after);
    } else if (!setFieldFromText(&field, after)) {
        return false;
    }
    KlvServices::getInstance()->pushCommand(new FieldTextCommand(field, before, after));
    return true;
}

FieldTextCommand::FieldTextCommand(SoField& field, const SbString& before, const SbString& after)
    : KlvCommand(&field, Kind::Action)
    , m_before(before)
    , m_after(after)
{
}

void FieldTextCommand::undo()
{
    setFieldFromText(getField(), m_before);
}

void FieldTextCommand::redo()
{
    setFieldFromText(getField(), m_after);
}
