#pragma once

#include "hvapi/hvapi_global.h"
#include "hvimage/CILPalette.h"

#include <QImage>
#include <QPointer>
#include <QWidget>

class CHVSDataset;
class CHVSSequenceDataset;
class CILImage;
class QLabel;
class QListWidget;
class QSlider;

/// A click's picture, as large as there is room, with the bar of its colours beside it.
class HVAPI_EXPORT ClickView : public QWidget
{
    Q_OBJECT

public:
    explicit ClickView(QWidget* parent = nullptr);

    /// A null picture shows that there is none. The bar is there when `hasBar` is true.
    void display(QImage const& picture, bool hasBar, double low, double high);

    QImage const& picture() const { return m_picture; }
    QSize sizeHint() const override { return {420, 380}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintBar(QPainter& painter, QRect const& area);

    QImage m_picture;
    bool m_hasBar = false;
    double m_low = 0.0;
    double m_high = 0.0;
    CILPalette m_palette;
};

/// The clicks of a sequence: a list, the picture of the one selected, and the range of its colours.
class ClickPane : public QWidget
{
    Q_OBJECT

public:
    explicit ClickPane(QWidget* parent = nullptr);

    /// Takes the clicks anew; the selected one stays selected.
    void display(CHVSSequenceDataset* sequence);

private:
    void select(int row);
    void redraw();

    QListWidget* m_list;
    ClickView* m_view;
    QSlider* m_low;
    QSlider* m_high;
    QLabel* m_facts;
    QWidget* m_range;
    QPointer<CHVSDataset> m_dataset;
    QPointer<CHVSSequenceDataset> m_sequence;
};
