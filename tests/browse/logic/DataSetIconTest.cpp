#include "browse/logic/DataSetIcon.h"

#include <gtest/gtest.h>

TEST(DataSetIcon, tellsTypeAndWhetherThereAreSeveralFiles)
{
    EXPECT_EQ(dataSetIcon("DICOM", 1), ":/Resource/dicomIcon.xpm");
    EXPECT_EQ(dataSetIcon("DICOM", 2), ":/Resource/dicomStackIcon.xpm");
    EXPECT_EQ(dataSetIcon("TIFF", 1), ":/Resource/tiffIcon.xpm");
    EXPECT_EQ(dataSetIcon("TIFF", 2), ":/Resource/tiffStackIcon.xpm");
}

TEST(DataSetIcon, ignoresTheCaseOfTheTypeAndTakesAnyOtherForTiff)
{
    EXPECT_EQ(dataSetIcon("dicom", 1), ":/Resource/dicomIcon.xpm");
    EXPECT_EQ(dataSetIcon("", 1), ":/Resource/tiffIcon.xpm");
    EXPECT_EQ(dataSetIcon("RAW", 3), ":/Resource/tiffStackIcon.xpm");
}
