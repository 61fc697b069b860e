#pragma once

#include "hvapi/windows/CHVSChildWindow.h"

/// Window of one image of a dataset.
class HVAPI_EXPORT CHVSImageWindow : public CHVSChildWindow
{
    Q_OBJECT

public:
    explicit CHVSImageWindow(CHVSDataset* dataset, QWidget* parent = nullptr);
    ~CHVSImageWindow() override;

    /// The dataset of the image shown.
    CHVSDataset* getActiveDataset() override;

    /// Draws the image anew after its pixels changed.
    void redraw();

private:
    CHVSDataset* m_pDataset;
};
