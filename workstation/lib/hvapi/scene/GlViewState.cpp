#include "lib/hvapi/scene/GlViewState.h"

#include <QImage>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QSize>

namespace hvscene {

namespace {

QOpenGLFunctions& functions()
{
    return *QOpenGLContext::currentContext()->functions();
}

/// Drivers below OpenGL 2.0 have no programs; the decorations are drawn there all the same.
bool hasPrograms()
{
    return functions().hasOpenGLFeature(QOpenGLFunctions::Shaders);
}

void beginPixelSpace(double width, double height)
{
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(0.0, width, 0.0, height, -1.0, 1.0);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
}

}  // namespace

AttributeScope::AttributeScope()
{
    if (hasPrograms()) functions().glGetIntegerv(GL_CURRENT_PROGRAM, &m_program);
    glPushAttrib(GL_ALL_ATTRIB_BITS);
    glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
}

AttributeScope::~AttributeScope()
{
    glPopClientAttrib();
    glPopAttrib();
    if (hasPrograms()) functions().glUseProgram(static_cast<GLuint>(m_program));
}

MatrixScope::MatrixScope()
{
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
}

MatrixScope::~MatrixScope()
{
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPopMatrix();
}

void resetViewState(int width, int height)
{
    QOpenGLFunctions& f = functions();
    if (hasPrograms()) f.glUseProgram(0);
    if (f.hasOpenGLFeature(QOpenGLFunctions::Multitexture)) f.glActiveTexture(GL_TEXTURE0);
    for (const GLenum state :
         {GL_LIGHTING, GL_TEXTURE_1D, GL_TEXTURE_2D, GL_TEXTURE_3D, GL_BLEND, GL_CULL_FACE, GL_SCISSOR_TEST,
          GL_STENCIL_TEST, GL_ALPHA_TEST, GL_FOG, GL_COLOR_LOGIC_OP, GL_CLIP_PLANE0, GL_CLIP_PLANE1,
          GL_CLIP_PLANE2, GL_CLIP_PLANE3, GL_CLIP_PLANE4, GL_CLIP_PLANE5})
        glDisable(state);
    if (f.hasOpenGLFeature(QOpenGLFunctions::BlendEquation)) f.glBlendEquation(GL_FUNC_ADD);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glDepthMask(GL_TRUE);
    glDepthRange(0.0, 1.0);
    glEnable(GL_DEPTH_TEST);
    // Clear matter writes the far value, which equals that of the cleared buffer and has to pass.
    glDepthFunc(GL_LEQUAL);
    glShadeModel(GL_SMOOTH);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    glViewport(0, 0, width, height);
    glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
    glClearDepth(1.0);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

void drawBackground()
{
    const AttributeScope attributes;
    const MatrixScope matrices;
    beginPixelSpace(1.0, 1.0);
    glDisable(GL_DEPTH_TEST);
    glDepthMask(GL_FALSE);
    glBegin(GL_QUADS);
    glColor3ub(13, 16, 21);
    glVertex2d(0.0, 0.0);
    glVertex2d(1.0, 0.0);
    glColor3ub(38, 46, 57);
    glVertex2d(1.0, 1.0);
    glVertex2d(0.0, 1.0);
    glEnd();
}

void setHeadLight()
{
    const GLfloat fromViewer[4] = {0.0f, 0.0f, 1.0f, 0.0f};
    glLightfv(GL_LIGHT0, GL_POSITION, fromViewer);
}

void drawImage(const QImage& image, int x, int y, QSize pixels)
{
    if (image.isNull() || x < 0 || y < 0 || x >= pixels.width() || y >= pixels.height()) return;
    const AttributeScope attributes;
    const MatrixScope matrices;
    beginPixelSpace(pixels.width(), pixels.height());
    glDisable(GL_DEPTH_TEST);
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    glPixelStorei(GL_UNPACK_SWAP_BYTES, GL_FALSE);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
    glPixelStorei(GL_UNPACK_SKIP_ROWS, 0);
    glPixelStorei(GL_UNPACK_SKIP_PIXELS, 0);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    glRasterPos2i(x, y);
    const QImage upright = image.mirrored();
    glDrawPixels(upright.width(), upright.height(), GL_BGRA, GL_UNSIGNED_INT_8_8_8_8_REV,
                 upright.constBits());
}

void makeOpaque()
{
    glDisable(GL_SCISSOR_TEST);
    glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_TRUE);
    glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
}

}  // namespace hvscene
