#pragma once

#include "hvapi/windows/CHVSSequenceWindow.h"
#include "slices/CHVMultiVolumeSliceView.h"
#include "slices/CVolumeSliceLayout.h"
#include "support/MarkedVolume.h"
#include "support/ModalWatcher.h"
#include "testing/SequenceBuilder.h"

#include <QtTest>

#include <gtest/gtest.h>

/// The dialog over a sequence's marked volume: 20 x 30 x 40 mm around the origin.
struct SliceLayoutBench : ::testing::Test
{
    SliceLayoutBench()
        : sequence(SequenceBuilder("slices").scene3D().open())
    {
        sequence.show();
        sequence.window()->prepare3DView();
        node = addMarkedNode(*sequence.window()->getWindow3DSGManager());
        dialog = new CVolumeSliceLayout(sequence.window(), "Volume Slice Layout", Qt::Dialog);
        dialog->bindSequenceWindow(sequence.window());
    }
    ~SliceLayoutBench() override { delete dialog; }

    void show()
    {
        dialog->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(dialog));
        QTest::qWait(30);
    }

    /// Types into a box as a user does.
    static void type(QDoubleSpinBox* box, const QString& text)
    {
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, text);
        QTest::keyClick(box, Qt::Key_Return);
    }

    QPoint middle(int index) const
    {
        const TileRect& rect = dialog->view()->tile(index)->rect;
        return {static_cast<int>(rect.x + rect.width / 2),
                static_cast<int>(dialog->view()->height() - rect.y - rect.height / 2)};
    }

    TestHostServices services;
    viz_test::ModalWatcher modal;
    TestSequence sequence;
    CGLVolume* node = nullptr;
    QPointer<CVolumeSliceLayout> dialog;
};
