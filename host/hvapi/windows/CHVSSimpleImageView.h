#pragma once

#include "hvapi/hvapi_global.h"
#include "hvapi/values/Right_epopupMenu.h"
#include "hvapi/values/tag_escaleunit.h"

#include <QWidget>

#include <memory>

class CILImage;

/// Shows one image through its own palette, fitted to the widget, at the proportions of its pixel spacing.
/// The image is looked at anew in each paint: who changed its samples or its palette calls update().
///
/// The wheel, "+" and "-" zoom, a drag with the left button and the arrow keys move a picture that is larger
/// than the view, "0" and a double click fit it.
class HVAPI_EXPORT CHVSSimpleImageView : public QWidget
{
    Q_OBJECT

public:
    /// The view does not own the image, which must outlive it; null shows an empty view.
    CHVSSimpleImageView(QWidget* parent, char const* name, CILImage* image);
    ~CHVSSimpleImageView() override;

    /// Unit of the scale bar in the lower left corner; none at first.
    void setScaleUnits(tag_escaleunit unit);
    /// Distance of pixel centres in mm, along the width and along the height; 1 for a distance that is none.
    /// Fits the picture.
    void setPixelSpacingForImage(float x, float y);
    /// Which entries the context menu offers; copy, zoom and save at first.
    void showMenuItems(Right_epopupMenu items);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};
