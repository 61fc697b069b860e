#include "slices/C3DObjectFrameBufferExporter.h"

#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DView.h"
#include "render/CGLVolume.h"
#include "render/gl/GlStateScope.h"
#include "slices/SliceScene.h"
#include "slices/logic/SliceOrientation.h"

#include <QImage>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>

#include <GL/glu.h>

namespace {

constexpr double kNear = -1.0;
constexpr float kMillimetresPerCentimetre = 10.0F;

}  // namespace

C3DObjectFrameBufferExporter::C3DObjectFrameBufferExporter(QWidget* parent, C3DSGManager* manager,
                                                           const QString& name, C3DView* scene,
                                                           Qt::WindowFlags flags)
    : QOpenGLWidget(parent, flags)
    , m_manager(manager)
    , m_scene(scene)
{
    setObjectName(name);
}

C3DObjectFrameBufferExporter::~C3DObjectFrameBufferExporter() = default;

CGLVolume* C3DObjectFrameBufferExporter::node() const
{
    return m_manager ? dynamic_cast<CGLVolume*>(m_manager->getNode(QStringLiteral("GLVolume"))) : nullptr;
}

bool C3DObjectFrameBufferExporter::setOrientation(int axis)
{
    CGLVolume* volume = node();
    if (!volume) return false;
    volume->getTransformedBBox(m_box.min, m_box.max);
    const std::optional<ProjectionCamera> camera = projectionCamera(axis, m_box, m_fieldOfView);
    if (!camera) return false;
    m_axis = axis;
    m_camera = *camera;
    return true;
}

void C3DObjectFrameBufferExporter::updateProjectionWindow()
{
    m_height = m_width = m_size;
    if (node()) m_camera.window = kProjectionWindow;
}

void C3DObjectFrameBufferExporter::grabProjection(QImage& image, int axis, float fieldOfView, int size)
{
    m_fieldOfView = fieldOfView * kMillimetresPerCentimetre;
    m_size = size;
    if (size <= 0 || !setOrientation(axis)) return;
    updateProjectionWindow();
    if (!context()) grabFramebuffer();  // a widget that was never shown gets its context by this
    makeCurrent();
    if (QOpenGLContext::currentContext() != context() || !context()) return;

    // A framebuffer of its own: the widget's has the size of the widget, and the scale of its screen.
    GLint most = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &most);
    if (size <= most) {
        QOpenGLFramebufferObjectFormat format;
        format.setAttachment(QOpenGLFramebufferObject::Depth);
        format.setInternalTextureFormat(GL_RGB8);
        QOpenGLFramebufferObject frame(size, size, format);
        if (frame.isValid() && frame.bind()) {
            paintGL();
            image = frame.toImage();
            frame.release();
        }
    }
    doneCurrent();
}

void C3DObjectFrameBufferExporter::initializeGL()
{
    glClearColor(1.0F, 1.0F, 1.0F, 1.0F);
    m_quadric.reset(gluNewQuadric());
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
}

void C3DObjectFrameBufferExporter::paintGL()
{
    const SliceWindow& window = m_camera.window;
    const double* translation = m_camera.translation;
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glViewport(0, 0, m_width, m_height);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(window.left, window.right, window.bottom, window.top, kNear, sliceViewFar(translation[2]));
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();

    SliceScene::drawGround(window);
    glShadeModel(GL_SMOOTH);
    glDisable(GL_DEPTH_TEST);
    const GlStateScope state(GL_ENABLE_BIT | GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glDepthFunc(GL_LEQUAL);  // thin tissue writes the far value, which must pass on a cleared buffer
    glEnable(GL_LINE_SMOOTH);
    glHint(GL_LINE_SMOOTH_HINT, GL_DONT_CARE);
    SliceScene::setLight(static_cast<float>(translation[2]));
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    const GlModelviewScope modelview;
    glTranslatef(static_cast<float>(translation[0]), static_cast<float>(translation[1]),
                 static_cast<float>(translation[2]));
    glScalef(m_scale, m_scale, m_scale);
    const matrix rotation = sliceSceneRotation(m_camera.rotation);
    glMultMatrixd(rotation);
    if (CGLVolume* volume = node()) {
        const double turned = m_axis == AxisX || m_axis == AxisZ ? -1.0 : 1.0;
        glNormal3d(turned * m_camera.normal[0], turned * m_camera.normal[1], turned * m_camera.normal[2]);
        volume->renderNode(GL_RENDER);
    }
    glFlush();
}
