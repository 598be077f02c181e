#include "Models/DrawnIcon.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

#include <algorithm>

namespace {

class DrawnIconEngine : public QIconEngine
{
public:
    explicit DrawnIconEngine(DrawnIcon::Drawing drawing)
        : m_drawing(drawing)
    {
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const QPalette palette = QGuiApplication::palette();
        const QColor line =
            mode == QIcon::Selected
                ? palette.color(QPalette::HighlightedText)
                : palette.color(mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active,
                                QPalette::Text);
        QColor fill = mode == QIcon::Selected ? line : palette.color(QPalette::Highlight);
        fill.setAlphaF(0.35F);
        const qreal unit = std::min(rect.width(), rect.height()) / 16.0;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.center().x() + 0.5 - 7.5 * unit - unit / 2,
                           rect.center().y() + 0.5 - 7.5 * unit - unit / 2);
        painter->scale(unit, unit);
        painter->setPen(QPen(line, 1));
        painter->setBrush(fill);
        m_drawing(*painter);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new DrawnIconEngine(m_drawing); }

private:
    DrawnIcon::Drawing m_drawing;
};

} // namespace

QIcon DrawnIcon::of(Drawing drawing)
{
    return QIcon(new DrawnIconEngine(drawing));
}
