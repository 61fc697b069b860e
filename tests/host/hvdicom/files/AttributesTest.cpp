#include "DicomFiles.h"
#include "hvdicom/CDicomReader.h"
#include "hvdicom/CHVDcmImage.h"

#include <dcmtk/config/osconfig.h>

#include <dcmtk/dcmdata/dcdeftag.h>
#include <dcmtk/dcmdata/dcfilefo.h>
#include <dcmtk/dcmdata/dcsequen.h>

#include <fcntl.h>
#include <sys/stat.h>

// What the two readers tell of attributes without a look at the pixels; the same of a file that is plain and
// of one that is compressed.
class Attributes : public viz_test::DicomFiles
{
protected:
    // The time of the last change, moved back: a file that was just written is never remembered.
    static void age(QString const& file)
    {
        timespec const times[2] = {{1000000000, 0}, {1000000000, 0}};
        ASSERT_EQ(utimensat(AT_FDCWD, viz_test::encoded(file).constData(), times, 0), 0);
    }
};

TEST_F(Attributes, tagValuesAreTheirTexts)
{
    for (char const* const syntax : {"1.2.840.10008.1.2.1", "1.2.840.10008.1.2.5"}) {
        CHVDcmImage image;
        ASSERT_TRUE(image.LoadFromDICOMFile(write(DicomBuilder()
                                                      .transferSyntax(syntax)
                                                      .spacing(0.25, 0.5)
                                                      .set(0x0008, 0x0070, " Maker ")
                                                      .set(0x0008, 0x1030, "study"))));
        EXPECT_EQ(image.getTagValue("0008", "0070"), "Maker");
        EXPECT_EQ(image.getTagValue("0028", "0030"), "0.25\\0.5");
        EXPECT_EQ(image.getTagValue("0008", "1030"), "study");
        EXPECT_EQ(image.getTagValue("0028", "0011"), "4");
        EXPECT_EQ(image.getTagValue("0002", "0010"), syntax);
        EXPECT_EQ(image.getTagValue("0018", "1111"), "");
        EXPECT_EQ(image.getTagValue("xyz", "0070"), "");
        EXPECT_EQ(image.getTagValue("", ""), "");
        EXPECT_EQ(image.getPhotometricInterpretation(), 3);
    }
    CHVDcmImage const none;
    EXPECT_EQ(none.getTagValue("0008", "0070"), "");
    EXPECT_TRUE(none.getHeaderTagSequence(0x0018, 0xA001).isEmpty());
}

TEST_F(Attributes, photometricInterpretationIsANumberOrItsText)
{
    struct
    {
        char const* text;
        int number;
    } const kinds[] = {{"MONOCHROME1", 2}, {"MONOCHROME2", 3}, {"nonsense", 0}};
    for (auto const& kind : kinds) {
        QString const file = write(DicomBuilder().photometric(kind.text));
        CHVDcmImage image;
        image.LoadFromDICOMFile(file);
        EXPECT_EQ(image.getPhotometricInterpretation(), kind.number);
        CDicomReader reader;
        ASSERT_EQ(reader.initDicomImporter(file), 0);
        ASSERT_EQ(reader.loadEntireDicomInfo(), 0);
        EXPECT_EQ(reader.getPhotometricInterpretation(), kind.text);
    }
}

TEST_F(Attributes, theReaderTellsModalityAndThickness)
{
    CDicomReader reader;
    ASSERT_EQ(
        reader.initDicomImporter(write(DicomBuilder().set(0x0008, 0x0060, "MR").set(0x0018, 0x0050, "1.5"))),
        0);
    EXPECT_EQ(reader.getModalityName(), "");
    ASSERT_EQ(reader.loadEntireDicomInfo(), 0);
    EXPECT_EQ(reader.getModalityName(), "MR");
    EXPECT_EQ(reader.getSliceThickness(), 1.5);
}

TEST_F(Attributes, sequencesAreGivenItemByItem)
{
    QString const path = write(DicomBuilder());
    DcmFileFormat file;
    ASSERT_TRUE(file.loadFile(viz_test::encoded(path).constData()).good());
    for (char const* const maker : {"First", "by Siemens"}) {
        DcmItem* item = nullptr;
        ASSERT_TRUE(
            file.getDataset()->findOrCreateSequenceItem(DCM_ContributingEquipmentSequence, item, -2).good());
        ASSERT_TRUE(item->putAndInsertString(DCM_Manufacturer, maker).good());
    }
    ASSERT_TRUE(file.saveFile(viz_test::encoded(path).constData(), EXS_LittleEndianExplicit).good());

    CHVDcmImage image;
    ASSERT_TRUE(image.LoadFromDICOMFile(path));
    auto const items = image.getHeaderTagSequence(0x0018, 0xA001);
    ASSERT_EQ(items.size(), 2);
    EXPECT_EQ(items[0].value("0008, 0070").value, "First");
    EXPECT_EQ(items[1].value("0008, 0070").value, "by Siemens");
    EXPECT_TRUE(image.getHeaderTagSequence(0x0008, 0x0070).isEmpty());
    EXPECT_TRUE(image.getHeaderTagSequence(0x0040, 0x0100).isEmpty());
}

TEST_F(Attributes, aFileThatIsAnotherOneByNowHasNoPixels)
{
    for (bool const isGone : {false, true}) {
        QString const file = write(DicomBuilder());
        CHVDcmImage image;
        ASSERT_TRUE(image.LoadFromDICOMFile(file));
        EXPECT_EQ(image.getWidth(), 4U);
        if (isGone)
            QFile::remove(file);
        else
            write(DicomBuilder().size(7, 9));
        EXPECT_EQ(image.get_data(1), nullptr);
        EXPECT_TRUE(image.getGroupElementInfo().isEmpty());
        EXPECT_EQ(image.getWidth(), 4U);
        EXPECT_EQ(image.getTagValue("0008", "0060"), "CT");
        EXPECT_EQ(image.getTagValue("0020", "0032"), "");
    }
}

TEST_F(Attributes, aChangedFileIsReadAnew)
{
    QString const file = write(DicomBuilder().set(0x0008, 0x0060, "CT"));
    age(file);
    for (int i = 0; i < 3; ++i) {
        CHVDcmImage image;
        ASSERT_TRUE(image.LoadFromDICOMFile(file));
        EXPECT_EQ(image.getTagValue("0008", "0060"), "CT");
    }
    // As long as before and with its old time of change.
    write(DicomBuilder().set(0x0008, 0x0060, "MR"));
    age(file);
    CHVDcmImage image;
    ASSERT_TRUE(image.LoadFromDICOMFile(file));
    EXPECT_EQ(image.getTagValue("0008", "0060"), "MR");
    QFile::remove(file);
    EXPECT_FALSE(CHVDcmImage::isDICOM(viz_test::encoded(file).constData()));
}
