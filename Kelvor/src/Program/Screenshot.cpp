#include "Screenshot.h"

#include "View/SceneView.h"
#include "Window/MainWindow.h"

#include <QApplication>
#include <QEvent>
#include <QImageWriter>
#include <QPixmap>

namespace {

// Long enough for the event loop to come round after a layout change and for the view to draw at its new
// size.
constexpr int settleMilliseconds = 120;

} // namespace

Screenshot::Screenshot(MainWindow* window, const QString& file)
    : QObject(window)
    , m_window(window)
    , m_file(file)
{
    m_settled.setSingleShot(true);
    m_settled.setInterval(settleMilliseconds);
    connect(&m_settled, &QTimer::timeout, this, &Screenshot::take);
    qApp->installEventFilter(this);
    if (m_window->view()->root())
        connect(m_window->view(), &SceneView::firstFrameDrawn, &m_settled, qOverload<>(&QTimer::start));
    else
        m_settled.start();
}

bool Screenshot::eventFilter(QObject* watched, QEvent* event)
{
    if ((event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest) && m_settled.isActive())
        m_settled.start();
    return QObject::eventFilter(watched, event);
}

void Screenshot::take()
{
    qApp->removeEventFilter(this);
    QImageWriter writer(m_file);
    const bool written = writer.write(m_window->grab().toImage());
    Q_EMIT finished(written
                        ? QString()
                        : tr("The picture \"%1\" cannot be written: %2.").arg(m_file, writer.errorString()));
}
