#include "hvdicom/sortDICOMFileListByPosition.h"

#include "DicomFile.h"
#include "DicomLibrary.h"
#include "DicomNesting.h"
#include "logic/SliceOrder.h"

#include <dcmtk/dcmdata/dcdatset.h>
#include <dcmtk/dcmdata/dcdeftag.h>

#include <QFile>
#include <cmath>
#include <exception>

namespace {

template <std::size_t N>
std::optional<std::array<double, N>> numbers(DcmItem& item, DcmTagKey const& tag)
{
    std::array<double, N> values = {};
    for (std::size_t i = 0; i < N; ++i) {
        OFString text;
        if (item.findAndGetOFString(tag, text, static_cast<unsigned long>(i)).bad()) return std::nullopt;
        bool good = false;
        values[i] = QByteArray(text.c_str()).trimmed().toDouble(&good);
        if (!good || !std::isfinite(values[i])) return std::nullopt;
    }
    return values;
}

hvdicom::SlicePlace placeOf(QString const& path)
{
    hvdicom::SlicePlace place;
    QByteArray const name = QFile::encodeName(path);
    if (!hvdicom::isReadableFile(name.constData()) || hvdicom::isNestedTooDeep(name.constData()))
        return place;
    try {
        DcmFileFormat file;
        if (file.loadFileUntilTag(OFFilename(name.constData()), EXS_Unknown, EGL_noChange, DCM_MaxReadLength,
                                  ERM_autoDetect, DcmTagKey(0x0020, 0x0038))
                .bad())
            return place;
        place.position = numbers<3>(*file.getDataset(), DCM_ImagePositionPatient);
        if (auto const six = numbers<6>(*file.getDataset(), DCM_ImageOrientationPatient))
            place.orientation = {{{(*six)[0], (*six)[1], (*six)[2]}, {(*six)[3], (*six)[4], (*six)[5]}}};
    } catch (std::exception const&) {
        // As a file without a position.
    }
    return place;
}

}  // namespace

QStringList sortDICOMFileListByPosition(QStringList files, QString folder)
{
    hvdicom::startDicom();
    std::vector<hvdicom::SlicePlace> places;
    places.reserve(static_cast<std::size_t>(files.size()));
    for (QString const& file : files)
        places.push_back(placeOf(folder + file));
    QStringList sorted;
    for (std::size_t const index : hvdicom::slicesByPosition(places))
        sorted << files[static_cast<int>(index)];
    return sorted;
}
