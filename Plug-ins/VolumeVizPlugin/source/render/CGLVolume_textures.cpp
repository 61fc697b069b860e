#include "render/CGLVolume.h"

#include "hvutils/CHVSLog.h"
#include "hvutils/CHVSMessageBox.h"
#include "hvutils/CHVUtilityFns.h"
#include "render/gl/GlStateScope.h"
#include "render/gl/GlewSupport.h"
#include "render/logic/SliceColorTable.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>

namespace {

constexpr GLint kVolumeUnit = 0;
constexpr GLint kColorTableUnit = 1;
constexpr GLint kSliceColorTableUnit = 2;

/// An error left by somebody else's call would be taken for the answer to ours. A context that is lost
/// answers with errors without end, hence the bound.
void drainErrors()
{
    for (int i = 0; i < 64 && glGetError() != GL_NO_ERROR; ++i) {
    }
}

/// The box runs an event loop, in which other views may paint: the pass that goes on afterwards needs its
/// context and its framebuffer back.
void reportLowMemory()
{
    const QString text = QStringLiteral("Very low memory encountered - unable to generate volume texture.");
    QOpenGLContext* context = QOpenGLContext::currentContext();
    QSurface* surface = context->surface();
    GLint framebuffer = 0;
    glGetIntegerv(GL_FRAMEBUFFER_BINDING, &framebuffer);

    CHVSMessageBox::error(nullptr, CHVUtilityFns::getAppName(), text, CHVSMessageBox::eOk, 0, 0);
    getLogObject()->log(text, QString(), 0, QStringLiteral(__TIME__), CHVSLog::eError, false);

    if (QOpenGLContext::currentContext() != context) context->makeCurrent(surface);
    context->functions()->glBindFramebuffer(GL_FRAMEBUFFER, static_cast<GLuint>(framebuffer));
}

/// Binds a 1D colour table to a texture unit, which stays the active one, and loads it where that is due.
/// `load` fetches the 256 RGBA entries.
template <class Load>
void bindTable(GLint unit, GLuint& name, GLint wrap, bool& uploaded, Load load)
{
    if (name == 0) glGenTextures(1, &name);
    glew::activeTexture(GL_TEXTURE0 + unit);
    const bool wasEnabled = glIsEnabled(GL_TEXTURE_1D);
    glEnable(GL_TEXTURE_1D);
    glBindTexture(GL_TEXTURE_1D, name);
    if (!uploaded) {
        const unsigned char* entries = load();
        glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_WRAP_S, wrap);
        glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
        glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
        glTexImage1D(GL_TEXTURE_1D, 0, GL_RGBA, 256, 0, GL_RGBA, GL_UNSIGNED_BYTE, entries);
        uploaded = true;
    }
    if (!wasEnabled) glDisable(GL_TEXTURE_1D);
}

}  // namespace

GLenum CGLVolume::updateVolumeTexture()
{
    if (!m_bVolumeTextureDirty) {
        glEnable(GL_TEXTURE_3D);
        glew::activeTexture(GL_TEXTURE0 + kVolumeUnit);
        glBindTexture(GL_TEXTURE_3D, m_uVolumeTex);
        return GL_NO_ERROR;
    }

    const unsigned char* voxels = getVolumeData();
    if (!voxels) return GL_INVALID_VALUE;
    if (m_uVolumeTex == 0) glGenTextures(1, &m_uVolumeTex);
    glEnable(GL_TEXTURE_3D);
    glew::activeTexture(GL_TEXTURE0 + kVolumeUnit);
    glBindTexture(GL_TEXTURE_3D, m_uVolumeTex);
    glTexParameteri(GL_TEXTURE_3D, GL_TEXTURE_WRAP_S, GL_CLAMP);
    glTexParameteri(GL_TEXTURE_3D, GL_TEXTURE_WRAP_T, GL_CLAMP);
    glTexParameteri(GL_TEXTURE_3D, GL_TEXTURE_WRAP_R, GL_CLAMP);
    glTexParameteri(GL_TEXTURE_3D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_3D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    drainErrors();
    {
        const GlUnpackAlignmentScope packed(1);
        glew::texImage3D(GL_TEXTURE_3D, 0, GL_INTENSITY, getWidth(), getHeight(), getDepth(), 0, GL_LUMINANCE,
                         GL_UNSIGNED_BYTE, voxels);
    }
    const GLenum error = glGetError();
    m_bVolumeTextureDirty = false;
    if (error != GL_OUT_OF_MEMORY) return GL_NO_ERROR;
    reportLowMemory();
    return GL_OUT_OF_MEMORY;
}

void CGLVolume::uploadColorTable()
{
    bindTable(kColorTableUnit, m_uColorTableTex, GL_CLAMP, m_bVolumeColorTableUploaded,
              [this] { return m_volumeColorTable; });
}

void CGLVolume::uploadSliceColorTable()
{
    bindTable(kSliceColorTableUnit, m_uSliceColorTableTex, GL_CLAMP_TO_EDGE, m_bSliceColorTableUploaded,
              [this] {
                  updateSliceColorTable();
                  return m_bSliceUseTransferFunction ? m_volumeColorTable : m_sliceColorTable;
              });
}

void CGLVolume::updateSliceColorTable()
{
    if (m_bSliceColorTableLocked) return;
    PaletteView palette;
    palette.entries = m_slicePalette.getColorTableBuffer();
    palette.maxIndex = m_slicePalette.getMaxIndex();
    palette.reversed = m_slicePalette.reversed() != 0;
    palette.colorAt = [this](double value, double(&rgba)[4]) {
        m_slicePalette.GetRGBForImageValue(value, &rgba[0], &rgba[1], &rgba[2], &rgba[3]);
    };
    fillSliceColorTable(palette, m_sliceColorTable);
}
