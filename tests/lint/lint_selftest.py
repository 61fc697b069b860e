#!/usr/bin/env python3
"""Holds lint.py against small trees: each rule must find its violation, and must leave the sound neighbour alone."""

import sys
import tempfile
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
import lint

SOURCE = lint.SOURCE


class Rules(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        self.allowed = self.root / "allowed"
        for path in ("host/hvapi/values/Vec3f.h", "host/hvapi/scene/C3DScene.h", "host/hvapi/hvapi_global.h",
                     "host/hvutils/CHVSLog.h", "host/hvdicom/CDicomReader.h", "VOXM/voxm_vector.h",
                     "workstation/lib/hvutils/HostServices.h", "workstation/lib/hvapi/windows/WindowRegistry.h",
                     "workstation/app/MainWindow.h", SOURCE + "plugin/CHVVolumeVizPalette.h",
                     SOURCE + "volume/CVolumeRaw.h", SOURCE + "volume/logic/Quantise.h",
                     SOURCE + "render/CGLVolume.h", SOURCE + "render/gl/GlewSupport.h",
                     SOURCE + "render/logic/VolumeBox.h"):
            self.write(path, "")

    def write(self, path, text):
        file = self.root / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text)

    def found(self):
        return [(rule, path, detail) for rule, path, _, detail in lint.lint(self.root, self.allowed)]

    def includes(self, path, *names):
        self.write(path, "".join("#include %s\n" % (n if n[0] == "<" else '"%s"' % n) for n in names))

    def assert_refused(self, rule, path, name):
        """An include breaks the rule in this file, and nothing else is broken."""
        self.includes(path, name)
        self.assertEqual(self.found(), [(rule, path, name.strip("<>"))])
        self.write(path, "")

    def assert_fine(self, path, *names):
        self.includes(path, *names)
        self.assertEqual(self.found(), [])
        self.write(path, "")

    def test_soundTreeHasNoFindings(self):
        self.assertEqual(self.found(), [])

    def test_voxmStandsAlone(self):
        self.assert_fine("VOXM/voxm_matrix.h", "<vector>", "voxm_vector.h", "VOXM/voxm_vector.h")
        self.assert_refused("voxm-includes", "VOXM/voxm_matrix.h", "<QVector>")
        self.assert_refused("voxm-includes", "VOXM/voxm_matrix.h", "hvapi/values/Vec3f.h")

    def test_contractShowsNoImplementation(self):
        self.assert_fine("host/hvapi/scene/A.h", "<QWidget>", "<QtCore/QString>", "<memory>", "hvutils/CHVSLog.h",
                         "hvapi/hvapi_global.h")
        self.assert_refused("host-includes", "host/hvapi/scene/A.h", "lib/hvutils/HostServices.h")
        self.assert_refused("host-includes", "host/hvapi/scene/A.h", "<dcmtk/dcmdata/dctk.h>")
        self.assert_refused("host-includes", "host/hvapi/scene/A.h", "VOXM/voxm_vector.h")

    def test_librariesUseOnlyEarlierOnes(self):
        self.assert_fine("workstation/lib/hvapi/A.cpp", "lib/hvutils/HostServices.h", "hvapi/scene/C3DScene.h",
                         "<dcmtk/dcmdata/dctk.h>", "windows/WindowRegistry.h", "lib/hvapi/windows/WindowRegistry.h")
        self.assert_refused("library-includes", "workstation/lib/hvutils/A.cpp", "lib/hvapi/windows/WindowRegistry.h")
        self.assert_refused("library-includes", "workstation/lib/hvapi/A.cpp", "app/MainWindow.h")
        self.assert_refused("library-includes", "workstation/lib/hvapi/A.cpp", "volume/CVolumeRaw.h")

    def test_applicationNeverSeesThePlugin(self):
        self.assert_fine("workstation/app/A.cpp", "app/MainWindow.h", "lib/hvutils/HostServices.h", "<QWidget>")
        self.assert_refused("app-includes", "workstation/app/A.cpp", "plugin/CHVVolumeVizPalette.h")
        self.assert_refused("app-includes", "workstation/testing/A.cpp", "render/NotYetThere.h")

    def test_roomsUseOnlyEarlierOnes(self):
        self.assert_fine(SOURCE + "render/A.cpp", "volume/CVolumeRaw.h", "render/gl/GlewSupport.h", "CGLVolume.h",
                         "hvapi/scene/C3DScene.h", "VOXM/voxm_vector.h", "ui_A.h", "<QWidget>")
        self.assert_refused("room-includes", SOURCE + "volume/A.cpp", "render/CGLVolume.h")
        self.assert_refused("room-includes", SOURCE + "volume/A.cpp", "plugin/CHVVolumeVizPalette.h")
        self.assert_refused("room-includes", SOURCE + "render/A.cpp", "../plugin/CHVVolumeVizPalette.h")

    def test_theGlRoomIsOpenToAll(self):
        self.assert_fine(SOURCE + "volume/A.cpp", "render/gl/GlewSupport.h")

    def test_pluginNeverSeesTheWorkstation(self):
        self.assert_refused("room-includes", SOURCE + "plugin/A.cpp", "lib/hvutils/HostServices.h")
        self.assert_refused("room-includes", SOURCE + "plugin/A.cpp", "app/MainWindow.h")

    def test_paletteSourcesCountAsPluginWhereverTheyStand(self):
        self.assert_fine(SOURCE + "volume/CHVVolumeVizPalette_load.cpp", "plugin/CHVVolumeVizPalette.h",
                         "render/CGLVolume.h")

    def test_logicHasValuesOnly(self):
        self.assert_fine(SOURCE + "render/logic/A.h", "<vector>", "<QString>", "<QtCore/QPointF>", "<QPolygonF>",
                         "<QRgb>", "<QtGui/qrgb.h>", "hvapi/values/Vec3f.h", "VOXM/voxm_vector.h",
                         "volume/logic/Quantise.h", "render/logic/VolumeBox.h")
        for name in ("<QWidget>", "<QtWidgets/QDialog>", "<QFile>", "<QObject>", "<QtCore/QTimer>", "<QPainter>",
                     "<GL/gl.h>", "<QtWidgets>", "hvapi/scene/C3DScene.h", "hvutils/CHVSLog.h", "render/CGLVolume.h",
                     "render/gl/GlewSupport.h"):
            self.assert_refused("logic-includes", SOURCE + "render/logic/A.h", name)
        self.assert_refused("logic-includes", SOURCE + "volume/logic/A.h", "render/logic/VolumeBox.h")

    def test_glewStandsInOneFileOfTheGlRoom(self):
        self.assert_fine(SOURCE + "render/gl/GlewSupport.cpp", "<GL/glew.h>")
        self.assert_refused("glew", SOURCE + "render/A.cpp", "<GL/glew.h>")
        self.assert_refused("glew", "tests/render/ATest.cpp", "GL/glew.h")
        self.includes(SOURCE + "render/gl/A.cpp", "<GL/glew.h>")
        self.includes(SOURCE + "render/gl/B.cpp", "<GL/glew.h>")
        self.assertEqual(self.found(), [("glew", SOURCE + "render/gl/B.cpp", "a second file with glew.h")])

    def test_glewAndQtsGlHeadersDoNotMeet(self):
        self.includes(SOURCE + "render/gl/A.cpp", "<GL/glew.h>", "<QOpenGLFunctions>")
        self.assertEqual(self.found(), [("glew", SOURCE + "render/gl/A.cpp", "QOpenGLFunctions")])

    def test_includesInLineCommentsAreNone(self):
        self.write("VOXM/a.h", '// #include "hvapi/values/Vec3f.h"\n')
        self.assertEqual(self.found(), [])

    def assert_text(self, rule, text, sound):
        self.write("docs/a.md", text + "\n")
        self.assertEqual([f[0] for f in self.found()], [rule], text)
        self.write("docs/a.md", sound + "\n")
        self.assertEqual(self.found(), [], sound)

    def test_notesForLater(self):
        self.assert_text("later", "// TODO: more", "mastodon, todo")
        self.assert_text("later", "// FIXME", "fixes me")

    def test_shadersHaveCode(self):
        self.write(SOURCE + "render/shaders/a.frag", "// nothing\n/* at\nall */\n")
        self.assertEqual([f[0] for f in self.found()], ["shader-empty"])
        self.write(SOURCE + "render/shaders/a.frag", "void main() {}\n")
        self.assertEqual(self.found(), [])

    def test_headersAreCalledLikeTheirClass(self):
        self.write("host/hvapi/scene/Wrong.h", "class Other;\nclass HVAPI_EXPORT Right : public QObject\n{\n};\n")
        self.assertEqual(self.found(), [("class-name", "host/hvapi/scene/Wrong.h", "Right")])
        self.write("host/hvapi/scene/Wrong.h", "class A final\n{\n};\nclass B\n{\n};\n")
        self.assertEqual(self.found(), [])
        self.write("host/hvapi/scene/Wrong.h", "class Wrong::Private\n{\n};\n")
        self.assertEqual(self.found(), [])
        self.write(SOURCE + "volume/logic/Subject.h", "class Worker\n{\n};\n")
        self.assertEqual(self.found(), [])

    def test_sourcesStayShort(self):
        self.write("workstation/app/A.cpp", "\n" * lint.LONGEST_SOURCE)
        self.assertEqual(self.found(), [])
        self.write("workstation/app/A.cpp", "\n" * (lint.LONGEST_SOURCE + 1))
        self.assertEqual([f[0] for f in self.found()], ["source-length"])

    def test_testsNamedInThePagesAreThere(self):
        self.write("tests/a/ATest.cpp", "TEST(Box, isClosed)\n{}\nTEST_P(Row,\n       isLong)\n{}\n")
        self.write("docs/host-contract.md", "Closed. `Box.isClosed` `Row.isLong` `SequenceInfo.txt` `a.b`\n")
        self.assertEqual(self.found(), [])
        self.write("docs/kept-on-purpose.md", "Open.\n`Box.isOpen`\n")
        self.assertEqual(self.found(), [("guard", "docs/kept-on-purpose.md", "Box.isOpen")])

    def test_exceptionsWorkAndMustBeNeeded(self):
        path = SOURCE + "volume/A.cpp"
        self.includes(path, "plugin/CHVVolumeVizPalette.h")
        self.allowed.write_text("room-includes %s plugin/*Palette.h  # its parent\n" % path)
        self.assertEqual(self.found(), [])
        self.write(path, "")
        self.assertEqual([f[0] for f in self.found()], ["allowance"])
        (self.root / path).unlink()
        self.assertEqual(self.found(), [])

    def test_exceptionsNeedAReason(self):
        self.allowed.write_text("room-includes a.cpp b.h\n")
        with self.assertRaises(SystemExit):
            self.found()

    def test_binariesAreLeftAlone(self):
        (self.root / "docs").mkdir()
        (self.root / "docs/a.bin").write_bytes(b"\0TODO")
        self.assertEqual(self.found(), [])


if __name__ == "__main__":
    unittest.main()
