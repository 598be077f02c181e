#pragma once

#include <QString>

#include <Inventor/errors/SoDebugError.h>

#include <exception>
#include <utility>

/// Calls code of a plug-in, that of another one included, and keeps what it throws from going further: false
/// is returned then, with the reason in `reason` or, without one, as an error message of Coin.
template <class Function>
bool guarded(Function&& function, QString* reason = nullptr) noexcept
{
    QString what;
    try {
        std::forward<Function>(function)();
        return true;
    } catch (const std::exception& exception) {
        // Copied here: the exception's code may be gone when the message is read.
        what = QString::fromUtf8(exception.what());
    } catch (...) {
        what = QStringLiteral("unknown exception");
    }
    if (reason)
        *reason = what;
    else
        SoDebugError::post("Kelvor", "A plug-in threw an exception: %s", qUtf8Printable(what));
    return false;
}
