#include "hvutils/Singleton.h"
#include "render/CGLVolume.h"
#include "render/gl/GlStateScope.h"
#include "render/gl/GlewSupport.h"
#include "slices/CHVMultiVolumeSliceView.h"
#include "slices/SliceScene.h"

#include <QPainter>
#include <QRegion>

#include <GL/glu.h>

namespace {

constexpr int kSmallestView = 20;  // pixels; below that nothing can be seen
constexpr double kNear = -1.0;
constexpr GLuint kOwnSpace = ~GLuint(0);

void drawFrame(const SliceWindow& window, float red, float blue)
{
    glColor3f(red, 0.0F, blue);
    glBegin(GL_LINE_LOOP);
    SliceScene::outline(window);
    glEnd();
}

}  // namespace

void CHVMultiVolumeSliceView::initializeGL()
{
    glClearColor(1.0F, 1.0F, 1.0F, 1.0F);
    m_quadric.reset(gluNewQuadric());
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &m_maxTextureSize);
}

void CHVMultiVolumeSliceView::paintGL()
{
    if (!isVisible()) return;
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    if (width() < kSmallestView || height() < kSmallestView) return;

    CGLVolume* volume = node();
    if (volume) {
        // Whichever view of the scene paints first: the programs must be there, and know all they need.
        painter.beginNativePainting();
        volume->prepareForSlices();
        painter.endNativePainting();
    }
    paintTiles(painter, volume);
}

void CHVMultiVolumeSliceView::paintTiles(QPainter& painter, CGLVolume* volume)
{
    m_tilesLeftOut = false;
    if (m_singleView) {
        if (!m_tiles.empty() && m_singleRect.width > 0.0F && m_singleRect.height > 0.0F)
            paintTile(painter, volume, m_tiles.front(), m_singleRect);
        return;
    }
    for (SliceTile& tile : m_tiles) {
        if (tile.rect.width <= 0.0F || tile.rect.height <= 0.0F) continue;
        if (m_grabbing || isOnScreen(tile.rect))
            paintTile(painter, volume, tile, tile.rect);
        else
            m_tilesLeftOut = true;
    }
}

bool CHVMultiVolumeSliceView::isOnScreen(const TileRect& rect) const
{
    const QRect pixels(static_cast<int>(rect.x), static_cast<int>(m_height - rect.y - rect.height),
                       static_cast<int>(rect.width), static_cast<int>(rect.height));
    return visibleRegion().intersects(pixels.adjusted(-2, -2, 2, 2));
}

void CHVMultiVolumeSliceView::setViewport(const TileRect& rect)
{
    const double scale = devicePixelRatioF();
    Singleton::getInstance()->glViewport(static_cast<int>(rect.x * scale), static_cast<int>(rect.y * scale),
                                         static_cast<int>(rect.width * scale),
                                         static_cast<int>(rect.height * scale));
}

void CHVMultiVolumeSliceView::setOrtho(const SliceWindow& window)
{
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    Singleton::getInstance()->glOrtho(window.left, window.right, window.bottom, window.top, kNear,
                                      sliceViewFar(m_translation[2]));
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
}

void CHVMultiVolumeSliceView::paintTile(QPainter& painter, CGLVolume* volume, SliceTile& tile,
                                        const TileRect& rect)
{
    painter.beginNativePainting();
    setViewport(rect);
    setOrtho(tile.window);
    SliceScene::drawGround(tile.window);
    glShadeModel(GL_SMOOTH);
    glDisable(GL_DEPTH_TEST);
    {
        const GlStateScope state(GL_ENABLE_BIT | GL_COLOR_BUFFER_BIT);
        glDisable(GL_DEPTH_TEST);
        glEnable(GL_LINE_SMOOTH);
        glHint(GL_LINE_SMOOTH_HINT, GL_DONT_CARE);
        SliceScene::setLight(m_translation[2]);
        glEnable(GL_BLEND);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        m_plane[3] = m_singleView ? m_singlePosition : tile.position;
        const GlModelviewScope modelview;
        glTranslatef(m_translation[0], m_translation[1], m_translation[2]);
        glScalef(m_scale, m_scale, m_scale);
        const matrix rotation = sliceSceneRotation(m_rotation);
        glMultMatrixd(rotation);
        if (volume) drawSlice(*volume, tile);
    }
    if (!m_singleView || m_showLabel) drawLabel(painter, tile, rect);
    if (!m_singleView) drawFrames(tile);
    glFlush();
    painter.endNativePainting();
}

void CHVMultiVolumeSliceView::drawSlice(CGLVolume& volume, const SliceTile& tile)
{
    const double turned = m_axis == AxisX || m_axis == AxisZ ? -1.0 : 1.0;
    glNormal3d(turned * m_plane[0], turned * m_plane[1], turned * m_plane[2]);
    if (m_thickSliceMode)
        volume.renderThickSlice(m_axis, m_plane[3], tile.thickness, m_mip ? GL_MAX : GL_FUNC_ADD, m_lighting);
    else
        volume.renderSlice(m_plane, kOwnSpace);
    // The node leaves another unit active, and the painter would bind its letters there.
    glew::activeTexture(GL_TEXTURE0);
}

void CHVMultiVolumeSliceView::drawLabel(QPainter& painter, SliceTile& tile, const TileRect& rect)
{
    tile.label = QString::number(m_plane[3], 'f', 2);
    const SliceWindow& window = tile.window;
    const double x = window.right - (m_fontMetrics.horizontalAdvance(tile.label) + 2) *
                                        (window.right - window.left) / rect.width;
    const double y = window.bottom + 5.0 * (window.top - window.bottom) / rect.height;
    glColor3f(1.0F, 1.0F, 1.0F);
    renderTextAt(&painter, x, y, 0.0, tile.label, m_font, 2000);
}

void CHVMultiVolumeSliceView::drawFrames(const SliceTile& tile)
{
    const GlStateScope state(GL_LINE_BIT | GL_ENABLE_BIT);
    glDisable(GL_DEPTH_TEST);
    glLineWidth(3.0F);
    if (m_hovered && tile.position == m_hoveredPosition) drawFrame(tile.window, 0.0F, 1.0F);
    if (m_selected && tile.position == m_selectedPosition) drawFrame(tile.window, 1.0F, 0.0F);
}

void CHVMultiVolumeSliceView::renderTextAt(QPainter* painter, double x, double y, double z,
                                           const QString& text, const QFont& font, int)
{
    double modelview[16];
    double projection[16];
    GLint viewport[4];
    GLfloat color[4];
    glGetDoublev(GL_MODELVIEW_MATRIX, modelview);
    glGetDoublev(GL_PROJECTION_MATRIX, projection);
    glGetIntegerv(GL_VIEWPORT, viewport);
    glGetFloatv(GL_CURRENT_COLOR, color);
    double window[3];
    if (project(x, y, z, modelview, projection, viewport, &window[0], &window[1], &window[2]) == 0) return;

    painter->endNativePainting();
    const double scale = devicePixelRatioF();
    const auto channel = [](GLfloat value) { return static_cast<int>(value * 255.0F); };
    painter->setPen(QColor(channel(color[0]), channel(color[1]), channel(color[2])));
    painter->setFont(font);
    painter->drawText(QPointF(window[0] / scale, height() - window[1] / scale), text);
    painter->beginNativePainting();

    // The painter has set its own; back to what this class set last.
    const Singleton::ViewPortData port = Singleton::getInstance()->getGlViewPortData();
    const Singleton::OrthoData ortho = Singleton::getInstance()->getGLOrthoData();
    glViewport(port.x, port.y, port.width, port.height);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(ortho.left, ortho.right, ortho.bottom, ortho.top, ortho.zNear, ortho.zFar);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
}
