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
