#include "hvapi/scene/C3DObject.h"

#include "lib/hvapi/scene/C3DSGManagerPrivate.h"

struct C3DObject::Private
{
    matrix transformation;
    bool displayed = true;
};

C3DObject::C3DObject(QString name)
    : C3DSGNode(name)
    , d(std::make_unique<Private>())
{}

C3DObject::~C3DObject()
{
    hvscene::repaintViewsOf(this);
}

void C3DObject::show(bool bShow)
{
    if (d->displayed == bShow) return;
    d->displayed = bShow;
    emit visibilityChanged(bShow);
    hvscene::repaintViewsOf(this);
}

bool C3DObject::isDisplayed() const
{
    return d->displayed;
}

matrix C3DObject::getTransformation() const
{
    return d->transformation;
}

void C3DObject::setTransformation(const matrix& transformation)
{
    d->transformation = transformation;
    setTransformationChanged(true, true);
    hvscene::repaintViewsOf(this);
}

Coord3d C3DObject::getCenter() const
{
    Coord3d min;
    Coord3d max;
    const_cast<C3DObject*>(this)->getBBox(min, max);
    return {(min.x + max.x) / 2.0, (min.y + max.y) / 2.0, (min.z + max.z) / 2.0};
}

void C3DObject::applyTransform()
{
    const matrix& transformation = d->transformation;
    glMultMatrixd(static_cast<const double*>(transformation));
}

void C3DObject::getBBox(Coord3d& min, Coord3d& max)
{
    min = Coord3d();
    max = Coord3d();
}

void C3DObject::getTransformedBBox(Coord3d& min, Coord3d& max)
{
    Coord3d low;
    Coord3d high;
    getBBox(low, high);
    hvscene::Box box;
    for (int k = 0; k < 8; ++k) {
        const Vec3f corner((k & 1) ? high.x : low.x, (k & 2) ? high.y : low.y, (k & 4) ? high.z : low.z);
        const Vec3f p = d->transformation * corner;
        box.add({p.x(), p.y(), p.z()});
    }
    min = Coord3d(box.min.x, box.min.y, box.min.z);
    max = Coord3d(box.max.x, box.max.y, box.max.z);
}

bool C3DObject::isValid()
{
    return true;
}

void C3DObject::render(bool, GLenum) {}

void C3DObject::renderNode(GLenum mode)
{
    if (mode != GL_RENDER || !isDisplayed() || !isValid()) return;
    applyTransform();
    render(true, mode);
}

void C3DObject::renderSlice(GLdouble*, GLuint) {}

void C3DObject::setCropBoxOffset(Vec3f*) {}

void C3DObject::setCropEnabled(bool) {}

bool C3DObject::isCropEnabled()
{
    return false;
}

void C3DObject::setTransformationChanged(bool bChanged, bool bNotify)
{
    if (bNotify) emit transformationChanged(bChanged);
}
