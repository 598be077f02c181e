#pragma once

#include <cstdarg>
#include <string>

/// The text that printf() makes of the arguments, of any length.
std::string printfText(const char* format, va_list arguments);
