#pragma once

#include "support/ModalWatcher.h"
#include "support/TiffFiles.h"
#include "volume/CVolumeInfoDialog.h"
#include "volume/CVolumeTiff.h"
#include "volume/support/RecordingHost.h"

#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace viz_test {

using Values = std::vector<std::uint32_t>;

constexpr unsigned all = CVolumeTiff::allFrames;

// Sides that load at full resolution without a question.
constexpr unsigned columns = 20;
constexpr unsigned rows = 40;

inline TiffKind kindOf(unsigned bits, unsigned width = columns, unsigned height = rows)
{
    TiffKind kind;
    kind.width = width;
    kind.height = height;
    kind.bits = bits;
    return kind;
}

// 8-bit values that differ between neighbours, with 0 and 255 among those of frame 0.
inline std::uint32_t valueAt(unsigned x, unsigned y, unsigned frame)
{
    if (frame == 0 && y == 0 && x < 2) return x == 0 ? 0 : 255;
    return (x * 7 + y * 13 + frame * 29) % 256;
}

inline Values frameOf(unsigned frame, std::uint32_t times = 1, std::uint32_t plus = 0)
{
    Values values;
    for (unsigned y = 0; y < rows; ++y)
        for (unsigned x = 0; x < columns; ++x)
            values.push_back(valueAt(x, y, frame) * times + plus);
    return values;
}

inline Values constant(const TiffKind& kind, std::uint32_t value)
{
    return Values(std::size_t{kind.width} * kind.height, value);
}

/// A reader of TIFF files, a folder for them, and the frames of 20 x 40 pixels that most tests write.
class VolumeTiff : public testing::Test
{
protected:
    QString path(const QString& name) const { return folder.path(name); }

    QStringList paths(const QStringList& names) const
    {
        QStringList all_;
        for (const QString& name : names)
            all_ << path(name);
        return all_;
    }

    void write(const QString& name, const TiffKind& kind, const Values& values) const
    {
        writeTiff(path(name), kind, {values});
    }

    bool loadStack(const QStringList& names) { return reader.loadVolumeFiles(paths(names), all, all); }

    bool loadPages(const QString& name, unsigned first = all, unsigned last = all)
    {
        return reader.loadVolumeFiles({path(name)}, first, last);
    }

    int voxel(unsigned x, unsigned y, unsigned frame) const
    {
        const std::size_t w = reader.getLoadColumns();
        const std::size_t f = reader.getFrames();
        return reader.getVoxels()[x + frame * w + (reader.getLoadRows() - 1 - y) * w * f];
    }

    // Every voxel against the values that frameOf gave, `frames` naming the source of each frame.
    void expectVoxels(const std::vector<unsigned>& frames) const
    {
        ASSERT_EQ(reader.getFrames(), frames.size());
        ASSERT_EQ(reader.getLoadColumns(), columns);
        ASSERT_EQ(reader.getLoadRows(), rows);
        for (unsigned f = 0; f < frames.size(); ++f)
            for (unsigned y = 0; y < rows; ++y)
                for (unsigned x = 0; x < columns; ++x)
                    ASSERT_EQ(voxel(x, y, f), static_cast<int>(valueAt(x, y, frames[f])))
                        << x << ' ' << y << ' ' << f;
    }

    bool isEmptyFrame(unsigned frame) const
    {
        for (unsigned y = 0; y < reader.getLoadRows(); ++y)
            for (unsigned x = 0; x < reader.getLoadColumns(); ++x)
                if (voxel(x, y, frame) != 0) return false;
        return true;
    }

    std::string info(const char* name) const { return reader.getInfo().value(name).value.toStdString(); }

    static ModalWatcher::Answer answering(std::function<void(CVolumeInfoDialog&)> fill)
    {
        return [fill = std::move(fill)](QWidget* window) {
            auto* const dialog = qobject_cast<CVolumeInfoDialog*>(window);
            ASSERT_NE(dialog, nullptr);
            fill(*dialog);
            if (dialog->isVisible()) dialog->reject();
        };
    }

    static void pressOk(CVolumeInfoDialog& dialog)
    {
        QTest::mouseClick(dialog.buttonBox->button(QDialogButtonBox::Ok), Qt::LeftButton);
    }

    // Memory is short until the user asks again.
    ModalWatcher::Answer afterShortMemory(std::function<void(CVolumeInfoDialog&)> fill)
    {
        host.memoryIsFull = true;
        return answering([this, fill = std::move(fill)](CVolumeInfoDialog& dialog) {
            host.memoryIsFull = false;
            fill(dialog);
            QTest::mouseClick(dialog.verifyButton, Qt::LeftButton);
            pressOk(dialog);
        });
    }

    RecordingHost host;
    TiffFolder folder;
    ModalWatcher modal;
    CVolumeTiff reader{nullptr};
};

}  // namespace viz_test
