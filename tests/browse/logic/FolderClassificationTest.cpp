#include "browse/logic/FolderClassification.h"

#include <gtest/gtest.h>

namespace {

/// Answers as a test has set them, and remembers the questions.
class ScriptedFile : public FirstFile
{
public:
    bool picture = false;
    bool importable = false;
    bool decodable = false;
    bool dicom = false;
    QStringList beside;
    std::optional<DicomFacts> facts = DicomFacts();
    std::optional<DicomImageFacts> image = DicomImageFacts();
    TiffFacts tiff;
    QStringList asked;

    bool isPicture() override { return answer("picture", picture); }
    bool isImportable() override { return answer("importable", importable); }
    bool isDecodableDicom() override { return answer("decodable", decodable); }
    bool isDicom() override { return answer("dicom", dicom); }
    bool isBeside(const QString& name) override { return beside.contains(name); }
    std::optional<DicomFacts> readDicom() override { return answer("read dicom", facts); }
    std::optional<DicomImageFacts> readDicomImage() override { return answer("read image", image); }
    TiffFacts readTiff() override { return answer("read tiff", tiff); }

private:
    template <class T>
    T answer(const char* question, const T& value)
    {
        asked << question;
        return value;
    }
};

ScriptedFile decodableImage()
{
    ScriptedFile file;
    file.decodable = true;
    file.image->photometricInterpretation = 3;
    file.image->frameCount = 7;
    file.image->actualDepth = 12;
    file.image->width = 512;
    file.image->height = 256;
    file.image->modality = "CT";
    file.image->pixelSpacing = "0.1\\0.2";
    file.image->spacingBetweenSlices = "1.5";
    file.image->sliceThickness = "2.5";
    return file;
}

ScriptedFile dicomWithoutPixels()
{
    ScriptedFile file;
    file.dicom = true;
    file.facts->photometricInterpretation = "MONOCHROME2";
    file.facts->totalFrames = 9;
    file.facts->depth = 16;
    file.facts->modality = "MR";
    file.facts->columns = 64;
    file.facts->rows = 32;
    file.facts->sliceSpacing = 1.25;
    file.facts->sliceThickness = 3;
    return file;
}

ScriptedFile picture()
{
    ScriptedFile file;
    file.picture = true;
    file.tiff = {5, 2, 130, 140};
    return file;
}

}  // namespace

TEST(FolderClassification, aFileOfNoKindGivesNothing)
{
    ScriptedFile file;
    EXPECT_FALSE(classifyFolder(file, {3, "1.dcm"}));
    EXPECT_EQ(file.asked, (QStringList{"picture", "importable", "decodable", "dicom"}));
}

TEST(FolderClassification, aPictureIsNeverAskedForDicom)
{
    ScriptedFile file = picture();
    file.decodable = file.dicom = file.importable = true;
    const auto found = classifyFolder(file, {3, "a.dcm"});
    ASSERT_TRUE(found);
    EXPECT_TRUE(found->isTiff);
    EXPECT_EQ(file.asked, (QStringList{"picture", "read tiff"}));
}

TEST(FolderClassification, eachOfTheThreeTestsMakesAFileDicom)
{
    ScriptedFile decodable = decodableImage();
    EXPECT_TRUE(classifyFolder(decodable, {1, "a.dcm"}));

    ScriptedFile dicom = dicomWithoutPixels();
    EXPECT_TRUE(classifyFolder(dicom, {1, "a.dcm"}));

    ScriptedFile importable = dicomWithoutPixels();
    importable.dicom = false;
    importable.importable = true;
    EXPECT_TRUE(classifyFolder(importable, {1, "a.dcm"}));
}

TEST(FolderClassification, importableAndDecodableIsReadAsAnImage)
{
    ScriptedFile file = decodableImage();
    file.importable = true;
    ASSERT_TRUE(classifyFolder(file, {1, "a.dcm"}));
    EXPECT_TRUE(file.asked.contains("read image"));
    EXPECT_FALSE(file.asked.contains("read dicom"));
}

// --- DICOM that cannot be decoded ---

TEST(DicomFolder, showsSpacingOfSlicesAsPixelSpacingAndThicknessAsSliceSpacing)
{
    ScriptedFile file = dicomWithoutPixels();
    const auto found = classifyFolder(file, {1, "a.dcm"});
    ASSERT_TRUE(found);
    EXPECT_FALSE(found->isTiff);
    EXPECT_EQ(found->dataType, "16-bit");
    EXPECT_EQ(found->modality, "MR");
    EXPECT_EQ(found->dimension, "64 x 32");
    EXPECT_EQ(found->pixelSpacing, "1.25");
    EXPECT_EQ(found->sliceSpacing, "3");
    EXPECT_FALSE(found->sortByPosition);
}

TEST(DicomFolder, countsFilesOrTheFramesOfTheOnlyFile)
{
    ScriptedFile file = dicomWithoutPixels();
    EXPECT_EQ(classifyFolder(file, {1, "a.dcm"})->slices, "9");
    EXPECT_EQ(classifyFolder(file, {2, "a.dcm"})->slices, "2");
}

TEST(DicomFolder, isDroppedUnlessMonochrome)
{
    ScriptedFile file = dicomWithoutPixels();
    for (const char* const text : {"monochrome1", "MONOCHROME2", "x Monochrome y"}) {
        file.facts->photometricInterpretation = text;
        EXPECT_TRUE(classifyFolder(file, {1, "a.dcm"})) << text;
    }
    for (const char* const text : {"", "RGB", "PALETTE COLOR", "MONO"}) {
        file.facts->photometricInterpretation = text;
        EXPECT_FALSE(classifyFolder(file, {1, "a.dcm"})) << text;
    }
}

TEST(DicomFolder, isDroppedWhenItCannotBeRead)
{
    ScriptedFile file = dicomWithoutPixels();
    file.facts.reset();
    EXPECT_FALSE(classifyFolder(file, {1, "a.dcm"}));
}

// --- DICOM with pixels ---

TEST(DicomImageFolder, showsWhatItsFirstFileTells)
{
    ScriptedFile file = decodableImage();
    const auto found = classifyFolder(file, {40, "a.dcm"});
    ASSERT_TRUE(found);
    EXPECT_FALSE(found->isTiff);
    EXPECT_EQ(found->dataType, "12-bit");
    EXPECT_EQ(found->modality, "CT");
    EXPECT_EQ(found->dimension, "512 x 256");
    EXPECT_EQ(found->pixelSpacing, "0.1\\0.2");
    EXPECT_EQ(found->sliceSpacing, "1.5");
}

TEST(DicomImageFolder, countsFilesOrTheFramesOfTheOnlyFile)
{
    ScriptedFile file = decodableImage();
    EXPECT_EQ(classifyFolder(file, {1, "a.dcm"})->slices, "7");
    EXPECT_EQ(classifyFolder(file, {2, "a.dcm"})->slices, "2");
}

TEST(DicomImageFolder, sliceSpacingIsTheDistanceElseTheThicknessElseThePixelSpacing)
{
    ScriptedFile file = decodableImage();
    file.image->spacingBetweenSlices.clear();
    EXPECT_EQ(classifyFolder(file, {1, "a.dcm"})->sliceSpacing, "2.5");
    file.image->sliceThickness.clear();
    EXPECT_EQ(classifyFolder(file, {1, "a.dcm"})->sliceSpacing, "0.1\\0.2");
}

TEST(DicomImageFolder, isDroppedUnlessMonochrome)
{
    ScriptedFile file = decodableImage();
    for (int photometric = 0; photometric < 8; ++photometric) {
        file.image->photometricInterpretation = photometric;
        EXPECT_EQ(classifyFolder(file, {1, "a.dcm"}).has_value(), photometric == 2 || photometric == 3)
            << photometric;
    }
}

TEST(DicomImageFolder, isDroppedWhenItCannotBeRead)
{
    ScriptedFile file = decodableImage();
    file.image.reset();
    EXPECT_FALSE(classifyFolder(file, {1, "a.dcm"}));
    EXPECT_FALSE(file.asked.contains("read dicom"));
}

// --- the maker's rule ---

TEST(SiemensRule, sortsNumberedFilesOfThatMaker)
{
    ScriptedFile file = decodableImage();
    EXPECT_FALSE(classifyFolder(file, {3, "1.dcm"})->sortByPosition);
    file.image->manufacturer = "Siemens Healthcare";
    EXPECT_TRUE(classifyFolder(file, {3, "1.dcm"})->sortByPosition);
    EXPECT_FALSE(classifyFolder(file, {3, "IM1.dcm"})->sortByPosition);
}

TEST(SiemensRule, readsTheNameAsItIsWritten)
{
    ScriptedFile file = decodableImage();
    file.image->manufacturer = "SIEMENS";
    EXPECT_FALSE(classifyFolder(file, {3, "1.dcm"})->sortByPosition);
}

TEST(SiemensRule, countsAnyContributingMaker)
{
    ScriptedFile file = decodableImage();
    file.image->manufacturer = "Other";
    file.image->contributingManufacturers = QStringList{"", "SIEMENS", "by Siemens"};
    EXPECT_TRUE(classifyFolder(file, {3, "1.dcm"})->sortByPosition);
    file.image->contributingManufacturers = QStringList{"", "SIEMENS"};
    EXPECT_FALSE(classifyFolder(file, {3, "1.dcm"})->sortByPosition);
}

TEST(SiemensRule, countsOnlyForDecodableDicom)
{
    ScriptedFile file = dicomWithoutPixels();
    file.image->manufacturer = "Siemens";
    EXPECT_FALSE(classifyFolder(file, {3, "1.dcm"})->sortByPosition);
}

TEST(SiemensRule, aNumberedNameIsDigitsApartFromDotsAndTheEnding)
{
    for (const char* const name : {"1.dcm", "0001.dcm", "1.2.3.dcm", "dcm7.dcm", "12.3.dcmdcm", "5"})
        EXPECT_TRUE(isNumberedName(name)) << name;
    for (const char* const name :
         {"a1.dcm", "1.DCM", "1.dc3", "1.tif", "1 .dcm", "-1.dcm", "dcm.dcm", ".dcm", ""})
        EXPECT_FALSE(isNumberedName(name)) << name;
}

// --- TIFF ---

TEST(TiffFolder, showsWhatItsFirstFileTells)
{
    ScriptedFile file = picture();
    const auto found = classifyFolder(file, {4, "a.tif"});
    ASSERT_TRUE(found);
    EXPECT_TRUE(found->isTiff);
    EXPECT_EQ(found->slices, "4");
    EXPECT_EQ(found->dataType, "16-bit");
    EXPECT_EQ(found->dimension, "130 x 140");
    EXPECT_EQ(found->modality, "");
    EXPECT_EQ(found->pixelSpacing, "");
    EXPECT_EQ(found->sliceSpacing, "");
}

TEST(TiffFolder, countsFilesOrThePicturesOfTheOnlyFile)
{
    ScriptedFile file = picture();
    EXPECT_EQ(classifyFolder(file, {1, "a.tif"})->slices, "5");
    EXPECT_EQ(classifyFolder(file, {2, "a.tif"})->slices, "2");
}

TEST(TiffFolder, besideTheFilesOfAnOpticalSequenceIsNoData)
{
    for (const char* const marker : {"SequenceInfo.txt", "ClickInfo.txt"}) {
        ScriptedFile file = picture();
        file.beside = QStringList{marker};
        EXPECT_FALSE(classifyFolder(file, {4, "a.tif"})) << marker;
        EXPECT_EQ(file.asked, QStringList{"picture"}) << marker;
    }
    ScriptedFile file = picture();
    file.beside = QStringList{"sequenceinfo.txt", "Info.txt"};
    EXPECT_TRUE(classifyFolder(file, {4, "a.tif"}));
}

TEST(TiffFolder, dicomBesideTheFilesOfASequenceIsData)
{
    ScriptedFile file = decodableImage();
    file.beside = QStringList{"SequenceInfo.txt", "ClickInfo.txt"};
    EXPECT_TRUE(classifyFolder(file, {4, "a.dcm"}));
}
