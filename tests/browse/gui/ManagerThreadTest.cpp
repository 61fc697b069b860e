#include "Browse.h"

#include <QElapsedTimer>

#include <random>

namespace viz_test {

class ManagerThread : public BrowseTree
{
protected:
    void manyFolders(int count)
    {
        for (int i = 0; i < count; ++i)
            dicom(QString("%1/a.dcm").arg(i, 4, 10, QChar('0')));
    }
};

TEST_F(ManagerThread, onAbortOnlyTheEndFollows)
{
    manyFolders(400);
    // The thread is always ahead of the receiver: what it had posted before the abort arrives, in order.
    receiver.onEvent = [&](int type) {
        if (type == CVolBrowseProgressEvent::eventType && receiver.foldersEntered == 3) manager.abort();
    };
    browseTree();
    EXPECT_EQ(receiver.log.last(), "end Browsing aborted. ");
    EXPECT_EQ(receiver.log.filter("end ").size(), 1);
    EXPECT_LT(receiver.foldersEntered, 401);
    EXPECT_LE(static_cast<int>(receiver.found.size()), receiver.foldersEntered);
}

TEST_F(ManagerThread, anAbortedBrowseIsTheBeginningOfAWholeOne)
{
    manyFolders(60);
    browseTree();
    const QStringList whole = receiver.log;

    std::mt19937 random(1);
    for (int i = 0; i < 60; ++i) {
        receiver.log.clear();
        manager.setBrowsePath(folder(), true);
        manager.start(QThread::InheritPriority);
        QThread::usleep(random() % 3000);
        manager.abort();
        ASSERT_TRUE(manager.wait(20000));
        QCoreApplication::processEvents();
        ASSERT_FALSE(receiver.log.isEmpty());
        const QString end = receiver.log.takeLast();
        EXPECT_TRUE(end == "end Browsing aborted. " || end == "end ") << end.toStdString();
        EXPECT_EQ(receiver.log, whole.mid(0, receiver.log.size()));
        EXPECT_EQ(host.cursorDepth(), 0);
    }
}

TEST_F(ManagerThread, anAbortBeforeTheThreadIsUnderWayIsNotLost)
{
    manyFolders(400);
    for (int i = 0; i < 20; ++i) {
        receiver.log.clear();
        manager.setBrowsePath(folder(), true);
        manager.start(QThread::InheritPriority);
        manager.abort();
        ASSERT_TRUE(manager.wait(20000));
        QCoreApplication::processEvents();
        EXPECT_EQ(receiver.log.last(), "end Browsing aborted. ");
        EXPECT_LT(receiver.log.size(), 400);
    }
}

TEST_F(ManagerThread, afterAnAbortTheNextBrowseIsWhole)
{
    manyFolders(5);
    manager.abort();
    browseTree();
    EXPECT_EQ(receiver.log.last(), "end ");
    EXPECT_EQ(receiver.found.size(), 5U);
}

TEST_F(ManagerThread, destructionDuringABrowseEndsIt)
{
    manyFolders(400);
    for (int i = 0; i < 10; ++i) {
        QElapsedTimer clock;
        clock.start();
        {
            CVolBrowseManager another(&receiver);
            another.setBrowsePath(folder(), true);
            another.start(QThread::InheritPriority);
            QThread::usleep(static_cast<unsigned long>(i) * 200);
        }
        EXPECT_LT(clock.elapsed(), 10000);
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(host.cursorDepth(), 0);
}

TEST_F(ManagerThread, eventsOfAReceiverThatGoesAreFreed)
{
    manyFolders(20);
    auto gone = std::make_unique<BrowseReceiver>();
    {
        CVolBrowseManager another(gone.get());
        another.setBrowsePath(folder(), true);
        another.start(QThread::InheritPriority);
        ASSERT_TRUE(another.wait(20000));
    }
    gone.reset();  // the leak check of the sanitizers sees what is left behind
    QCoreApplication::processEvents();
}

namespace {

int living = 0;

class CountedInfo : public CVolBrowserInfo
{
public:
    CountedInfo() { ++living; }
    ~CountedInfo() override { --living; }
    CountedInfo(const CountedInfo&) = delete;
    CountedInfo& operator=(const CountedInfo&) = delete;
};

}  // namespace

TEST(BrowseEvents, haveTheirTypes)
{
    EXPECT_EQ(CVolBrowseStartEvent("").type(), 1100);
    EXPECT_EQ(CVolBrowseProgressEvent("", 1, 1).type(), 1101);
    EXPECT_EQ(CVolBrowseOneFileCompltdEvent(nullptr).type(), 1102);
    EXPECT_EQ(CVolBrowseEndEvent("").type(), 1103);
}

TEST(BrowseEvents, anInfoThatNobodyTakesGoesWithItsEvent)
{
    living = 0;
    {
        CVolBrowseOneFileCompltdEvent event(std::make_unique<CountedInfo>());
        EXPECT_EQ(living, 1);
    }
    EXPECT_EQ(living, 0);
    {
        QObject receiver;
        QCoreApplication::postEvent(&receiver,
                                    new CVolBrowseOneFileCompltdEvent(std::make_unique<CountedInfo>()));
        EXPECT_EQ(living, 1);
    }
    EXPECT_EQ(living, 0);
    QObject deaf;
    QCoreApplication::postEvent(&deaf, new CVolBrowseOneFileCompltdEvent(std::make_unique<CountedInfo>()));
    QCoreApplication::processEvents();
    EXPECT_EQ(living, 0);
}

TEST(BrowseEvents, anInfoIsTakenOnce)
{
    living = 0;
    std::unique_ptr<CVolBrowserInfo> info;
    {
        CVolBrowseOneFileCompltdEvent event(std::make_unique<CountedInfo>());
        info = event.takeInfo();
        EXPECT_TRUE(info);
        EXPECT_FALSE(event.takeInfo());
    }
    EXPECT_EQ(living, 1);
    info.reset();
    EXPECT_EQ(living, 0);
}

TEST(BrowseInfo, beginsAsOneDicomFile)
{
    const CVolBrowserInfo info;
    EXPECT_EQ(info.m_type, "DICOM");
    EXPECT_EQ(info.m_fileCount, 1);
    EXPECT_FALSE(info.m_isCtDataFolder);
}

}  // namespace viz_test
