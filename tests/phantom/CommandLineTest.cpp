#include "phantom/CommandLine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <random>

using namespace phantom;
using testing::HasSubstr;

TEST(CommandLine, defaultsMakeALifeSizeMouseOf128Cubed)
{
    const Request r = parseCommandLine({"a.vox"});
    EXPECT_EQ(r.error, "");
    EXPECT_EQ(r.path, "a.vox");
    EXPECT_EQ(r.size, 128);
    EXPECT_EQ(r.bits, 8);
    EXPECT_EQ(r.seed, 1U);
    EXPECT_DOUBLE_EQ(r.spacing, 0.625);
}

TEST(CommandLine, takesEveryOptionInBothSpellings)
{
    const Request r =
        parseCommandLine({"--size", "64", "--bits=16", "a.vox", "--spacing", "0.25", "--seed=9"});
    EXPECT_EQ(r.error, "");
    EXPECT_EQ(r.size, 64);
    EXPECT_EQ(r.bits, 16);
    EXPECT_DOUBLE_EQ(r.spacing, 0.25);
    EXPECT_EQ(r.seed, 9U);
}

TEST(CommandLine, knowsEveryFormatAndOrientation)
{
    const std::pair<std::string, Format> formats[] = {
        {"raw", Format::Raw},
        {"dicom", Format::Dicom},
        {"dicom-multiframe", Format::DicomMultiFrame},
        {"dicom-native", Format::DicomNative},
        {"dicom-native-multiframe", Format::DicomNativeMultiFrame},
        {"tiff", Format::Tiff},
        {"tiff-multipage", Format::TiffMultiPage},
        {"sequence", Format::Sequence},
    };
    for (const auto& [word, format] : formats) {
        const Request r = parseCommandLine({"--format", word, "a"});
        EXPECT_EQ(r.error, "");
        EXPECT_EQ(r.format, format);
        EXPECT_EQ(r.bits, format == Format::Raw ? 8 : 16);
        EXPECT_EQ(r.orientation, Orientation::Axial);
        EXPECT_FALSE(r.feetFirst);
        EXPECT_THAT(helpText(), HasSubstr(word));
    }
    const Request r = parseCommandLine({"--feet-first", "--orientation=sagittal", "--format=dicom", "a"});
    EXPECT_EQ(r.error, "");
    EXPECT_EQ(r.orientation, Orientation::Sagittal);
    EXPECT_TRUE(r.feetFirst);
    EXPECT_EQ(parseCommandLine({"--orientation=coronal", "--format=dicom-multiframe", "a"}).orientation,
              Orientation::Coronal);
}

TEST(CommandLine, limitsAreIncluded)
{
    EXPECT_EQ(parseCommandLine({"--size=16", "a"}).error, "");
    EXPECT_EQ(parseCommandLine({"--size=1024", "a"}).error, "");
    EXPECT_EQ(parseCommandLine({"--spacing=0.0001", "a"}).error, "");
}

struct WrongCall
{
    std::vector<std::string> arguments;
    std::string message;
};

class WrongCalls : public testing::TestWithParam<WrongCall>
{};

TEST_P(WrongCalls, areRefusedWithStatus2AndTheReason)
{
    std::string out, error;
    EXPECT_EQ(runPhantom(GetParam().arguments, out, error), 2);
    EXPECT_EQ(out, "");
    EXPECT_THAT(error, HasSubstr(GetParam().message));
}

INSTANTIATE_TEST_SUITE_P(
    CommandLine, WrongCalls,
    testing::Values(
        WrongCall{{}, "no output file"}, WrongCall{{"a", "b"}, "more than one output file"},
        WrongCall{{""}, "an empty file name"}, WrongCall{{"--colour", "a"}, "unknown option \"--colour\""},
        WrongCall{{"a", "--size"}, "--size needs a value"},
        WrongCall{{"--size=15", "a"}, "--size wants a whole number from 16 to 1024, not \"15\""},
        WrongCall{{"--size=1025", "a"}, "--size wants"}, WrongCall{{"--size=0", "a"}, "--size wants"},
        WrongCall{{"--size=-64", "a"}, "--size wants"}, WrongCall{{"--size=64x", "a"}, "--size wants"},
        WrongCall{{"--size=99999999999", "a"}, "--size wants"},
        WrongCall{{"--bits=12", "a"}, "--bits wants 8 or 16"},
        WrongCall{{"--spacing=0", "a"}, "--spacing wants"},
        WrongCall{{"--spacing=nan", "a"}, "--spacing wants"},
        WrongCall{{"--spacing=inf", "a"}, "--spacing wants"},
        WrongCall{{"--spacing=", "a"}, "--spacing wants"}, WrongCall{{"--seed=-1", "a"}, "--seed wants"},
        WrongCall{{"--format=png", "a"}, "--format wants raw, dicom"},
        WrongCall{{"--orientation=oblique", "--format=dicom", "a"}, "--orientation wants axial"},
        WrongCall{{"--orientation=coronal", "a"}, "need a DICOM format"},
        WrongCall{{"--feet-first", "--format=tiff", "a"}, "need a DICOM format"},
        WrongCall{{"--feet-first", "--format=sequence", "a"}, "need a DICOM format"},
        WrongCall{{"--orientation=sagittal", "--format=dicom-native", "a"}, "native DICOM files are axial"},
        WrongCall{{"--feet-first=1", "--format=dicom", "a"}, "unknown option"}));

TEST(CommandLine, helpGoesToTheOutputWithStatus0)
{
    std::string out, error;
    EXPECT_EQ(runPhantom({"--help"}, out, error), 0);
    EXPECT_THAT(out, HasSubstr("--spacing MM"));
    EXPECT_EQ(error, "");
}

TEST(CommandLine, aFileThatCannotBeWrittenGivesStatus1)
{
    std::string out, error;
    EXPECT_EQ(runPhantom({"--size=16", "no/such/folder/a.vox"}, out, error), 1);
    EXPECT_THAT(error, HasSubstr("cannot write \"no/such/folder/a.vox\""));
}

TEST(CommandLine, writesTheFile)
{
    const auto path = std::filesystem::temp_directory_path() /
                      ("phantom-" + std::to_string(std::random_device()()) + ".vox");
    std::string out, error;
    EXPECT_EQ(runPhantom({"--size=16", path.string()}, out, error), 0);
    EXPECT_EQ(error, "");
    EXPECT_GT(std::filesystem::file_size(path), 4096U);
    std::filesystem::remove(path);
}
