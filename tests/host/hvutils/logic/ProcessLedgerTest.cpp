#include "lib/hvutils/logic/ProcessLedger.h"

#include <gtest/gtest.h>

using hvutils::ProcessLedger;

namespace {

constexpr auto both = static_cast<tag_eLongProcessTypes>(eProcessGeneral | eProcessAcquisition);

}  // namespace

TEST(ProcessLedger, NothingRunsAtFirst)
{
    ProcessLedger const ledger;
    EXPECT_EQ(ledger.state().running, 0);
    EXPECT_FALSE(ledger.state().aborted);
    EXPECT_FALSE(ledger.state().abortable);
}

TEST(ProcessLedger, KindsAreTold)
{
    ProcessLedger ledger;
    ledger.begin(0, eProcessAcquisition, false, {});
    EXPECT_EQ(ledger.state().running, 4096);
    ledger.begin(0, eProcessReconstruction, false, {});
    EXPECT_EQ(ledger.state().running, 4096 | 0x40000);
    ledger.end(eProcessAcquisition);
    EXPECT_EQ(ledger.state().running, 0x40000);
}

TEST(ProcessLedger, KindsNest)
{
    ProcessLedger ledger;
    ledger.begin(0, eProcessGeneral, false, {});
    ledger.begin(0, both, false, {});
    ledger.end(both);
    EXPECT_EQ(ledger.state().running, static_cast<int>(eProcessGeneral));
    ledger.end(eProcessGeneral);
    EXPECT_EQ(ledger.state().running, 0);
}

TEST(ProcessLedger, AnEndWithoutABeginIsNotOwed)
{
    ProcessLedger ledger;
    ledger.end(eProcessAny);
    ledger.begin(0, eProcessGeneral, false, {});
    EXPECT_EQ(ledger.state().running, 1);
    ledger.end(eProcessAcquisition);
    EXPECT_EQ(ledger.state().running, 1);
}

TEST(ProcessLedger, AnyIsEveryKind)
{
    ProcessLedger ledger;
    ledger.begin(0, eProcessAny, false, {});
    EXPECT_EQ(ledger.state().running, 1048575);
    ledger.end(eProcessAny);
    EXPECT_EQ(ledger.state().running, 0);
}

TEST(ProcessLedger, OnlyAnAbortableProcessIsAbortedAndOnlyOnce)
{
    ProcessLedger ledger;
    EXPECT_FALSE(ledger.requestAbort());
    ledger.begin(0, eProcessAcquisition, false, {});
    EXPECT_FALSE(ledger.requestAbort());
    ledger.begin(0, eProcessGeneral, true, QStringLiteral("Aborting..."));
    EXPECT_EQ(ledger.state().abortText, QStringLiteral("Aborting..."));
    EXPECT_TRUE(ledger.requestAbort());
    EXPECT_TRUE(ledger.state().aborted);
    EXPECT_FALSE(ledger.requestAbort());
}

TEST(ProcessLedger, TheRequestLastsUntilTheNextFirstProcess)
{
    ProcessLedger ledger;
    ledger.begin(0, eProcessGeneral, true, {});
    ledger.requestAbort();
    ledger.begin(0, eProcessAcquisition, false, {});
    EXPECT_TRUE(ledger.state().aborted);
    ledger.end(both);
    EXPECT_TRUE(ledger.state().aborted);
    ledger.begin(0, eProcessGeneral, true, {});
    EXPECT_FALSE(ledger.state().aborted);
}

TEST(ProcessLedger, StepsAndMessageGoWithTheLastProcess)
{
    ProcessLedger ledger;
    ledger.begin(5, eProcessGeneral, false, {});
    EXPECT_EQ(ledger.state().totalSteps, 5);
    ledger.say(QStringLiteral("Working"), 2, 5);
    EXPECT_EQ(ledger.state().message, QStringLiteral("Working"));
    EXPECT_EQ(ledger.state().step, 2);
    ledger.end(eProcessGeneral);
    EXPECT_TRUE(ledger.state().message.isEmpty());
    EXPECT_EQ(ledger.state().step, 0);
    EXPECT_EQ(ledger.state().totalSteps, 0);
}
