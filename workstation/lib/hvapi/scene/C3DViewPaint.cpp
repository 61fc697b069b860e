#include "lib/hvapi/scene/C3DViewPrivate.h"

#include "hvapi/scene/C3DVolume.h"
#include "hvapi/scene/C3DVolumeData.h"
#include "lib/hvapi/scene/BoxOutline.h"
#include "lib/hvapi/scene/C3DSGManagerPrivate.h"
#include "lib/hvapi/scene/GlViewState.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <algorithm>

using hvscene::AttributeScope;
using hvscene::MatrixScope;

void C3DView::Private::paint(QSize pixels, double scale, Frame frame)
{
    if (painting) return;
    painting = true;
    {
        const AttributeScope attributes;
        const MatrixScope matrices;
        hvscene::resetViewState(pixels.width(), pixels.height());
        if (frame != Frame::OverlayOnly || !sceneCopy.draw(pixels)) {
            hvscene::drawBackground();
            takeScene(false);
            camera.setWindow(pixels.width(), pixels.height());
            setSceneMatrices();
            paintScene();
            if (frame != Frame::Picture) {
                sceneCopy.forget();
                if (watchMouse) sceneCopy.take(pixels);
            }
        }
        q.renderOverlay(pixels, scale);
        paintOverlay(pixels, scale);
        hvscene::makeOpaque();
    }
    painting = false;
}

void C3DView::Private::setSceneMatrices() const
{
    const hvscene::Camera::Frustum f = camera.frustum();
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(f.left, f.right, f.bottom, f.top, f.near, f.far);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    hvscene::setHeadLight();
    glLoadMatrixd(camera.viewMatrix().data());
}

void C3DView::Private::paintScene()
{
    std::vector<C3DObject*> objects;
    if (manager) objects = manager->hostSide().renderables();
    // Optical volumes compare with the depths that all others have left.
    std::stable_partition(objects.begin(), objects.end(),
                          [](C3DObject* object) { return !dynamic_cast<C3DVolume*>(object); });
    const hvscene::Vec3 towardsViewer = camera.back();
    const float lineWidth = static_cast<float>(q.devicePixelRatioF());
    const auto outlines = [&](hvscene::BoxEdges edges) {
        if (!showBoundingBox) return;
        for (C3DObject* object : objects)
            if (auto* volume = qobject_cast<C3DVolumeData*>(object);
                volume && volume->isDisplayed() && volume->isValid())
                hvscene::drawBoxOutline(*volume, towardsViewer, edges, lineWidth);
    };

    // The box is convex: its edges on the far side lie behind all that it holds, the others in front of it.
    outlines(hvscene::BoxEdges::Hidden);
    {
        const AttributeScope attributes;
        q.renderDecorations();
    }
    for (C3DObject* object : objects) {
        const AttributeScope attributes;
        const MatrixScope matrices;
        object->renderNode(GL_RENDER);
    }
    outlines(hvscene::BoxEdges::Visible);
}

void C3DView::Private::paintOverlay(QSize pixels, double scale)
{
    const int margin = static_cast<int>(12.0 * scale);
    // In a small view the decorations would hide the scene.
    const bool roomForAxes = std::min(pixels.width(), pixels.height()) >= 260.0 * scale;
    if (showAxes && roomForAxes) {
        hvscene::drawImage(axes.image(camera, scale), margin / 2, margin / 2, pixels);
    }
    if (showScaleBar && roomForAxes && !knownScene.empty) {
        const double mmPerPixel = 2.0 * camera.halfHeight() / pixels.height();
        const QImage bar = hvscene::scaleBarImage(mmPerPixel, 0.2 * pixels.width(), scale);
        hvscene::drawImage(bar, pixels.width() - margin - bar.width(), margin, pixels);
    }
}
