#pragma once

#include <Inventor/errors/SoError.h>

#include <array>

/// Takes over the handlers of all error classes of the scene graph, and gives them back when destroyed.
class ErrorHandlers
{
public:
    /// Installs the handler everywhere, with the data.
    ErrorHandlers(SoErrorCB* callback, void* data);
    /// Puts back what the constructor had found, whatever is installed now.
    ~ErrorHandlers();
    ErrorHandlers(const ErrorHandlers&) = delete;
    ErrorHandlers& operator=(const ErrorHandlers&) = delete;

private:
    struct Handler
    {
        SoErrorCB* callback;
        void* data;
    };
    static constexpr int classCount = 6;
    std::array<Handler, classCount> m_previous;
};
