#pragma once

#include <GL/gl.h>

/// The plug-in's only door to GLEW.
///
/// Qt's GL headers undefine GLEW's macros in every file that includes both, so `glew.h` is included by
/// GlewSupport.cpp alone. What others need of it stands here as plain functions. GLEW's tables belong to the
/// process: they are filled by the first context that calls initialise() and serve all later ones.
namespace glew {

/// Loads the entry points of the current context (`glewInit`). Needs a current compatibility context.
///
/// Returns GLEW's own status for the log. It is no verdict: on an EGL context GLEW answers 4, "no GLX
/// display", although everything was loaded. Ask supports() instead.
unsigned int initialise();

/// GLEW's answer to `glewIsSupported(name)`, name being "GL_VERSION_2_0" or an extension's name.
/// False before initialise(), and for anything that is the name of a function.
bool supports(const char* name);

/// `glActiveTexture`; nothing when the entry point is missing.
void activeTexture(GLenum unit);

/// `glTexImage3D`; nothing when the entry point is missing.
void texImage3D(GLenum target, GLint level, GLint internalFormat, GLsizei width, GLsizei height,
                GLsizei depth, GLint border, GLenum format, GLenum type, const void* voxels);

/// `glBlendEquation` of OpenGL 1.4; nothing when the entry point is missing.
void blendEquation(GLenum equation);

/// `glBlendEquationEXT` of GL_EXT_blend_minmax; nothing when the entry point is missing.
void blendEquationEXT(GLenum equation);

}  // namespace glew
