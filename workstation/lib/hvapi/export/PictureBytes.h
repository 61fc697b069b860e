#pragma once

#include "hvapi/hvapi_global.h"

#include <QByteArray>
#include <QString>

class QImage;

/// A picture as the bytes of a file.
namespace PictureBytes {

/// The picture in the format that a file's ending stands for, whatever its case: bmp, jpg, jpeg, png, tif,
/// tiff, eps, emf, wmf. Empty, with a reason for the user, for any other ending, an empty picture, and a
/// picture that is too large for the format.
HVAPI_EXPORT QByteArray encode(const QImage& picture, const QString& ending, QString& reason);

/// One picture that fills an enhanced metafile, at 96 pixels an inch.
QByteArray enhancedMetafile(const QImage& picture);
/// The same in the older, placeable metafile, whose sides are 16-bit numbers: empty above 32767 pixels.
QByteArray placeableMetafile(const QImage& picture);
/// Encapsulated PostScript, at 96 pixels an inch. Empty when the surface can't be had.
QByteArray postScript(const QImage& picture);
/// RGB of 8 bits, deflated, without loss. Empty on failure.
QByteArray tiff(const QImage& picture);

}  // namespace PictureBytes
