#include "lib/hvapi/scene/ViewControl.h"

#include "lib/hvapi/scene/C3DViewPrivate.h"
#include "lib/hvutils/HostServices.h"

#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions>
#include <algorithm>

namespace {

QSize hiddenFrame;

}  // namespace

void ViewControl::setHiddenFrameSize(QSize pixels)
{
    hiddenFrame = pixels;
}

QSize ViewControl::hiddenFrameSize()
{
    return hiddenFrame;
}

void ViewControl::setPreset(hvscene::ViewPreset preset)
{
    m_view.hostSide().camera.setPreset(preset);
    m_view.hostSide().cameraMoved();
}

void ViewControl::fit()
{
    m_view.hostSide().camera.fit();
    m_view.hostSide().cameraMoved();
}

void ViewControl::reset()
{
    m_view.hostSide().camera.reset();
    m_view.hostSide().cameraMoved();
}

void ViewControl::showBoundingBox(bool show)
{
    m_view.hostSide().showBoundingBox = show;
    m_view.update();
}

bool ViewControl::isBoundingBoxShown() const
{
    return m_view.hostSide().showBoundingBox;
}

void ViewControl::showAxes(bool show)
{
    m_view.hostSide().showAxes = show;
    m_view.update();
}

bool ViewControl::isAxesShown() const
{
    return m_view.hostSide().showAxes;
}

void ViewControl::showScaleBar(bool show)
{
    m_view.hostSide().showScaleBar = show;
    m_view.update();
}

bool ViewControl::isScaleBarShown() const
{
    return m_view.hostSide().showScaleBar;
}

QSize ViewControl::pixels() const
{
    return m_view.hostSide().framebufferPixels();
}

bool ViewControl::hasContents() const
{
    return !m_view.hostSide().currentSceneBox().empty;
}

hvscene::Camera ViewControl::turntableCamera(QSize pixels)
{
    m_view.hostSide().takeScene(false);
    hvscene::Camera camera = m_view.hostSide().camera;
    camera.setWindow(pixels.width(), pixels.height());
    return camera.turntable();
}

QImage ViewControl::pictureOfTurn(const hvscene::Camera& start, double angle, QSize pixels)
{
    C3DView::Private& view = m_view.hostSide();
    // A scene that has changed is told to the view's own camera, not to the one that stands in for it.
    view.takeScene(false);
    const hvscene::Camera own = view.camera;
    view.camera = start;
    view.camera.orbit(angle, 0.0);
    QImage image = picture(pixels);
    view.camera = own;
    return image;
}

QImage ViewControl::picture(QSize pixels)
{
    if (pixels.isEmpty() || m_view.hostSide().painting) return QImage();
    if (!m_view.isValid()) {
        // A view that was never shown gets its context with the first frame that is asked of it. An empty one
        // will do.
        m_view.hostSide().painting = true;
        m_view.grabFramebuffer();
        m_view.hostSide().painting = false;
    }
    m_view.makeCurrent();
    QOpenGLContext* context = QOpenGLContext::currentContext();
    if (!context || context != m_view.context()) return QImage();
    GLint largest = 0;
    context->functions()->glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &largest);
    QImage image;
    if (std::max(pixels.width(), pixels.height()) <= largest) {
        QOpenGLFramebufferObject target(pixels, QOpenGLFramebufferObject::CombinedDepthStencil);
        if (target.isValid() && target.bind()) {
            const bool fast = HostServices::instance().fastRenderingMode();
            HostServices::instance().setFastRenderingMode(false);
            // The window's own shape comes back with its next frame.
            m_view.hostSide().paint(pixels, m_view.devicePixelRatioF(), C3DView::Private::Frame::Picture);
            HostServices::instance().setFastRenderingMode(fast);
            image = target.toImage().convertToFormat(QImage::Format_RGB32);
            target.release();
        }
    }
    m_view.doneCurrent();
    return image;
}
