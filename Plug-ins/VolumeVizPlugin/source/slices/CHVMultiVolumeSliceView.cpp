#include "slices/CHVMultiVolumeSliceView.h"

#include "hvapi/scene/C3DSGManager.h"
#include "hvutils/CHVPreference.h"
#include "hvutils/CHVPreferenceSignalHandler.h"
#include "hvutils/S3DViewSettings.h"
#include "render/CGLVolume.h"
#include "slices/logic/SliceProjection.h"
#include "slices/logic/SliceRange.h"

#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QOpenGLContext>

#include <algorithm>

CHVMultiVolumeSliceView::CHVMultiVolumeSliceView(QWidget* parent, C3DSGManager* manager, const QString& name,
                                                 C3DView* view, Qt::WindowFlags flags)
    : QOpenGLWidget(parent, flags)
    , m_viewName(name)
    , m_fontMetrics(m_font)
    , m_manager(manager)
    , m_view(view)
{
    setObjectName(name);
    setAccessibleName(tr("Slices of the volume"));
    takePreferredFont();
    connect(CHVPreference::getSignalHandler(), SIGNAL(updatePreferenceSetting()), this,
            SLOT(onSignalUpdatePreference()));
    relayout();
    setMouseTracking(true);
    setAutoFillBackground(false);
}

CHVMultiVolumeSliceView::~CHVMultiVolumeSliceView() = default;

CGLVolume* CHVMultiVolumeSliceView::node() const
{
    return m_manager ? dynamic_cast<CGLVolume*>(m_manager->getNode(QStringLiteral("GLVolume"))) : nullptr;
}

void CHVMultiVolumeSliceView::takePreferredFont()
{
    S3DViewSettings preferences;
    CHVPreference::get3DViewPreferences(preferences);
    m_font = QApplication::font();
    if (preferences.nFontPointSize > 0) m_font.setPointSize(preferences.nFontPointSize);
    m_fontMetrics = QFontMetrics(m_font);
}

void CHVMultiVolumeSliceView::setOrientation(int axis)
{
    CGLVolume* volume = node();
    if (!volume) return;
    std::fill(std::begin(m_rotation), std::end(m_rotation), 0.0F);
    volume->getBBox(m_box.min, m_box.max);
    if (!m_view) return;

    const sCropBoxOffset crop = m_view->getCroppingBoxOffset();
    const std::optional<SliceCamera> camera =
        sliceCamera(axis, m_box, croppedSliceBox(m_box, crop.m_offset[0], crop.m_offset[6]));
    if (!camera) return;
    m_axis = axis;
    m_window = camera->window;
    std::copy_n(camera->normal, 3, m_plane);
    m_plane[3] = 0.0;
    std::copy_n(camera->rotation, 3, m_rotation);
    m_translation[0] = m_translation[1] = 0.0F;
    m_translation[2] = static_cast<float>(camera->translationZ);
    computeTileRects();  // another volume may have another shape
}

void CHVMultiVolumeSliceView::setSliceRange(float start, float end, double spacing)
{
    m_tiles.clear();
    for (const double position : slicePositions(start, end, spacing)) {
        SliceTile tile;
        tile.position = position;
        tile.thickness = spacing;
        m_tiles.push_back(tile);
    }
    relayout();
}

void CHVMultiVolumeSliceView::setSingleSlice(float position)
{
    m_tiles.clear();
    m_singlePosition = position;
    m_tiles.emplace_back();
    relayout();
}

void CHVMultiVolumeSliceView::setThickSliceMode(bool thick)
{
    m_thickSliceMode = thick;
}

void CHVMultiVolumeSliceView::setMIP(bool mip)
{
    m_mip = mip;
}

void CHVMultiVolumeSliceView::setLighting(bool lighting)
{
    m_lighting = lighting;
}

void CHVMultiVolumeSliceView::setSingleViewMode(bool single)
{
    m_singleView = single;
}

void CHVMultiVolumeSliceView::setSinglePosition(float position)
{
    m_singlePosition = position;
}

void CHVMultiVolumeSliceView::setShowLabel(bool show)
{
    m_showLabel = show;
}

void CHVMultiVolumeSliceView::setMargin(int margin)
{
    m_margin = margin;
}

const SliceTile* CHVMultiVolumeSliceView::tile(int index) const
{
    return index >= 0 && index < tileCount() ? &m_tiles[static_cast<std::size_t>(index)] : nullptr;
}

void CHVMultiVolumeSliceView::grabImage(QImage& image)
{
    m_grabbing = true;
    makeCurrent();
    update();
    image = grabFramebuffer();
    m_grabbing = false;
}

void CHVMultiVolumeSliceView::onSliderMove(int position)
{
    setSinglePosition(static_cast<float>(position));
    update();
}

void CHVMultiVolumeSliceView::onSignalUpdatePreference()
{
    takePreferredFont();
    update();
}

int CHVMultiVolumeSliceView::project(double objx, double objy, double objz, const double model[16],
                                     const double proj[16], const int viewport[4], double* winx, double* winy,
                                     double* winz)
{
    const double point[3] = {objx, objy, objz};
    double window[3];
    if (!projectSlicePoint(point, model, proj, viewport, window)) return 0;
    *winx = window[0];
    *winy = window[1];
    *winz = window[2];
    return 1;
}

void CHVMultiVolumeSliceView::transformPoint(double out[4], const double m[16], const double in[4])
{
    transformSlicePoint(out, m, in);
}

// Layout and zoom

void CHVMultiVolumeSliceView::relayout()
{
    m_weights.growTo(m_window);
    computeGridLayout();
    computeTileRects();
}

void CHVMultiVolumeSliceView::computeGridLayout()
{
    m_layoutMode = BestAspectGrid;
    m_grid = tileGrid(m_layoutMode, tileCount(), m_weights, m_width, m_height);
}

void CHVMultiVolumeSliceView::computeTileRects()
{
    const double aspect = m_window.aspect();
    m_singleRect = singleRect(aspect, m_width, m_height);
    const std::vector<TileRect> rects = tileRects(tileCount(), m_grid, aspect, m_width, m_height);
    for (std::size_t i = 0; i < m_tiles.size(); ++i) {
        m_tiles[i].window = m_window;
        m_tiles[i].rect = i < rects.size() ? rects[i] : TileRect();
    }
}

SliceZoom CHVMultiVolumeSliceView::zoom() const
{
    SliceZoom zoom;
    zoom.width = width();
    zoom.height = height();
    zoom.singleView = m_singleView;
    zoom.tiles = tileCount();
    zoom.grid = m_grid;
    zoom.mode = m_layoutMode;
    zoom.weights = m_weights;
    zoom.aspect = m_window.aspect();
    zoom.maxTextureSize = m_maxTextureSize;
    return zoom;
}

void CHVMultiVolumeSliceView::setZoomHeight(int height)
{
    (m_singleView ? m_zoomHeightSingle : m_zoomHeightMulti) = static_cast<float>(height);
    setMinimumHeight(height);
}

void CHVMultiVolumeSliceView::zoomIn()
{
    const std::optional<int> height = zoom().in();
    if (height) setZoomHeight(*height);
}

void CHVMultiVolumeSliceView::zoomOut()
{
    const int height = zoom().out();
    setUpdatesEnabled(false);
    setZoomHeight(height);
    relayout();
    setUpdatesEnabled(true);
}

void CHVMultiVolumeSliceView::resetZoom()
{
    if (parentWidget()) setMinimumHeight(parentWidget()->height());
    relayout();
}

void CHVMultiVolumeSliceView::restoreZoom()
{
    // The grid is measured by the single view's height as well; see the notes on what is kept.
    if (parentWidget() && parentWidget()->height() > m_zoomHeightSingle) {
        resetZoom();
        return;
    }
    const float height = m_singleView ? m_zoomHeightSingle : m_zoomHeightMulti;
    setMinimumHeight(std::max(0, static_cast<int>(height)));
}

// Mouse and keys

const SliceTile* CHVMultiVolumeSliceView::tileAt(const QPoint& mouse) const
{
    const double y = m_height - mouse.y();
    const auto hit = std::find_if(m_tiles.begin(), m_tiles.end(), [&](const SliceTile& tile) {
        return tile.rect.width > 0.0F && tile.rect.height > 0.0F && tile.rect.contains(mouse.x(), y);
    });
    return hit == m_tiles.end() ? nullptr : &*hit;
}

void CHVMultiVolumeSliceView::selectAt(const QPoint& mouse)
{
    m_selected = false;
    if (const SliceTile* hit = m_singleView ? nullptr : tileAt(mouse)) {
        m_selected = true;
        m_selectedPosition = hit->position;
    }
    update();
}

void CHVMultiVolumeSliceView::mousePressEvent(QMouseEvent* event)
{
    if (!m_singleView) selectAt(event->pos());
}

void CHVMultiVolumeSliceView::mouseDoubleClickEvent(QMouseEvent* event)
{
    selectAt(event->pos());
    emit signalDoubleMouseButtonClicked();
}

void CHVMultiVolumeSliceView::mouseMoveEvent(QMouseEvent* event)
{
    if (m_singleView) return;
    m_hovered = false;
    if (const SliceTile* hit = tileAt(event->pos())) {
        m_hovered = true;
        m_hoveredPosition = hit->position;
        update();
    }
}

void CHVMultiVolumeSliceView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Control) m_controlHeld = true;
    QOpenGLWidget::keyPressEvent(event);  // Escape is the dialog's
}

void CHVMultiVolumeSliceView::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Control) m_controlHeld = false;
    QOpenGLWidget::keyReleaseEvent(event);
}

void CHVMultiVolumeSliceView::moveEvent(QMoveEvent* event)
{
    QOpenGLWidget::moveEvent(event);
    if (m_tilesLeftOut) update();  // scrolled: others are on screen now
}

void CHVMultiVolumeSliceView::resizeGL(int w, int h)
{
    (m_singleView ? m_zoomHeightSingle : m_zoomHeightMulti) = static_cast<float>(h);
    m_width = w;
    m_height = h;
    computeGridLayout();
    computeTileRects();
    update();
}
