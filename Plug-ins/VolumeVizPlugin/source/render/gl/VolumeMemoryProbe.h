#pragma once

#include <GL/gl.h>

/// Tells whether a volume can be held in memory and by the graphics card, by trying it: a block of
/// a * b * depth * factor bytes, and a test texture in a context of its own. Nothing is left behind, and the
/// context that was current is current again.
/// @param a, b    width and height of the test texture in voxels
/// @param depth   number of slices
/// @param target  GL_TEXTURE_1D, GL_TEXTURE_2D or GL_TEXTURE_3D
/// @param factor  room that is needed for each byte of the volume
/// @return false when the host says that memory is short, without OpenGL 2.0, when the block can't be had,
/// and
///         when the driver is out of memory. Any other error of the driver counts as room enough.
bool checkVolumeMemory(unsigned a, unsigned b, int depth, unsigned target, float factor);
