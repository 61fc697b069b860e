#include "browse/logic/FileOrder.h"

#include <gtest/gtest.h>

TEST(FileOrder, IsByNameIgnoringCase)
{
    QStringList names = {"slice_10.dcm", "b.tif", "A.tif", "slice_02.dcm", "a.tif", "C.tif"};
    sortByName(names);
    EXPECT_EQ(names, (QStringList{"A.tif", "a.tif", "b.tif", "C.tif", "slice_02.dcm", "slice_10.dcm"}));
    QStringList none;
    sortByName(none);
    EXPECT_TRUE(none.isEmpty());
}

TEST(FileOrder, isThatOfTextsWithoutCase)
{
    QStringList const names = {"b.dcm", "B1.dcm", "a",  "A2", "a10",   "_x",     "Zz",    "ä.tif", "Ä1.tif",
                               "aÄ",    "aä2",    "ab", "aZ", "1.dcm", "10.dcm", "2.dcm", ""};
    for (QString const& left : names)
        for (QString const& right : names) {
            QStringList pair = {left, right};
            sortByName(pair);
            EXPECT_LE(pair[0].compare(pair[1], Qt::CaseInsensitive), 0)
                << left.toStdString() << ' ' << right.toStdString();
        }
}
