#include "app/CommandLine.h"

#include <gtest/gtest.h>

namespace {

using Wish = CommandLine::Wish;

CommandLine parse(const QStringList& arguments)
{
    return parseCommandLine(QStringList{QStringLiteral("halvane")} + arguments);
}

TEST(CommandLine, WithoutArgumentsIsTheWorkstation)
{
    const CommandLine line = parse({});
    EXPECT_EQ(line.wish, Wish::Workstation);
    EXPECT_TRUE(line.paths.isEmpty());
    EXPECT_TRUE(line.logFile.isEmpty());
}

TEST(CommandLine, KeepsPathsInTheirOrder)
{
    const CommandLine line = parse({"b.tif", "a.tif", "--log", "session.log"});
    EXPECT_EQ(line.wish, Wish::Workstation);
    EXPECT_EQ(line.paths, (QStringList{"b.tif", "a.tif"}));
    EXPECT_EQ(line.logFile, QString("session.log"));
}

TEST(CommandLine, PathsAfterTwoDashesMayBeginWithADash)
{
    EXPECT_EQ(parse({"--", "-odd.vox"}).paths, QStringList{"-odd.vox"});
}

TEST(CommandLine, SnapshotHasItsDefaults)
{
    const CommandLine line = parse({"--snapshot", "out.png", "scan.vox"});
    EXPECT_EQ(line.wish, Wish::Snapshot);
    EXPECT_EQ(line.snapshotFile, QString("out.png"));
    EXPECT_EQ(line.snapshotSize, QSize(640, 640));
    EXPECT_EQ(line.view, CommandLine::View::Iso);
    EXPECT_EQ(line.paths, QStringList{"scan.vox"});
}

TEST(CommandLine, SnapshotTakesSizeAndView)
{
    const CommandLine line =
        parse({"--snapshot=out.png", "--size", "300x200", "--view", "FRONT", "scan.vox"});
    EXPECT_EQ(line.wish, Wish::Snapshot);
    EXPECT_EQ(line.snapshotSize, QSize(300, 200));
    EXPECT_EQ(line.view, CommandLine::View::Front);
    EXPECT_EQ(parse({"--snapshot=o.png", "--view=side", "s"}).view, CommandLine::View::Side);
    EXPECT_EQ(parse({"--snapshot=o.png", "--view=top", "s"}).view, CommandLine::View::Top);
    EXPECT_EQ(parse({"--snapshot=o.png", "--view=iso", "s"}).view, CommandLine::View::Iso);
}

TEST(CommandLine, PressesKeepTheirOrder)
{
    EXPECT_TRUE(parse({"--snapshot=o.png", "s"}).presses.isEmpty());
    EXPECT_EQ(parse({"--snapshot=o.png", "--press", "Quality", "--press=Yes", "s"}).presses,
              (QStringList{"Quality", "Yes"}));
}

TEST(CommandLine, HelpAndVersionComeBeforeEverythingElse)
{
    EXPECT_EQ(parse({"--help"}).wish, Wish::Help);
    EXPECT_EQ(parse({"-h", "--size", "rubbish"}).wish, Wish::Help);
    EXPECT_EQ(parse({"--version", "scan.vox"}).wish, Wish::Version);
    EXPECT_EQ(parse({"-v"}).wish, Wish::Version);
}

TEST(CommandLine, SizesWithinTheLimitsAreTaken)
{
    EXPECT_EQ(parse({"--snapshot=o.png", "--size=16x8192", "s"}).snapshotSize, QSize(16, 8192));
}

class BadCommandLine : public testing::TestWithParam<QStringList>
{};

TEST_P(BadCommandLine, IsRefusedWithAReason)
{
    const CommandLine line = parse(GetParam());
    EXPECT_EQ(line.wish, Wish::Complain);
    EXPECT_FALSE(line.error.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(CommandLine, BadCommandLine,
                         testing::Values(QStringList{"--unknown"}, QStringList{"--snapshot"},
                                         QStringList{"--snapshot", "", "scan.vox"},
                                         QStringList{"--snapshot", "out.png"},        // nothing to be drawn
                                         QStringList{"--size", "10x10", "scan.vox"},  // a size of no picture
                                         QStringList{"--view", "top", "scan.vox"},
                                         QStringList{"--press", "Yes", "scan.vox"},
                                         QStringList{"--snapshot=o.png", "--press", "", "s"},
                                         QStringList{"--log", "", "scan.vox"}, QStringList{""},
                                         QStringList{"--snapshot=o.png", "--view=back", "s"},
                                         QStringList{"--snapshot=o.png", "--size=300", "s"},
                                         QStringList{"--snapshot=o.png", "--size=300x", "s"},
                                         QStringList{"--snapshot=o.png", "--size=-3x200", "s"},
                                         QStringList{"--snapshot=o.png", "--size=15x200", "s"},
                                         QStringList{"--snapshot=o.png", "--size=200x8193", "s"},
                                         QStringList{"--snapshot=o.png", "--size=99999999999x9", "s"},
                                         QStringList{"--snapshot=o.png", "--size=200x200pixels", "s"}));

TEST(CommandLine, HelpNamesEveryOptionAndExitStatus)
{
    const QString text = helpText(QStringLiteral("halvane"));
    for (const char* option : {"--snapshot FILE", "--size WxH", "--view VIEW", "--press TEXT", "--log FILE",
                               "--help", "--version", "HALVANE_HOME", "HALVANE_PLUGIN_PATH", "PATH"})
        EXPECT_TRUE(text.contains(QLatin1String(option))) << option;
    for (int status = 0; status <= 5; ++status)
        EXPECT_TRUE(text.contains(QStringLiteral("\n  %1  ").arg(status))) << status;
    const QStringList lines = text.split('\n');
    for (const QString& line : lines)
        EXPECT_LE(line.size(), 96) << line.toStdString();
}

TEST(CommandLine, VersionIsOneLine)
{
    EXPECT_TRUE(versionText().startsWith("halvane "));
    EXPECT_EQ(versionText().count('\n'), 1);
}

}  // namespace
