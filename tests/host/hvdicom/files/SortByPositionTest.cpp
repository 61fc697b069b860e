#include "hvdicom/sortDICOMFileListByPosition.h"

#include "DicomFiles.h"

#include <QFileInfo>

namespace {

class SortByPosition : public viz_test::DicomFiles
{
protected:
    QString folder() const { return QFileInfo(path()).absolutePath() + '/'; }
};

}  // namespace

TEST_F(SortByPosition, putsSlicesInTheOrderInWhichTheyLie)
{
    write(DicomBuilder().position(0, 0, 7), "1.dcm");
    write(DicomBuilder().position(0, 0, -3), "2.dcm");
    write(DicomBuilder().position(0, 0, 2.5), "3.dcm");
    EXPECT_EQ(sortDICOMFileListByPosition({"1.dcm", "2.dcm", "3.dcm"}, folder()),
              QStringList({"2.dcm", "3.dcm", "1.dcm"}));
}

TEST_F(SortByPosition, followsTheNormalOfTheSlices)
{
    DicomBuilder sagittal;
    sagittal.orientation({0, 1, 0}, {0, 0, -1});  // normal (-1, 0, 0)
    write(DicomBuilder(sagittal).position(1, 0, 50), "1.dcm");
    write(DicomBuilder(sagittal).position(2, 0, 10), "2.dcm");
    EXPECT_EQ(sortDICOMFileListByPosition({"1.dcm", "2.dcm"}, folder()), QStringList({"2.dcm", "1.dcm"}));
}

TEST_F(SortByPosition, leavesWhatHasNoPositionForTheEnd)
{
    writeBytes("no DICOM", "0.dcm");
    write(DicomBuilder().remove(0x0020, 0x0032), "1.dcm");
    write(DicomBuilder().position(0, 0, 7), "2.dcm");
    write(DicomBuilder().position(0, 0, 6), "3.dcm");
    EXPECT_EQ(sortDICOMFileListByPosition({"0.dcm", "none.dcm", "1.dcm", "2.dcm", "3.dcm"}, folder()),
              QStringList({"3.dcm", "2.dcm", "0.dcm", "none.dcm", "1.dcm"}));
    EXPECT_EQ(sortDICOMFileListByPosition({}, folder()), QStringList());
}
