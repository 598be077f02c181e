#pragma once

#include <Inventor/errors/SoReadError.h>

#include <string_view>

class SoField;
class SoMField;

/// The one message about a text that a field does not take. It goes where Coin's read errors go; unlike
/// theirs it names the field and not a line of a file.
class FieldReadError : public SoReadError
{
public:
    static void post(const SoField& field, std::string_view text);
    static void post(const SoMField& field, int index, std::string_view text);

private:
    explicit FieldReadError(const char* message);
    void handle();
};
