#pragma once

#include "hvapi/hvapi_global.h"
#include "hvapi/values/Right_epopupMenu.h"
#include "hvapi/values/tag_escaleunit.h"

#include <QWidget>

#include <memory>

class CILImage;

/// Shows one image through its colour table, fitted to the widget, at the proportions of its pixel spacing.
class HVAPI_EXPORT CHVSSimpleImageView : public QWidget
{
    Q_OBJECT

public:
    /// The view does not own the image, which must outlive it; null shows an empty view.
    CHVSSimpleImageView(QWidget* parent, char const* name, CILImage* image);
    ~CHVSSimpleImageView() override;

    /// Unit of the rulers.
    void setScaleUnits(tag_escaleunit unit);
    /// Distance of pixel centres in mm, along the width and along the height.
    void setPixelSpacingForImage(float x, float y);
    /// Which entries the context menu offers.
    void showMenuItems(Right_epopupMenu items);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};
