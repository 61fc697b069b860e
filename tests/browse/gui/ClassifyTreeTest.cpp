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

TEST_F(ClassifyTree, theFirstFileDecidesForAllThatMatch)
{
    for (const char* const name : {"a.dcm", "b.tif", "c.dc3"})
        dicom(QString("mixed/") + name);
    const QStringList files = listedFiles("mixed");
    ASSERT_EQ(files.size(), 3);
    tiff("mixed/" + files.first(), 5);
    browseTree();

    const CVolBrowserInfo* const info = receiver.of(folder("mixed"));
    ASSERT_TRUE(info);
    EXPECT_EQ(info->m_type, "TIFF");
    EXPECT_EQ(info->m_slices, "3");
    EXPECT_EQ(info->m_files, files);
}

TEST_F(ClassifyTree, aFirstFileOfNoKindDropsTheFolder)
{
    for (const char* const name : {"a.dcm", "b.tif", "c.dc3"})
        dicom(QString("mixed/") + name);
    write("mixed/" + listedFiles("mixed").first(), "neither of the two");
    browseTree();
    EXPECT_TRUE(receiver.found.empty());
}

TEST_F(ClassifyTree, dicomIsDicomWhateverItsNameSays)
{
    dicom("scan/slice.tif");
    browseTree();
    ASSERT_TRUE(receiver.of(folder("scan")));
    EXPECT_EQ(receiver.of(folder("scan"))->m_type, "DICOM");
}

TEST_F(ClassifyTree, dicomWhosePixelsCannotBeDecodedShowsItsSliceDistances)
{
    // No number of rows: pixels cannot be decoded, attributes are there.
    dicom("scan/a.dcm", DicomBuilder()
                            .size(6, 5, 4)
                            .bits(16, 12)
                            .remove(0x0028, 0x0010)
                            .set(0x0018, 0x0088, "1.25")
                            .set(0x0018, 0x0050, "3")
                            .set(0x0008, 0x0060, "MR"));
    browseTree();
    const CVolBrowserInfo* const info = receiver.of(folder("scan"));
    ASSERT_TRUE(info);
    EXPECT_EQ(info->m_slices, "4");
    EXPECT_EQ(info->m_dataType, "12-bit");
    EXPECT_EQ(info->m_modality, "MR");
    EXPECT_EQ(info->m_dimension, "6 x 0");
    EXPECT_EQ(info->m_pixelSpacing, "1.25");
    EXPECT_EQ(info->m_sliceSpacing, "3");
}

TEST_F(ClassifyTree, colourAndDocumentsAreNoVolumes)
{
    dicom("colour/a.dcm", DicomBuilder().bits(8, 8).photometric("RGB", 3));
    dicom("plan/a.dcm", DicomBuilder().withoutPixels().remove(0x0028, 0x0004));
    browseTree();
    EXPECT_TRUE(receiver.found.empty());
}

TEST_F(ClassifyTree, missingSpacingsFallBackAsTheRulesSay)
{
    dicom("thickness/a.dcm", DicomBuilder().spacing(1, 2).remove(0x0018, 0x0088).set(0x0018, 0x0050, "7"));
    dicom("neither/a.dcm", DicomBuilder().spacing(1, 2).remove(0x0018, 0x0088).remove(0x0018, 0x0050));
    dicom("nothing/a.dcm",
          DicomBuilder().remove(0x0028, 0x0030).remove(0x0018, 0x0088).remove(0x0018, 0x0050));
    browseTree();
    ASSERT_EQ(receiver.found.size(), 3U);
    EXPECT_EQ(receiver.of(folder("thickness"))->m_sliceSpacing, "7");
    EXPECT_EQ(receiver.of(folder("neither"))->m_sliceSpacing, receiver.of(folder("neither"))->m_pixelSpacing);
    EXPECT_EQ(receiver.of(folder("neither"))->m_sliceSpacing, "1\\2");
    EXPECT_EQ(receiver.of(folder("nothing"))->m_sliceSpacing, "");
}

TEST_F(ClassifyTree, aTiffFolderOfAnOpticalSequenceIsNotReportedButEntered)
{
    for (const char* const marker : {"SequenceInfo.txt", "ClickInfo.txt"}) {
        tiff(QString("%1/luminescent.tif").arg(marker[0]));
        write(QString("%1/%2").arg(marker[0]).arg(marker), "x");
        tiff(QString("%1/below/a.tif").arg(marker[0]));
    }
    browseTree();
    EXPECT_EQ(receiver.foundFolders(), (QStringList{folder("C/below"), folder("S/below")}));
}

TEST_F(ClassifyTree, aFolderOfThatNameIsNoMark)
{
    tiff("scan/a.tif");
    folder("scan/ClickInfo.txt");
    browseTree();
    EXPECT_EQ(receiver.foundFolders(), QStringList{folder("scan")});
}

TEST_F(ClassifyTree, ctDataInsideASequenceIsShownUnderItsName)
{
    for (const char* const name : {"one/CT Data", "two/ct data", "three/CT Data 2", "four/CT Data"})
        dicom(QString(name) + "/a.dcm");
    for (const char* const sequence : {"one", "two", "three"})
        write(QString(sequence) + "/SequenceInfo.txt", "x");
    browseTree();

    ASSERT_EQ(receiver.found.size(), 4U);
    for (const char* const sequence : {"one/CT Data", "two/ct data"}) {
        const CVolBrowserInfo* const info = receiver.of(folder(sequence));
        ASSERT_TRUE(info);
        EXPECT_TRUE(info->m_isCtDataFolder);
        EXPECT_EQ(info->m_name, QString(sequence).left(3));
        EXPECT_EQ(info->m_parentFolder, folder(QString(sequence).left(3)));
    }
    EXPECT_FALSE(receiver.of(folder("three/CT Data 2"))->m_isCtDataFolder);
    EXPECT_EQ(receiver.of(folder("three/CT Data 2"))->m_name, "CT Data 2");
    EXPECT_FALSE(receiver.of(folder("four/CT Data"))->m_isCtDataFolder);
    EXPECT_EQ(receiver.of(folder("four/CT Data"))->m_name, "CT Data");
}

// --- order of the files ---

TEST_F(ClassifyTree, numberedSiemensFilesComeInTheOrderOfTheirSlices)
{
    const struct
    {
        const char* name;
        double z;
    } slices[] = {{"1.dcm", 30}, {"2.dcm", 10}, {"3.dcm", 40}, {"4.dcm", 20}};
    for (const auto& slice : slices)
        dicom(QString("scan/") + slice.name,
              DicomBuilder().position(0, 0, slice.z).set(0x0008, 0x0070, "Siemens Healthcare"));
    browseTree();
    ASSERT_TRUE(receiver.of(folder("scan")));
    EXPECT_EQ(receiver.of(folder("scan"))->m_files, (QStringList{"2.dcm", "4.dcm", "1.dcm", "3.dcm"}));
}

TEST_F(ClassifyTree, otherFilesStandByName)
{
    for (int i = 0; i < 12; ++i) {
        dicom(QString("maker/%1.dcm").arg(i),
              DicomBuilder().position(0, 0, 100 - i).set(0x0008, 0x0070, "SIEMENS"));
        dicom(QString("named/IM%1.dcm").arg(i),
              DicomBuilder().position(0, 0, 100 - i).set(0x0008, 0x0070, "Siemens"));
    }
    browseTree();
    ASSERT_EQ(receiver.found.size(), 2U);
    EXPECT_EQ(receiver.of(folder("maker"))->m_files, listedFiles("maker"));
    EXPECT_EQ(receiver.of(folder("named"))->m_files, listedFiles("named"));
}

}  // namespace viz_test
