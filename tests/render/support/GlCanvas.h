#pragma once

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <memory>

/// A framebuffer of size x size pixels, of 8 bits and a depth, in a current context of the default format,
/// with GLEW loaded. Projection: x and y from -1.5 to 1.5, z from -2 (far) to 2 (near); the modelview matrix
/// is the identity, so the view looks along -z. Depth function GL_LEQUAL, as in the views of the application.
class GlCanvas
{
public:
    /// `group`, if not null, is a context to share objects with.
    explicit GlCanvas(int size = 64, QOpenGLContext* group = nullptr);
    ~GlCanvas();
    GlCanvas(const GlCanvas&) = delete;
    GlCanvas& operator=(const GlCanvas&) = delete;

    /// Black, and the given depth.
    void clear(double depth = 1.0);

    struct Pixel
    {
        int r = 0;
        int g = 0;
        int b = 0;
    };
    /// The pixel and the depth at a place of the projection.
    Pixel at(double x, double y) const;
    double depthAt(double x, double y) const;
    /// All colours, for comparing frames.
    QByteArray pixels() const;
    /// Makes the canvas current again after another context was.
    void resume();

    QOpenGLContext& context() { return m_context; }

private:
    int toPixel(double v) const;

    int m_size;
    QOpenGLContext m_context;
    QOffscreenSurface m_surface;
    std::unique_ptr<QOpenGLFramebufferObject> m_framebuffer;
};

/// Takes the oldest error flag and clears all of them.
GLenum takeGlError();
