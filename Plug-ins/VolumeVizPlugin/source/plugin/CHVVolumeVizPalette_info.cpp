#include "plugin/CHVVolumeVizPalette.h"

#include "hvapi/values/Coord3d.h"
#include "hvapi/values/_tagAxis_Orientation.h"
#include "plugin/PaletteTarget.h"
#include "plugin/SceneRefresh.h"
#include "render/CGLVolume.h"
#include "volume/CVolumeInfoDialog.h"

namespace {

void showGeometry(CVolumeInfoDialog& dialog, const CGLVolume& node)
{
    const Coord3d thickness = node.getThickness();
    dialog.setColumnSpacing(thickness.x);
    dialog.setRowSpacing(thickness.z);
    dialog.setSliceSpacing(thickness.y);
    const _tagAxis_Orientation orientation = node.getAxisOrientation();
    dialog.invertXBox->setChecked(orientation.x == -1);
    dialog.invertYBox->setChecked(orientation.y == -1);
    dialog.invertZBox->setChecked(orientation.z == -1);
}

void takeGeometry(const CVolumeInfoDialog& dialog, CGLVolume& node)
{
    node.setAxisOrientation(dialog.invertXBox->isChecked(), dialog.invertYBox->isChecked(),
                            dialog.invertZBox->isChecked());
    Coord3d thickness;
    thickness.x = dialog.getColumnSpacing();
    thickness.y = dialog.getSliceSpacing();
    thickness.z = dialog.getRowSpacing();
    node.setThickness(thickness);
}

}  // namespace

void CHVVolumeVizPalette::onShowVolumeInfoDialog()
{
    const PaletteTarget before = target();
    if (!before.node) return;
    CVolumeInfoDialog dialog(this, "Volume File Information", true);
    dialog.resolutionGroup->setDisabled(true);
    dialog.memoryGroup->setDisabled(true);
    dialog.fileGroup->setDisabled(true);
    dialog.setValidateFile(false);
    dialog.setFileName(m_strFileList.value(0));
    showGeometry(dialog, *before.node);
    if (dialog.exec() != QDialog::Accepted) return;

    const PaletteTarget now = target();  // the dialog kept the events running
    if (!now.node) return;
    takeGeometry(dialog, *now.node);
    SceneRefresh::geometryChanged(now.scene);
}
