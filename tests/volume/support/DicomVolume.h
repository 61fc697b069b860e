#pragma once

#include "support/ModalWatcher.h"
#include "support/dicom/DicomBuilder.h"
#include "volume/CVolumeDicom.h"
#include "volume/support/ProgressWatcher.h"
#include "volume/support/RecordingHost.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace viz_test {

constexpr unsigned allFrames = 0xFFFFFFFF;

/// What pixel (x, y) of file or frame i holds: 8 bits, all different from their neighbours, 0 and 255 among
/// them in a picture of 20 x 40 pixels.
inline std::int64_t pattern(unsigned x, unsigned y, unsigned i)
{
    return (x * 37 + y * 11 + i * 101) % 256;
}

/// Loads built DICOM files and looks at every voxel.
class DicomVolume : public testing::Test
{
protected:
    static constexpr unsigned width = 20;
    static constexpr unsigned height = 40;

    /// Slices of the pattern, 8 bits, at z = 0, 1, ... unless told otherwise.
    QStringList series(unsigned slices, DicomBuilder builder = {}, std::array<double, 3> step = {0, 0, 1},
                       std::array<double, 3> origin = {0, 0, 0})
    {
        builder.bits(8, 8);
        QStringList files =
            writeDicomSeries(folder.path(), builder, width, height, slices, origin, step, pattern);
        EXPECT_EQ(files.size(), static_cast<int>(slices));
        return files;
    }

    /// Samples of the pattern for one file of frames.
    static std::vector<std::int64_t> frames(unsigned count)
    {
        std::vector<std::int64_t> samples;
        for (unsigned i = 0; i < count; ++i)
            for (unsigned y = 0; y < height; ++y)
                for (unsigned x = 0; x < width; ++x)
                    samples.push_back(pattern(x, y, i));
        return samples;
    }

    QString write(const char* name, const DicomBuilder& builder)
    {
        const QString path = folder.filePath(QString::fromUtf8(name));
        EXPECT_TRUE(builder.write(path));
        return path;
    }

    bool load(const QStringList& files, unsigned first = allFrames, unsigned last = allFrames,
              bool makerData = false)
    {
        return reader.loadVolumeFiles(files, first, last, makerData);
    }

    std::array<unsigned, 3> counts() const
    {
        return {reader.getLoadColumns(), reader.getLoadRows(), reader.getFrames()};
    }

    std::array<float, 3> extent()
    {
        const float* const e = reader.getExtent();
        return {e[0], e[1], e[2]};
    }

    /// Every voxel is the pattern of its pixel. `order`: for each slice of the stack the file or frame in it.
    /// `axis` of the layout: 0 sagittal, 1 coronal, 2 axial.
    void expectPattern(int axis, const std::vector<unsigned>& order, bool mirrored = false,
                       bool flipped = false)
    {
        const std::size_t n = order.size();
        const std::size_t w = width;
        const std::size_t h = height;
        ASSERT_NE(reader.getVoxels(), nullptr);
        for (unsigned i = 0; i < n; ++i)
            for (unsigned y = 0; y < h; ++y)
                for (unsigned x = 0; x < w; ++x) {
                    const std::size_t place = axis == 0   ? i + y * n + x * h * n
                                              : axis == 1 ? x + y * w + (n - 1 - i) * w * h
                                                          : x + i * w + (h - 1 - y) * w * n;
                    const auto source =
                        pattern(mirrored ? width - 1 - x : x, flipped ? height - 1 - y : y, order[i]);
                    ASSERT_EQ(int{reader.getVoxels()[place]}, source)
                        << "pixel " << x << ' ' << y << " of slice " << i;
                }
    }

    std::vector<std::string> loadedNames() const
    {
        std::vector<std::string> names;
        for (const QString& path : reader.getLoadedFiles())
            names.push_back(path.section('/', -1).toStdString());
        return names;
    }

    RecordingHost host;
    QTemporaryDir folder;
    ModalWatcher modal;
    CVolumeDicom reader{nullptr};
};

}  // namespace viz_test
