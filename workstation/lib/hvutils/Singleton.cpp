#include "hvutils/Singleton.h"

#include <GL/gl.h>

class Singleton::Private
{
public:
    OrthoData ortho{-1.0, 1.0, -1.0, 1.0, -1.0, 1.0};
    ViewPortData viewport{0, 0, 0, 0};
};

Singleton::Singleton()
    : d(std::make_unique<Private>())
{}

Singleton::~Singleton() = default;

Singleton* Singleton::getInstance()
{
    static Singleton instance;
    return &instance;
}

void Singleton::glOrtho(double left, double right, double bottom, double top, double zNear, double zFar)
{
    d->ortho = {left, right, bottom, top, zNear, zFar};
    ::glOrtho(left, right, bottom, top, zNear, zFar);
}

void Singleton::glViewport(int x, int y, int width, int height)
{
    d->viewport = {x, y, width, height};
    ::glViewport(x, y, width, height);
}

Singleton::OrthoData Singleton::getGLOrthoData() const
{
    return d->ortho;
}

Singleton::ViewPortData Singleton::getGlViewPortData() const
{
    return d->viewport;
}
