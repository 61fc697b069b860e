#include "render/gl/OGL_INFO.h"

#include <QByteArray>
#include <QOpenGLContext>

#include <GL/gl.h>

namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

}  // namespace

OGL_INFO::OGL_INFO(QWidget* parent)
    : QOpenGLWidget(parent)
{
    resize(1, 1);
    setWindowOpacity(0.1);
}

float OGL_INFO::openGLVersion()
{
    // A widget that was never shown gets its context from the first grab.
    if (context() == nullptr) grabFramebuffer();
    makeCurrent();
    if (context() == nullptr || QOpenGLContext::currentContext() != context()) return 0.0F;
    return versionNumber(reinterpret_cast<const char*>(glGetString(GL_VERSION)));
}

float OGL_INFO::versionNumber(const char* text)
{
    const QByteArray whole(text);
    int end = 0;
    int points = 0;
    while (end < whole.size() && (whole[end] == '.' || isDigit(whole[end]))) {
        if (whole[end] == '.' && ++points == 2) break;
        ++end;
    }
    return whole.left(end).toFloat();
}
