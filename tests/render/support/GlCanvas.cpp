#include "support/GlCanvas.h"

#include "render/gl/GlewSupport.h"

#include <algorithm>
#include <stdexcept>

GlCanvas::GlCanvas(int size, QOpenGLContext* group)
    : m_size(size)
{
    m_surface.create();
    m_context.setShareContext(group);
    if (!m_context.create() || !m_context.makeCurrent(&m_surface)) throw std::runtime_error("no GL context");
    glew::initialise();
    m_framebuffer = std::make_unique<QOpenGLFramebufferObject>(size, size, QOpenGLFramebufferObject::Depth);
    m_framebuffer->bind();
    glViewport(0, 0, size, size);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(-1.5, 1.5, -1.5, 1.5, -2.0, 2.0);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glDepthFunc(GL_LEQUAL);
    clear();
    takeGlError();
}

GlCanvas::~GlCanvas()
{
    m_framebuffer.reset();
    m_context.doneCurrent();
}

void GlCanvas::clear(double depth)
{
    glClearColor(0, 0, 0, 0);
    glClearDepth(depth);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

void GlCanvas::resume()
{
    m_context.makeCurrent(&m_surface);
    m_framebuffer->bind();
}

int GlCanvas::toPixel(double v) const
{
    return std::clamp(static_cast<int>((v + 1.5) / 3.0 * m_size), 0, m_size - 1);
}

GlCanvas::Pixel GlCanvas::at(double x, double y) const
{
    unsigned char rgba[4] = {};
    glReadPixels(toPixel(x), toPixel(y), 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, rgba);
    return {rgba[0], rgba[1], rgba[2]};
}

double GlCanvas::depthAt(double x, double y) const
{
    float depth = -1.0F;
    glReadPixels(toPixel(x), toPixel(y), 1, 1, GL_DEPTH_COMPONENT, GL_FLOAT, &depth);
    return depth;
}

QByteArray GlCanvas::pixels() const
{
    QByteArray bytes(m_size * m_size * 4, '\0');
    glReadPixels(0, 0, m_size, m_size, GL_RGBA, GL_UNSIGNED_BYTE, bytes.data());
    return bytes;
}

GLenum takeGlError()
{
    const GLenum first = glGetError();
    for (int i = 0; i < 64 && glGetError() != GL_NO_ERROR; ++i) {
    }
    return first;
}
