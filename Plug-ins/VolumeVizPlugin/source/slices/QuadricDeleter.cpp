#include "slices/QuadricDeleter.h"

#include <GL/glu.h>

void QuadricDeleter::operator()(GLUquadric* quadric) const
{
    gluDeleteQuadric(quadric);
}
