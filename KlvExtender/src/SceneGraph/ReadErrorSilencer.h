#pragma once

#include <Inventor/errors/SoReadError.h>

/// Keeps Coin's read errors from being heard while it lives, then puts the handler back as it was.
class ReadErrorSilencer
{
public:
    ReadErrorSilencer()
        : m_handler(SoReadError::getHandlerCallback())
        , m_data(SoReadError::getHandlerData())
    {
        SoReadError::setHandlerCallback([](const SoError*, void*) {}, nullptr);
    }
    ~ReadErrorSilencer() { SoReadError::setHandlerCallback(m_handler, m_data); }

    ReadErrorSilencer(const ReadErrorSilencer&) = delete;
    ReadErrorSilencer& operator=(const ReadErrorSilencer&) = delete;

private:
    SoErrorCB* m_handler;
    void* m_data;
};
