#pragma once

#include "hvspinbox/hvspinbox_global.h"

#include <QSlider>
#include <memory>

// A slider with two handles, which mark a span within the slider's range. The lower value never exceeds the
// upper one: a handle that is moved past the other pushes it.
class HVSPINBOX_EXPORT QSpanSlider : public QSlider
{
    Q_OBJECT
    Q_PROPERTY(int lowerValue READ lowerValue WRITE setLowerValue)
    Q_PROPERTY(int upperValue READ upperValue WRITE setUpperValue)

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
    void spanChanged(int lower, int upper);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    Q_DISABLE_COPY(QSpanSlider)
    class Private;
    std::unique_ptr<Private> d;
};
