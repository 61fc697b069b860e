#include "support/FailingUpload.h"

#include <GL/gl.h>
#include <GL/glext.h>

/// GLEW's entry point. Its header stays out: one file of the plug-in has it.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" PFNGLTEXIMAGE3DPROC __glewTexImage3D;

namespace {

PFNGLTEXIMAGE3DPROC realUpload = nullptr;
int failingSize = 0;

void APIENTRY upload(GLenum target, GLint level, GLint internalFormat, GLsizei, GLsizei, GLsizei,
                     GLint border, GLenum format, GLenum type, const void*)
{
    realUpload(target, level, internalFormat, failingSize, failingSize, failingSize, border, format, type,
               nullptr);
}

}  // namespace

FailingUpload::FailingUpload(int size)
{
    realUpload = __glewTexImage3D;
    failingSize = size;
    __glewTexImage3D = upload;
}

FailingUpload::~FailingUpload()
{
    __glewTexImage3D = realUpload;
}
