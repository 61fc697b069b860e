#include "MovieFile.h"
#include "TestPicture.h"

#include "hvapi/export/CHVSMovieExporter.h"
#include "lib/hvapi/export/FrameQueue.h"
#include "support/FullDisk.h"
#include "testing/TestHostServices.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <atomic>
#include <chrono>
#include <gtest/gtest.h>

namespace {

sMovieDetails details(int width, int height)
{
    sMovieDetails details;
    details.m_nWidth = width;
    details.m_nHeight = height;
    details.m_nFramesPerSecond = 15;
    return details;
}

/// Grey, brighter from frame to frame, with a white square in the upper left corner.
QImage numbered(int i, int width, int height)
{
    QImage picture(width, height, QImage::Format_RGB32);
    const int grey = 20 + 4 * i;
    picture.fill(qRgb(grey, grey, grey));
    for (int y = 0; y < height / 4; ++y)
        for (int x = 0; x < width / 4; ++x)
            picture.setPixel(x, y, qRgb(255, 255, 255));
    return picture;
}

struct MovieExporterTest : ::testing::TestWithParam<const char*>
{
    tag_estatus write(const QString& path, int frames, int width, int height)
    {
        CHVSMovieExporter movie;
        const tag_estatus created = movie.createMovie(details(width, height), path);
        if (created != eStatusSuccess) return created;
        for (int i = 0; i < frames; ++i) {
            QImage frame = numbered(i, width, height);
            const tag_estatus appended = movie.appendFrame(frame.bits(), HVS_MOVIE_BUFFER_RGB32, frame);
            if (appended != eStatusSuccess) return appended;
        }
        movie.closeMovie();
        return eStatusSuccess;
    }

    TestHostServices services;
    QTemporaryDir folder;
};

TEST_P(MovieExporterTest, IsReadBackFrameByFrame)
{
    const QString path = folder.filePath(QString("movie.%1").arg(GetParam()));
    ASSERT_EQ(write(path, 30, 64, 48), eStatusSuccess);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1) << "the temporary file is gone";

    const MovieFile movie = MovieFile::read(path);
    ASSERT_TRUE(movie.isReadable);
    const bool doubled = qstrcmp(GetParam(), "mpg") == 0;  // MPEG-1 knows no 15 frames a second
    EXPECT_DOUBLE_EQ(movie.framesPerSecond, doubled ? 30.0 : 15.0);
    const int repeats = doubled ? 2 : 1;
    ASSERT_EQ(movie.frames.size(), 30 * repeats);
    // A program stream does not say how long it is; readers guess from its bytes.
    if (!doubled) {
        EXPECT_NEAR(movie.seconds, 2.0, 1.0 / 15.0);
    }
    for (const int i : {0, 7, 29}) {
        const QImage& frame = movie.frames[i * repeats];
        EXPECT_EQ(frame.size(), QSize(64, 48));
        EXPECT_NEAR(qGreen(frame.pixel(48, 36)), 20 + 4 * i, 4) << i;
        EXPECT_GE(qGreen(frame.pixel(6, 4)), 245) << i;
    }
}

TEST_P(MovieExporterTest, OddSidesKeepAllTheirPixels)
{
    const QString path = folder.filePath(QString("odd.%1").arg(GetParam()));
    ASSERT_EQ(write(path, 15, 65, 49), eStatusSuccess);
    const MovieFile movie = MovieFile::read(path);
    ASSERT_TRUE(movie.isReadable);
    ASSERT_FALSE(movie.frames.isEmpty());
    const QSize size = movie.frames.first().size();
    EXPECT_TRUE(size == QSize(65, 49) || size == QSize(66, 50)) << size.width() << " x " << size.height();
    EXPECT_NEAR(qGreen(movie.frames.first().pixel(size.width() - 1, size.height() - 1)), 20, 4);
}

TEST_P(MovieExporterTest, ColoursComeBack)
{
    const QString path = folder.filePath(QString("colours.%1").arg(GetParam()));
    CHVSMovieExporter writer;
    ASSERT_EQ(writer.createMovie(details(128, 96), path), eStatusSuccess);
    QImage frame = testPicture(128, 96);
    for (int i = 0; i < 5; ++i)
        ASSERT_EQ(writer.appendFrame(frame.bits(), HVS_MOVIE_BUFFER_RGB32_MPEG, frame), eStatusSuccess);
    writer.closeMovie();
    const MovieFile movie = MovieFile::read(path);
    ASSERT_FALSE(movie.frames.isEmpty());
    EXPECT_LE(worstQuarter(movie.frames.first()), 12);
}

TEST_P(MovieExporterTest, SuffixesInCapitalsAreTaken)
{
    const QString path = folder.filePath(QString("MOVIE.%1").arg(QString(GetParam()).toUpper()));
    ASSERT_EQ(write(path, 15, 64, 48), eStatusSuccess);
    EXPECT_TRUE(MovieFile::read(path).isReadable);
}

TEST_P(MovieExporterTest, AMovieThatIsNotClosedLeavesTheOldFile)
{
    const QString path = folder.filePath(QString("kept.%1").arg(GetParam()));
    QFile old(path);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("old");
    old.close();
    {
        CHVSMovieExporter writer;
        ASSERT_EQ(writer.createMovie(details(64, 48), path), eStatusSuccess);
        QImage frame = numbered(0, 64, 48);
        ASSERT_EQ(writer.appendFrame(frame.bits(), HVS_MOVIE_BUFFER_RGB32, frame), eStatusSuccess);
    }
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1);
    ASSERT_TRUE(old.open(QIODevice::ReadOnly));
    EXPECT_EQ(old.readAll(), "old");
}

TEST_P(MovieExporterTest, AFullDiskLeavesNothingAndIsSaid)
{
    const QString path = folder.filePath(QString("full.%1").arg(GetParam()));
    {
        const FullDisk disk(2000);
        write(path, 60, 256, 192);
    }
    EXPECT_TRUE(QDir(folder.path()).entryList(QDir::Files).isEmpty());
    EXPECT_FALSE(services.messages(3).isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Types, MovieExporterTest, ::testing::Values("mp4", "avi", "mpg"));

TEST_F(MovieExporterTest, TheListsBelongTogether)
{
    const QStringList filters = CHVSMovieExporter::getFilterList();
    const QStringList extensions = CHVSMovieExporter::getExtensionList();
    EXPECT_EQ(extensions, (QStringList{"mp4", "avi", "mpg"}));
    ASSERT_EQ(filters.size(), extensions.size());
    for (int i = 0; i < filters.size(); ++i)
        EXPECT_TRUE(filters[i].endsWith("(*." + extensions[i] + ")")) << qPrintable(filters[i]);
}

TEST_F(MovieExporterTest, AnUnknownFormatIsUnavailableAndWritesNothing)
{
    EXPECT_EQ(write(folder.filePath("a.wmv"), 1, 64, 48), eStatusMovieFormatUnavailable);
    EXPECT_EQ(write(folder.filePath("bare"), 1, 64, 48), eStatusMovieFormatUnavailable);
    EXPECT_TRUE(QDir(folder.path()).entryList(QDir::Files).isEmpty());
}

TEST_F(MovieExporterTest, AFolderThatIsNotThereIsSaid)
{
    EXPECT_EQ(write(folder.filePath("no/such/a.avi"), 1, 64, 48), eStatusFileNotWritable);
    EXPECT_EQ(services.messages(3).size(), 1);
}

TEST_F(MovieExporterTest, ANameWithAColonIsAName)
{
    const QString path = folder.filePath("a:b c.avi");
    ASSERT_EQ(write(path, 3, 64, 48), eStatusSuccess);
    EXPECT_TRUE(QFile::exists(path));
}

TEST_F(MovieExporterTest, AFrameOfAnotherSizeFails)
{
    CHVSMovieExporter writer;
    ASSERT_EQ(writer.createMovie(details(64, 48), folder.filePath("a.avi")), eStatusSuccess);
    tag_estatus status = eStatusSuccess;
    for (int i = 0; i < 20 && status == eStatusSuccess; ++i) {
        QImage frame = numbered(0, i == 0 ? 64 : 32, 48);
        status = writer.appendFrame(frame.bits(), HVS_MOVIE_BUFFER_RGB32, frame);
    }
    EXPECT_NE(status, eStatusSuccess);
    writer.closeMovie();
    EXPECT_TRUE(QDir(folder.path()).entryList(QDir::Files).isEmpty());
}

TEST_F(MovieExporterTest, CallsOutOfOrderAreHarmless)
{
    CHVSMovieExporter writer;
    QImage frame = numbered(0, 64, 48);
    EXPECT_NE(writer.appendFrame(frame.bits(), HVS_MOVIE_BUFFER_RGB32, frame), eStatusSuccess);
    writer.closeMovie();
    ASSERT_EQ(writer.createMovie(details(64, 48), folder.filePath("a.avi")), eStatusSuccess);
    writer.closeMovie();  // without a frame there is no movie
    EXPECT_TRUE(QDir(folder.path()).entryList(QDir::Files).isEmpty());
    sMovieDetails none = details(64, 48);
    none.m_nFramesPerSecond = 0;
    EXPECT_NE(writer.createMovie(none, folder.filePath("a.avi")), eStatusSuccess);
}

TEST(FrameQueueTest, HoldsFewFramesAndKeepsTheirOrder)
{
    std::atomic<int> waiting{0};
    std::atomic<int> most{0};
    std::vector<int> order;
    FrameQueue queue([&](const QImage& frame) {
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
        order.push_back(frame.width());
        --waiting;
        return true;
    });
    for (int i = 1; i <= 30; ++i) {
        ASSERT_TRUE(queue.append(QImage(i, 1, QImage::Format_RGB32)));
        most = std::max(most.load(), ++waiting);
    }
    ASSERT_TRUE(queue.finish());
    EXPECT_LE(most.load(), 5);
    ASSERT_EQ(order.size(), 30u);
    for (int i = 0; i < 30; ++i)
        EXPECT_EQ(order[static_cast<std::size_t>(i)], i + 1);
}

TEST(FrameQueueTest, AFailureEndsIt)
{
    FrameQueue queue([](const QImage&) { return false; });
    queue.append(QImage(1, 1, QImage::Format_RGB32));
    EXPECT_FALSE(queue.finish());
    EXPECT_FALSE(queue.append(QImage(1, 1, QImage::Format_RGB32)));
}

}  // namespace
