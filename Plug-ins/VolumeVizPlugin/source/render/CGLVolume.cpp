#include "render/CGLVolume.h"

#include "render/gl/GlewSupport.h"
#include "render/logic/CropPlanes.h"

#include <QOpenGLContext>

#include <algorithm>

namespace {

void setGrey(float (&color)[4], float intensity)
{
    std::fill_n(color, 3, intensity);
    color[3] = 1.0F;
}

float meanOf(const float (&color)[4])
{
    return (color[0] + color[1] + color[2]) / 3.0F;
}

void deleteTexture(GLuint& name)
{
    if (glIsTexture(name)) glDeleteTextures(1, &name);
    name = 0;
}

void deleteList(GLuint& name)
{
    if (name != 0) glDeleteLists(name, 1);
    name = 0;
}

}  // namespace

CGLVolume::CGLVolume(QString name)
    : C3DVolumeData(name)
    , m_sliceColorTable{}
    , m_cropPlanes{}
{
    m_fQualityRenderingThreshold = getDefaultQualityRenderingThreshold();
    m_slicePalette.SetImageMinMax(0.0, 255.0);
    setSliceColorTable(eColorTableGrays, false, false);
    m_volumeListMatrix.loadIdentity();
    m_thickSliceListMatrix.loadIdentity();
    connect(this, &C3DVolumeData::boundingBoxChanged, this, &CGLVolume::recalculateGeometry);
    connect(this, &C3DVolumeData::volumeDataChanged, this, &CGLVolume::resetVolumeStates);
}

CGLVolume::~CGLVolume()
{
    if (!QOpenGLContext::currentContext()) return;
    deleteList(m_uVolumeList);
    deleteList(m_uThickSliceList);
    deleteTexture(m_uVolumeTex);
    deleteTexture(m_uColorTableTex);
    deleteTexture(m_uSliceColorTableTex);
}

bool CGLVolume::canDraw()
{
    return glew::supports("GL_VERSION_2_0") && QOpenGLContext::currentContext();
}

bool CGLVolume::isValid()
{
    return m_uVolumeTex != 0 || C3DVolumeData::isValid();
}

void CGLVolume::renderNode(GLenum mode)
{
    if (!canDraw() || !isValid()) return;
    if (!m_bShadersReady) initShaders();
    if (mode != GL_RENDER) return;
    applyTransform();
    render(true, mode);
}

void CGLVolume::resetVolumeStates()
{
    std::fill_n(&m_cropPlanes[0][0], 6 * 4, 0.0);
    m_bVolumeTextureDirty = true;
    m_fSliceMin = 0.0F;
    m_fSliceMax = 100.0F;
}

void CGLVolume::setCropBoxOffset(Vec3f* offsets)
{
    if (!offsets) return;
    Coord3d min;
    Coord3d max;
    getBBox(min, max);
    Vec3f corners[8];
    std::copy_n(offsets, 8, corners);
    makeCropPlanes(min, max, corners, m_cropPlanes);
    emit onSignalVolumeCropParametersChanged();
}

void CGLVolume::setCropEnabled(bool bEnable)
{
    m_bCropEnabled = bEnable;
}

bool CGLVolume::isCropEnabled()
{
    return m_bCropEnabled;
}

void CGLVolume::notifyCropEquationsChanged(bool bModified)
{
    emit onSignalCroppinEquationsChanged(bModified);
}

void CGLVolume::notifyTransformationChanged(bool bModified)
{
    emit onSignalTransformationChanged(bModified);
}

void CGLVolume::setLightIntensity(float ambient, float diffuse, float specular)
{
    setGrey(m_fAmbient, ambient);
    setGrey(m_fDiffuse, diffuse);
    setGrey(m_fSpecular, specular);
}

float CGLVolume::getAmbientIntensity() const
{
    return meanOf(m_fAmbient);
}

float CGLVolume::getDiffuseIntensity() const
{
    return meanOf(m_fDiffuse);
}

float CGLVolume::getSpecularIntensity() const
{
    return meanOf(m_fSpecular);
}

void CGLVolume::setShininess(float shininess)
{
    m_fShininess = shininess;
}

float CGLVolume::getShininess() const
{
    return m_fShininess;
}

void CGLVolume::setEmissionCompensation(float emission)
{
    m_fEmissionCompensation = emission;
}

float CGLVolume::getEmissionCompensation() const
{
    return m_fEmissionCompensation;
}

void CGLVolume::setLighting(bool bLighting)
{
    m_bLighting = bLighting;
}

float CGLVolume::getLighting() const
{
    return m_bLighting ? 1.0F : 0.0F;
}

void CGLVolume::setMedianFilterDenoise(bool bFilter)
{
    m_bMedianFilterDenoise = bFilter;
}

bool CGLVolume::isMedianFilterDenoise() const
{
    return m_bMedianFilterDenoise;
}

void CGLVolume::setFilterDenoiseGradient(bool bFilter)
{
    m_bFilterDenoiseGradient = bFilter;
}

bool CGLVolume::isFilterDenoiseGradient() const
{
    return m_bFilterDenoiseGradient;
}

void CGLVolume::setRenderInBestPerformance(bool bPerformance)
{
    m_bRenderInBestPerformance = bPerformance;
}

bool CGLVolume::isRenderInBestPerformance() const
{
    return m_bRenderInBestPerformance;
}

void CGLVolume::setShadersReady(bool bReady)
{
    m_bShadersReady = bReady;
}

void CGLVolume::setMIP(bool bMIP)
{
    m_eBlendEquation = bMIP ? GL_MAX : GL_FUNC_ADD;
}

bool CGLVolume::isMIP() const
{
    return m_eBlendEquation == GL_MAX;
}

void CGLVolume::setLevelOfDetail(int nDensity)
{
    m_nSliceDensity = nDensity;
    m_bVolumeListDirty = true;
}

void CGLVolume::setSliceUseTransferFunction(bool bUse)
{
    m_bSliceUseTransferFunction = bUse;
    m_bSliceColorTableUploaded = false;
}

void CGLVolume::setSliceOpacity(float opacity)
{
    m_fSliceOpacity = opacity;
}

void CGLVolume::setSliceMin(float min)
{
    m_fSliceMin = min;
}

void CGLVolume::setSliceMax(float max)
{
    m_fSliceMax = max;
}

void CGLVolume::setSliceColorTable(HVS_COLORTABLE_TYPES type, bool reversed, bool logScale)
{
    m_bSliceColorTableUploaded = false;
    m_slicePalette.setColorTableType(type, 0.0F, 1.0F);
    m_slicePalette.setReversed(reversed);
    m_slicePalette.setLogScale(logScale);
}

void CGLVolume::setQualityRenderingThreshold(float seconds)
{
    m_fQualityRenderingThreshold = seconds;
}

float CGLVolume::getQualityRenderingThreshold() const
{
    return m_fQualityRenderingThreshold;
}

float CGLVolume::getDefaultQualityRenderingThreshold() const
{
    return m_fPreRenderVoxelRatio * m_fDefaultThresholdFactor;
}

float CGLVolume::getPreRenderVoxelRatio() const
{
    return m_fPreRenderVoxelRatio;
}
