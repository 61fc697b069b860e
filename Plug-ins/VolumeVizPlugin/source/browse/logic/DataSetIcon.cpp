#include "DataSetIcon.h"

QString dataSetIcon(const QString& type, int fileCount)
{
    const bool isSingle = fileCount < 2;
    if (type.compare(QLatin1String("DICOM"), Qt::CaseInsensitive) == 0)
        return isSingle ? QStringLiteral(":/Resource/dicomIcon.xpm")
                        : QStringLiteral(":/Resource/dicomStackIcon.xpm");
    return isSingle ? QStringLiteral(":/Resource/tiffIcon.xpm")
                    : QStringLiteral(":/Resource/tiffStackIcon.xpm");
}
