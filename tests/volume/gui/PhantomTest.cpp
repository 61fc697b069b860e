#include "phantom/CommandLine.h"
#include "phantom/Mouse.h"
#include "volume/CVolumeDicom.h"
#include "volume/CVolumeTiff.h"
#include "volume/support/DicomVolume.h"

#include <QDir>

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <functional>

namespace {

constexpr int n = 20;  // loads at full resolution

/// The phantom's files through the readers: the animal lies in the block as it does in its RAW file, whatever
/// the way that it took.
class Phantom : public testing::Test
{
protected:
    /// Runs the program; gives its files by name.
    QStringList written(std::vector<std::string> arguments)
    {
        const QString path = m_folder.filePath(QStringLiteral("out%1").arg(++m_runs));
        arguments.insert(arguments.end(), {"--size=20", "--bits=16", path.toStdString()});
        std::string out;
        std::string error;
        EXPECT_EQ(phantom::runPhantom(arguments, out, error), 0) << error;
        const QDir folder(path);
        if (!folder.exists()) return {path};
        QStringList files;
        const QStringList names = folder.entryList(QDir::Files, QDir::Name);
        for (const QString& name : names)
            files << folder.filePath(name);
        return files;
    }

    /// `placeInRaw` tells for voxel (x, y, z) which one of the RAW file is expected there.
    template <class Reader>
    void expectTheAnimalAsInRaw(
        Reader& reader,
        const std::function<std::size_t(std::size_t x, std::size_t y, std::size_t z)>& placeInRaw = rawIndex)
    {
        const auto raw = phantom::sampledFrames(phantom::Scan(phantom::mouseOnBed(), n, 1), 0, n, 16, 1);
        ASSERT_NE(reader.getVoxels(), nullptr);
        EXPECT_EQ(reader.getLoadColumns(), unsigned{n});
        EXPECT_EQ(reader.getLoadRows(), unsigned{n});
        EXPECT_EQ(reader.getFrames(), unsigned{n});
        for (int i = 0; i < 3; ++i)
            EXPECT_NEAR(reader.getExtent()[i], 80.0F, 1e-4F);
        const double low = static_cast<double>(reader.getMinValue());
        const double high = static_cast<double>(reader.getMaxValue());
        ASSERT_GT(high, low + 1000);
        for (std::size_t i = 0; i < raw.size() / 2; ++i) {
            const std::size_t place = placeInRaw(i % n, i / n % n, i / n / n);
            const double sample = raw[2 * place] | raw[2 * place + 1] << 8;
            const int voxel = static_cast<int>(std::min((sample - low) * 255.0 / (high - low) + 0.5, 255.0));
            ASSERT_LE(std::abs(reader.getVoxels()[i] - voxel), 1)
                << "x " << i % n << " y " << i / n % n << " z " << i / n / n;
        }
        EXPECT_THAT(m_host.failures(), testing::IsEmpty());
    }

    static std::size_t rawIndex(std::size_t x, std::size_t y, std::size_t z) { return x + n * (y + n * z); }

    viz_test::RecordingHost m_host;

private:
    QTemporaryDir m_folder;
    viz_test::ModalWatcher m_modal;
    int m_runs = 0;
};

class PhantomDicom : public Phantom, public testing::WithParamInterface<std::vector<std::string>>
{};

TEST_P(PhantomDicom, liesAsInRaw)
{
    CVolumeDicom reader(nullptr);
    ASSERT_TRUE(reader.loadVolumeFiles(written(GetParam()), viz_test::allFrames, viz_test::allFrames, false));
    expectTheAnimalAsInRaw(reader);
}

using Call = std::vector<std::string>;

INSTANTIATE_TEST_SUITE_P(
    Formats, PhantomDicom,
    testing::Values(Call{"--format=dicom"}, Call{"--format=dicom", "--orientation=coronal"},
                    Call{"--format=dicom", "--orientation=sagittal"}, Call{"--format=dicom", "--feet-first"},
                    Call{"--format=dicom-multiframe"},
                    Call{"--format=dicom-multiframe", "--orientation=coronal"},
                    Call{"--format=dicom-multiframe", "--orientation=sagittal"},
                    Call{"--format=dicom-native"}, Call{"--format=dicom-native-multiframe"}));

/// Slices are mirrored and their order is turned round in every plane, which puts only axial ones right. The
/// others lie half around the axis from left to right: on the head, and on the back.
TEST_F(Phantom, feetFirstCoronalAndSagittalLieTurned)
{
    const auto turned = [](std::size_t x, std::size_t y, std::size_t z) {
        return rawIndex(x, n - 1 - y, n - 1 - z);
    };
    for (const char* plane : {"--orientation=coronal", "--orientation=sagittal"}) {
        SCOPED_TRACE(plane);
        CVolumeDicom reader(nullptr);
        ASSERT_TRUE(reader.loadVolumeFiles(written({"--format=dicom", "--feet-first", plane}),
                                           viz_test::allFrames, viz_test::allFrames, false));
        expectTheAnimalAsInRaw(reader, turned);
    }
}

TEST_F(Phantom, tiffLiesAsInRaw)
{
    for (const char* format : {"--format=tiff", "--format=tiff-multipage"}) {
        CVolumeTiff reader(nullptr);
        ASSERT_TRUE(reader.loadVolumeFiles(written({format}), viz_test::allFrames, viz_test::allFrames));
        expectTheAnimalAsInRaw(reader);
    }
}

}  // namespace
