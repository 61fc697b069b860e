#pragma once

#include "hvapi/hvapi_global.h"
#include "hvapi/values/ETOOLPALETTE_PLUGIN_STATUS_MODIFIER.h"
#include "hvapi/values/RECONTYPE.h"
#include "hvapi/values/downloaded_save_data.h"
#include "hvapi/values/tag_edisplayunit.h"
#include "hvapi/values/tag_sspecunmix.h"
#include "hvutils/tag_estatus.h"

#include <QObject>
#include <QPixmap>
#include <QString>

class CHVSDataset;
class CHVSSequenceDataset;
class QAction;
class QMutex;
class QWidget;

/// Base of a plug-in that brings one tool palette and menu actions.
///
/// The host creates the instance through Qt's plug-in loader, calls initPlugin() once, asks for palette and
/// actions and then tells what happens through the onSignal... slots. The plug-in asks the host for something
/// by emitting one of the signals. All of it happens on the GUI thread.
class HVAPI_EXPORT CHVToolPalettePluginBase : public QObject
{
    Q_OBJECT

public:
    explicit CHVToolPalettePluginBase(QObject* parent = nullptr);
    ~CHVToolPalettePluginBase() override;

    /// Called once, before everything else.
    virtual void initPlugin() = 0;
    /// The palette, created on the first call. The plug-in owns it, also inside the host's dock.
    virtual QWidget* getPaletteWidget() = 0;
    /// Name shown in the tool list.
    virtual QString getPluginName() = 0;
    /// Place in the tool list, ascending.
    virtual int getPluginRank() = 0;

public slots:
    /// The user chose the plug-in's action. Base: nothing.
    virtual void onPluginAction();

public:
    /// Module of the host that the plug-in needs. Base: empty, none.
    virtual QString getBaseModuleName();
    /// True when that module is there. Base: true.
    virtual bool isBaseModuleAvailable();
    /// Whether the palette is shown at the first start. Base: true.
    virtual bool defaultVisibilityForPluggin();
    /// Whether the plug-in can be used at all. Base: true.
    virtual bool isPluginAvailable();
    /// Number of menu actions. Base: 0.
    virtual int getActionCount();
    /// The menu action; the plug-in owns it. Base: null.
    virtual QAction* getAction();
    /// Base: a null pixmap.
    virtual QPixmap getActionIcon();
    /// Base: empty.
    virtual QString getActionText();
    /// Group of actions beside which the action stands in the menu. Base: empty.
    virtual QString getActionGroupName();

public slots:
    /// The active dataset changed; null for none. Base: nothing, as for all slots below unless they say more.
    virtual void onSignalDatasetChanged(CHVSDataset* dataset);
    /// The active sequence changed; null for none.
    virtual void onSignalSequenceChanged(CHVSSequenceDataset* sequence);
    /// A dataset is about to go.
    virtual void onSignalDatasetRemoved(CHVSDataset* dataset);
    /// A sequence and its window were created.
    virtual void onSignalSequenceAdded(CHVSSequenceDataset* sequence);
    /// A sequence is about to go; it and its window still exist.
    virtual void onSignalSequenceRemoved(CHVSSequenceDataset* sequence);
    virtual void onSignalROIModified(QString roi);
    virtual void onSignalROIDeleted();
    virtual void onSignalupdateROIList();
    /// The active sequence window changed to the tab of that name.
    virtual void onSignalUpdatePluginPalette(QString tabName);
    virtual void onAdvancedOptionChanged(bool on);
    /// Base: emits updatePluginValidity.
    virtual void onSignalUpdateValidity(QWidget* palette, bool valid);
    virtual void onSignalSelectOrganDatabase(QString& path, QMutex& mutex);
    /// The user must be asked about unsaved results.
    virtual void onSignalAskToSaveResults();
    /// Base: emits signalLoadFile with the same arguments.
    virtual void onSignalLoadFile(QString filePath, bool bShow, tag_estatus* status,
                                  downloaded_save_data* data);
    /// Base: emits sequenceWindowUnitRequested.
    virtual void signalChangeSeqWndUnit(QString const& sequenceId, tag_edisplayunit unit);
    /// Base: emits sequenceRequested.
    virtual void signalCreateSequence(QString name, bool bShow);
    virtual void onSignalBinningChanged(bool changed);
    virtual void onSignalUpdateSPUMTools(tag_sspecunmix* state);
    /// Base: emits addWidgetToWorkspace.
    virtual void onSignalAddWidgetToWorkspace(QWidget* widget);
    virtual void onSignalMakeMeasurement(bool on, bool all);
    virtual void onSignalCopyToClipboard(QString text);
    /// The content of the active 3D view changed.
    virtual void onSignal3DViewChanged(bool bClearAnalysisResults);
    virtual void onSignalApplyQuantificationResult(RECONTYPE type);
    virtual void onSignalDatabaseChanged();
    virtual void onSignalGetPrintPixmap(bool on);
    virtual void onHideAllGraphWindows();
    virtual void onSignal3DSceneChanged(QString sequenceId);
    /// The transform tool works on the object of that name now.
    virtual void onSignalTransformObjectChanged(QString object);
    virtual void onRestoreWindows(bool restore);
    virtual void onLoadUnmixDlg();
    /// The host saved the active dataset.
    virtual void onDatasetSavedSignal();
    /// A result is to be loaded: file name of its database and its name there.
    virtual void onLoadResultsSignal(QString databaseFile, QString resultName);
    /// The host asks the palette to show a tool.
    virtual void onToolPalettePluginStatusModified(ETOOLPALETTE_PLUGIN_STATUS_MODIFIER modifier);

signals:
    /// Asks the host to create a sequence of that name which holds only a 3D scene. It arrives by
    /// onSignalSequenceAdded.
    void signalCreate3DSceneSequence(QString name);
    /// Asks the host to open a file and, with `bShow`, to show it. `status`, if not null, is written before
    /// the call returns: 0 for success.
    void signalLoadFile(QString filePath, bool bShow, tag_estatus* status, downloaded_save_data* data);
    /// Asks the host to wrap a widget in a sub-window of the workspace; afterwards its parentWidget() is that
    /// sub-window, a CHVSMdiSubWindow.
    void addWidgetToWorkspace(QWidget* widget);
    /// Enables or disables the palette in the host's tool list.
    void updatePluginValidity(QWidget* palette, bool valid);
    /// A load failed.
    void loadingFailed();
    /// Asks the host to show a sequence in another unit.
    void sequenceWindowUnitRequested(QString sequenceId, tag_edisplayunit unit);
    /// Asks the host to create an empty optical sequence.
    void sequenceRequested(QString name, bool bShow);
};

Q_DECLARE_INTERFACE(CHVToolPalettePluginBase, "com.Brentis.Halvane.CHVToolPalettePluginBase/1.0")
