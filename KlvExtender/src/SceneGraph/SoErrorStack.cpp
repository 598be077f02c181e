#include <KlvExtender/SceneGraph/SoErrorStack.h>

#include "PrintfText.h"

namespace {

SoErrorCB* g_callback = nullptr;
void* g_data = nullptr;

} // namespace

void SoErrorStack::setHandlerCallback(SoErrorCB* callback, void* data)
{
    g_callback = callback;
    g_data = data;
}

SoErrorCB* SoErrorStack::getHandlerCallback()
{
    return g_callback ? g_callback : &SoError::defaultHandlerCB;
}

void* SoErrorStack::getHandlerData()
{
    return g_data;
}

SoType SoErrorStack::getClassTypeId()
{
    static const SoType type = SoType::createType(SoError::getClassTypeId(), "ErrorStack");
    return type;
}

SoType SoErrorStack::getTypeId() const
{
    return getClassTypeId();
}

void SoErrorStack::initClass()
{
    getClassTypeId();
}

void SoErrorStack::post(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const std::string message = printfText(format, arguments);
    va_end(arguments);

    SoErrorStack error;
    error.setDebugString("Coin error stack: ");
    error.appendToDebugString(message.c_str());
    // Coin's own dispatch knows the handlers of its own classes only.
    void* data = nullptr;
    error.getHandler(data)(&error, data);
}

SoErrorCBPtr SoErrorStack::getHandler(void*& data) const
{
    data = getHandlerData();
    return getHandlerCallback();
}
