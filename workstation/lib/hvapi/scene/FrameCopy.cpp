#include "lib/hvapi/scene/FrameCopy.h"

#include "lib/hvapi/scene/GlViewState.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>

namespace hvscene {

void FrameCopy::take(QSize pixels)
{
    m_size = QSize();
    const auto* functions = QOpenGLContext::currentContext()->functions();
    if (!functions->hasOpenGLFeature(QOpenGLFunctions::NPOTTextures)) return;
    const AttributeScope attributes;
    if (!m_texture) glGenTextures(1, &m_texture);
    glBindTexture(GL_TEXTURE_2D, m_texture);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    while (glGetError() != GL_NO_ERROR) {
    }
    glCopyTexImage2D(GL_TEXTURE_2D, 0, GL_RGB, 0, 0, pixels.width(), pixels.height(), 0);
    if (glGetError() == GL_NO_ERROR) m_size = pixels;
}

bool FrameCopy::draw(QSize pixels) const
{
    if (m_size.isEmpty() || m_size != pixels) return false;
    const AttributeScope attributes;
    const MatrixScope matrices;
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glDisable(GL_DEPTH_TEST);
    glDepthMask(GL_FALSE);
    glEnable(GL_TEXTURE_2D);
    glBindTexture(GL_TEXTURE_2D, m_texture);
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_REPLACE);
    glBegin(GL_QUADS);
    for (const auto& corner : {std::pair{0, 0}, std::pair{1, 0}, std::pair{1, 1}, std::pair{0, 1}}) {
        glTexCoord2i(corner.first, corner.second);
        glVertex2i(2 * corner.first - 1, 2 * corner.second - 1);
    }
    glEnd();
    return true;
}

void FrameCopy::release()
{
    if (m_texture) glDeleteTextures(1, &m_texture);
    m_texture = 0;
    m_size = QSize();
}

}  // namespace hvscene
