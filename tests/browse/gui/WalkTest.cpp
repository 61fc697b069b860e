#include "Browse.h"

#include <QCursor>
#include <QGuiApplication>

namespace viz_test {

class Walk : public BrowseTree
{
protected:
    QStringList folders(std::initializer_list<const char*> names)
    {
        QStringList entries;
        for (const char* const name : names)
            entries << "folder " + (*name ? folder(name) : folder());
        return entries;
    }
};

TEST_F(Walk, tellsStartFoldersDataAndEndInThisOrder)
{
    tiff("a/scan/x.tif");
    folder("b");
    browseTree();
    EXPECT_EQ(receiver.log, QStringList{"start Searching..."} + folders({"", "a", "a/scan"}) +
                                QStringList{"data " + folder("a/scan")} + folders({"b"}) +
                                QStringList{"end "});
}

TEST_F(Walk, foldersWithDataAreEnteredToo)
{
    tiff("a/x.tif");
    tiff("a/b/y.tif");
    tiff("a/b/c/z.tif");
    browseTree("a");
    EXPECT_EQ(receiver.foundFolders(), (QStringList{folder("a"), folder("a/b"), folder("a/b/c")}));
}

TEST_F(Walk, subFoldersComeByNameCapitalsFirst)
{
    for (const char* const name : {"b", "a10", "B", "a2", "C"})
        folder(name);
    browseTree();
    EXPECT_EQ(receiver.log.mid(1, 6), folders({"", "B", "C", "a10", "a2", "b"}));
}

TEST_F(Walk, hiddenEntriesAreLeftOut)
{
    tiff(".hidden/a.tif");
    tiff("scan/.a.tif");
    browseTree();
    EXPECT_EQ(receiver.log.mid(1, 2), folders({"", "scan"}));
    EXPECT_TRUE(receiver.found.empty());
}

TEST_F(Walk, goesBelowWithoutBeingToldTo)
{
    tiff("a/x.tif");
    manager.setBrowsePath(folder(), false);
    manager.start();
    ASSERT_TRUE(manager.wait(20000));
    QCoreApplication::processEvents();
    EXPECT_EQ(receiver.foundFolders(), QStringList{folder("a")});
}

TEST_F(Walk, aSlashAtTheEndOfTheStartFolderDoesNotDouble)
{
    tiff("a/x.tif");
    browse(manager, folder() + '/');
    EXPECT_EQ(receiver.foundFolders(), QStringList{folder("a")});
}

TEST_F(Walk, aFolderThatIsNotThereGivesStartAndEnd)
{
    const QString gone = folder() + "/gone";
    browse(manager, gone);
    EXPECT_EQ(receiver.log, (QStringList{"start Searching...", "folder " + gone, "end "}));
}

TEST_F(Walk, startsAgainForEachBrowse)
{
    tiff("a/x.tif");
    tiff("b/x.tif");
    browseTree("a");
    browseTree("b");
    EXPECT_EQ(receiver.foundFolders(), (QStringList{folder("a"), folder("b")}));
    EXPECT_EQ(receiver.log.filter("start ").size(), 2);
    EXPECT_EQ(receiver.log.filter("end ").size(), 2);
}

TEST_F(Walk, theCursorIsBusyUntilTheEnd)
{
    class Cursors : public TestHostServices
    {
    public:
        QList<Qt::CursorShape> shapes;
        bool inGuiThread = true;
        void setCursor(QCursor const& cursor) override
        {
            shapes << cursor.shape();
            inGuiThread = inGuiThread && QThread::currentThread() == qApp->thread();
            TestHostServices::setCursor(cursor);
        }
    } cursors;
    tiff("a/x.tif");
    QList<int> depths;
    receiver.onEvent = [&](int) { depths << cursors.cursorDepth(); };
    browseTree();
    EXPECT_EQ(cursors.shapes, QList<Qt::CursorShape>{Qt::BusyCursor});
    EXPECT_TRUE(cursors.inGuiThread);
    EXPECT_EQ(depths.size(), receiver.log.size());
    EXPECT_EQ(depths, QVector<int>(depths.size(), 1).toList());
    EXPECT_EQ(cursors.cursorDepth(), 0);
}

}  // namespace viz_test
