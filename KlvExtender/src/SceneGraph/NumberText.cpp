#include "NumberText.h"

#include <charconv>
#include <cmath>
#include <concepts>
#include <limits>

namespace {

template <class Number>
constexpr int PrintedDigits = std::same_as<Number, float> ? 8 : 16;

template <class Number>
bool readWhole(std::string_view word, Number& number, int base)
{
    const char* end = word.data() + word.size();
    const auto [stop, error] = std::from_chars(word.data(), end, number, base);
    return error == std::errc() && stop == end;
}

template <std::integral Number>
bool read(std::string_view word, Number& number)
{
    const bool negative = word.starts_with('-');
    if (std::is_signed_v<Number> && (negative || word.starts_with('+')))
        word.remove_prefix(1);
    int base = 10;
    if (word.starts_with("0x") || word.starts_with("0X")) {
        word.remove_prefix(2);
        base = 16;
    } else if (word.size() > 1 && word.starts_with('0')) {
        base = 8;
    }
    std::uint64_t magnitude = 0;
    if (!readWhole(word, magnitude, base))
        return false;
    using Limits = std::numeric_limits<Number>;
    const std::uint64_t limit = static_cast<std::uint64_t>(Limits::max()) + (negative ? 1 : 0);
    if (magnitude > limit)
        return false;
    number = static_cast<Number>(negative ? 0 - magnitude : magnitude);
    return true;
}

/// A number so large or so small that the type has no digits for it.
template <std::floating_point Number>
bool readExtreme(std::string_view word, Number& number)
{
    constexpr Number largest = std::numeric_limits<Number>::max();
    const auto sign = [&](Number magnitude) { return word.starts_with('-') ? -magnitude : magnitude; };
    long double wide = 0;
    const auto [stop, error] = std::from_chars(word.data(), word.data() + word.size(), wide);
    const std::size_t exponent = word.find_first_of("eE");
    const bool tiny = error == std::errc()
                          ? std::fabs(wide) < 1
                          : exponent != std::string_view::npos && word.substr(exponent + 1).starts_with('-');
    if (tiny) {
        number = sign(0);
        return true;
    }
    // The largest double is printed rounded up.
    char printed[40];
    const auto end = std::to_chars(printed, printed + sizeof printed, largest, std::chars_format::general,
                                   PrintedDigits<Number>)
                         .ptr;
    long double limit = 0;
    std::from_chars(printed, end, limit);
    number = sign(largest);
    return error == std::errc() && std::fabs(wide) <= limit;
}

template <std::floating_point Number>
bool read(std::string_view word, Number& number)
{
    if (word.starts_with('+')) {
        word.remove_prefix(1);
        if (word.starts_with('-'))
            return false;
    }
    const char* end = word.data() + word.size();
    const auto [stop, error] = std::from_chars(word.data(), end, number);
    if (stop != end || error == std::errc::invalid_argument)
        return false;
    return error == std::errc() || readExtreme(word, number);
}

template <std::floating_point Number>
Number printAndRead(Number number)
{
    char printed[40];
    const auto end = std::to_chars(printed, printed + sizeof printed, number, std::chars_format::general,
                                   PrintedDigits<Number>)
                         .ptr;
    read(std::string_view(printed, static_cast<std::size_t>(end - printed)), number);
    return number;
}

} // namespace

template <class Number>
bool readNumber(std::string_view word, Number& number)
{
    return read(word, number);
}

template bool readNumber(std::string_view, std::int8_t&);
template bool readNumber(std::string_view, std::uint8_t&);
template bool readNumber(std::string_view, std::int16_t&);
template bool readNumber(std::string_view, std::uint16_t&);
template bool readNumber(std::string_view, std::int32_t&);
template bool readNumber(std::string_view, std::uint32_t&);
template bool readNumber(std::string_view, float&);
template bool readNumber(std::string_view, double&);

float asPrinted(float number)
{
    return printAndRead(number);
}

double asPrinted(double number)
{
    return printAndRead(number);
}
