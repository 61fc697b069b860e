#pragma once

#include "browse/C3DCVImportDialog.h"
#include "browse/CVolBrowseEvents.h"
#include "browse/CVolBrowserInfo.h"
#include "hvapi/windows/CHVSMdiSubWindow.h"
#include "lib/hvutils/HostServices.h"
#include "support/ModalWatcher.h"
#include "support/TiffFiles.h"
#include "support/dicom/DicomBuilder.h"
#include "testing/SequenceBuilder.h"
#include "testing/TestHostServices.h"

#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMdiArea>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

/// The import dialog in a workspace, with folders of data beside it.
class ImportBench : public testing::Test
{
protected:
    static constexpr int side = 16;

    void SetUp() override
    {
        workspace.resize(1200, 800);
        workspace.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&workspace));
        workspace.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&workspace));
        dialog = new C3DCVImportDialog(nullptr, "Corvane Browser");
        frame = new CHVSMdiSubWindow;
        frame->setWidget(dialog);
        frame->setAttribute(Qt::WA_DeleteOnClose, false);
        workspace.addSubWindow(frame);
        frame->resize(1000, 650);
        dialog->showWindow();
    }

    void TearDown() override
    {
        delete frame;
        frame = nullptr;
    }

    QString path(const QString& relative)
    {
        const QString whole = folder.path() + '/' + relative;
        QDir().mkpath(QFileInfo(whole).path());
        return whole;
    }

    /// A series of slices whose samples all are 1000 * (slice + 1), but for a dark left column.
    QStringList series(const QString& name, int slices, const QByteArray& writer = {})
    {
        QDir().mkpath(path(name));
        DicomBuilder builder;
        if (!writer.isEmpty()) builder.implementation(writer);
        return writeDicomSeries(path(name), builder, side, side, static_cast<unsigned>(slices), {0, 0, 0},
                                {0, 0, 1}, [](unsigned x, unsigned, unsigned z) {
                                    return x < side / 2 ? 0 : 1000 * (static_cast<int>(z) + 1);
                                });
    }

    /// One multi-frame file; frame z is bright from column z on.
    void multiFrame(const QString& name, int frames)
    {
        DicomBuilder builder;
        builder.size(side, side, static_cast<unsigned>(frames));
        std::vector<std::int64_t> samples;
        for (int z = 0; z < frames; ++z)
            for (int i = 0; i < side * side; ++i)
                samples.push_back(i % side < z + 1 ? 0 : 500);
        ASSERT_TRUE(builder.samples(samples).write(path(name)));
    }

    void tiff(const QString& name, int pages, unsigned samples = 1)
    {
        viz_test::TiffKind kind;
        kind.width = side;
        kind.height = side;
        kind.bits = 8;
        kind.samples = samples;
        if (samples == 3) kind.photometric = PHOTOMETRIC_RGB;
        std::vector<std::vector<std::uint32_t>> values;
        for (int page = 0; page < pages; ++page) {
            std::vector<std::uint32_t> one(std::size_t{side} * side * samples);
            for (std::size_t i = 0; i < one.size(); ++i)
                one[i] = i % side < static_cast<std::size_t>(page + 1) ? 0 : 200;
            values.push_back(one);
        }
        viz_test::writeTiff(path(name), kind, values);
    }

    /// What a browse tells of a folder.
    std::unique_ptr<CVolBrowserInfo> infoOf(const QString& relative, const QString& type = "DICOM")
    {
        auto info = std::make_unique<CVolBrowserInfo>();
        info->m_folder = path(relative);
        info->m_name = QFileInfo(info->m_folder).fileName();
        info->m_parentFolder = QFileInfo(info->m_folder).path();
        info->m_files = QDir(info->m_folder).entryList(QDir::Files, QDir::Name);
        info->m_fileCount = info->m_files.size();
        info->m_slices = QString::number(info->m_fileCount);
        info->m_type = type;
        return info;
    }

    void send(QEvent* event)
    {
        const std::unique_ptr<QEvent> owner(event);
        QCoreApplication::sendEvent(dialog, event);
    }
    void sendFound(std::unique_ptr<CVolBrowserInfo> info)
    {
        send(new CVolBrowseOneFileCompltdEvent(std::move(info)));
    }
    /// The events of a browse that finds these, without the thread.
    void show(const QString& relative, const QString& type = "DICOM")
    {
        send(new CVolBrowseStartEvent("Searching..."));
        sendFound(infoOf(relative, type));
        send(new CVolBrowseEndEvent(""));
    }

    /// Chooses a folder in the dialog that the Browse button opens, and waits for the end of the browse.
    void browseByMouse(const QString& wanted)
    {
        modal.expect([wanted](QWidget* window) {
            auto* chooser = qobject_cast<QFileDialog*>(window);
            ASSERT_TRUE(chooser);
            EXPECT_EQ(chooser->windowTitle(), QString("Halvane Corvane Folder:"));
            chooser->findChild<QLineEdit*>()->setText(wanted);
            static_cast<QDialog*>(chooser)->accept();
        });
        QTest::mouseClick(dialog->m_pBrowseButton, Qt::LeftButton);
        QTest::qWait(10);
    }

    /// The gray of the preview at a share of its width, in the middle of its height.
    int gray(double share) const
    {
        auto* view = dialog->findChild<QWidget*>("m_pPreview");
        const QImage picture = view->grab().toImage();
        const int shown = std::min(picture.width(), picture.height());
        const int left = (picture.width() - shown) / 2;
        return qGray(picture.pixel(left + static_cast<int>(share * (shown - 1)), picture.height() / 2));
    }

    QString message() const
    {
        return dialog->m_pPreviewStack->currentWidget() == dialog->m_pMessagePage
                   ? dialog->m_pMessageLabel->text()
                   : QString("(picture)");
    }

    QStringList names(const QStringList& paths) const
    {
        QStringList result;
        for (const QString& each : paths)
            result << QFileInfo(each).fileName();
        return result;
    }

    TestHostServices host;
    viz_test::ModalWatcher modal;
    QTemporaryDir folder;
    QMdiArea workspace;
    C3DCVImportDialog* dialog = nullptr;
    CHVSMdiSubWindow* frame = nullptr;
};
