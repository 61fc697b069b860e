#include "slices/SliceScene.h"

#include "render/gl/GlStateScope.h"

#include <GL/gl.h>

void SliceScene::setLight(float z)
{
    const GLfloat position[4] = {0.0F, 0.0F, z, 0.0F};
    const GLfloat ambient[4] = {0.5F, 0.5F, 0.5F, 0.0F};
    const GLfloat full[4] = {1.0F, 1.0F, 1.0F, 0.0F};
    glLightfv(GL_LIGHT0, GL_POSITION, position);
    glLightfv(GL_LIGHT0, GL_AMBIENT, ambient);
    glLightfv(GL_LIGHT0, GL_DIFFUSE, full);
    glLightfv(GL_LIGHT0, GL_SPECULAR, full);
    glLightModeli(GL_LIGHT_MODEL_LOCAL_VIEWER, 0);
}

void SliceScene::outline(const SliceWindow& window)
{
    glVertex3d(window.left, window.bottom, 0.0);
    glVertex3d(window.left, window.top, 0.0);
    glVertex3d(window.right, window.top, 0.0);
    glVertex3d(window.right, window.bottom, 0.0);
}

void SliceScene::drawGround(const SliceWindow& window)
{
    const GlStateScope state(GL_ENABLE_BIT);
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_BLEND);
    glColor3f(0.0F, 0.0F, 0.0F);
    glBegin(GL_QUADS);
    outline(window);
    glEnd();
}
