#pragma once

#include <QString>

#include <optional>

/// What the place of the picture shows.
enum class PreviewPage
{
    Picture,
    NoPreview,      ///< nothing selected, or a kind of file that has none
    NotCompatible,  ///< the file can't be shown
    NotFound,       ///< it has gone, with its folder
};

/// The text of a page; empty for the picture.
QString pageText(PreviewPage page);

/// The page after the first file of a selection was opened, with its status, 0 for success.
PreviewPage pageAfterOpening(int status, bool isRaw, bool folderExists);

/// How the files of a selection are read.
enum class PreviewKind
{
    Tiff,
    Raw,
    Dicom,
};

/// By the first file: a picture of the image library is a TIFF; else ".raw" or ".vox" in the name, ignoring
/// case, makes it RAW; everything else is taken for DICOM.
PreviewKind previewKind(bool isPicture, const QString& fileName);

/// Distances of pixel centres in mm.
struct PixelDistance
{
    double alongWidth = 1.0;
    double alongHeight = 1.0;
};

/// From the text of the DICOM attribute Pixel Spacing, "rows\columns": the first number is the distance of
/// rows. Nothing unless both are above 0.
std::optional<PixelDistance> pixelDistance(const QString& pixelSpacing);

/// True when there is a picture to move on to.
bool canPlay(int fileCount, int frames, bool isRaw);
