#pragma once

#include "hvspinbox/hvspinbox_global.h"

#include <QSlider>
#include <memory>

// A slider with two handles, which mark a span within the slider's range. The lower value never exceeds the
// upper one: a value that is set past the other, or a handle dragged past it, pushes it. Both values stay in
// the range, also when that changes.
//
// One handle is active: the one that was touched last, or to which Tab went. Keys and a wheel move it up to
// the other one and no further. Value and position of the base class have no meaning here.
class HVSPINBOX_EXPORT QSpanSlider : public QSlider
{
    Q_OBJECT
    Q_PROPERTY(int lowerValue READ lowerValue WRITE setLowerValue NOTIFY lowerValueChanged)
    Q_PROPERTY(int upperValue READ upperValue WRITE setUpperValue NOTIFY upperValueChanged)

public:
    explicit QSpanSlider(QWidget* parent = nullptr);
    explicit QSpanSlider(Qt::Orientation orientation, QWidget* parent = nullptr);
    ~QSpanSlider() override;

    int lowerValue() const;
    int upperValue() const;

public slots:
    void setLowerValue(int value);
    void setUpperValue(int value);

signals:
    void lowerValueChanged(int value);
    void upperValueChanged(int value);
    // Once for each change, however many of the two values it concerns.
    void spanChanged(int lower, int upper);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void sliderChange(SliderChange change) override;

private:
    Q_DISABLE_COPY(QSpanSlider)
    class Private;
    std::unique_ptr<Private> d;
};
