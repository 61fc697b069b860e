#include <GL/glew.h>

#include "render/gl/GlewSupport.h"

namespace glew {

unsigned int initialise()
{
    return glewInit();
}

bool supports(const char* name)
{
    return glewIsSupported(name) != GL_FALSE;
}

void activeTexture(GLenum unit)
{
    if (glActiveTexture) glActiveTexture(unit);
}

void texImage3D(GLenum target, GLint level, GLint internalFormat, GLsizei width, GLsizei height,
                GLsizei depth, GLint border, GLenum format, GLenum type, const void* voxels)
{
    if (glTexImage3D)
        glTexImage3D(target, level, internalFormat, width, height, depth, border, format, type, voxels);
}

void blendEquation(GLenum equation)
{
    if (glBlendEquation) glBlendEquation(equation);
}

void blendEquationEXT(GLenum equation)
{
    if (glBlendEquationEXT) glBlendEquationEXT(equation);
}

}  // namespace glew
