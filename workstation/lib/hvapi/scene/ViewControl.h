#pragma once

#include "hvapi/hvapi_global.h"
#include "lib/hvapi/scene/logic/Camera.h"

#include <QImage>
#include <QSize>

class C3DView;

/// What the application's menus and command line do with a 3D view.
class HVAPI_EXPORT ViewControl
{
public:
    explicit ViewControl(C3DView& view)
        : m_view(view)
    {}

    void setPreset(hvscene::ViewPreset preset);
    /// The whole scene in the middle of the view; the direction stays.
    void fit();
    /// The front view, fitted.
    void reset();

    void showBoundingBox(bool show);
    bool isBoundingBoxShown() const;
    /// The triad in the lower left corner.
    void showAxes(bool show);
    bool isAxesShown() const;
    /// The bar in the lower right corner.
    void showScaleBar(bool show);
    bool isScaleBarShown() const;

    /// A frame of full detail in `pixels`, whatever the size of the view, which may be hidden and was perhaps
    /// never shown. Null without GL, or for a size that GL can't draw.
    QImage picture(QSize pixels);

    /// Of the view's window, as the next frame draws it.
    QSize pixels() const;
    /// The scene has an object with an extent, shown or hidden.
    bool hasContents() const;

    /// Where a turn of the scene about the vertical of the window starts, for pictures of that size.
    hvscene::Camera turntableCamera(QSize pixels);
    /// picture() with the scene turned from `start` by `angle`, in radians; the front goes right. The view's
    /// own camera stays where it is.
    QImage pictureOfTurn(const hvscene::Camera& start, double angle, QSize pixels);

    /// Views that are not on screen draw a frame of that size when one is asked of them at once; with an
    /// empty size, as at first, they wait until they are shown. For a program that never shows a window.
    static void setHiddenFrameSize(QSize pixels);
    static QSize hiddenFrameSize();

private:
    C3DView& m_view;
};
