#include "Browse.h"

#include "browse/FolderListing.h"
#include "browse/HostFirstFile.h"

#include <QElapsedTimer>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace viz_test {

class BadInput : public BrowseTree
{
protected:
    void link(const QString& target, const QString& relative)
    {
        ASSERT_EQ(
            symlink(QFile::encodeName(target).constData(), QFile::encodeName(path(relative)).constData()), 0);
    }
    void pipe(const QString& relative)
    {
        ASSERT_EQ(mkfifo(QFile::encodeName(path(relative)).constData(), 0600), 0);
    }
    // A name of bytes that are no text; QTemporaryDir would not find it again.
    void fileOfBytes(const QByteArray& name)
    {
        m_bytes << QFile::encodeName(folder()) + '/' + name;
        const int file =
            open((QFile::encodeName(folder()) + '/' + name).constData(), O_CREAT | O_WRONLY, 0600);
        ASSERT_GE(file, 0);
        close(file);
    }
    ~BadInput() override
    {
        for (const QByteArray& name : m_bytes)
            ::remove(name.constData());
    }

    QByteArrayList m_bytes;
};

TEST_F(BadInput, linksThatLeadBackAreNotFollowedForEver)
{
    tiff("a/b/x.tif");
    link(folder("a"), "a/b/up");
    link(".", "a/self");
    link(folder(), "a/b/root");
    browseTree();
    EXPECT_EQ(receiver.foundFolders(), QStringList{folder("a/b")});
    EXPECT_TRUE(receiver.hasEnded());
}

TEST_F(BadInput, foldersThatLinkToEachOtherEnd)
{
    tiff("a/x.tif");
    tiff("b/y.tif");
    link(folder("b"), "a/to_b");
    link(folder("a"), "b/to_a");
    browseTree();
    EXPECT_EQ(receiver.foundFolders(),
              (QStringList{folder("a"), folder() + "/a/to_b", folder("b"), folder() + "/b/to_a"}));
}

TEST_F(BadInput, aLinkThatLeadsNowhereBackIsAFolderLikeAnother)
{
    tiff("a/x.tif");
    link(folder("a"), "b");
    browseTree();
    EXPECT_EQ(receiver.foundFolders(), (QStringList{folder("a"), folder() + "/b"}));
    EXPECT_EQ(receiver.found[1]->m_name, "b");
}

TEST_F(BadInput, aStartFolderBehindALinkIsBrowsed)
{
    tiff("a/x.tif");
    link(folder("a"), "b");
    browse(manager, folder() + "/b");
    EXPECT_EQ(receiver.foundFolders(), QStringList{folder() + "/b"});
}

TEST_F(BadInput, pipesAndDevicesAreNeverWaitedFor)
{
    pipe("pipe/a.dcm");
    pipe("somewhere");
    link(folder() + "/somewhere", "linked/a.dcm");
    link("/dev/zero", "device/a.tif");
    link("/dev/stdin", "input/a.dcm");
    browseTree();
    EXPECT_TRUE(receiver.hasEnded());
    EXPECT_TRUE(receiver.found.empty());
}

TEST_F(BadInput, emptyAndDamagedFirstFilesGiveNoEntry)
{
    write("empty/a.dcm", "");
    write("empty_tiff/a.tif", "");
    write("short/a.tif", "II*");
    write("header/a.dcm", QByteArray(128, 0) + "DICM");
    write("garbage/a.dcm", QByteArray(128, 0) + "DICM" + QByteArray(4000, char(0xFF)));
    write("cut/a.dcm", DicomBuilder().size(64, 64).bytes().left(600));
    write("text/a.tiff", "not a picture");
    browseTree();
    EXPECT_TRUE(receiver.hasEnded());
    EXPECT_TRUE(receiver.found.empty()) << receiver.foundFolders().join(' ').toStdString();
}

TEST_F(BadInput, aTiffThatCannotBeShownIsListedWithoutASize)
{
    TiffKind kind;
    kind.width = 4;
    kind.height = 4;
    kind.samples = 3;
    kind.photometric = PHOTOMETRIC_RGB;
    writeTiff(path("colour/a.tif"), kind, {std::vector<std::uint32_t>(48)});
    browseTree();
    ASSERT_TRUE(receiver.of(folder("colour")));
    EXPECT_EQ(receiver.of(folder("colour"))->m_slices, "1");
    EXPECT_EQ(receiver.of(folder("colour"))->m_dataType, "0-bit");
    EXPECT_EQ(receiver.of(folder("colour"))->m_dimension, "0 x 0");
}

TEST_F(BadInput, aFileThatIsGoneIsOfNoKind)
{
    HostFirstFile file(folder("scan"), "gone.dcm");
    EXPECT_FALSE(file.isPicture());
    EXPECT_FALSE(file.isImportable());
    EXPECT_FALSE(file.isDecodableDicom());
    EXPECT_FALSE(file.isDicom());
    EXPECT_FALSE(file.readDicom());
    EXPECT_FALSE(file.readDicomImage());
    EXPECT_EQ(file.readTiff().imageCount, 0);
    EXPECT_FALSE(classifyFolder(file, {1, "gone.dcm"}));
}

TEST_F(BadInput, aTreeThatVanishesDuringTheBrowseEndsIt)
{
    for (int i = 0; i < 300; ++i)
        tiff(QString("a/%1/x.tif").arg(i));
    bool isGone = false;
    receiver.onEvent = [&](int) {
        if (!isGone) isGone = QDir(folder() + "/a").removeRecursively();
    };
    browseTree();
    EXPECT_TRUE(receiver.hasEnded());
    EXPECT_TRUE(isGone);
    for (const auto& info : receiver.found)
        EXPECT_EQ(info->m_fileCount, 1);
}

TEST_F(BadInput, aFolderThatMayNotBeReadGivesNothing)
{
    tiff("closed/a.tif");
    tiff("open/a.tif");
    ASSERT_EQ(chmod(QFile::encodeName(folder()).constData(), 0755), 0);
    for (const char* const name : {"open", "open/a.tif"})
        ASSERT_EQ(chmod(QFile::encodeName(folder() + '/' + name).constData(), 0755), 0);
    ASSERT_EQ(chmod(QFile::encodeName(folder("closed")).constData(), 0), 0);
    const bool isRoot = geteuid() == 0;
    if (isRoot) {
        ASSERT_EQ(seteuid(65534), 0);
    }
    browse(manager, m_root.path());
    if (isRoot) {
        ASSERT_EQ(seteuid(0), 0);
    }
    EXPECT_TRUE(receiver.hasEnded());
    EXPECT_EQ(receiver.foundFolders(), QStringList{m_root.path() + "/open"});
    chmod(QFile::encodeName(m_root.path() + "/closed").constData(), 0700);
}

TEST_F(BadInput, aFileThatMayNotBeReadGivesNothing)
{
    tiff("scan/a.tif");
    ASSERT_EQ(chmod(QFile::encodeName(folder()).constData(), 0755), 0);
    ASSERT_EQ(chmod(QFile::encodeName(folder("scan")).constData(), 0755), 0);
    ASSERT_EQ(chmod(QFile::encodeName(path("scan/a.tif")).constData(), 0), 0);
    const bool isRoot = geteuid() == 0;
    if (isRoot) {
        ASSERT_EQ(seteuid(65534), 0);
    }
    browse(manager, m_root.path());
    if (isRoot) {
        ASSERT_EQ(seteuid(0), 0);
    }
    EXPECT_TRUE(receiver.hasEnded());
    EXPECT_TRUE(receiver.found.empty());
}

TEST_F(BadInput, namesThatAreNoTextAreLeftOut)
{
    fileOfBytes("\xFF\xFE.dcm");
    m_bytes << QFile::encodeName(folder()) + "/\xC3(";
    ASSERT_EQ(mkdir(m_bytes.last().constData(), 0700), 0);
    tiff("Mäuse/größe.tif");
    browseTree();
    EXPECT_EQ(receiver.foundFolders(), QStringList{folder() + "/Mäuse"});
    EXPECT_EQ(receiver.found[0]->m_files, QStringList{"größe.tif"});
    EXPECT_EQ(receiver.foldersEntered, 2);
}

TEST_F(BadInput, manyFilesInOneFolderAreOneDataSet)
{
    constexpr int count = 100000;
    const QString scan = folder("scan");
    dicom("scan/000000.dcm");
    const QByteArray prefix = QFile::encodeName(scan) + '/';
    // Links, since the file system takes no more than 65,000 names of one file.
    for (int i = 1; i < count; ++i)
        ASSERT_EQ(symlink("000000.dcm",
                          (prefix + QByteArray::number(i).rightJustified(6, '0') + ".dcm").constData()),
                  0);
    browseTree();
    ASSERT_EQ(receiver.found.size(), 1U);
    EXPECT_EQ(receiver.found[0]->m_fileCount, count);
    EXPECT_EQ(receiver.found[0]->m_slices, "100000");
}

TEST_F(BadInput, aDeepTreeIsWalkedToItsEnd)
{
    QString deep = "d";
    for (int i = 0; i < 1000; ++i)
        deep += "/d";
    tiff(deep + "/x.tif");
    browseTree();
    EXPECT_EQ(receiver.foundFolders(), QStringList{folder(deep)});
}

// --- the listing, against QDir's ---

TEST_F(BadInput, aFolderIsListedAsQDirDoes)
{
    for (const char* const name : {"b.dcm", "a.TIF", "c.txt", "tiff", "ä.dcm", ".h.dcm", "x.Dc3"})
        write(QString("here/") + name, "x");
    for (const char* const name : {"sub", "Sub", ".hidden", "a.dcm.d", "é", "d.dcm"})
        folder(QString("here/") + name);
    pipe("here/pipe.dcm");
    link("b.dcm", "here/link.dcm");
    link("pipe.dcm", "here/to_pipe.dcm");
    link("nothing", "here/broken.dcm");
    link("sub", "here/to_sub");
    fileOfBytes("here/\xFF.dcm");

    const QStringList filters = {"*.dcm", "*.dc3", "*.tif", "*tiff"};
    const FolderListing listing = FolderLister(filters).list(folder("here"));
    const QDir dir(folder("here"));
    EXPECT_TRUE(listing.isReadable);
    EXPECT_EQ(listing.files, dir.entryList(filters, QDir::Files, QDir::Unsorted));
    QStringList folders = dir.entryList(QDir::AllDirs | QDir::NoDotAndDotDot, QDir::Name);
    folders.removeAll("to_pipe.dcm");  // QDir takes it for both, and there is nothing to enter
    EXPECT_EQ(listing.folders, folders);
    EXPECT_EQ(listing.files.size(), 7);
    EXPECT_EQ(listing.folders.size(), 6);
}

TEST_F(BadInput, aListingOfNoFolderIsEmpty)
{
    write("file.dcm", "x");
    for (const QString& path : {folder() + "/gone", folder() + "/file.dcm", QString()}) {
        const FolderListing listing = FolderLister({"*.dcm"}).list(path);
        EXPECT_FALSE(listing.isReadable);
        EXPECT_TRUE(listing.files.isEmpty());
        EXPECT_TRUE(listing.folders.isEmpty());
    }
}

}  // namespace viz_test
