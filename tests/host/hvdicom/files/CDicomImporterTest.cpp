#include "hvapi/sequence/CDicomImporter.h"

#include "DicomFiles.h"

namespace {

DicomBuilder planarImage()
{
    return DicomBuilder()
        .implementation("Halvane 1.0")
        .set(0x0008, 0x0016, "1.2.840.10008.5.1.4.1.1.7")
        .setBytes(0x0029, 0x0010, "LO", "HALVANE PLANAR IMAGE");
}

class CDicomImporterTest : public viz_test::DicomFiles
{
protected:
    bool isPlanarImage(DicomBuilder const& builder)
    {
        CDicomImporter importer;
        EXPECT_EQ(importer.initDicomImporter(write(builder)), eStatusSuccess);
        EXPECT_TRUE(importer.isDicom(false));
        return importer.isDicom(true);
    }
};

}  // namespace

TEST_F(CDicomImporterTest, knowsThePlanarImagesOfTheWorkstation)
{
    EXPECT_TRUE(isPlanarImage(planarImage()));
    EXPECT_TRUE(isPlanarImage(planarImage().implementation("HVS3D")));
}

TEST_F(CDicomImporterTest, takesNoOtherFileForOne)
{
    EXPECT_FALSE(isPlanarImage(DicomBuilder()));
    EXPECT_FALSE(isPlanarImage(DicomBuilder().implementation("Halvane 1.0")));  // its own CT series
    EXPECT_FALSE(isPlanarImage(planarImage().set(0x0008, 0x0016, "1.2.840.10008.5.1.4.1.1.2")));
    EXPECT_FALSE(isPlanarImage(planarImage().implementation("Other 1.0")));
    EXPECT_FALSE(isPlanarImage(planarImage().size(4, 3, 2)));
    EXPECT_FALSE(isPlanarImage(planarImage().remove(0x0029, 0x0010)));
    EXPECT_FALSE(isPlanarImage(planarImage().setBytes(0x0029, 0x0010, "LO", "SOMEBODY ELSE")));
}

TEST_F(CDicomImporterTest, withoutAFileIsNone)
{
    CDicomImporter importer;
    EXPECT_FALSE(importer.isDicom(false));
    EXPECT_FALSE(importer.isDicom(true));
    EXPECT_NE(importer.initDicomImporter(path("none.dcm")), eStatusSuccess);
    EXPECT_FALSE(importer.isDicom(false));
    EXPECT_TRUE(CDicomImporter::isDicom(viz_test::encoded(write(DicomBuilder())).constData()));
}
