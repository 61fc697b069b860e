#pragma once

#include <QObject>

namespace hvutils {

// While it lives, the application's windows get no mouse, keyboard or drop events, and cannot be closed by
// the user. Spared are the active modal window and widgets below one with the dynamic property
// "alwaysInteractive".
class InteractionFilter : public QObject
{
public:
    InteractionFilter();
    ~InteractionFilter() override;

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;
};

}  // namespace hvutils
