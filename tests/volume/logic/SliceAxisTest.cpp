#include "volume/logic/SliceAxis.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using viz::SliceAxis;

TEST(SliceAxis, IsTheComponentInWhichBothDirectionsAgree)
{
    EXPECT_EQ(viz::axisOfOrientation({{1, 0, 0}, {0, 1, 0}}), SliceAxis::Axial);
    EXPECT_EQ(viz::axisOfOrientation({{1, 0, 0}, {0, 0, -1}}), SliceAxis::Coronal);
    EXPECT_EQ(viz::axisOfOrientation({{0, 1, 0}, {0, 0, -1}}), SliceAxis::Sagittal);
}

TEST(SliceAxis, LaterAgreementOverridesEarlierOne)
{
    EXPECT_EQ(viz::axisOfOrientation({{0, 0, 0}, {0, 1, 0}}), SliceAxis::Axial);
    EXPECT_EQ(viz::axisOfOrientation({{0.5F, 0.5F, 1}, {0.5F, 0.5F, 0}}), SliceAxis::Coronal);
}

TEST(SliceAxis, AgreementIsExact)
{
    EXPECT_EQ(viz::axisOfOrientation({{1, 0, 1e-6F}, {0, 1, 0}}), std::nullopt);
}

TEST(SliceAxis, OfAnImageType)
{
    EXPECT_EQ(viz::axisOfImageType("SAGITTAL"), SliceAxis::Sagittal);
    EXPECT_EQ(viz::axisOfImageType("CT_CORONAL MPR"), SliceAxis::Coronal);
    EXPECT_EQ(viz::axisOfImageType("AXIAL"), SliceAxis::Axial);
    EXPECT_EQ(viz::axisOfImageType("TRANSVERSE"), SliceAxis::Axial);
    EXPECT_EQ(viz::axisOfImageType("AXIAL SAGITTAL"), SliceAxis::Sagittal);
    EXPECT_EQ(viz::axisOfImageType("CORONAL AXIAL"), SliceAxis::Coronal);
    EXPECT_EQ(viz::axisOfImageType("LOCALIZER"), std::nullopt);
    EXPECT_EQ(viz::axisOfImageType("axial"), std::nullopt);
    EXPECT_EQ(viz::axisOfImageType(""), std::nullopt);
}

TEST(SliceAxis, OfALocationTheFirstEqualComponent)
{
    EXPECT_EQ(viz::axisOfLocation({5, 6, 7}, 5), SliceAxis::Sagittal);
    EXPECT_EQ(viz::axisOfLocation({5, 6, 7}, 6), SliceAxis::Coronal);
    EXPECT_EQ(viz::axisOfLocation({5, 6, 7}, 7), SliceAxis::Axial);
    EXPECT_EQ(viz::axisOfLocation({0, 0, 0}, 0), SliceAxis::Sagittal);
    EXPECT_EQ(viz::axisOfLocation({5, 6, 7}, 8), std::nullopt);
}

TEST(SliceAxis, OrderOfTheExtents)
{
    EXPECT_THAT(viz::extentsAcross(SliceAxis::Sagittal, 1, 2, 3), ElementsAre(3, 2, 1));
    EXPECT_THAT(viz::extentsAcross(SliceAxis::Coronal, 1, 2, 3), ElementsAre(1, 3, 2));
    EXPECT_THAT(viz::extentsAcross(SliceAxis::Axial, 1, 2, 3), ElementsAre(1, 2, 3));
}

TEST(SliceAxis, ExchangeOfTheCounts)
{
    const auto counts = [](SliceAxis axis) {
        const viz::BlockCounts swapped = viz::countsAcross(axis, {4, 5, 6});
        return std::array<unsigned, 3>{swapped.columns, swapped.rows, swapped.frames};
    };
    EXPECT_THAT(counts(SliceAxis::Sagittal), ElementsAre(6U, 5U, 4U));
    EXPECT_THAT(counts(SliceAxis::Coronal), ElementsAre(4U, 5U, 6U));
    EXPECT_THAT(counts(SliceAxis::Axial), ElementsAre(4U, 6U, 5U));
}

}  // namespace
