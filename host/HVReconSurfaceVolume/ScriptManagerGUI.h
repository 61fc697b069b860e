#pragma once

#include "HVReconSurfaceVolume/HVReconSurfaceVolume_global.h"
#include "HVReconSurfaceVolume/ScriptManagerKernel.h"

#include <memory>

class QWidget;

// The script manager with its controls.
class HVRECONSURFACEVOLUME_EXPORT ScriptManagerGUI : public ScriptManagerKernel
{
    Q_OBJECT

public:
    explicit ScriptManagerGUI(QWidget* parent);
    ~ScriptManagerGUI() override;

    // The controls, to be put into a palette as the tab "Operations". Whoever takes the widget owns it.
    QWidget* getTabWidget();

    bool loadScriptFile(QString fileName) override;
    void onClickRun() override;
    void onClickReset() override;

private:
    Q_DISABLE_COPY(ScriptManagerGUI)
    class GuiPrivate;
    std::unique_ptr<GuiPrivate> m_gui;
};
