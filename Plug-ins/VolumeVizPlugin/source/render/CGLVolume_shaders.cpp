#include "render/CGLVolume.h"

#include "hvutils/CHVProcess.h"
#include "render/logic/NextPowerOfTwo.h"
#include "render/shaders/ShaderTexts.h"

#include <QByteArray>
#include <QOpenGLContext>
#include <QOpenGLFunctions>

namespace {

/// Sets uniforms of the active program by name. A name that the program does not know has no effect.
class Uniforms
{
public:
    explicit Uniforms(const CGLProgram& program)
        : m_gl(*QOpenGLContext::currentContext()->functions())
        , m_program(program.getID())
    {}

    void setInt(const char* name, int value) { m_gl.glUniform1i(location(name), value); }
    void setFloat(const char* name, double value)
    {
        m_gl.glUniform1f(location(name), static_cast<GLfloat>(value));
    }
    void setVector(const char* name, double x, double y, double z)
    {
        m_gl.glUniform3f(location(name), static_cast<GLfloat>(x), static_cast<GLfloat>(y),
                         static_cast<GLfloat>(z));
    }

private:
    GLint location(const char* name) { return m_gl.glGetUniformLocation(m_program, name); }

    QOpenGLFunctions& m_gl;
    GLuint m_program;
};

/// One voxel in texture coordinates. Built on the next power of two although the texture is not padded.
double textureStep(int voxels, double voxelInterval)
{
    return voxelInterval / nextPowerOfTwo(static_cast<unsigned>(voxels), true);
}

}  // namespace

bool CGLVolume::initShaders()
{
    if (!canDraw()) return false;
    const QByteArray volume(m_bRenderInBestPerformance ? volumePerformanceText : volumeQualityText);
    const QByteArray slice(sliceText);
    if (!m_volumeProgram.updateShader_Source(FRAGMENT_SHADER, QStringLiteral("volume_fp"),
                                             volume.constData()))
        return false;
    m_bVolumeUniformsSet = false;
    if (!m_bSliceProgramAdded) {
        if (!m_sliceProgram.addShader_Source(FRAGMENT_SHADER, QStringLiteral("slice_fp"), slice.constData()))
            return false;
        m_bSliceProgramAdded = true;
    }
    m_bShadersReady = true;
    return true;
}

void CGLVolume::setStackUniforms(bool bLighting, const VolumeVertex& view, double interval)
{
    Uniforms uniforms(m_volumeProgram);
    uniforms.setInt("bLighting", bLighting);
    uniforms.setInt("volumeData", 0);
    uniforms.setVector("viewVec", view.position[0], view.position[1], view.position[2]);
    uniforms.setFloat("sliceInterval", interval);
}

void CGLVolume::setVolumeUniforms(const VolumeVertex& view, double interval)
{
    setStackUniforms(m_bLighting, view, interval);

    Uniforms uniforms(m_volumeProgram);
    uniforms.setFloat("shininess", m_fShininess);
    glLightModelf(GL_LIGHT_MODEL_LOCAL_VIEWER, 0.0F);
    glLightfv(GL_LIGHT0, GL_AMBIENT, m_fAmbient);
    glLightfv(GL_LIGHT0, GL_DIFFUSE, m_fDiffuse);
    glLightfv(GL_LIGHT0, GL_SPECULAR, m_fSpecular);

    const double voxelInterval = 100.0 / m_nSliceDensity;
    uniforms.setFloat("sliceVoxelInterval", voxelInterval);
    uniforms.setFloat("bFastRenderingMode", CHVProcess::isFast3DRenderingMode() ? 1.0 : 0.0);
    uniforms.setVector("voxelTextureSize_Normalized", textureStep(getWidth(), voxelInterval),
                       textureStep(getHeight(), voxelInterval), textureStep(getDepth(), voxelInterval));
    uniforms.setFloat("emissionlightCompensation", m_fEmissionCompensation);
    uniforms.setFloat("gradientsmooththreshold", m_fGradientSmoothThreshold);
    uniforms.setInt("bFilterDenoiseGradient", m_bFilterDenoiseGradient);
    uniforms.setInt("bMedianFilterDenoise", m_bMedianFilterDenoise);
    uniforms.setFloat("bRenderInBestPerformance", m_bRenderInBestPerformance ? 1.0 : 0.0);
    m_bVolumeUniformsSet = true;
}

void CGLVolume::setSliceUniforms()
{
    const double lowest = getMin();
    const double range = getMax() - lowest;
    Uniforms uniforms(m_sliceProgram);
    uniforms.setInt("volumeData", 0);
    uniforms.setInt("bSliceUseTransferFunction", m_bSliceUseTransferFunction);
    uniforms.setFloat("sliceMinColorBar", (m_fSliceMin - lowest) / range);
    uniforms.setFloat("sliceMaxColorBar", (m_fSliceMax - lowest) / range);
}

void CGLVolume::bindColorTable()
{
    uploadColorTable();
    if (m_uColorTableTex != 0) Uniforms(m_volumeProgram).setInt("colorTable", 1);
}

void CGLVolume::bindSliceColorTable()
{
    uploadSliceColorTable();
    if (m_uSliceColorTableTex == 0) return;
    Uniforms uniforms(m_sliceProgram);
    uniforms.setInt("colorTable", 2);
    uniforms.setFloat("sliceOpacity", m_fSliceOpacity);
}
