#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Strings in the scene graph's text form, quoted or, where they are single words, bare.
///
/// Inside quotes only the quote itself is marked with a backslash, so a backslash that ends a string looks
/// like one that marks a quote: where the text can be read in two ways, these functions take the one in which
/// the text makes sense to its end. Nodes of the VRML97 family mark backslashes too.
namespace StringText {

enum class Backslash
{
    Plain, ///< stands for itself, except before a quote
    Marked ///< a pair of them stands for one
};

/// Reads a text that is one string.
bool readString(std::string_view text, Backslash backslash, std::string& string);

/// Reads a text that is a list of strings in brackets, or one string.
bool readStrings(std::string_view text, Backslash backslash, std::vector<std::string>& strings);

} // namespace StringText
