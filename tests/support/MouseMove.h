#pragma once

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWidget>

namespace viz_test {

/// Moves the mouse over a widget. `QTest::mouseMove` moves the display's own pointer, and whatever window lies
/// on top there gets the event; this one reaches the widget whatever else is on the display.
inline void moveMouse(QWidget* widget, const QPoint& place)
{
    QMouseEvent event(QEvent::MouseMove, place, widget->mapToGlobal(place), Qt::NoButton, Qt::NoButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

}  // namespace viz_test
