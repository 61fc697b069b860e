#include "RecordingPlugin.h"

#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvapi/windows/CHVSSequenceWindow.h"

#include <QAction>
#include <QLabel>

#include <stdexcept>

namespace {

QString idOf(CHVSSequenceDataset* sequence)
{
    return sequence ? sequence->getSequenceID() : QStringLiteral("none");
}

}  // namespace

RecordingPlugin::~RecordingPlugin()
{
    delete m_pPalette;
}

void RecordingPlugin::initPlugin()
{
    note(QStringLiteral("init"));
}

QWidget* RecordingPlugin::getPaletteWidget()
{
    if (!m_pPalette) {
        m_pPalette = new QLabel(QStringLiteral("Recording"));
        m_pPalette->setFixedSize(325, 120);
    }
    return m_pPalette;
}

QAction* RecordingPlugin::getAction()
{
    auto* action = new QAction(QStringLiteral("Record..."), this);
    action->setObjectName(QStringLiteral("RecordAction"));
    return action;
}

void RecordingPlugin::onPluginAction()
{
    note(QStringLiteral("action"));
}

void RecordingPlugin::onSignalSequenceChanged(CHVSSequenceDataset* sequence)
{
    m_pSequence = sequence;
    note(QStringLiteral("changed ") + idOf(sequence));
    emit updatePluginValidity(m_pPalette, sequence != nullptr);
}

void RecordingPlugin::onSignalSequenceAdded(CHVSSequenceDataset* sequence)
{
    const bool hasWindow = CHVSSequenceWindow::getSequenceWindow(sequence) != nullptr;
    note(QStringLiteral("added %1%2")
             .arg(idOf(sequence), hasWindow ? QString() : QStringLiteral(" without window")));
    // results are settled before a sequence goes
    connect(sequence, &CHVSSequenceDataset::saveExistingAnalysisResult, this,
            [this, sequence] { note(QStringLiteral("save ") + idOf(sequence)); });
}

void RecordingPlugin::onSignalSequenceRemoved(CHVSSequenceDataset* sequence)
{
    const bool isThere = CHVSSequenceDataset::getSequenceDataset(sequence->getSequenceID()) == sequence;
    const bool hasWindow = CHVSSequenceWindow::getSequenceWindow(sequence) != nullptr;
    note(QStringLiteral("removed %1, sequence %2, window %3")
             .arg(idOf(sequence))
             .arg(isThere ? "alive" : "gone")
             .arg(hasWindow ? "alive" : "gone"));
}

void RecordingPlugin::onSignalUpdatePluginPalette(QString tabName)
{
    note(QStringLiteral("tab ") + tabName);
    emit updatePluginValidity(m_pPalette, tabName == QStringLiteral("3D View"));
}

void RecordingPlugin::onSignal3DViewChanged(bool bClearAnalysisResults)
{
    note(QStringLiteral("view %1").arg(bClearAnalysisResults));
}

void RecordingPlugin::onSignalTransformObjectChanged(QString object)
{
    note(QStringLiteral("transform ") + object);
}

void RecordingPlugin::loadSelectedFileList(QStringList files, int nMin, int nMax)
{
    note(QStringLiteral("load %1 %2 %3 into %4")
             .arg(files.join(QLatin1Char('|')))
             .arg(nMin)
             .arg(nMax)
             .arg(idOf(m_pSequence)));
    if (files.first().endsWith(QStringLiteral("throw"))) throw std::runtime_error("thrown by the plug-in");
    if (m_pSequence && !files.first().endsWith(QStringLiteral("bad")))
        m_pSequence->setLoadedVolumetricData(files);
}

void RecordingPlugin::note(const QString& text)
{
    QStringList record = property("record").toStringList();
    record << text;
    setProperty("record", record);
}
