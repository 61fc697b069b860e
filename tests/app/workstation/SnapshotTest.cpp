// The program itself, started as from a shell, for its pictures and its exit status.

#include "support/DiskSequence.h"
#include "support/SharedData.h"

#include <QColor>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

struct Outcome
{
    int code = -1;
    QString output;
    QString complaint;
};

class SnapshotTest : public testing::Test
{
protected:
    Outcome run(const QStringList& arguments, const QString& plugins = QStringLiteral(PLUGIN_FOLDER)) const
    {
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("HALVANE_HOME", m_folder.filePath("home"));
        environment.insert("HALVANE_PLUGIN_PATH", plugins);
        program.setProcessEnvironment(environment);
        program.setWorkingDirectory(m_folder.path());
        program.start(QStringLiteral(HALVANE_PROGRAM), arguments);
        Outcome outcome;
        if (!program.waitForFinished(240000)) {
            program.kill();
            program.waitForFinished();
            ADD_FAILURE() << "the program did not end: " << arguments.join(' ').toStdString();
            return outcome;
        }
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit) << "the program crashed";
        outcome.code = program.exitCode();
        outcome.output = QString::fromLocal8Bit(program.readAllStandardOutput());
        outcome.complaint = QString::fromLocal8Bit(program.readAllStandardError());
        return outcome;
    }

    /// A cube of bone in air, 40 voxels a side, with a whole header.
    QString cube(const QString& name = QStringLiteral("cube.vox")) const
    {
        QFile file(m_folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        QByteArray voxels(40 * 40 * 40, '\0');
        for (int z = 10; z < 30; ++z)
            for (int y = 10; y < 30; ++y)
                for (int x = 10; x < 30; ++x)
                    voxels[(z * 40 + y) * 40 + x] = static_cast<char>(200);
        file.write(header("40 40 40") + voxels);
        return file.fileName();
    }

    static QByteArray header(const QByteArray& size)
    {
        return "VolumeSize " + size +
               "\nVoxelSize 8\nVolumeScale 1.0 1.0 1.0\nField Density Format u\n##\f\n";
    }

    QString path(const QString& name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
};

/// Share of the picture's pixels that are clearly brighter than its corner.
double bright(const QImage& picture)
{
    const int ground = qGray(picture.pixel(2, 2));
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            count += qGray(picture.pixel(x, y)) > ground + 40;
    return static_cast<double>(count) / (picture.width() * picture.height());
}

TEST_F(SnapshotTest, WritesAPictureOfTheVolume)
{
    const Outcome outcome = run({"--snapshot", "out.png", "--size", "160x120", "--view", "front", cube()});
    EXPECT_EQ(outcome.code, 0) << outcome.complaint.toStdString();
    EXPECT_EQ(outcome.complaint, QString());
    const QImage picture(path("out.png"));
    ASSERT_EQ(picture.size(), QSize(160, 120));
    EXPECT_GT(bright(picture), 0.02);
    EXPECT_GT(qGray(picture.pixel(80, 60)), qGray(picture.pixel(2, 2)) + 40) << "the cube is in the middle";
    const QStringList left = QDir(path("home")).entryList({"snapshot-*"}, QDir::Dirs);
    EXPECT_TRUE(left.isEmpty()) << "its data folder goes with it";
}

TEST_F(SnapshotTest, TheViewChangesThePicture)
{
    const QString file = cube();
    ASSERT_EQ(run({"--snapshot", "front.png", "--size", "96x96", "--view", "front", file}).code, 0);
    ASSERT_EQ(run({"--snapshot", "iso.png", "--size", "96x96", "--view", "iso", file}).code, 0);
    EXPECT_NE(QImage(path("front.png")), QImage(path("iso.png")));
}

// Without a graphics card a frame is always too slow for Quality Mode; with one nothing is asked.
TEST_F(SnapshotTest, TheRenderModeIsAskedForAndAnsweredNo)
{
    const Outcome outcome =
        run({"--snapshot", "out.png", "--size", "2000x2000", "--log", "session.log", cube()});
    EXPECT_EQ(outcome.code, 0) << outcome.complaint.toStdString();
    QFile log(path("session.log"));
    ASSERT_TRUE(log.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(log.readAll());
    if (!text.contains("Current rendering speed")) GTEST_SKIP() << "the frame was fast";
    EXPECT_TRUE(text.contains("Answered: No."));
    EXPECT_FALSE(text.contains("GPU Rendering Profile")) << "not after No";
}

TEST_F(SnapshotTest, ButtonsArePressedBeforeThePicture)
{
    const QString file = cube();
    const QStringList size{"--size", "96x96", "--view", "front", file};
    ASSERT_EQ(run(QStringList{"--snapshot", "plain.png"} + size).code, 0);
    const Outcome mip = run(QStringList{"--snapshot", "mip.png", "--log", "mip.log", "--press",
                                        "Maximum Intensity Projection (MIP)"} +
                            size);
    EXPECT_EQ(mip.code, 0) << mip.complaint.toStdString();
    EXPECT_NE(QImage(path("plain.png")), QImage(path("mip.png")));
    QFile log(path("mip.log"));
    ASSERT_TRUE(log.open(QIODevice::ReadOnly));
    EXPECT_TRUE(log.readAll().contains("Pressed as told: Maximum Intensity Projection (MIP)."));
    const Outcome effects = run(QStringList{"--snapshot", "bright.png", "--press", "Render Effects",
                                            "--press", "High Contrast Mode"} +
                                size);
    EXPECT_EQ(effects.code, 0) << effects.complaint.toStdString();
    EXPECT_NE(QImage(path("plain.png")), QImage(path("bright.png")));
}

TEST_F(SnapshotTest, WhatCannotBePressedIsAUsageError)
{
    for (const char* name : {"No such button", "2D Projected Image"}) {
        const Outcome outcome = run({"--snapshot", "out.png", "--size", "16x16", "--press", name, cube()});
        EXPECT_EQ(outcome.code, 2);
        EXPECT_TRUE(outcome.complaint.contains(QString("'%1' can't be pressed").arg(name)));
        EXPECT_FALSE(QFile::exists(path("out.png")));
    }
}

/// A workstation of the test's own, open until it goes.
class OpenWorkstation
{
public:
    explicit OpenWorkstation(const QString& home)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("HALVANE_HOME", home);
        environment.insert("HALVANE_PLUGIN_PATH", home);
        m_program.setProcessEnvironment(environment);
        m_program.start(QStringLiteral(HALVANE_PROGRAM), QStringList());
    }
    ~OpenWorkstation()
    {
        m_program.kill();
        m_program.waitForFinished();
    }

    QProcess& program() { return m_program; }

private:
    QProcess m_program;
};

bool waitForFile(const QString& file, QProcess& writer)
{
    for (int i = 0; i < 400 && !QFile::exists(file); ++i)
        writer.waitForFinished(50);
    return QFile::exists(file);
}

TEST_F(SnapshotTest, RunsBesideAnOpenWorkstation)
{
    OpenWorkstation workstation(path("home"));
    ASSERT_TRUE(waitForFile(path("home/halvane.lock"), workstation.program()));
    EXPECT_EQ(run({"--snapshot", "out.png", "--size", "64x64", cube()}).code, 0);
    EXPECT_EQ(workstation.program().state(), QProcess::Running);
}

TEST_F(SnapshotTest, ASecondWorkstationOnTheSameDataSaysSo)
{
    OpenWorkstation first(path("home"));
    ASSERT_TRUE(waitForFile(path("home/halvane.lock"), first.program()));
    OpenWorkstation second(path("home"));
    QByteArray said;
    for (int i = 0; i < 400 && !said.contains('\n'); ++i) {
        second.program().waitForReadyRead(50);
        said += second.program().readAllStandardError();
    }
    EXPECT_TRUE(said.contains("running already")) << said.toStdString();
    EXPECT_TRUE(said.contains(QByteArray::number(first.program().processId()))) << said.toStdString();
}

TEST_F(SnapshotTest, AUsageErrorIsStatus2)
{
    for (const QStringList& arguments :
         {QStringList{"--nonsense"}, QStringList{"--snapshot", "out.png"},
          QStringList{"--view", "top", "x.vox"}, QStringList{"--snapshot", "out.nopicture", "x.vox"}}) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.code, 2) << arguments.join(' ').toStdString();
        EXPECT_EQ(outcome.complaint.count('\n'), 1) << outcome.complaint.toStdString();
        EXPECT_TRUE(outcome.complaint.startsWith("halvane: "));
    }
}

TEST_F(SnapshotTest, ADialogThatWantsValuesIsStatus3AndNamesThem)
{
    QFile bare(path("bare.raw"));
    ASSERT_TRUE(bare.open(QIODevice::WriteOnly));
    bare.write(QByteArray(4096, '\x40'));
    bare.close();
    const Outcome outcome = run({"--snapshot", "out.png", bare.fileName()});
    EXPECT_EQ(outcome.code, 3) << outcome.complaint.toStdString();
    EXPECT_EQ(outcome.complaint.count('\n'), 1);
    for (const char* field : {"Volume Information", "Width", "Height", "Number Of Slices"})
        EXPECT_TRUE(outcome.complaint.contains(field)) << outcome.complaint.toStdString();
    EXPECT_FALSE(QFile::exists(path("out.png")));
}

TEST_F(SnapshotTest, AFileThatDoesNotLoadIsStatus4WithTheReason)
{
    QFile text(path("letter.txt"));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("Dear reader");
    text.close();
    for (const QString& file : {path("missing.vox"), text.fileName()}) {
        const Outcome outcome = run({"--snapshot", "out.png", file});
        EXPECT_EQ(outcome.code, 4) << outcome.complaint.toStdString();
        EXPECT_EQ(outcome.complaint.count('\n'), 1) << outcome.complaint.toStdString();
        EXPECT_TRUE(outcome.complaint.contains(file));
        EXPECT_GT(outcome.complaint.size(), file.size() + 40) << "the reason is told";
    }
    EXPECT_FALSE(QFile::exists(path("out.png")));
}

TEST_F(SnapshotTest, APictureThatCannotBeWrittenIsStatus5)
{
    const Outcome outcome = run({"--snapshot", "nowhere/out.png", "--size", "64x64", cube()});
    EXPECT_EQ(outcome.code, 5);
    EXPECT_TRUE(outcome.complaint.contains("nowhere/out.png"));
    EXPECT_EQ(outcome.complaint.count('\n'), 1);
}

TEST_F(SnapshotTest, ASequenceWithoutAVolumeShowsItsFirstClick)
{
    disk_sequence::make(path("clicks"), "SLA", {"M1"});
    ASSERT_TRUE(QDir(path("clicks/CT Data")).removeRecursively());
    const Outcome outcome = run({"--snapshot", "out.png", "--size", "320x240", path("clicks")});
    EXPECT_EQ(outcome.code, 0) << outcome.complaint.toStdString();
    const QImage picture(path("out.png"));
    ASSERT_EQ(picture.size(), QSize(320, 240));
    bool isColoured = false;  // by the light
    for (int x = 0; x < picture.width() && !isColoured; ++x)
        for (int y = 0; y < picture.height() && !isColoured; ++y)
            isColoured =
                QColor(picture.pixel(x, y)).saturation() > 200 && QColor(picture.pixel(x, y)).value() > 150;
    EXPECT_TRUE(isColoured);
}

TEST_F(SnapshotTest, ASequenceWithNothingToShowSaysSo)
{
    disk_sequence::make(path("empty"), "CT", {});
    ASSERT_TRUE(QDir(path("empty/CT Data")).removeRecursively());
    const Outcome outcome = run({"--snapshot", "out.png", path("empty")});
    EXPECT_EQ(outcome.code, 4);
    EXPECT_TRUE(outcome.complaint.contains("neither a volume nor a click"))
        << outcome.complaint.toStdString();
}

TEST_F(SnapshotTest, ASequenceWhoseVolumeDoesNotLoadTellsWhy)
{
    disk_sequence::make(path("broken"), "CT", {"M1"});  // what lies in "CT Data" is no scan
    const Outcome outcome = run({"--snapshot", "out.png", path("broken")});
    EXPECT_EQ(outcome.code, 4);
    EXPECT_TRUE(outcome.complaint.contains("cannot be opened as a volume"))
        << outcome.complaint.toStdString();
}

TEST_F(SnapshotTest, ALogThatCannotBeWrittenIsStatus5)
{
    EXPECT_EQ(run({"--snapshot", "out.png", "--log", "nowhere/session.log", cube()}).code, 5);
}

TEST_F(SnapshotTest, WithoutPluginsItIsStatus1)
{
    const Outcome outcome = run({"--snapshot", "out.png", cube()}, m_folder.path());
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(outcome.complaint.contains("plug-in"));
}

TEST_F(SnapshotTest, TheLogTellsTheSession)
{
    ASSERT_EQ(run({"--snapshot", "out.png", "--size", "64x64", "--log", "session.log", cube()}).code, 0);
    QFile log(path("session.log"));
    ASSERT_TRUE(log.open(QIODevice::ReadOnly));
    EXPECT_TRUE(log.readAll().contains("3D Corvane Tools"));
}

TEST_F(SnapshotTest, HelpAndVersionNeedNoDisplay)
{
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove("DISPLAY");
    program.setProcessEnvironment(environment);
    for (const QString& option : {QStringLiteral("--help"), QStringLiteral("--version")}) {
        program.start(QStringLiteral(HALVANE_PROGRAM), {option});
        ASSERT_TRUE(program.waitForFinished());
        EXPECT_EQ(program.exitCode(), 0);
        EXPECT_TRUE(program.readAllStandardOutput().contains("halvane"));
    }
    program.start(QStringLiteral(HALVANE_PROGRAM), QStringList());
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_TRUE(program.readAllStandardError().contains("display"));
}

TEST_F(SnapshotTest, DrawsARealScan)
{
    const QString scans = viz_test::sharedData("raw/mouse_head_8bit");
    const QStringList files = QDir(scans).entryList({"*.vox", "*.raw"}, QDir::Files);
    if (scans.isEmpty() || files.isEmpty()) GTEST_SKIP() << "the collection of real scans is not here";
    const Outcome outcome = run({"--snapshot", "out.png", "--size", "128x128", scans + '/' + files.first()});
    EXPECT_EQ(outcome.code, 0) << outcome.complaint.toStdString();
    EXPECT_GT(bright(QImage(path("out.png"))), 0.02);
}

}  // namespace
