#pragma once

#include "hvapi/scene/C3DView.h"

#include <QPointer>

class C3DObject;
class C3DSlice;
class C3DToolBase;

/// The 3D scene of a sequence: a view with the objects, the slices and the tools.
class HVAPI_EXPORT C3DScene : public C3DView
{
    Q_OBJECT

public:
    enum slice_view
    {
        YZ_VIEW = 0,
        XZ_VIEW = 1,
        XY_VIEW = 2,
        ALL_VIEWS = 3
    };

    C3DScene(C3DSGManager* manager, QWidget* parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
    ~C3DScene() override;

    /// The object takes part in rendering, in every scene of its graph. A second call changes nothing.
    void addToScene(C3DObject* object);

    /// Paints a frame before it returns when the scene is on screen; else the next time that it is shown. The
    /// frame is one of full detail unless the mouse is moving the scene. In a program that never shows a
    /// window it is drawn all the same.
    void refresh();
    /// Takes the boxes of the objects anew, and takes the whole scene into view when they have changed.
    void updateScene();
    /// Builds anew what is stored of the slices that are marked, and brings their planes back into the
    /// scene's box.
    void createSliceDisplayLists();
    /// The same, and repaints when a slice is on screen.
    void refreshSliceViews();
    /// Marks a slice, or all of them: what is stored of them no longer agrees with the object.
    void setSliceDirty(C3DObject* object, C3DScene::slice_view view, bool bDirty);

    QPointer<C3DSlice> getYZslice();
    QPointer<C3DSlice> getXZslice();
    QPointer<C3DSlice> getXYslice();
    /// Null for `ALL_VIEWS`.
    QPointer<C3DSlice> get3DSliceView(C3DScene::slice_view view);

    /// Takes up or leaves the measuring of distances: the user clicks at two points, which lie on the first
    /// voxels that are seen there, or on a slice. It is no tool in the sense of `getCurrentTool`, and takes
    /// the place of one. Leaving it removes what was measured.
    void doMeasureVoxels(bool bMeasure);
    bool isMeasuring() const;
    /// Takes up a tool for the object of that name, in the place of another tool and of measuring; without
    /// such an object nothing changes. The transform tool writes the object's transformation, the cropping
    /// tool the crop box of the view. With `bShow` false the tool is left, whatever the name; another tool
    /// stays.
    void showTransformTool(bool bShow, QString object);
    void showCroppingTool(bool bShow, QString object);
    /// Lets the tool, if it is in use, follow its object.
    void updateTransformTool();
    void updateCroppingTool();
    /// The tool in use, or null. A tool ends with its object.
    C3DToolBase* getCurrentTool();

signals:
    /// Measuring was taken up or left, by an operation or by the Escape key.
    void measuringChanged(bool bMeasuring);
    /// The user has measured a distance, in millimetres.
    void distanceMeasured(double distance);
    /// A line that tells of the voxel under the mouse: where it is seen, its value, and what that stands for.
    /// Empty when there is none.
    void voxelUnderMouse(QString text);

protected:
    void renderDecorations() override;
    void renderOverlay(const QSize& pixels, double scale) override;
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    Q_DISABLE_COPY(C3DScene)
    struct SceneData;
    std::unique_ptr<SceneData> s;
};
