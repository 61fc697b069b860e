#include "lib/hvapi/scene/C3DSlicePrivate.h"

#include <QtGui/qopengl.h>
#include <algorithm>

using hvscene::Box;
using hvscene::Vec3;

C3DSlice::C3DSlice(int axis)
    : d(std::make_unique<Private>())
{
    d->axis = axis;
}

C3DSlice::~C3DSlice() = default;

int C3DSlice::getAxis() const
{
    return d->axis;
}

double C3DSlice::getPosition() const
{
    return d->position;
}

void C3DSlice::setPosition(double position)
{
    if (!std::isfinite(position) || position == d->position) return;
    d->position = position;
    d->dirty = true;
    emit sliceChanged();
}

void C3DSlice::show(bool bShow)
{
    if (bShow == d->displayed) return;
    d->displayed = bShow;
    emit sliceChanged();
}

bool C3DSlice::isDisplayed() const
{
    return d->displayed;
}

void C3DSlice::Private::update(const Box& scene)
{
    dirty = false;
    outline = {};
    if (scene.empty) return;
    const double low[3] = {scene.min.x, scene.min.y, scene.min.z};
    const double high[3] = {scene.max.x, scene.max.y, scene.max.z};
    position = std::clamp(position, low[axis], high[axis]);
    const int u = (axis + 1) % 3;
    const int v = (axis + 2) % 3;
    for (int k = 0; k < 4; ++k) {
        double p[3];
        p[axis] = position;
        p[u] = (k == 1 || k == 2) ? high[u] : low[u];
        p[v] = (k >= 2) ? high[v] : low[v];
        outline[static_cast<std::size_t>(k)] = {p[0], p[1], p[2]};
    }
}

void C3DSlice::Private::drawOutline() const
{
    static const GLfloat colours[3][3] = {
        {0.95f, 0.44f, 0.40f}, {0.52f, 0.83f, 0.45f}, {0.40f, 0.66f, 0.98f}};
    glPushAttrib(GL_CURRENT_BIT);
    glColor3fv(colours[axis]);
    glBegin(GL_LINE_LOOP);
    for (const Vec3& p : outline)
        glVertex3d(p.x, p.y, p.z);
    glEnd();
    glPopAttrib();
}
