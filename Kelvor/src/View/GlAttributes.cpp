#include "GlAttributes.h"

#include <QOpenGLFunctions>

GlAttributes::GlAttributes()
{
    glPushAttrib(GL_ALL_ATTRIB_BITS);
    // Colours set meanwhile would go into the material, where the pop leaves them while nothing is lit.
    glDisable(GL_COLOR_MATERIAL);
}

GlAttributes::~GlAttributes()
{
    glPopAttrib();
}
