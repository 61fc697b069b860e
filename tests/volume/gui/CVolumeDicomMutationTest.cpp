#include "support/dicom/DicomMutations.h"
#include "volume/support/DicomVolume.h"

#include <QElapsedTimer>
#include <QFile>

namespace {

// Damaged files of every encoding through the reader itself, as its first and as its second file.
// VIZ_MUTATIONS: how many of each kind of file (10).
class DicomMutations : public viz_test::DicomVolume, public testing::WithParamInterface<int>
{
protected:
    QString writeBytes(const char* name, const QByteArray& bytes)
    {
        const QString path = folder.filePath(QString::fromUtf8(name));
        QFile::remove(path);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return path;
    }
};

}  // namespace

TEST_P(DicomMutations, DoNoHarm)
{
    bool given = false;
    const int wanted = qEnvironmentVariableIntValue("VIZ_MUTATIONS", &given);
    QByteArray whole = mutationSeed(GetParam());
    // every second kind of another maker, which is read in another way
    if (GetParam() % 2 == 0) whole.replace("Halvane 1", "Another 1");
    const QString good = writeBytes("good.dcm", whole);
    std::mt19937 random(static_cast<unsigned>(1000 + GetParam()));
    for (int i = 0; i < (given ? wanted : 10); ++i) {
        const QString bad = writeBytes("bad.dcm", mutatedDicom(whole, random));
        QElapsedTimer clock;
        clock.start();
        for (const QStringList& files : {QStringList{bad}, QStringList{good, bad}, QStringList{bad, good}}) {
            CVolumeDicom one(nullptr);
            one.loadVolumeFiles(files, viz_test::allFrames, viz_test::allFrames, false);
        }
        EXPECT_LT(clock.elapsed(), 10000) << i;
    }
}

INSTANTIATE_TEST_SUITE_P(OfEveryKind, DicomMutations, testing::Range(0, mutationSeeds));
