#pragma once

#include "hvapi/plugin/CHVToolPalettePluginBase.h"

#include <QPointer>
#include <QStringList>

/// Writes down what the host tells it, in the order in which it comes, and takes part like a real tool: its
/// palette is for 3D scenes on the tab "3D View". The record is the dynamic property "record" of the plug-in,
/// a list of texts.
class RecordingPlugin : public CHVToolPalettePluginBase
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "brt.halvane.test.recording")
    Q_INTERFACES(CHVToolPalettePluginBase)

public:
    ~RecordingPlugin() override;

    void initPlugin() override;
    QWidget* getPaletteWidget() override;
    QString getPluginName() override { return QStringLiteral("Recording Tools"); }
    int getPluginRank() override { return 8; }
    int getActionCount() override { return 1; }
    QAction* getAction() override;
    QString getActionGroupName() override { return QStringLiteral("Save"); }

public slots:
    void onPluginAction() override;
    void onSignalSequenceChanged(CHVSSequenceDataset* sequence) override;
    void onSignalSequenceAdded(CHVSSequenceDataset* sequence) override;
    void onSignalSequenceRemoved(CHVSSequenceDataset* sequence) override;
    void onSignalUpdatePluginPalette(QString tabName) override;
    void onSignal3DViewChanged(bool bClearAnalysisResults) override;
    void onSignalTransformObjectChanged(QString object) override;
    /// Files that end in "bad" do not load; "throw" throws.
    void loadSelectedFileList(QStringList files, int nMin, int nMax);

private:
    void note(const QString& text);

    QPointer<QWidget> m_pPalette;
    CHVSSequenceDataset* m_pSequence = nullptr;
};
