#include "support/UploadCounter.h"

#include <GL/gl.h>
#include <GL/glext.h>

/// GLEW's entry point. Its header stays out: one file of the plug-in has it.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" PFNGLTEXIMAGE3DPROC __glewTexImage3D;

namespace {

PFNGLTEXIMAGE3DPROC realUpload = nullptr;
int uploads = 0;

void APIENTRY upload(GLenum target, GLint level, GLint internalFormat, GLsizei width, GLsizei height,
                     GLsizei depth, GLint border, GLenum format, GLenum type, const void* voxels)
{
    ++uploads;
    realUpload(target, level, internalFormat, width, height, depth, border, format, type, voxels);
}

}  // namespace

UploadCounter::UploadCounter()
{
    uploads = 0;
    realUpload = __glewTexImage3D;
    __glewTexImage3D = upload;
}

UploadCounter::~UploadCounter()
{
    __glewTexImage3D = realUpload;
}

int UploadCounter::count() const
{
    return uploads;
}
