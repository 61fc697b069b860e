#include "Workspace.h"

#include "Icons.h"
#include "Theme.h"

#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvapi/windows/CHVSMdiSubWindow.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "hvutils/CHVSLog.h"
#include "lib/hvapi/sequence/SequenceRegistry.h"
#include "lib/hvapi/windows/WindowRegistry.h"
#include "lib/hvutils/HostServices.h"

#include <QCloseEvent>
#include <QPainter>
#include <QTimer>

namespace {

/// A busy program says so once, in the status line.
bool mayClose()
{
    if (HostServices::instance().canClose()) return true;
    getLogObject()->log(QStringLiteral("Work is going on: nothing can be closed now."), QString(), 0,
                        QString(), CHVSLog::eStatusLine, false);
    return false;
}

}  // namespace

Workspace::Workspace(QWidget* parent)
    : QMdiArea(parent)
{
    setObjectName(QStringLiteral("Workspace"));
    setBackground(Theme::workspace);
    setActivationOrder(QMdiArea::ActivationHistoryOrder);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setFrameShape(QFrame::NoFrame);

    const SequenceRegistry& sequences = SequenceRegistry::instance();
    connect(&sequences, &SequenceRegistry::windowCreated, this, &Workspace::wrap);
    connect(&sequences, &SequenceRegistry::sequenceAdded, this, &Workspace::welcome);
    connect(&sequences, &SequenceRegistry::sequenceAboutToBeRemoved, this,
            &Workspace::sequenceAboutToBeRemoved);
    const WindowRegistry& windows = WindowRegistry::instance();
    connect(&windows, &WindowRegistry::activeChanged, this, &Workspace::onActiveChanged);
    connect(&windows, &WindowRegistry::currentTabChanged, this,
            [this](CHVSSequenceWindow* window, const QString& tab) {
                if (window == WindowRegistry::instance().active()) emit tabChanged(tab);
            });
    connect(&windows, &WindowRegistry::view3DChanged, this,
            [this](CHVSSequenceWindow* window, bool clearResults) {
                if (window == WindowRegistry::instance().active()) emit view3DChanged(clearResults);
            });
}

Workspace::~Workspace()
{
    ++m_closing;
}

CHVSSequenceDataset* Workspace::createScene(const QString& wish)
{
    SequenceRegistry& registry = SequenceRegistry::instance();
    SequenceDescription description;
    description.id = registry.freeId(wish);
    description.kind = SequenceKind::Scene3D;
    CHVSSequenceDataset* sequence = registry.open(description);
    if (!sequence)
        getLogObject()->log(QStringLiteral("No 3D scene can be called '%1'.").arg(wish), QString(), 0,
                            QString(), CHVSLog::eError, false);
    return sequence;
}

void Workspace::bringToFront(CHVSSequenceDataset* sequence)
{
    CHVSMdiSubWindow* frame = m_frames.value(sequence);
    if (!frame) return;
    frame->showWindow();
    WindowRegistry::instance().setActive(CHVSSequenceWindow::getSequenceWindow(sequence));
}

CHVSSequenceDataset* Workspace::activeSequence() const
{
    CHVSChildWindow* window = WindowRegistry::instance().active();
    return window ? window->getWindowSequence() : nullptr;
}

CHVSMdiSubWindow* Workspace::addTool(QWidget* tool)
{
    if (auto* frame = qobject_cast<CHVSMdiSubWindow*>(tool->parentWidget())) return frame;
    auto* frame = new CHVSMdiSubWindow;
    frame->setWidget(tool);
    frame->setWindowTitle(tool->windowTitle());
    frame->setWindowIcon(Icons::make(Icons::Shape::Program));
    frame->setAttribute(Qt::WA_DeleteOnClose, false);
    addSubWindow(frame);
    frame->hide();
    return frame;
}

void Workspace::wrap(CHVSSequenceWindow* window)
{
    if (window->parentWidget()) return;
    auto* frame = new CHVSMdiSubWindow;
    frame->setWidget(window);
    frame->setWindowIcon(Icons::make(Icons::Shape::Program));
    frame->setAttribute(Qt::WA_DeleteOnClose, false);
    frame->installEventFilter(this);
    addSubWindow(frame);
    m_frames.insert(window->getWindowSequence(), frame);
}

void Workspace::welcome(CHVSSequenceDataset* sequence)
{
    if (C3DSGManager* graph = sequence->get3DSGManager()) {
        connect(graph, &C3DSGManager::transformObjectChanged, this, [this, sequence](const QString& object) {
            if (sequence == activeSequence()) emit transformObjectChanged(object);
        });
    }
    emit sequenceAdded(sequence);
    CHVSMdiSubWindow* frame = m_frames.value(sequence);
    if (!frame) return;
    frame->resize(qMin(860, viewport()->width() * 3 / 4), qMin(680, viewport()->height() * 4 / 5));
    const bool isAlone = m_frames.size() == 1;
    if (isAlone) frame->setWindowState(Qt::WindowMaximized);
    frame->showWindow();
    // the workspace itself may be out of sight, and then nothing is activated by being shown
    WindowRegistry::instance().setActive(CHVSSequenceWindow::getSequenceWindow(sequence));
}

void Workspace::onActiveChanged(CHVSChildWindow*)
{
    if (m_closing == 0) emit sequenceChanged(activeSequence());
}

bool Workspace::closeSequence(CHVSSequenceDataset* sequence)
{
    return mayClose() && settle({sequence}) && close(sequence);
}

bool Workspace::settle(const QList<CHVSSequenceDataset*>& sequences)
{
    if (!m_settler) return true;
    // a question is open already, and events go on below it
    if (m_isSettling) return false;
    m_isSettling = true;
    const bool isSettled = m_settler(sequences);
    m_isSettling = false;
    return isSettled;
}

bool Workspace::close(CHVSSequenceDataset* sequence)
{
    ++m_closing;
    const bool isClosed = SequenceRegistry::instance().close(sequence);
    if (isClosed) {
        // its window is gone already, what is left is an empty frame
        if (CHVSMdiSubWindow* frame = m_frames.take(sequence)) {
            removeSubWindow(frame);
            delete frame;
        }
        activateNext();
    }
    --m_closing;
    if (isClosed && m_closing == 0) emit sequenceChanged(activeSequence());
    return isClosed;
}

void Workspace::activateNext()
{
    QList<QMdiSubWindow*> frames = subWindowList(QMdiArea::ActivationHistoryOrder);
    while (!frames.isEmpty()) {
        QMdiSubWindow* frame = frames.takeLast();
        auto* window = qobject_cast<CHVSSequenceWindow*>(frame->widget());
        if (!window || frame->isHidden()) continue;
        setActiveSubWindow(frame);
        WindowRegistry::instance().setActive(window);
        return;
    }
}

bool Workspace::closeAll()
{
    if (!mayClose() || !settle(SequenceRegistry::instance().sequences())) return false;
    QList<CHVSSequenceDataset*> sequences = SequenceRegistry::instance().sequences();
    while (!sequences.isEmpty()) {
        if (!mayClose()) return false;
        close(sequences.takeLast());
    }
    return SequenceRegistry::instance().sequences().isEmpty();
}

void Workspace::closeWhatIsLeft()
{
    const QList<CHVSSequenceDataset*> sequences = m_frames.keys();
    for (CHVSSequenceDataset* sequence : sequences)
        close(sequence);
}

QList<QMdiSubWindow*> Workspace::shownWindows() const
{
    QList<QMdiSubWindow*> shown;
    const QList<QMdiSubWindow*> frames = subWindowList(QMdiArea::CreationOrder);
    for (QMdiSubWindow* frame : frames) {
        if (!frame->isHidden()) shown << frame;
    }
    return shown;
}

bool Workspace::eventFilter(QObject* watched, QEvent* event)
{
    auto* frame = qobject_cast<CHVSMdiSubWindow*>(watched);
    auto* window = frame ? qobject_cast<CHVSSequenceWindow*>(frame->widget()) : nullptr;
    if (event->type() != QEvent::Close || !window) return QMdiArea::eventFilter(watched, event);
    // The frame can't be deleted from inside its own event.
    event->ignore();
    CHVSSequenceDataset* sequence = window->getWindowSequence();
    QTimer::singleShot(0, this, [this, sequence] {
        if (SequenceRegistry::instance().contains(sequence)) closeSequence(sequence);
    });
    return true;
}

void Workspace::paintEvent(QPaintEvent* event)
{
    QMdiArea::paintEvent(event);
    if (!shownWindows().isEmpty()) return;
    QPainter painter(viewport());
    const QRect area = viewport()->rect();
    constexpr int iconSide = 72;
    const QRect icon(area.center().x() - iconSide / 2, area.center().y() - iconSide - 12, iconSide, iconSide);
    painter.setOpacity(0.45);
    Icons::make(Icons::Shape::Program).paint(&painter, icon);
    painter.setOpacity(1.0);
    painter.setPen(Theme::quietText);
    QFont font = painter.font();
    font.setPointSizeF(font.pointSizeF() * 1.15);
    painter.setFont(font);
    painter.drawText(QRect(area.left(), icon.bottom() + 18, area.width(), 60),
                     Qt::AlignHCenter | Qt::AlignTop,
                     QStringLiteral("Open a volume with Ctrl+O, or drop its files here.\n"
                                    "Ctrl+N makes an empty 3D scene."));
}
