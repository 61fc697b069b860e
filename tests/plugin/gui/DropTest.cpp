#include "gui/PluginBench.h"

#include <QMimeData>

namespace {

class Drop : public PluginBench
{};

}  // namespace

TEST_F(Drop, AFileIsLoadedIntoTheCurrentSequence)
{
    openCurrent("S1");
    const QString path = writeRaw(QString::fromUtf8("my sc\xc3\xa4n #1 100%.raw"));
    EXPECT_TRUE(dropOn(palette, QStringList(path)));
    EXPECT_EQ(record("S1").fileList, QStringList(path));
    EXPECT_TRUE(record("S1").bAutoFit);
    EXPECT_TRUE(record("S1").bModified);
}

TEST_F(Drop, TheFirstNameOfSeveralIsLoaded)
{
    openCurrent("S1");
    const QString later = writeRaw("b.raw");
    const QString first = writeRaw("B.raw");
    EXPECT_TRUE(dropOn(palette, QStringList({later, first})));
    EXPECT_EQ(record("S1").fileList, QStringList(first)) << "capitals come first";
}

TEST_F(Drop, AnAddressThatIsNoFileOpensNoDialog)
{
    openCurrent("S1");
    EXPECT_TRUE(dropOn(palette, QStringList()));
    EXPECT_FALSE(record("S1").bVolumeLoaded);
    EXPECT_TRUE(host.asked.isEmpty());
}

TEST_F(Drop, AnythingButAddressesIsRefused)
{
    openCurrent("S1");
    QMimeData text;
    text.setText("a.raw");
    EXPECT_FALSE(dropOn(palette, text));
}

TEST_F(Drop, TheFlagsOfADropEndWithIt)
{
    openCurrent("S1");
    EXPECT_TRUE(dropOn(palette, QStringList(writeRaw("a.raw"))));
    // A list that is given is still taken as given.
    EXPECT_TRUE(palette->onLoadVolumeData({writeRaw("b.raw"), writeRaw("a.raw")}, -1, -1));
    EXPECT_EQ(record("S1").fileList, QStringList(files.filePath("b.raw")));
}

TEST_F(Drop, WithoutASequenceNothingIsLoaded)
{
    EXPECT_TRUE(dropOn(palette, QStringList(writeRaw("a.raw"))));
    EXPECT_TRUE(host.asked.isEmpty());
}
