#include "lib/hvapi/scene/C3DSlicePrivate.h"

#include "lib/hvapi/scene/AxisColours.h"

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

C3DSlice::Private& C3DSlice::hostSide()
{
    return *d;
}

void C3DSlice::Private::update(const Box& box)
{
    dirty = false;
    scene = box;
    outline = {};
    if (scene.empty) return;
    position = inScene(position);
    const double low[3] = {scene.min.x, scene.min.y, scene.min.z};
    const double high[3] = {scene.max.x, scene.max.y, scene.max.z};
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

double C3DSlice::Private::inScene(double wanted) const
{
    const double low[3] = {scene.min.x, scene.min.y, scene.min.z};
    const double high[3] = {scene.max.x, scene.max.y, scene.max.z};
    return scene.empty ? wanted : std::clamp(wanted, low[axis], high[axis]);
}

void C3DSlice::Private::drawOutline(float lineWidth) const
{
    const QColor colour = hvscene::axisColour(axis);
    glPushAttrib(GL_CURRENT_BIT | GL_LINE_BIT | GL_ENABLE_BIT | GL_COLOR_BUFFER_BIT | GL_HINT_BIT);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glEnable(GL_LINE_SMOOTH);
    glHint(GL_LINE_SMOOTH_HINT, GL_NICEST);
    glLineWidth(1.3f * lineWidth);
    glColor3d(colour.redF(), colour.greenF(), colour.blueF());
    glBegin(GL_LINE_LOOP);
    for (const Vec3& p : outline)
        glVertex3d(p.x, p.y, p.z);
    glEnd();
    glPopAttrib();
}
