#pragma once

#include <QSize>
#include <QtGui/qopengl.h>

namespace hvscene {

/// A copy of the colours of a finished picture, for frames in which only what lies over it has changed.
///
/// All operations need the current context of one sharing group. Drivers below OpenGL 2.0 keep no copy.
class FrameCopy
{
public:
    FrameCopy() = default;
    FrameCopy(const FrameCopy&) = delete;
    FrameCopy& operator=(const FrameCopy&) = delete;

    /// Takes the lower left `pixels` of the bound framebuffer.
    void take(QSize pixels);
    /// Fills the viewport with the copy. False, with nothing drawn, without a copy of that size.
    bool draw(QSize pixels) const;
    /// The texture stays for the next copy.
    void forget() { m_size = QSize(); }
    /// There is a texture to give back.
    bool holdsTexture() const { return m_texture != 0; }
    void release();

private:
    GLuint m_texture = 0;
    QSize m_size;
};

}  // namespace hvscene
