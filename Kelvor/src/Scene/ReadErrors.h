#pragma once

#include <Inventor/errors/SoError.h>

#include <QStringList>

#include <functional>

/// Collects the read errors that are posted while it lives, each as half a sentence with the place in
/// brackets: "Unknown field … (line 4)". At most a hundred.
///
/// The handler that was there hears them as well, unless it is Coin's own, which would print what is told
/// otherwise, or nobody is to hear of them.
class ReadErrors
{
public:
    /// `isHeard` says whether errors count at the moment; without it all do.
    explicit ReadErrors(std::function<bool()> isHeard = {});
    ~ReadErrors();
    ReadErrors(const ReadErrors&) = delete;
    ReadErrors& operator=(const ReadErrors&) = delete;

    QStringList errors;

private:
    static void collect(const SoError* error, void* data);

    const std::function<bool()> m_isHeard;
    SoErrorCB* const m_callback;
    void* const m_data;
};
