#include "FieldEditors/MFWidgets/DvCellValidators.h"

#include "FieldEditors/DvRealValidator.h"
#include "FieldEditors/MFWidgets/DvCellHexValidator.h"
#include "FieldEditors/MFWidgets/DvOpenIntValidator.h"
#include "FieldEditors/MFWidgets/DvShownTextValidator.h"
#include "FieldEditors/QUIntValidator.h"
#include "FieldEditors/QULongValidator.h"

#include <QLineEdit>
#include <QLocale>

#include <algorithm>
#include <iterator>
#include <limits>

namespace {

template <typename Base>
using ShownHex = DvShownTextValidator<DvCellHexValidator<Base>>;

QValidator* withPlainDigits(QValidator* validator)
{
    QLocale locale = QLocale::c();
    locale.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
    validator->setLocale(locale);
    return validator;
}

/// The digits between the point and what comes behind them.
int countDecimals(const QString& text)
{
    const auto isDigit = [](QChar character) { return character.isDigit(); };
    const auto point = std::find(text.begin(), text.end(), QLatin1Char('.'));
    if (point == text.end())
        return 0;
    return static_cast<int>(std::find_if_not(point + 1, text.end(), isDigit) - point - 1);
}

QValidator* createShort(const QString& text, QObject* parent)
{
    return withPlainDigits(new DvShownTextValidator<QIntValidator>(text, -32767, 32767, parent));
}

QValidator* createUShort(const QString& text, QObject* parent)
{
    constexpr int highest = std::numeric_limits<unsigned short>::max();
    return withPlainDigits(new ShownHex<QIntValidator>(text, highest, 0, highest, parent));
}

QValidator* createInt(const QString& text, QObject* parent)
{
    return withPlainDigits(new DvShownTextValidator<QIntValidator>(text, parent));
}

template <typename Validator>
QValidator* createUnsigned(const QString& text, QObject* parent)
{
    return new ShownHex<Validator>(text, std::numeric_limits<unsigned int>::max(), parent);
}

QValidator* createOpenInt(const QString& text, QObject* parent)
{
    return new DvShownTextValidator<DvOpenIntValidator>(text, parent);
}

/// Floats may show more decimals than are typed at first.
QValidator* createFloat(const QString& text, QObject* parent)
{
    auto* validator = new DvShownTextValidator<DvRealValidator>(text, DvRealValidator::Float, parent);
    validator->setDecimals(std::max(validator->decimals(), countDecimals(text)));
    return validator;
}

QValidator* createDouble(const QString& text, QObject* parent)
{
    auto* validator = new DvShownTextValidator<DvRealValidator>(text, DvRealValidator::Double, parent);
    const QDoubleValidator unlimited;
    validator->setRange(unlimited.bottom(), unlimited.top(), unlimited.decimals());
    return validator;
}

/// By cell type.
constexpr QValidator* (*Creators[])(const QString& text, QObject* parent) = {
    nullptr,
    createShort,
    createUShort,
    createInt,
    createUnsigned<QUIntValidator>,
    createOpenInt,
    createUnsigned<QULongValidator>,
    createFloat,
    createDouble,
};

} // namespace

QValidator* createCellValidator(int cellType, const QString& text, QObject* parent)
{
    const bool known = cellType > 0 && cellType < static_cast<int>(std::size(Creators));
    return known ? Creators[cellType](text, parent) : nullptr;
}

bool isCommittable(const QLineEdit* edit)
{
    return edit->hasAcceptableInput() || (qobject_cast<const DvOpenIntValidator*>(edit->validator()) &&
                                          DvOpenIntValidator::isComplete(edit->text()));
}
