#include "lib/hvapi/sequence/OpticalVoxelFile.h"

#include "hvutils/CHVSLog.h"
#include "lib/hvapi/scene/C3DSGManagerPrivate.h"
#include "lib/hvapi/scene/C3DVolumePrivate.h"
#include "lib/hvapi/scene/logic/OpticalVoxelText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

void log(QString const& text, long severity)
{
    getLogObject()->log(text, QString(), 0, QString(), severity, false);
}

std::optional<hvscene::OpticalVoxels> refuse(QString const& path, QString const& reason)
{
    log(QStringLiteral("Optical voxels '%1' are not shown: %2.").arg(QDir::toNativeSeparators(path), reason),
        CHVSLog::eWarning);
    return std::nullopt;
}

}  // namespace

std::optional<hvscene::OpticalVoxels> readOpticalVoxels(QString const& folder)
{
    QString const path = folder + QStringLiteral("OpticalVoxels.txt");
    QFileInfo const info(path);
    if (!info.exists()) return std::nullopt;
    // a pipe would keep the reader waiting for ever
    if (!info.isFile()) return refuse(path, QStringLiteral("it is no plain file"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return refuse(path, file.errorString());
    QByteArray const bytes = file.read(hvscene::longestVoxelText + 1);
    if (file.error() != QFileDevice::NoError) return refuse(path, file.errorString());
    hvscene::OpticalVoxelText text = hvscene::parseOpticalVoxels(bytes);
    for (auto const& complaint : text.complaints)
        log(QStringLiteral("An optical voxel is left out, %1.").arg(complaint), CHVSLog::eWarning);
    if (!text.optical) return refuse(path, text.refusal);
    if (text.leftOut > text.complaints.size())
        log(QStringLiteral("%1 optical voxels are left out in all.").arg(text.leftOut), CHVSLog::eWarning);
    return std::move(text.optical);
}

void addOpticalVolume(C3DSGManager& graph, std::optional<hvscene::OpticalVoxels> optical)
{
    if (!optical) return;
    auto volume = std::make_unique<C3DVolume>(hvscene::opticalVolumeName);
    if (!graph.addChild(graph.getRootNode(), volume.get())) return;
    C3DVolume* node = volume.release();  // the graph's from here on
    node->hostSide().setVoxels(std::move(*optical));
    graph.hostSide().addRenderable(node);
}
