#include "InteractionFilter.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace hvutils {

namespace {

bool isUserInput(QEvent const& event)
{
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::ContextMenu:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return true;
    case QEvent::Close:
        return event.spontaneous();
    default:
        return false;
    }
}

bool isSpared(QWidget const* widget)
{
    QWidget const* const modal = QApplication::activeModalWidget();
    for (; widget; widget = widget->parentWidget()) {
        if (widget == modal || widget->property("alwaysInteractive").toBool()) return true;
    }
    return false;
}

}  // namespace

InteractionFilter::InteractionFilter()
{
    if (qApp) qApp->installEventFilter(this);
}

InteractionFilter::~InteractionFilter() = default;

bool InteractionFilter::eventFilter(QObject* receiver, QEvent* event)
{
    if (!receiver->isWidgetType() || !isUserInput(*event) || isSpared(static_cast<QWidget*>(receiver)))
        return false;
    event->ignore();
    return true;
}

}  // namespace hvutils
