#include "plugin/SVolVizControls.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

bool isIdentity(const matrix& m)
{
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            if (m(row, column) != (row == column ? 1.0 : 0.0)) return false;
    return true;
}

template <class Values>
bool allZero(const Values& values)
{
    return std::all_of(values.begin(), values.end(), [](auto value) { return value == 0; });
}

}  // namespace

TEST(Record, StartsWithTheseValues)
{
    const SVolVizControls r;
    EXPECT_FALSE(r.bVolumeLoaded);
    EXPECT_FALSE(r.bEnabled);
    EXPECT_EQ(r.nLevelOfDetail, 100);
    EXPECT_EQ(r.nSliceOpacity, 100);
    EXPECT_EQ(r.nSliceOpacityMin, 0);
    EXPECT_EQ(r.nSliceOpacityMax, 100);
    EXPECT_EQ(r.nSliceColorSource, 0);
    EXPECT_EQ(r.nVolumeColorTable, 0);
    EXPECT_TRUE(r.bReserved);
    EXPECT_FALSE(r.bTransformTool);
    EXPECT_FALSE(r.bCropTool);
    EXPECT_EQ(r.nSliceMin, 0);
    EXPECT_EQ(r.nSliceMax, 100);
    EXPECT_EQ(r.dReserved, 0.0);
    EXPECT_EQ(r.dVolumeMin, 0.0);
    EXPECT_EQ(r.dVolumeMax, 255.0);
    EXPECT_EQ(r.dSliceStep, 1.0);
    EXPECT_TRUE(r.bLogHistogram);
    EXPECT_FALSE(r.bMIP);
    EXPECT_TRUE(r.bLighting);
    EXPECT_TRUE(r.bMIPEnabled);
    EXPECT_TRUE(r.bLightingEnabled);
    EXPECT_FALSE(r.bVolumeColorTableReverse);
    EXPECT_EQ(r.nOpacitySlider, 100);
    EXPECT_FALSE(r.bAutoFit);
    EXPECT_TRUE(r.bTransformResetEnabled);
    EXPECT_FALSE(r.bFiducialEnabled);
    EXPECT_TRUE(r.transferPoints.isEmpty());
    EXPECT_TRUE(r.transferColors.isEmpty());
    EXPECT_TRUE(r.transferLocks.isEmpty());
    EXPECT_EQ(r.histogram.size(), 255u);
    EXPECT_TRUE(allZero(r.histogram));
    EXPECT_EQ(r.strUnit, QString("Counts"));
    EXPECT_EQ(r.sliceSettingKeys, QStringList({"Opacity", "LogHistogram", "MIP", "GradiantIllumination",
                                               "LevelOfDetail", "SliceColorTable", "SliceUseColorTable",
                                               "SliceUseTransferFunction", "MinThreshold", "MaxThreshold"}));
    EXPECT_EQ(r.cropSettingKeys, QStringList({"Enabled", "BoundingBox"}));
    EXPECT_FALSE(r.bSliceColorTableReverse);
    EXPECT_EQ(r.nSliceColorTable, 0);
    EXPECT_FALSE(r.bSliceReverseInitial);
    EXPECT_TRUE(r.volumeInfo.isEmpty());
    EXPECT_FALSE(r.bModified);
    EXPECT_TRUE(r.fileList.isEmpty());
    EXPECT_FALSE(r.bMedianFilterDenoise);
    EXPECT_TRUE(r.bFilterDenoiseGradient);
    EXPECT_TRUE(r.bBestQuality);
    EXPECT_EQ(r.fHistogramYAxisMax, 1.0f);
}

TEST(Record, RegistrationStartsUnregistered)
{
    const SRegistrationState state;
    EXPECT_FALSE(state.bRegistered);
    EXPECT_TRUE(isIdentity(state.registrationMatrix));
    EXPECT_EQ(state.registrationCorners.size(), 8u);
    EXPECT_TRUE(state.registrationMessage.isNull());
}

TEST(Record, ReservedFieldsAreDefinedFromTheStart)
{
    const SVolVizControls r;
    EXPECT_TRUE(allZero(r.reservedCounts));
    EXPECT_FALSE(r.bReservedFlag);
    EXPECT_TRUE(allZero(r.reservedValues));
}

// Every field gets a value of its own, so that one that a copy leaves out shows.
TEST(Record, ACopyHasEveryField)
{
    SVolVizControls r;
    r.bVolumeLoaded = r.bEnabled = true;
    r.nLevelOfDetail = 1;
    r.reservedCounts = {2, 3, 4};
    r.bReservedFlag = true;
    r.nSliceOpacity = 5;
    r.nSliceOpacityMin = 6;
    r.nSliceOpacityMax = 7;
    r.reservedValues = {1, 2, 3, 4, 5, 6, 7, 8, 9};
    r.nSliceColorSource = 8;
    r.nVolumeColorTable = 9;
    r.bReserved = false;
    r.bTransformTool = r.bCropTool = true;
    r.nSliceMin = 10;
    r.nSliceMax = 11;
    r.dReserved = 12;
    r.dVolumeMin = 13;
    r.dVolumeMax = 14;
    r.dSliceStep = 15;
    r.bLogHistogram = false;
    r.bMIP = true;
    r.bLighting = r.bMIPEnabled = r.bLightingEnabled = false;
    r.bVolumeColorTableReverse = true;
    r.nOpacitySlider = 16;
    r.bAutoFit = true;
    r.bTransformResetEnabled = false;
    r.bFiducialEnabled = true;
    r.transferPoints << QPointF(1, 2);
    r.transferColors << qRgb(1, 2, 3);
    r.transferLocks << LockToTop;
    r.histogram.fill(17);
    r.strUnit = "Hounsfield";
    r.sliceSettingKeys = QStringList("a");
    r.cropSettingKeys = QStringList("b");
    r.bSliceColorTableReverse = true;
    r.nSliceColorTable = 18;
    r.bSliceReverseInitial = true;
    r.volumeInfo.insert("k", "v");
    r.bModified = true;
    r.fileList = QStringList("f");
    r.registration.bRegistered = true;
    r.registration.registrationMatrix(0, 3) = 19;
    r.registration.registrationCorners[7].set(20, 21, 22);
    r.registration.registrationMessage = "m";
    r.bMedianFilterDenoise = true;
    r.bFilterDenoiseGradient = r.bBestQuality = false;
    r.fHistogramYAxisMax = 23;

    SVolVizControls c(r);
    EXPECT_TRUE(c.bVolumeLoaded && c.bEnabled && c.bReservedFlag && c.bTransformTool && c.bCropTool &&
                c.bMIP);
    EXPECT_TRUE(c.bVolumeColorTableReverse && c.bAutoFit && c.bFiducialEnabled && c.bSliceColorTableReverse);
    EXPECT_TRUE(c.bSliceReverseInitial && c.bModified && c.registration.bRegistered &&
                c.bMedianFilterDenoise);
    EXPECT_FALSE(c.bReserved || c.bLogHistogram || c.bLighting || c.bMIPEnabled || c.bLightingEnabled);
    EXPECT_FALSE(c.bTransformResetEnabled || c.bFilterDenoiseGradient || c.bBestQuality);
    EXPECT_EQ(c.nLevelOfDetail, 1);
    EXPECT_EQ(c.reservedCounts, r.reservedCounts);
    EXPECT_EQ(c.nSliceOpacity, 5);
    EXPECT_EQ(c.nSliceOpacityMin, 6);
    EXPECT_EQ(c.nSliceOpacityMax, 7);
    EXPECT_EQ(c.reservedValues, r.reservedValues);
    EXPECT_EQ(c.nSliceColorSource, 8);
    EXPECT_EQ(c.nVolumeColorTable, 9);
    EXPECT_EQ(c.nSliceMin, 10);
    EXPECT_EQ(c.nSliceMax, 11);
    EXPECT_EQ(c.dReserved, 12);
    EXPECT_EQ(c.dVolumeMin, 13);
    EXPECT_EQ(c.dVolumeMax, 14);
    EXPECT_EQ(c.dSliceStep, 15);
    EXPECT_EQ(c.nOpacitySlider, 16);
    EXPECT_EQ(c.transferPoints, r.transferPoints);
    EXPECT_EQ(c.transferColors, r.transferColors);
    EXPECT_EQ(c.transferLocks, r.transferLocks);
    EXPECT_EQ(c.histogram, r.histogram);
    EXPECT_EQ(c.strUnit, QString("Hounsfield"));
    EXPECT_EQ(c.sliceSettingKeys, QStringList("a"));
    EXPECT_EQ(c.cropSettingKeys, QStringList("b"));
    EXPECT_EQ(c.nSliceColorTable, 18);
    EXPECT_EQ(c.volumeInfo.value("k"), QString("v"));
    EXPECT_EQ(c.fileList, QStringList("f"));
    EXPECT_EQ(c.registration.registrationMatrix(0, 3), 19);
    EXPECT_EQ(c.registration.registrationCorners[7].z(), 22);
    EXPECT_EQ(c.registration.registrationMessage, QString("m"));
    EXPECT_EQ(c.fHistogramYAxisMax, 23);
}
