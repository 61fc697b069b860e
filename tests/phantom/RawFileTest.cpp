#include "phantom/RawFile.h"
#include "phantom/Mouse.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include <sys/resource.h>

using namespace phantom;
namespace fs = std::filesystem;

namespace {

class RawFile : public testing::Test
{
protected:
    RawFile()
    {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        m_folder = fs::temp_directory_path() /
                   (std::string("phantom-") + test->name() + "-" + std::to_string(std::random_device()()));
        fs::create_directories(m_folder);
    }
    ~RawFile() override { fs::remove_all(m_folder); }

    std::string path(const std::string& name) const { return (m_folder / name).string(); }
    std::vector<std::string> files() const
    {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(m_folder))
            names.push_back(entry.path().filename().string());
        return names;
    }
    static std::string contents(const std::string& file)
    {
        std::ifstream in(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    fs::path m_folder;
    Scan m_scan{mouseOnBed(), 16, 1};
};

}  // namespace

TEST_F(RawFile, headerSaysEverythingThatAReaderWouldAsk)
{
    EXPECT_EQ(rawHeader(128, 8, 0.625), "VolumeSize 128 128 128\n"
                                        "VoxelSize 8\n"
                                        "VolumeScale 0.625 0.625 0.625\n"
                                        "Field Density Format u\n"
                                        "##\f\n");
    EXPECT_NE(rawHeader(20, 16, 1).find("VoxelSize 16\nVolumeScale 1 1 1\n"), std::string::npos);
    EXPECT_NE(rawHeader(20, 8, 0.0001).find("VolumeScale 0.0001 0.0001 0.0001\n"), std::string::npos);
}

TEST_F(RawFile, isHeaderAndVoxelsAndNothingElse)
{
    for (const int bits : {8, 16}) {
        ASSERT_EQ(writeRawFile(path("a.vox"), m_scan, bits, 5, 2), "");
        const std::string text = contents(path("a.vox")), header = rawHeader(16, bits, 5);
        ASSERT_EQ(text.size(), header.size() + 16 * 16 * 16 * (bits / 8));
        EXPECT_EQ(text.substr(0, header.size()), header);
        const auto voxels = sampledFrames(m_scan, 0, 16, bits, 1);
        EXPECT_TRUE(std::equal(voxels.begin(), voxels.end(), text.begin() + header.size(),
                               [](unsigned char a, char b) { return a == static_cast<unsigned char>(b); }));
    }
    EXPECT_THAT(files(), testing::ElementsAre("a.vox"));
}

TEST_F(RawFile, voxelsAreNeverTakenForMoreHeader)
{
    for (const int bits : {8, 16}) {
        const auto voxels = sampledFrames(m_scan, 0, 1, bits, 1);
        EXPECT_NE(std::string(voxels.begin(), voxels.begin() + 3), "##\n");
    }
}

TEST_F(RawFile, replacesAnOlderFile)
{
    std::ofstream(path("a.vox")) << "old";
    ASSERT_EQ(writeRawFile(path("a.vox"), m_scan, 8, 5, 2), "");
    EXPECT_EQ(contents(path("a.vox")).substr(0, 10), "VolumeSize");
}

TEST_F(RawFile, aFolderThatIsNotThereIsNamed)
{
    const std::string error = writeRawFile(path("none/a.vox"), m_scan, 8, 5, 2);
    EXPECT_THAT(error, testing::StartsWith("cannot write \"" + path("none/a.vox") + "\": "));
    EXPECT_THAT(files(), testing::IsEmpty());
}

TEST_F(RawFile, aFolderOfThatNameStaysAndNothingIsLeftBeside)
{
    fs::create_directories(path("a.vox"));
    EXPECT_THAT(writeRawFile(path("a.vox"), m_scan, 8, 5, 2), testing::StartsWith("cannot write"));
    EXPECT_THAT(files(), testing::ElementsAre("a.vox"));
    EXPECT_TRUE(fs::is_directory(path("a.vox")));
}

TEST_F(RawFile, aDiskThatFillsUpLeavesTheOlderFile)
{
    std::ofstream(path("a.vox")) << "old";
    const auto writeWithLittleRoom = [this] {
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit room{};
        room.rlim_cur = room.rlim_max = 1000;
        setrlimit(RLIMIT_FSIZE, &room);
        std::exit(writeRawFile(path("a.vox"), m_scan, 8, 5, 1).empty() ? 0 : 7);
    };
    EXPECT_EXIT(writeWithLittleRoom(), testing::ExitedWithCode(7), "");
    EXPECT_EQ(contents(path("a.vox")), "old");
    EXPECT_THAT(files(), testing::ElementsAre("a.vox"));
}
