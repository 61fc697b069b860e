#include "render/CGLVolume.h"

#include "hvutils/CHVProcess.h"
#include "render/gl/GlStateScope.h"
#include "render/gl/GlewSupport.h"
#include "render/logic/SliceStack.h"
#include "render/logic/ThickSlab.h"

#include <algorithm>

namespace {

constexpr int kFastModeDensity = 50;
constexpr GLuint kOwnSpace = ~GLuint(0);

/// The sign of a pass of the host in which the volume must not appear.
bool isHiddenFromThisPass()
{
    GLint function = GL_ALWAYS;
    glGetIntegerv(GL_ALPHA_TEST_FUNC, &function);
    return function == GL_EQUAL;
}

/// Marks a display list as outdated when it was compiled for another modelview matrix.
void compareMatrix(const double (&modelview)[16], const matrix& listMatrix, bool& dirty)
{
    const double* compiledFor = listMatrix;
    if (!dirty) dirty = !std::equal(modelview, modelview + 16, compiledFor);
}

bool isExtremum(GLenum equation)
{
    return equation == GL_MAX || equation == GL_MIN;
}

void setBlending(GLenum equation)
{
    if (isExtremum(equation) && glew::supports("GL_EXT_blend_minmax")) {
        glew::blendEquationEXT(equation);
        glBlendFunc(GL_SRC_COLOR, GL_DST_COLOR);
        return;
    }
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    if (isExtremum(equation) && glew::supports("glBlendEquation")) glew::blendEquation(GL_FUNC_ADD);
}

/// GLEW knows extensions by this question and answers false for the name of a function, so that the equation
/// really comes back with the saved state of the colour buffer.
void resetBlending(GLenum equation)
{
    if (!isExtremum(equation) || !glew::supports("GL_EXT_blend_minmax")) return;
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    if (glew::supports("glBlendEquationEXT"))
        glew::blendEquationEXT(GL_FUNC_ADD);
    else if (glew::supports("glBlendEquation"))
        glew::blendEquation(GL_FUNC_ADD);
}

template <int N>
void enablePlanes(const double (&planes)[N][4])
{
    for (int i = 0; i < N; ++i) {
        glClipPlane(GL_CLIP_PLANE0 + i, planes[i]);
        glEnable(GL_CLIP_PLANE0 + i);
    }
}

void disablePlanes(int count)
{
    for (int i = 0; i < count; ++i)
        glDisable(GL_CLIP_PLANE0 + i);
}

/// Compiles `draw` into the list when that is due, and calls the list.
template <class Draw>
void callList(GLuint& list, bool& dirty, matrix& listMatrix, const double (&modelview)[16], Draw draw)
{
    if (list == 0) list = glGenLists(1);
    if (list == 0) return;
    if (dirty) {
        listMatrix = matrix(modelview, matrix::COLUMN_MAJOR);
        glNewList(list, GL_COMPILE);
        draw();
        glEndList();
        dirty = false;
    }
    glCallList(list);
}

}  // namespace

void CGLVolume::enableCropPlanes()
{
    enablePlanes(m_cropPlanes);
}

void CGLVolume::render(bool, GLenum)
{
    if (canDraw() && isDisplayed()) renderVolume();
}

void CGLVolume::render(bool dirty)
{
    render(dirty, GL_RENDER);
}

void CGLVolume::renderVolume()
{
    if (isHiddenFromThisPass()) return;
    const GlStateScope state(GL_COLOR_BUFFER_BIT | GL_ENABLE_BIT | GL_DEPTH_BUFFER_BIT);
    glEnable(GL_DEPTH_TEST);

    double modelview[16];
    glGetDoublev(GL_MODELVIEW_MATRIX, modelview);
    compareMatrix(modelview, m_volumeListMatrix, m_bVolumeListDirty);
    glDisable(GL_LIGHTING);
    const VolumeVertex view = viewDirection(modelview);
    // This marks the list as outdated in every frame.
    setLevelOfDetail(CHVProcess::isFast3DRenderingMode() ? kFastModeDensity : m_nLevelOfDetail);
    const double interval = sliceInterval(getThickness(), m_nSliceDensity);
    if (m_bCropEnabled) enableCropPlanes();

    m_volumeProgram.activate();
    if (updateVolumeTexture() == GL_NO_ERROR) {
        setVolumeUniforms(view, interval);
        bindColorTable();
        glEnable(GL_BLEND);
        setBlending(m_eBlendEquation);
        callList(m_uVolumeList, m_bVolumeListDirty, m_volumeListMatrix, modelview,
                 [&] { drawStack(view, interval); });
    }

    glDisable(GL_TEXTURE_3D);
    if (m_bCropEnabled) disablePlanes(6);
    resetBlending(m_eBlendEquation);
    m_volumeProgram.deactivate();
}

void CGLVolume::prepareForSlices()
{
    renderNode(GL_SELECT);
    if (!m_bShadersReady || m_bVolumeUniformsSet) return;
    const GlStateScope state(GL_LIGHTING_BIT);
    double modelview[16];
    glGetDoublev(GL_MODELVIEW_MATRIX, modelview);
    m_volumeProgram.activate();
    setVolumeUniforms(viewDirection(modelview), sliceInterval(getThickness(), m_nSliceDensity));
    m_volumeProgram.deactivate();
}

void CGLVolume::renderThickSlice(int axis, double position, double thickness, GLenum eRenderingMode,
                                 bool bLighting)
{
    if (!canDraw() || isHiddenFromThisPass()) return;
    Coord3d min;
    Coord3d max;
    getBBox(min, max);
    double slab[2][4];
    if (!makeSlabPlanes(min, max, axis, position, thickness, slab)) return;

    const GlStateScope state(GL_COLOR_BUFFER_BIT | GL_ENABLE_BIT | GL_DEPTH_BUFFER_BIT);
    glDisable(GL_DEPTH_TEST);  // stacked slices must not hide each other

    double modelview[16];
    glGetDoublev(GL_MODELVIEW_MATRIX, modelview);
    compareMatrix(modelview, m_thickSliceListMatrix, m_bThickSliceListDirty);
    glDisable(GL_LIGHTING);
    const VolumeVertex view = viewDirection(modelview);
    const double interval = sliceInterval(getThickness(), m_nSliceDensity);
    enablePlanes(slab);

    m_volumeProgram.activate();
    if (updateVolumeTexture() == GL_NO_ERROR) {
        setStackUniforms(bLighting, view, interval);
        bindColorTable();
        glEnable(GL_BLEND);
        setBlending(eRenderingMode);
        callList(m_uThickSliceList, m_bThickSliceListDirty, m_thickSliceListMatrix, modelview,
                 [&] { drawThickStack(axis, interval); });
    }

    glDisable(GL_TEXTURE_3D);
    disablePlanes(2);
    resetBlending(eRenderingMode);
    m_volumeProgram.deactivate();
}

void CGLVolume::renderSlice(GLdouble* plane, GLuint id)
{
    if (!plane || !canDraw() || !isDisplayed()) return;
    const bool bTransformed = id != kOwnSpace;
    Coord3d min;
    Coord3d max;
    if (bTransformed)
        getTransformedBBox(min, max);
    else
        getBBox(min, max);

    const GlStateScope state(GL_COLOR_BUFFER_BIT | GL_ENABLE_BIT | GL_DEPTH_BUFFER_BIT | GL_LIGHTING_BIT |
                             GL_POLYGON_BIT);
    glHint(GL_PERSPECTIVE_CORRECTION_HINT, GL_NICEST);
    glHint(GL_CLIP_VOLUME_CLIPPING_HINT_EXT, GL_FASTEST);  // drivers of today answer GL_INVALID_ENUM
    glEnable(GL_DEPTH_TEST);
    glDisable(GL_LIGHTING);
    glEnable(GL_BLEND);
    glDisable(GL_CULL_FACE);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);

    if (m_bCropEnabled) {
        const GlModelviewScope modelview;
        if (bTransformed) applyTransform();
        enableCropPlanes();
    }

    m_sliceProgram.activate();
    setSliceUniforms();
    bindSliceColorTable();
    if (updateVolumeTexture() == GL_NO_ERROR)
        drawSlice({plane[0], plane[1], plane[2], plane[3]}, min, max, bTransformed);

    if (m_bCropEnabled) disablePlanes(6);
    m_sliceProgram.deactivate();
    glDisable(GL_TEXTURE_3D);
}
