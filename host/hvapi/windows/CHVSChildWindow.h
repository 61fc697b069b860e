#pragma once

#include "hvapi/hvapi_global.h"
#include "hvapi/values/SWindowControls.h"
#include "hvutils/tag_estatus.h"

#include <QWidget>

class C3DSGManager;
class CHVSDataset;
class CHVSSequenceDataset;

/// Content of a sub-window of the workspace that shows data: a sequence or an image. Its parentWidget() is
/// the CHVSMdiSubWindow.
class HVAPI_EXPORT CHVSChildWindow : public QWidget
{
    Q_OBJECT

public:
    explicit CHVSChildWindow(QWidget* parent = nullptr);
    ~CHVSChildWindow() override;

    /// The window of data that is active, or was active last while a tool's sub-window has the focus; null
    /// when there is none.
    static CHVSChildWindow* getActiveChildWnd();

    /// True for a CHVSSequenceWindow. Base: false.
    virtual bool isSequenceWindow();
    /// The dataset of a window that is no sequence window. Base: null.
    virtual CHVSDataset* getActiveDataset();
    /// The sequence of a sequence window. Base: null.
    virtual CHVSSequenceDataset* getWindowSequence();
    /// The scene graph shown; null before the 3D tab exists. Base: null.
    virtual C3DSGManager* getWindow3DSGManager();
    /// Creates the 3D tab where the window can have one, and brings it to the front. Base: nothing.
    virtual void prepare3DView();
    /// Lays the 3D tab out anew after its scene was rebuilt. Base: nothing.
    virtual void update3DLayout();
    /// Saves the window's sequence; 0 when it is on disk afterwards. Base: a failure, since there is no
    /// sequence.
    virtual tag_estatus saveSequence();
    /// True from the moment the window is being closed. Base: false.
    virtual bool isClosing();
    /// The window's own copy of its tools' state; never null.
    virtual SWindowControls* getWindowControls();
    /// Takes over a state of the 3D tools and shows it. Null is ignored. Base: stores it in the window's
    /// copy.
    virtual void apply3DControls(S3DControls* controls);
    /// Brings the 3D tool buttons in step with the window's copy of their state. Base: nothing.
    virtual void set3DToolsStates();

private:
    SWindowControls m_controls;
};
