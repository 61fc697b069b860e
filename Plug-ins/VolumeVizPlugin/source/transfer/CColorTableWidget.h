#pragma once

#include <QWidget>

class QImage;

/// A strip that shows a picture of a colour table over a checkerboard, so that its opacity can be seen.
class CColorTableWidget : public QWidget
{
    Q_OBJECT

public:
    explicit CColorTableWidget(QWidget* parent = nullptr);

    /// Shows `image`, which stays the caller's; null shows the checkerboard alone.
    void setImage(const QImage* image);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const QImage* m_image = nullptr;
};
