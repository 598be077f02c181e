#pragma once

#include <QProxyStyle>

/// The application's style with thin frames, for inputs that are only as high as a line of small text.
class DvCompactStyle : public QProxyStyle
{
    Q_OBJECT

public:
    /// Gives a caption or an input that height in pixels, and the largest font up to its own whose lines fit
    /// in.
    static void apply(QWidget* widget, int height);

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;

private:
    explicit DvCompactStyle(QWidget* widget);
};
