#include "lib/hvapi/scene/C3DVolumePrivate.h"

#include "hvimage/CILPalette.h"
#include "lib/hvapi/scene/C3DSGManagerPrivate.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <algorithm>
#include <cmath>

namespace {

/// Depths nearer than anything in a scene: the camera leaves a fortieth of its reach free in front of it.
constexpr double inFrontOfTheScene = 0.02;

/// The value as a float, within a float's range.
float toFloat(double value)
{
    constexpr double most = 3.4e38;
    return static_cast<float>(std::clamp(value, -most, most));
}

/// Sides of the boxes that face the viewer, under the current matrices: bit k for side k of VoxelBoxes.
unsigned int sidesToViewer()
{
    GLdouble m[16];
    glGetDoublev(GL_MODELVIEW_MATRIX, m);
    GLdouble p[16];
    glGetDoublev(GL_PROJECTION_MATRIX, p);
    if (p[15] == 0.0) return 63;  // a perspective: each box shows other sides
    // The normal along axis k has the depth m[4 k + 2] in the eye's space when the axes are at right angles;
    // under a shear the cross products of the columns tell.
    unsigned int sides = 0;
    for (int k = 0; k < 3; ++k) {
        const GLdouble* u = m + 4 * ((k + 1) % 3);
        const GLdouble* v = m + 4 * ((k + 2) % 3);
        const GLdouble* w = m + 4 * k;
        const double towards = u[0] * v[1] - u[1] * v[0];
        const double volume =
            w[0] * (u[1] * v[2] - u[2] * v[1]) + w[1] * (u[2] * v[0] - u[0] * v[2]) + w[2] * towards;
        const double facing = volume < 0.0 ? -towards : towards;
        if (facing <= 0.0) sides |= 1U << (2 * k);
        if (facing >= 0.0) sides |= 2U << (2 * k);
    }
    return sides;
}

/// Millimetres of the object that a pixel covers.
double mmPerPixel()
{
    GLdouble m[16];
    glGetDoublev(GL_MODELVIEW_MATRIX, m);
    GLdouble p[16];
    glGetDoublev(GL_PROJECTION_MATRIX, p);
    GLint window[4];
    glGetIntegerv(GL_VIEWPORT, window);
    const double magnified = std::sqrt(m[0] * m[0] + m[1] * m[1] + m[2] * m[2]) * std::fabs(p[5]);
    return magnified > 0.0 && window[3] > 0 ? 2.0 / (magnified * window[3]) : 0.0;
}

void drawBoxes(const hvscene::VoxelBoxes& boxes, unsigned int sides, bool points)
{
    for (unsigned int side = 0; side < 6; ++side) {
        if (!(sides & (1U << side))) continue;
        const float outwards = side % 2 ? 1.0f : -1.0f;
        const unsigned int axis = side / 2;
        glNormal3f(axis == 0 ? outwards : 0.0f, axis == 1 ? outwards : 0.0f, axis == 2 ? outwards : 0.0f);
        glDrawElements(GL_QUADS, static_cast<GLsizei>(boxes.sides[side].size()), GL_UNSIGNED_INT,
                       boxes.sides[side].data());
    }
    if (points)
        glDrawElements(GL_POINTS, static_cast<GLsizei>(boxes.middles.size()), GL_UNSIGNED_INT,
                       boxes.middles.data());
}

}  // namespace

C3DVolume::C3DVolume(QString name)
    : C3DObject(name)
    , d(std::make_unique<Private>(*this))
{}

C3DVolume::~C3DVolume() = default;

bool C3DVolume::isValid()
{
    return !d->m_voxels.voxels.empty();
}

void C3DVolume::getBBox(Coord3d& min, Coord3d& max)
{
    min = Coord3d(d->m_box.min.x, d->m_box.min.y, d->m_box.min.z);
    max = Coord3d(d->m_box.max.x, d->m_box.max.y, d->m_box.max.z);
}

void C3DVolume::render(bool, GLenum mode)
{
    if (mode == GL_RENDER && isDisplayed() && isValid()) d->draw();
}

void C3DVolume::setPreRenderEvaluationFlag(bool bEvaluate)
{
    if (d->m_evaluating == bEvaluate) return;
    d->m_evaluating = bEvaluate;
    d->changed();
}

void C3DVolume::setPreRenderEvaluationVoxelRatio(float ratio)
{
    if (std::isnan(ratio)) return;
    d->m_ratio = std::clamp(ratio, 0.0f, 1.0f);
    if (d->m_evaluating) d->changed();
}

void C3DVolume::setMultiPassRenderWithDepthTest(bool bEnable)
{
    d->m_depthTest = bEnable;
    hvscene::repaintViewsOf(this);
}

void C3DVolume::setUIEnableMultiPassRenderWithDepthTest(bool bEnable)
{
    d->m_depthWish = bEnable;
    hvscene::repaintViewsOf(this);
}

void C3DVolume::setThreshold(float threshold)
{
    if (std::isnan(threshold)) return;
    d->m_threshold = threshold;
    d->changed();
}

float C3DVolume::getDefaultThreshold()
{
    return toFloat(d->m_voxels.defaultThreshold());
}

float C3DVolume::getAttribMinValue()
{
    return toFloat(d->m_voxels.lowest());
}

C3DVolume::Private& C3DVolume::hostSide()
{
    return *d;
}

void C3DVolume::Private::setVoxels(hvscene::OpticalVoxels voxels)
{
    m_voxels = std::move(voxels);
    m_box = m_voxels.box();
    m_threshold = q.getDefaultThreshold();
    changed();
}

std::size_t C3DVolume::Private::drawnCount()
{
    return boxes().middles.size();
}

void C3DVolume::Private::changed()
{
    m_boxesDirty = true;
    hvscene::repaintViewsOf(&q);
}

const hvscene::VoxelBoxes& C3DVolume::Private::boxes()
{
    if (!m_boxesDirty) return m_boxes;
    CILPalette palette(eColorTableRainbow);
    const auto drawn =
        hvscene::drawnVoxels(m_voxels, m_threshold, m_evaluating ? static_cast<double>(m_ratio) : 1.0);
    m_boxes = hvscene::voxelBoxes(m_voxels, drawn, palette.getColorTableBuffer());
    m_boxesDirty = false;
    return m_boxes;
}

// The pass after those of the other objects: it begins with the depths that they have left, or, where depths
// are not compared, takes depths in front of all of them. Arrays of the client are drawn: no GL object has to
// survive a context.
void C3DVolume::Private::draw()
{
    const hvscene::VoxelBoxes& all = boxes();
    if (all.isEmpty()) return;
    const unsigned int sides = sidesToViewer();
    const bool points = all.smallest < 1.5 * mmPerPixel();

    glPushAttrib(GL_ALL_ATTRIB_BITS);
    glPushClientAttrib(GL_CLIENT_VERTEX_ARRAY_BIT);
    glEnable(GL_DEPTH_TEST);
    glDepthMask(GL_TRUE);
    glDepthFunc(GL_LEQUAL);
    if (!comparesDepth()) glDepthRange(0.0, inFrontOfTheScene);
    glDisable(GL_BLEND);
    glDisable(GL_CULL_FACE);
    glDisable(GL_TEXTURE_1D);
    glDisable(GL_TEXTURE_2D);
    glDisable(GL_TEXTURE_3D);
    glPointSize(1.0f);
    QOpenGLFunctions& f = *QOpenGLContext::currentContext()->functions();
    if (f.hasOpenGLFeature(QOpenGLFunctions::Buffers)) {
        f.glBindBuffer(GL_ARRAY_BUFFER, 0);
        f.glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, 0);
    }
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, all.corners.data());
    glEnableClientState(GL_COLOR_ARRAY);
    glColorPointer(4, GL_UNSIGNED_BYTE, 0, all.colours.data());
    glEnable(GL_LIGHTING);
    glEnable(GL_LIGHT0);
    glEnable(GL_NORMALIZE);
    glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE);
    glEnable(GL_COLOR_MATERIAL);
    const GLfloat ambient[4] = {0.35f, 0.35f, 0.35f, 1.0f};
    const GLfloat diffuse[4] = {0.65f, 0.65f, 0.65f, 1.0f};
    const GLfloat none[4] = {0.0f, 0.0f, 0.0f, 1.0f};
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, none);
    glLightfv(GL_LIGHT0, GL_AMBIENT, ambient);
    glLightfv(GL_LIGHT0, GL_DIFFUSE, diffuse);
    glLightfv(GL_LIGHT0, GL_SPECULAR, none);
    drawBoxes(all, sides, points);
    glPopClientAttrib();
    glPopAttrib();
}
