#include <KlvExtender/SceneGraph/SoGLError.h>

#include "PrintfText.h"

namespace {

SoErrorCB* g_callback = nullptr;
void* g_data = nullptr;

} // namespace

void SoGLError::setHandlerCallback(SoErrorCB* callback, void* data)
{
    g_callback = callback;
    g_data = data;
}

SoErrorCB* SoGLError::getHandlerCallback()
{
    return g_callback ? g_callback : &SoError::defaultHandlerCB;
}

void* SoGLError::getHandlerData()
{
    return g_data;
}

SoType SoGLError::getClassTypeId()
{
    static const SoType type = SoType::createType(SoError::getClassTypeId(), "GLError");
    return type;
}

SoType SoGLError::getTypeId() const
{
    return getClassTypeId();
}

void SoGLError::initClass()
{
    getClassTypeId();
}

void SoGLError::post(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const std::string message = printfText(format, arguments);
    va_end(arguments);

    SoGLError error;
    error.setDebugString("OpenGL error: ");
    error.appendToDebugString(message.c_str());
    // Coin's own dispatch knows the handlers of its own classes only.
    void* data = nullptr;
    error.getHandler(data)(&error, data);
}

SoErrorCBPtr SoGLError::getHandler(void*& data) const
{
    data = getHandlerData();
    return getHandlerCallback();
}
