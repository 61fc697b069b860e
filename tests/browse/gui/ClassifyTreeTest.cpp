#include "Browse.h"

namespace viz_test {

class ClassifyTree : public BrowseTree
{};

TEST_F(ClassifyTree, aSeriesIsOneDataSetWithWhatItsFirstFileTells)
{
    for (const char* const name : {"1.dcm", "2.dcm", "3.dcm"})
        dicom(QString("scan/") + name,
              DicomBuilder().size(6, 5).bits(16, 12).spacing(0.25, 0.5).set(0x0018, 0x0050, "2"));
    browseTree();

    ASSERT_EQ(receiver.foundFolders(), QStringList{folder("scan")});
    const CVolBrowserInfo& info = *receiver.of(folder("scan"));
    EXPECT_EQ(info.m_type, "DICOM");
    EXPECT_EQ(info.m_name, "scan");
    EXPECT_EQ(info.m_parentFolder, folder());
    EXPECT_EQ(info.m_slices, "3");
    EXPECT_EQ(info.m_fileCount, 3);
    EXPECT_EQ(info.m_dataType, "12-bit");
    EXPECT_EQ(info.m_modality, "CT");
    EXPECT_EQ(info.m_dimension, "6 x 5");
    EXPECT_EQ(info.m_pixelSpacing, "0.25\\0.5");
    QStringList files = info.m_files;
    files.sort();
    EXPECT_EQ(files, (QStringList{"1.dcm", "2.dcm", "3.dcm"}));
    EXPECT_FALSE(info.m_isCtDataFolder);
}

TEST_F(ClassifyTree, oneMultiFrameFileShowsItsFramesAndOneFile)
{
    dicom("frames/a.dcm", DicomBuilder().size(4, 3, 9));
    browseTree();
    ASSERT_TRUE(receiver.of(folder("frames")));
    EXPECT_EQ(receiver.of(folder("frames"))->m_slices, "9");
    EXPECT_EQ(receiver.of(folder("frames"))->m_fileCount, 1);
}

TEST_F(ClassifyTree, tiffFilesShowSizeAndTypeOfTheirFirstPicture)
{
    tiff("one/a.tif", 4, 16);
    tiff("many/b.tif");
    tiff("many/c.TIFF");
    tiff("many/graffitiff");
    browseTree();

    ASSERT_TRUE(receiver.of(folder("one")));
    EXPECT_EQ(receiver.of(folder("one"))->m_type, "TIFF");
    EXPECT_EQ(receiver.of(folder("one"))->m_slices, "4");
    EXPECT_EQ(receiver.of(folder("one"))->m_dataType, "16-bit");
    EXPECT_EQ(receiver.of(folder("one"))->m_dimension, "5 x 3");
    EXPECT_EQ(receiver.of(folder("one"))->m_modality, "");
    ASSERT_TRUE(receiver.of(folder("many")));
    EXPECT_EQ(receiver.of(folder("many"))->m_slices, "3");
    EXPECT_EQ(receiver.of(folder("many"))->m_fileCount, 3);
    EXPECT_EQ(receiver.of(folder("many"))->m_dataType, "8-bit");
}

}  // namespace viz_test
