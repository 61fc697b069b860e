#pragma once

#include "app/ApplicationServices.h"
#include "app/MainWindow.h"
#include "app/Workspace.h"

#include "hvapi/plugin/CHVToolPalettePluginBase.h"
#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/scene/C3DVolumeData.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "lib/hvapi/scene/ViewControl.h"

#include <QApplication>
#include <QDropEvent>
#include <QFile>
#include <QImage>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <gtest/gtest.h>

#include <memory>

/// The whole workstation with the plug-in that its loader found, its data in a folder of the test's own.
class WorkstationFixture : public testing::Test
{
protected:
    static constexpr int side = 40;  ///< of the cube of rawFile()

    void SetUp() override
    {
        qputenv("HALVANE_HOME", m_folder.filePath("home").toLocal8Bit());
        m_services = std::make_unique<ApplicationServices>(ApplicationServices::Mode::Attended);
        HostServices::install(m_services.get());
        m_window = std::make_unique<MainWindow>(*m_services);
        m_window->startPlugins({QStringLiteral(PLUGIN_FOLDER)});
        m_window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(m_window.get()));
        ASSERT_EQ(m_window->plugins().plugins().size(), 1u);
    }

    void TearDown() override
    {
        m_window.reset();
        HostServices::install(nullptr);
        m_services.reset();
    }

    QWidget* palette() const { return m_window->plugins().plugins()[0].instance->getPaletteWidget(); }

    /// A cube of bone in air, `side` voxels a side. Without its header nothing but a dialog knows its size.
    QString rawFile(const QString& name, bool whole) const
    {
        QByteArray voxels(side * side * side, '\0');
        for (int z = 10; z < 30; ++z)
            for (int y = 10; y < 30; ++y)
                for (int x = 10; x < 30; ++x)
                    voxels[(z * side + y) * side + x] = static_cast<char>(200);
        QFile file(m_folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        if (whole)
            file.write(
                "VolumeSize 40 40 40\nVoxelSize 8\nVolumeScale 1.0 1.0 1.0\nField Density Format u\n##\f\n");
        file.write(voxels);
        return file.fileName();
    }

    /// Drops files on a widget, as the mouse would; false when it refuses the drag.
    static bool drop(QWidget* target, const QStringList& files)
    {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& file : files)
            urls << QUrl::fromLocalFile(file);
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.setAccepted(false);
        QApplication::sendEvent(target, &enter);
        if (!enter.isAccepted()) return false;
        QDropEvent event(QPointF(20, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(target, &event);
        EXPECT_TRUE(event.isAccepted());
        return true;
    }
    bool drop(const QStringList& files) const { return drop(palette(), files); }

    /// The volume of the active sequence; null when it has none.
    C3DVolumeData* volume() const
    {
        CHVSSequenceDataset* sequence = m_window->workspace().activeSequence();
        return sequence ? qobject_cast<C3DVolumeData*>(sequence->get3DSGManager()->getNode("GLVolume"))
                        : nullptr;
    }

    /// What the 3D view shows from the front; a null picture without a view.
    QImage frontPicture(QSize size) const
    {
        C3DScene* scene = m_window->activeScene();
        if (!scene) return {};
        ViewControl view(*scene);
        view.reset();
        return view.picture(size);
    }

    /// The middle of the 3D view from the front, against its ground.
    bool isCubeSeen() const
    {
        const QImage picture = frontPicture(QSize(120, 120));
        return !picture.isNull() && qGray(picture.pixel(60, 60)) > qGray(picture.pixel(2, 60)) + 40;
    }

    QTemporaryDir m_folder;
    std::unique_ptr<ApplicationServices> m_services;
    std::unique_ptr<MainWindow> m_window;
};
