#include "SequenceBuilder.h"

#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvapi/windows/CHVSMdiSubWindow.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "lib/hvapi/sequence/SequenceRegistry.h"
#include "lib/hvapi/windows/WindowRegistry.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QWindow>

#include <utility>

namespace {

constexpr int exposeLimit = 5000;  // milliseconds

void waitUntilOnScreen(const QWidget& widget)
{
    const QDeadlineTimer deadline(exposeLimit);
    while (!deadline.hasExpired()) {
        const QWindow* handle = widget.window()->windowHandle();
        if (handle && handle->isExposed()) return;
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
    }
}

}  // namespace

TestSequence::TestSequence(const SequenceDescription& description)
{
    SequenceRegistry& registry = SequenceRegistry::instance();
    // wrapped before the plug-in hears of the sequence, as in a workspace
    const QMetaObject::Connection wrap = QObject::connect(&registry, &SequenceRegistry::windowCreated,
                                                          &registry, [this](CHVSSequenceWindow* window) {
                                                              if (window->parentWidget()) return;
                                                              m_frame = new CHVSMdiSubWindow;
                                                              m_frame->setWidget(window);
                                                              m_frame->resize(400, 400);
                                                          });
    if (registry.open(description)) m_id = description.id;
    QObject::disconnect(wrap);
}

TestSequence::TestSequence(TestSequence&& other) noexcept
    : m_id(std::exchange(other.m_id, QString()))
    , m_frame(std::exchange(other.m_frame, nullptr))
{}

TestSequence::~TestSequence()
{
    close();
}

CHVSSequenceDataset* TestSequence::dataset() const
{
    return m_id.isEmpty() ? nullptr : SequenceRegistry::instance().find(m_id);
}

CHVSSequenceWindow* TestSequence::window() const
{
    return CHVSSequenceWindow::getSequenceWindow(dataset());
}

void TestSequence::show()
{
    if (!m_frame) return;
    m_frame->show();
    waitUntilOnScreen(*m_frame);
    WindowRegistry::instance().setActive(window());
}

void TestSequence::close()
{
    if (CHVSSequenceDataset* sequence = dataset()) SequenceRegistry::instance().close(sequence);
    m_id.clear();
    delete std::exchange(m_frame, nullptr);
}

SequenceBuilder::SequenceBuilder(const QString& id)
{
    m_description.id = id.isEmpty() ? SequenceRegistry::instance().freeId(QStringLiteral("sequence")) : id;
}

SequenceBuilder& SequenceBuilder::sla()
{
    m_description.kind = SequenceKind::Sla;
    return *this;
}

SequenceBuilder& SequenceBuilder::ct()
{
    m_description.kind = SequenceKind::Ct;
    return *this;
}

SequenceBuilder& SequenceBuilder::scene3D()
{
    m_description.kind = SequenceKind::Scene3D;
    return *this;
}

SequenceBuilder& SequenceBuilder::other()
{
    m_description.kind = SequenceKind::Other;
    return *this;
}

SequenceBuilder& SequenceBuilder::loadedAsGroup()
{
    m_description.loadedAsGroup = true;
    return *this;
}

SequenceBuilder& SequenceBuilder::folder(const QString& infoPath)
{
    m_description.infoPath = infoPath;
    return *this;
}

SequenceBuilder& SequenceBuilder::clicks(const QStringList& clickNumbers)
{
    m_description.clickNumbers = clickNumbers;
    return *this;
}

TestSequence SequenceBuilder::open() const
{
    return TestSequence(m_description);
}
