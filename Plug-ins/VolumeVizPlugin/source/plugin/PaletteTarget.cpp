#include "plugin/PaletteTarget.h"

#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "render/CGLVolume.h"

PaletteTarget PaletteTarget::of(CHVSSequenceDataset* seq)
{
    PaletteTarget target;
    if (!seq) return target;
    target.sequence = seq;
    target.window = CHVSSequenceWindow::getSequenceWindow(seq);
    if (target.window) target.scene = target.window->get3DScene();
    target.graph = seq->get3DSGManager();
    if (target.graph)
        target.node = qobject_cast<CGLVolume*>(target.graph->getNode(QStringLiteral("GLVolume")));
    return target;
}
