#include "GlMessages.h"

#include <KlvExtender/SceneGraph/SoGLError.h>

#include <QOpenGLContext>
#include <QOpenGLFunctions>

namespace {

constexpr qsizetype maxReported = 100;
constexpr GLenum debugOutput = 0x92E0; // GL_DEBUG_OUTPUT, on by itself only in contexts made for debugging

} // namespace

GlMessages::GlMessages()
{
    QOpenGLContext* const context = QOpenGLContext::currentContext();
    if (!context->hasExtension("GL_KHR_debug") || !m_logger.initialize())
        return;
    connect(&m_logger, &QOpenGLDebugLogger::messageLogged, this, &GlMessages::report);
    m_logger.disableMessages(QOpenGLDebugMessage::AnySource, QOpenGLDebugMessage::AnyType,
                             QOpenGLDebugMessage::NotificationSeverity);
    // Within the call that is to blame, so that a breakpoint in a handler shows it.
    m_logger.startLogging(QOpenGLDebugLogger::SynchronousLogging);
    context->functions()->glEnable(debugOutput);
}

void GlMessages::report(const QOpenGLDebugMessage& message)
{
    const QString text = message.message().trimmed();
    if (m_reported.size() >= maxReported || m_reported.contains(text))
        return;
    m_reported.insert(text);
    SoGLError::post("%s", text.toUtf8().constData());
}
