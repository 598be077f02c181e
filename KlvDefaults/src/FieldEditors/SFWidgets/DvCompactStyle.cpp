#include "FieldEditors/SFWidgets/DvCompactStyle.h"

#include <QApplication>
#include <QFontInfo>
#include <QFontMetrics>
#include <QLabel>
#include <QStyleFactory>

namespace {

constexpr int frameWidth = 1;
constexpr int minimumPixelSize = 6;

} // namespace

DvCompactStyle::DvCompactStyle(QWidget* widget)
    : QProxyStyle(QStyleFactory::create(QApplication::style()->name()))
{
    setParent(widget);
}

void DvCompactStyle::apply(QWidget* widget, int height)
{
    widget->setFixedHeight(height);
    int lineHeight = height;
    if (!qobject_cast<QLabel*>(widget)) {
        widget->setStyle(new DvCompactStyle(widget));
        lineHeight -= 2 * frameWidth;
    }
    QFont font = widget->font();
    for (int size = QFontInfo(font).pixelSize();
         QFontMetrics(font).height() > lineHeight && size > minimumPixelSize; --size)
        font.setPixelSize(size);
    widget->setFont(font);
}

int DvCompactStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    if (metric == PM_DefaultFrameWidth || metric == PM_SpinBoxFrameWidth)
        return frameWidth;
    return QProxyStyle::pixelMetric(metric, option, widget);
}
