#pragma once

#include "logic/Span.h"

#include <QObject>
#include <QRect>

class QSpanSlider;

// What a span slider tells and takes from assistive programs.
class SpanHandles
{
public:
    virtual ~SpanHandles() = default;
    virtual hvspinbox::Span const& state() const = 0;
    virtual hvspinbox::SpanHandle activeHandle() const = 0;
    virtual QRect handleRect(hvspinbox::SpanHandle handle) const = 0;  // in the widget's coordinates
    virtual void moveTo(hvspinbox::SpanHandle handle, int value) = 0;
};

// Stands for a handle: a slider of its own to assistive programs, called "Lower value" or "Upper value"
// behind the name of the span slider. A child of its slider.
class SpanHandleObject : public QObject
{
    Q_OBJECT

public:
    SpanHandleObject(QSpanSlider& slider, SpanHandles& handles, hvspinbox::SpanHandle handle);

    QSpanSlider& slider;
    SpanHandles& handles;
    hvspinbox::SpanHandle const handle;
};

// Makes the two handles known to assistive programs. `handles` lives as long as the slider.
void offerAccess(QSpanSlider& slider, SpanHandles& handles);

// Tells assistive programs of values that changed, and of the handle that keys go to.
void tellAccess(QSpanSlider& slider, hvspinbox::Span const& before, hvspinbox::Span const& now);
void tellFocus(QSpanSlider& slider, hvspinbox::SpanHandle handle);
