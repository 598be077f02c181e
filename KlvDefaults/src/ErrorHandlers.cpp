#include "ErrorHandlers.h"

#include <KlvExtender/SceneGraph/SoErrorStack.h>
#include <KlvExtender/SceneGraph/SoGLError.h>

#include <Inventor/errors/SoDebugError.h>
#include <Inventor/errors/SoMemoryError.h>
#include <Inventor/errors/SoReadError.h>

#include <cstddef>

namespace {

struct ErrorClass
{
    SoErrorCB* (*callback)();
    void* (*data)();
    void (*setHandler)(SoErrorCB* callback, void* data);
};

template <typename Error>
constexpr ErrorClass errorClass = {&Error::getHandlerCallback, &Error::getHandlerData,
                                   &Error::setHandlerCallback};

const std::array errorClasses = {errorClass<SoDebugError>,  errorClass<SoError>,
                                 errorClass<SoErrorStack>,  errorClass<SoGLError>,
                                 errorClass<SoMemoryError>, errorClass<SoReadError>};

} // namespace

ErrorHandlers::ErrorHandlers(SoErrorCB* callback, void* data)
{
    static_assert(errorClasses.size() == classCount);
    for (std::size_t i = 0; i < errorClasses.size(); ++i)
        m_previous[i] = {errorClasses[i].callback(), errorClasses[i].data()};
    for (const ErrorClass& one : errorClasses)
        one.setHandler(callback, data);
}

ErrorHandlers::~ErrorHandlers()
{
    for (std::size_t i = 0; i < errorClasses.size(); ++i)
        errorClasses[i].setHandler(m_previous[i].callback, m_previous[i].data);
}
