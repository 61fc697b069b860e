#include "DicomFiles.h"
#include "hvapi/sequence/CDicomImporter.h"
#include "hvdicom/CHVDcmImage.h"
#include "hvdicom/sortDICOMFileListByPosition.h"
#include "hvimage/CILImage.h"
#include "support/dicom/DicomMutations.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <algorithm>
#include <random>

namespace {

// Damaged files of every encoding. VIZ_MUTATIONS: how many of each kind of file (150).
class MutatedFiles : public viz_test::DicomFiles, public testing::WithParamInterface<int>
{
protected:
    // Everything that a load or a browse asks of a file.
    void read(QString const& file);
};

void MutatedFiles::read(QString const& file)
{
    QByteArray const name = viz_test::encoded(file);
    CDicomReader::isDicom(name.constData());
    CHVDcmImage::isDICOM(name.constData());
    CDicomImporter importer;
    if (importer.initDicomImporter(file) == eStatusSuccess) importer.isDicom(true);
    CILImage picture;
    CDicomReader reader;
    if (reader.initDicomImporter(file) == eStatusSuccess && reader.loadEntireDicomInfo() == eStatusSuccess) {
        unsigned long const frames = std::min(reader.getTotalFrames(), 3UL);
        for (unsigned long frame = 0; frame < frames; ++frame)
            if (reader.readPixelInfo(&picture, frame) == eStatusSuccess) {
                ASSERT_EQ(static_cast<unsigned long>(picture.getWidth()), reader.getNumberofColumns());
                ASSERT_EQ(static_cast<unsigned long>(picture.getHeight()), reader.getNumberofRows());
            }
        reader.getGroupElementInfo();
    }
    CHVDcmImage image;
    if (image.LoadFromDICOMFile(file)) {
        ASSERT_GT(image.getFrameCount(), 0U);
        image.get_data(1);
        image.getDicomImage(image.getFrameCount(), picture);
    }
    image.getGroupElementInfo();
    sortDICOMFileListByPosition({QFileInfo(file).fileName()}, QFileInfo(file).absolutePath() + '/');
}

}  // namespace

TEST_P(MutatedFiles, doNoHarm)
{
    bool given = false;
    int const wanted = qEnvironmentVariableIntValue("VIZ_MUTATIONS", &given);
    QByteArray const whole = mutationSeed(GetParam());
    ASSERT_GT(whole.size(), 500);
    std::mt19937 random(static_cast<unsigned>(GetParam()));
    for (int i = 0; i < (given ? wanted : 150); ++i) {
        QString const file = writeBytes(mutatedDicom(whole, random));
        QElapsedTimer clock;
        clock.start();
        ASSERT_NO_FATAL_FAILURE(read(file)) << i;
        EXPECT_LT(clock.elapsed(), 5000) << i;
    }
}

INSTANTIATE_TEST_SUITE_P(ofEveryKind, MutatedFiles, testing::Range(0, mutationSeeds));
