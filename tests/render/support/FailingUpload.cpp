#include <GL/glew.h>

#include "support/FailingUpload.h"

namespace {

PFNGLTEXIMAGE3DPROC realUpload = nullptr;
int failingSize = 0;

void GLAPIENTRY upload(GLenum target, GLint level, GLint internalFormat, GLsizei, GLsizei, GLsizei,
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
