#pragma once

class QImage;
class QSize;

namespace hvscene {

/// Saves all server attributes, pixel store modes, the program and the active texture unit, and restores
/// them.
class AttributeScope
{
public:
    AttributeScope();
    ~AttributeScope();
    AttributeScope(const AttributeScope&) = delete;
    AttributeScope& operator=(const AttributeScope&) = delete;

private:
    int m_program = 0;
};

/// Saves the projection and modelview matrices and restores them.
class MatrixScope
{
public:
    MatrixScope();
    ~MatrixScope();
    MatrixScope(const MatrixScope&) = delete;
    MatrixScope& operator=(const MatrixScope&) = delete;
};

// All of these need a current context of the compatibility profile.

/// The state in which a frame starts: all tests and effects off but the depth test with GL_LEQUAL, the whole
/// framebuffer as the viewport, colour and depth cleared.
void resetViewState(int width, int height);
/// A dark vertical gradient over the viewport; writes no depth.
void drawBackground();
/// Light 0 from the viewer, with the current modelview matrix the identity. Lighting stays off.
void setHeadLight();
/// Premultiplied image with its lower left corner at (x, y) of a framebuffer of `pixels`; on top of
/// everything.
void drawImage(const QImage& image, int x, int y, QSize pixels);
/// Sets alpha to 1 everywhere, so that the window system and grabbed pictures show the colours as they are.
void makeOpaque();

}  // namespace hvscene
