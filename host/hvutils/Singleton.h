#pragma once

#include "hvutils/hvutils_global.h"

#include <memory>

// Remembers the viewport and orthographic projection last set, so that code which has to leave GL for a while
// can set them again. GUI thread only.
class HVUTILS_EXPORT Singleton
{
public:
    struct OrthoData
    {
        double left, right, bottom, top, zNear, zFar;
    };
    struct ViewPortData
    {
        int x, y, width, height;  // pixels
    };

    // Never null; owned by the library.
    static Singleton* getInstance();

    // Call the GL function of the same name in the current context and record the values.
    void glOrtho(double left, double right, double bottom, double top, double zNear, double zFar);
    void glViewport(int x, int y, int width, int height);

    // The values recorded last.
    OrthoData getGLOrthoData() const;
    ViewPortData getGlViewPortData() const;

private:
    Singleton();
    ~Singleton();
    Q_DISABLE_COPY(Singleton)
    class Private;
    std::unique_ptr<Private> d;
};
