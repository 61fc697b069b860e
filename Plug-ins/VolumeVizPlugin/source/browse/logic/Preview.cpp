#include "browse/logic/Preview.h"

#include <QStringList>

#include <cmath>

QString pageText(PreviewPage page)
{
    switch (page) {
    case PreviewPage::Picture:
        break;
    case PreviewPage::NoPreview:
        return QStringLiteral("No Preview available...");
    case PreviewPage::NotCompatible:
        return QStringLiteral("Unable to generate preview. Data not compatible...");
    case PreviewPage::NotFound:
        return QStringLiteral("Unable to locate file on disk...");
    }
    return {};
}

PreviewPage pageAfterOpening(int status, bool isRaw, bool folderExists)
{
    if (status != 0) return folderExists ? PreviewPage::NotCompatible : PreviewPage::NotFound;
    return isRaw ? PreviewPage::NoPreview : PreviewPage::Picture;
}

PreviewKind previewKind(bool isPicture, const QString& fileName)
{
    if (isPicture) return PreviewKind::Tiff;
    const bool isRaw = fileName.contains(QLatin1String(".raw"), Qt::CaseInsensitive) ||
                       fileName.contains(QLatin1String(".vox"), Qt::CaseInsensitive);
    return isRaw ? PreviewKind::Raw : PreviewKind::Dicom;
}

std::optional<PixelDistance> pixelDistance(const QString& pixelSpacing)
{
    const QStringList parts = pixelSpacing.split(QLatin1Char('\\'));
    if (parts.size() != 2) return std::nullopt;
    bool isRowNumber = false;
    bool isColumnNumber = false;
    const double rows = parts[0].trimmed().toDouble(&isRowNumber);
    const double columns = parts[1].trimmed().toDouble(&isColumnNumber);
    const auto isLength = [](double value) { return std::isfinite(value) && value > 0.0; };
    if (!isRowNumber || !isColumnNumber || !isLength(rows) || !isLength(columns)) return std::nullopt;
    return PixelDistance{columns, rows};
}

bool canPlay(int fileCount, int frames, bool isRaw)
{
    return !isRaw && fileCount > 0 && (fileCount > 1 || frames > 1);
}
