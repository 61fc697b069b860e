#include "plugin/logic/DropUrls.h"

#include <gtest/gtest.h>

TEST(DropUrls, ALocalFileGetsItsRootBack)
{
    EXPECT_EQ(pathOfDroppedUrl("file:///data/a.raw"), QString("/data/a.raw"));
    EXPECT_EQ(pathOfDroppedUrl("file:///"), QString("/"));
}

TEST(DropUrls, ADriveIsAbsoluteAlready)
{
    EXPECT_EQ(pathOfDroppedUrl("file:///C:/a.raw"), QString("C:/a.raw"));
    EXPECT_EQ(pathOfDroppedUrl("file:///z:/b/a.raw"), QString("z:/b/a.raw"));
    EXPECT_EQ(pathOfDroppedUrl("file:///C:a.raw"), QString("/C:a.raw")) << "not absolute on any system";
}

TEST(DropUrls, AServerKeepsItsTwoSlashes)
{
    EXPECT_EQ(pathOfDroppedUrl("file://server/share/a.raw"), QString("//server/share/a.raw"));
}

TEST(DropUrls, FourSlashesLeaveAnAbsolutePath)
{
    EXPECT_EQ(pathOfDroppedUrl("file:////data/a.raw"), QString("/data/a.raw"));
}

TEST(DropUrls, ThePrefixIsCaseSensitive)
{
    EXPECT_TRUE(pathOfDroppedUrl("FILE:///data/a.raw").isNull());
    EXPECT_TRUE(pathOfDroppedUrl("File://server/a.raw").isNull());
}

TEST(DropUrls, AnythingButAFileIsNotTaken)
{
    EXPECT_TRUE(pathOfDroppedUrl("http://host/a.raw").isNull());
    EXPECT_TRUE(pathOfDroppedUrl("/data/a.raw").isNull());
    EXPECT_TRUE(pathOfDroppedUrl("").isNull());
}

TEST(DropUrls, PercentEncodingIsUndone)
{
    EXPECT_EQ(pathOfDroppedUrl("file:///data/my%20scan%231.raw"), QString("/data/my scan#1.raw"));
    EXPECT_EQ(pathOfDroppedUrl("file:///data/M%C3%A4use.raw"), QString::fromUtf8("/data/M\xc3\xa4use.raw"));
    EXPECT_EQ(pathOfDroppedUrl("file:///data/100%25.raw"), QString("/data/100%.raw"));
    EXPECT_EQ(pathOfDroppedUrl("file://server/my%20share/a.raw"), QString("//server/my share/a.raw"));
}

TEST(DropUrls, AListKeepsItsOrderAndLosesWhatIsNoFile)
{
    const QList<QUrl> urls = {QUrl("file:///data/b.raw"), QUrl("http://host/c.raw"),
                              QUrl::fromLocalFile("/data/a #1 100%.raw"), QUrl("file://server/share/d.raw")};
    EXPECT_EQ(pathsOfDroppedUrls(urls),
              QStringList({"/data/b.raw", "/data/a #1 100%.raw", "//server/share/d.raw"}));
    EXPECT_TRUE(pathsOfDroppedUrls({}).isEmpty());
}
