#pragma once

#include <KlvExtender/KlvExtenderExport.h>

#include <Inventor/errors/SoError.h>

/// A report on several errors, one of which led to the other.
///
/// A kind of error of its own beside those of the scene graph: it has its own handler, and its type registers
/// itself when it is first asked for. Without a handler, reports are printed like those of its siblings.
class KLV_EXTENDER_EXPORT SoErrorStack : public SoError
{
public:
    /// Sets the function that gets the reports, and the pointer that is handed to it. Null prints them.
    static void setHandlerCallback(SoErrorCB* callback, void* data);
    /// The function set last; at first the one that prints.
    static SoErrorCB* getHandlerCallback();
    static void* getHandlerData();

    static SoType getClassTypeId();
    SoType getTypeId() const override;

    /// Registers the type. Need not be called.
    static void initClass();

    /// Reports an error to the handler; the arguments are those of printf(), the text may have any length.
    static void post(const char* format, ...) Q_ATTRIBUTE_FORMAT_PRINTF(1, 2);

protected:
    SoErrorCBPtr getHandler(void*& data) const override;
};
