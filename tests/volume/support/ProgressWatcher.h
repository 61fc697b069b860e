#pragma once

#include "hvutils/CHVSProgressBar.h"

#include <QApplication>
#include <QStringList>
#include <QTimer>

#include <functional>

namespace viz_test {

/// Looks at the progress dialog of a load whenever the load lets events through.
class ProgressWatcher
{
public:
    ProgressWatcher()
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
        m_timer.start(0);
    }

    /// Called for a visible dialog, once in each round of events.
    std::function<void(CHVSProgressBar&)> onStep;

    QStringList titles;  ///< each one once, in order
    int steps = 0;

private:
    void look()
    {
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget* window : windows) {
            auto* const dialog = qobject_cast<CHVSProgressBar*>(window);
            if (dialog == nullptr || !dialog->isVisible()) continue;
            ++steps;
            if (titles.isEmpty() || titles.last() != dialog->windowTitle()) titles << dialog->windowTitle();
            if (onStep) onStep(*dialog);
        }
    }

    QTimer m_timer;
};

}  // namespace viz_test
