#include "hvapi/windows/CHVSSimpleImageView.h"

#include "hvimage/CILImage.h"
#include "hvutils/CHVPreference.h"
#include "hvutils/CHVSErrorHandler.h"
#include "hvutils/CHVSSettings.h"
#include "lib/hvapi/scene/logic/ScaleBar.h"
#include "lib/hvapi/windows/logic/ImagePlacement.h"
#include "lib/hvapi/windows/logic/PalettePicture.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QPainter>
#include <QSaveFile>
#include <QWheelEvent>

#include <cmath>

namespace {

constexpr double keyZoom = 1.25;
constexpr double keyMove = 24.0;   // pixels
constexpr double barShare = 0.25;  // of the width, at most
constexpr int margin = 10;

QString barText(double length, tag_escaleunit unit)
{
    QString const number = QString::number(length);
    if (unit == SCALEUNIT_PIXELS) return CHVSSimpleImageView::tr("%1 px").arg(number);
    if (unit == SCALEUNIT_CM) return CHVSSimpleImageView::tr("%1 cm").arg(number);
    return CHVSSimpleImageView::tr("%1 mm").arg(number);
}

}  // namespace

struct CHVSSimpleImageView::Private
{
    CILImage* image = nullptr;
    hvwindows::ImagePlacement place;
    tag_escaleunit unit = SCALEUNIT_NONE;
    Right_epopupMenu menu = RIGHT_POPUP_ALL;
    bool isDragged = false;
    QPointF dragFrom;

    double unitsPerPixel() const
    {
        if (unit == SCALEUNIT_PIXELS) return place.samplesPerPixel();
        return unit == SCALEUNIT_CM ? place.mmPerPixel() / 10.0 : place.mmPerPixel();
    }

    void paintBar(QPainter& painter, QRect const& area) const
    {
        double const perPixel = unitsPerPixel();
        double const length = hvscene::roundLength(perPixel * barShare * area.width());
        if (unit == SCALEUNIT_NONE || length <= 0.0) return;
        int const pixels = static_cast<int>(std::lround(length / perPixel));
        QRect const bar(area.left() + margin, area.bottom() - margin - 2, pixels, 3);
        QString const text = barText(length, unit);
        QRect const label(bar.left(), bar.top() - 20, area.width() - 2 * margin, 18);
        painter.fillRect(bar.adjusted(-1, -1, 1, 1), Qt::black);
        painter.fillRect(bar, Qt::white);
        painter.setPen(Qt::black);
        painter.drawText(label.translated(1, 1), Qt::AlignLeft | Qt::AlignBottom, text);
        painter.setPen(Qt::white);
        painter.drawText(label, Qt::AlignLeft | Qt::AlignBottom, text);
    }

    void save(QWidget* view) const
    {
        QImage const picture = image ? hvwindows::palettePicture(*image) : QImage();
        QString path = QFileDialog::getSaveFileName(view, tr("Save Picture"),
                                                    CHVPreference::getSettings()->getRecentFilePath(),
                                                    tr("PNG picture (*.png)"));
        if (path.isEmpty()) return;
        if (QFileInfo(path).suffix().isEmpty()) path += QStringLiteral(".png");
        QSaveFile file(path);
        bool const isWritten = file.open(QIODevice::WriteOnly) && picture.save(&file, "PNG") && file.commit();
        if (!isWritten) {
            CHVSErrorHandler::errorMessage(view, eStatusFileNotWritable, path);
            return;
        }
        CHVPreference::getSettings()->setRecentFilePath(path);
    }
};

CHVSSimpleImageView::CHVSSimpleImageView(QWidget* parent, char const* name, CILImage* image)
    : QWidget(parent)
    , d(std::make_unique<Private>())
{
    setObjectName(QString::fromUtf8(name));
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumSize(96, 96);
    setAttribute(Qt::WA_OpaquePaintEvent);
    d->image = image;
}

CHVSSimpleImageView::~CHVSSimpleImageView() = default;

QSize CHVSSimpleImageView::sizeHint() const
{
    return {384, 384};
}

void CHVSSimpleImageView::setScaleUnits(tag_escaleunit unit)
{
    d->unit = unit;
    update();
}

void CHVSSimpleImageView::setPixelSpacingForImage(float x, float y)
{
    d->place.setSpacing(static_cast<double>(x), static_cast<double>(y));
    update();
}

void CHVSSimpleImageView::showMenuItems(Right_epopupMenu items)
{
    d->menu = items;
}

void CHVSSimpleImageView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    if (!d->image) return;
    QImage const picture = hvwindows::palettePicture(*d->image);
    if (picture.isNull()) return;
    d->place.setPicture(
        QSize(static_cast<int>(d->image->getWidth()), static_cast<int>(d->image->getHeight())));
    QRectF const target = d->place.target();
    // Enlarged pixels are shown as they are.
    painter.setRenderHint(QPainter::SmoothPixmapTransform, target.width() < picture.width());
    painter.drawImage(target, picture);
    d->paintBar(painter, rect());
    if (hasFocus()) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void CHVSSimpleImageView::resizeEvent(QResizeEvent* event)
{
    d->place.setView(event->size());
}

void CHVSSimpleImageView::wheelEvent(QWheelEvent* event)
{
    event->accept();
    // A notch of the wheel is 120.
    d->place.zoom(std::pow(keyZoom, event->angleDelta().y() / 120.0), event->position());
    update();
}

void CHVSSimpleImageView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    d->isDragged = true;
    d->dragFrom = event->localPos();
    if (d->place.zoomFactor() > 1.0) setCursor(Qt::ClosedHandCursor);
}

void CHVSSimpleImageView::mouseMoveEvent(QMouseEvent* event)
{
    if (!d->isDragged) return;
    d->place.move(event->localPos() - d->dragFrom);
    d->dragFrom = event->localPos();
    update();
}

void CHVSSimpleImageView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return;
    d->isDragged = false;
    unsetCursor();
}

void CHVSSimpleImageView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return;
    d->place.fit();
    update();
}

void CHVSSimpleImageView::keyPressEvent(QKeyEvent* event)
{
    QPointF const middle = QRectF(rect()).center();
    bool const isLarger = d->place.zoomFactor() > 1.0;
    QPointF move;
    switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        d->place.zoom(keyZoom, middle);
        break;
    case Qt::Key_Minus:
        d->place.zoom(1.0 / keyZoom, middle);
        break;
    case Qt::Key_0:
        d->place.fit();
        break;
    case Qt::Key_Left:
        move.setX(keyMove);
        break;
    case Qt::Key_Right:
        move.setX(-keyMove);
        break;
    case Qt::Key_Up:
        move.setY(keyMove);
        break;
    case Qt::Key_Down:
        move.setY(-keyMove);
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    // A fitted picture leaves the arrows to whoever stands behind.
    if (!move.isNull() && !isLarger) {
        QWidget::keyPressEvent(event);
        return;
    }
    d->place.move(move);
    update();
}

void CHVSSimpleImageView::contextMenuEvent(QContextMenuEvent* event)
{
    bool const hasPicture = d->image && d->image->get_data();
    if (d->menu == RIGHT_POPUP_NONE || !hasPicture) {
        event->ignore();
        return;
    }
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (d->menu & RIGHT_POPUP_ZOOM) {
        QPointF const middle = QRectF(rect()).center();
        connect(menu->addAction(tr("Zoom &In")), &QAction::triggered, this, [this, middle] {
            d->place.zoom(2.0, middle);
            update();
        });
        connect(menu->addAction(tr("Zoom &Out")), &QAction::triggered, this, [this, middle] {
            d->place.zoom(0.5, middle);
            update();
        });
        connect(menu->addAction(tr("&Fit")), &QAction::triggered, this, [this] {
            d->place.fit();
            update();
        });
        menu->addSeparator();
    }
    if (d->menu & RIGHT_POPUP_COPY)
        connect(menu->addAction(tr("&Copy Picture")), &QAction::triggered, this, [this] {
            if (d->image) QApplication::clipboard()->setImage(hvwindows::palettePicture(*d->image));
        });
    if (d->menu & RIGHT_POPUP_SAVE)
        connect(menu->addAction(tr("&Save Picture...")), &QAction::triggered, this,
                [this] { d->save(this); });
    menu->popup(event->globalPos());
}
