#pragma once

#include <GL/gl.h>

/// Keeps the GL state of the given groups (`GL_ENABLE_BIT`, ...) for the life of the object: `glPushAttrib`
/// at its start, `glPopAttrib` at its end. Needs the same context current at both.
class GlStateScope
{
public:
    explicit GlStateScope(GLbitfield groups) { glPushAttrib(groups); }
    ~GlStateScope() { glPopAttrib(); }
    GlStateScope(const GlStateScope&) = delete;
    GlStateScope& operator=(const GlStateScope&) = delete;
};

/// Keeps the modelview matrix and the matrix mode for the life of the object, during which the modelview
/// matrix is the current one.
class GlModelviewScope
{
public:
    GlModelviewScope()
    {
        glGetIntegerv(GL_MATRIX_MODE, &m_mode);
        glMatrixMode(GL_MODELVIEW);
        glPushMatrix();
    }
    ~GlModelviewScope()
    {
        glMatrixMode(GL_MODELVIEW);
        glPopMatrix();
        glMatrixMode(static_cast<GLenum>(m_mode));
    }
    GlModelviewScope(const GlModelviewScope&) = delete;
    GlModelviewScope& operator=(const GlModelviewScope&) = delete;

private:
    GLint m_mode = GL_MODELVIEW;
};

/// Sets the row alignment for uploads from client memory (`GL_UNPACK_ALIGNMENT`) and puts the caller's back.
/// Packed 8-bit blocks need 1: with any other value a width that is no multiple of it comes out sheared.
class GlUnpackAlignmentScope
{
public:
    explicit GlUnpackAlignmentScope(GLint alignment)
    {
        glGetIntegerv(GL_UNPACK_ALIGNMENT, &m_before);
        glPixelStorei(GL_UNPACK_ALIGNMENT, alignment);
    }
    ~GlUnpackAlignmentScope() { glPixelStorei(GL_UNPACK_ALIGNMENT, m_before); }
    GlUnpackAlignmentScope(const GlUnpackAlignmentScope&) = delete;
    GlUnpackAlignmentScope& operator=(const GlUnpackAlignmentScope&) = delete;

private:
    GLint m_before = 4;
};
