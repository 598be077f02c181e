#pragma once

#include <QIcon>

class QPainter;

/// An icon that is drawn when shown, in the colours of the palette and sharp at every size.
class DrawnIcon
{
public:
    /// Draws into a square of 16 units; pen and brush are set.
    using Drawing = void (*)(QPainter&);

    static QIcon of(Drawing drawing);
};
