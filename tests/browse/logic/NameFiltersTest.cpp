#include "browse/logic/NameFilters.h"

#include <gtest/gtest.h>

namespace {

const QStringList filters = {"*.dcm", "*.dc3", "*.tif", "*tiff"};

}  // namespace

TEST(NameFilters, passTheEndingsInAnyCase)
{
    for (const char* const name :
         {"a.dcm", "a.DCM", "a.dc3", "a.Dc3", "a.tif", "b.TIF", "a.tiff", "a.b.dcm", "1.dcm"})
        EXPECT_TRUE(passesNameFilters(name, filters)) << name;
    for (const char* const name :
         {"a", "a.dcm2", "dcm", "adcm", "a.dc", "a.tif.txt", "atif", "a.raw", "a.dcm ", ""})
        EXPECT_FALSE(passesNameFilters(name, filters)) << name;
}

TEST(NameFilters, theLastOneHasNoDot)
{
    EXPECT_TRUE(passesNameFilters("tiff", filters));
    EXPECT_TRUE(passesNameFilters("graffitiff", filters));
    EXPECT_TRUE(passesNameFilters("slice_TIFF", filters));
}

TEST(NameFilters, oneWithoutAStarIsAWholeName)
{
    EXPECT_TRUE(passesNameFilters("DICOMDIR", {"dicomdir"}));
    EXPECT_FALSE(passesNameFilters("a.DICOMDIR", {"dicomdir"}));
    EXPECT_FALSE(passesNameFilters("a.dcm", {}));
}
