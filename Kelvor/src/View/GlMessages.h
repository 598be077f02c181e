#pragma once

#include <QObject>
#include <QOpenGLDebugLogger>
#include <QSet>

/// Reports what an OpenGL context has to say, as `SoGLError`s.
///
/// Each message is reported once, since a scene tends to make the same mistake in every picture; a context
/// that goes on finding new ones is heard a hundred times. Mere notifications are left out.
class GlMessages : public QObject
{
    Q_OBJECT

public:
    /// Listens to the context that is current; it must be current, too, when the object is destroyed. Does
    /// nothing where the context gives no messages.
    GlMessages();

private:
    void report(const QOpenGLDebugMessage& message);

    QOpenGLDebugLogger m_logger;
    QSet<QString> m_reported;
};
