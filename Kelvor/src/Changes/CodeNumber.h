#pragma once

#include <QString>

#include <cstdint>
#include <type_traits>

/// The languages that values are written in.
enum class CodeLanguage
{
    Cpp,
    Inventor
};

/// A number that the language reads back exactly, as short as can be. In Inventor text that does not hold for
/// infinities and what is not a number; in C++ the latter need <limits>.
QString codeNumber(float number, CodeLanguage language);
QString codeNumber(double number, CodeLanguage language);

template <class Integer>
requires std::is_integral_v<Integer> QString codeNumber(Integer number, CodeLanguage language)
{
    const bool suffix = std::is_same_v<Integer, std::uint32_t> && language == CodeLanguage::Cpp;
    return QString::number(number) + (suffix ? QStringLiteral("u") : QString());
}
