#pragma once

#include "hvapi/scene/C3DView.h"
#include "slices/QuadricDeleter.h"
#include "slices/SliceTile.h"
#include "slices/logic/SliceOrientation.h"
#include "slices/logic/SliceZoom.h"

#include <QFont>
#include <QFontMetrics>
#include <QOpenGLWidget>
#include <QPointer>

#include <memory>
#include <vector>

class C3DSGManager;
class CGLVolume;
class QPainter;

/// Orthogonal slices of the volume "GLVolume" of a scene graph: a grid of them at even distances, or a single
/// one that fills the view.
///
/// The node is looked up in each paint; without it a tile is black. Texture, programs, colour tables, crop
/// planes and box are the node's, and the context shares objects with those of the scene; orientation,
/// camera, plane and tiles are the view's own. Positions and lengths are millimetres in the volume's own
/// space, sizes and rectangles are pixels of the widget, with y from its bottom where tiles are concerned.
class CHVMultiVolumeSliceView : public QOpenGLWidget
{
    Q_OBJECT

public:
    /// `manager` and `view` may go away before the widget does. The crop box is taken from `view`.
    CHVMultiVolumeSliceView(QWidget* parent, C3DSGManager* manager, const QString& name, C3DView* view,
                            Qt::WindowFlags flags = Qt::WindowFlags());
    ~CHVMultiVolumeSliceView() override;

    /// Computes window, plane normal and camera from the node's box and the view's crop box, and turns the
    /// rotation to that axis (1, 2 or 4). Nothing without the node. Without the 3D view the former window
    /// stays.
    void setOrientation(int axis);
    int orientation() const { return m_axis; }

    /// Tiles from `start` to `end` inclusive, `spacing` apart and as thick; none for a spacing of 0 or less
    /// or a range that is not finite.
    void setSliceRange(float start, float end, double spacing);
    /// One tile, for the single view.
    void setSingleSlice(float position);

    /// Tiles show slabs as thick as their distance instead of cuts.
    void setThickSliceMode(bool thick);
    /// How slabs are drawn.
    void setMIP(bool mip);
    void setLighting(bool lighting);
    void setSingleViewMode(bool single);
    void setSinglePosition(float position);
    float singlePosition() const { return m_singlePosition; }
    /// The position's text in the single view.
    void setShowLabel(bool show);
    void setMargin(int margin);

    int tileCount() const { return static_cast<int>(m_tiles.size()); }
    /// Null for an index outside.
    const SliceTile* tile(int index) const;
    bool isThickSliceMode() const { return m_thickSliceMode; }
    bool isSingleView() const { return m_singleView; }
    bool hasSelection() const { return m_selected; }
    double selectedPosition() const { return m_selectedPosition; }

    /// The picture as it is on screen, with all tiles of the grid.
    void grabImage(QImage& image);

    void zoomIn();
    void zoomOut();
    /// As high as the parent widget.
    void resetZoom();
    /// After a change between grid and single view: the height that the view had there.
    void restoreZoom();

    /// Places the tiles' rectangles for the present grid.
    virtual void computeTileRects();
    /// Draws a text at a place of the scene, in the current GL colour, between two pieces of native painting.
    /// The last argument is not read.
    virtual void renderTextAt(QPainter* painter, double x, double y, double z, const QString& text,
                              const QFont& font, int listBase);

signals:
    void signalDoubleMouseButtonClicked();

public slots:
    /// Moves the single slice, to whole millimetres.
    void onSliderMove(int position);
    /// Takes the font size of the 3D views' preferences.
    void onSignalUpdatePreference();
    /// From the scene to the window, see `projectSlicePoint`: 1, or 0 for a point that has no place there.
    int project(double objx, double objy, double objz, const double model[16], const double proj[16],
                const int viewport[4], double* winx, double* winy, double* winz);
    /// out = m * in, column by column.
    void transformPoint(double out[4], const double m[16], const double in[4]);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void initializeGL() override;
    void resizeGL(int w, int h) override;
    void paintGL() override;

private:
    CGLVolume* node() const;
    void takePreferredFont();
    void relayout();
    void computeGridLayout();
    SliceZoom zoom() const;
    void setZoomHeight(int height);

    void paintTiles(QPainter& painter, CGLVolume* volume);
    void paintTile(QPainter& painter, CGLVolume* volume, SliceTile& tile, const TileRect& rect);
    void drawSlice(CGLVolume& volume, const SliceTile& tile);
    void drawLabel(QPainter& painter, SliceTile& tile, const TileRect& rect);
    void drawFrames(const SliceTile& tile);
    bool isOnScreen(const TileRect& rect) const;

    void setViewport(const TileRect& rect);
    void setOrtho(const SliceWindow& window);

    const SliceTile* tileAt(const QPoint& mouse) const;
    void selectAt(const QPoint& mouse);

    bool m_thickSliceMode = false;
    std::vector<SliceTile> m_tiles;
    QString m_viewName;
    TileLayoutMode m_layoutMode = BestAspectGrid;
    int m_width = 300;
    int m_height = 300;
    TileGrid m_grid;
    int m_margin = 1;
    TileWeights m_weights;
    bool m_showLabel = false;
    QFont m_font;
    QFontMetrics m_fontMetrics;
    QPointer<C3DSGManager> m_manager;
    QPointer<C3DView> m_view;
    int m_axis = 0;
    SliceWindow m_window;
    SliceBox m_box;
    double m_plane[4] = {0.0, 0.0, 0.0, 0.0};  ///< a, b, c, d; d is the position of the slice in hand
    float m_rotation[3] = {0.0F, 0.0F, 0.0F};  ///< degrees
    float m_translation[3] = {0.0F, 0.0F, 0.0F};
    float m_scale = 1.0F;
    float m_zoomHeightSingle = -1.0F;
    float m_zoomHeightMulti = -1.0F;
    bool m_singleView = false;
    float m_singlePosition = 0.0F;
    bool m_selected = false;
    bool m_hovered = false;
    double m_selectedPosition = 0.0;
    double m_hoveredPosition = 0.0;
    TileRect m_singleRect;
    bool m_mip = false;
    bool m_lighting = false;
    bool m_controlHeld = false;

    std::unique_ptr<GLUquadric, QuadricDeleter> m_quadric;
    int m_maxTextureSize = 0;
    bool m_grabbing = false;      ///< all tiles are wanted, on screen or not
    bool m_tilesLeftOut = false;  ///< by the last paint, since they were off screen
};
