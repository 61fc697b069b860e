#!/usr/bin/env python3
"""Checks by text that the tree keeps its own rules: who includes whom, what files are called, what they may say.

    lint.py [ROOT]         check a tree (default: the one this file is in); exit status 1 if a rule is broken
    lint.py --rules        list the rules

Exceptions stand in allowed.txt beside this file, one a line: rule, file, what it concerns, and the reason after a #.
An exception whose file exists but no longer needs it is an error too.
"""

import fnmatch
import os
import re
import subprocess
import sys
from pathlib import Path

sys.dont_write_bytecode = True
HERE = Path(__file__).resolve().parent

ROOMS = ["volume", "render", "transfer", "slices", "browse", "process", "registration", "results", "plugin"]
HOST_LIBRARIES = ["hvparser", "hvimage", "hvspinbox", "hvutils", "hvdicom", "hvapi", "HVReconSurfaceVolume"]
# A library of the workstation may use the ones of an earlier group.
LIBRARY_RANK = {"hvimage": 0, "hvspinbox": 0, "hvutils": 1, "hvparser": 2, "hvdicom": 2, "hvapi": 3,
                "HVReconSurfaceVolume": 4, "hvmovie": 4}
SOURCE = "Plug-ins/VolumeVizPlugin/source/"
INCLUDE_ROOTS = ["", "host/", "workstation/", SOURCE, "tests/", "tools/"]
PALETTE = "CHVVolumeVizPalette"
LONGEST_SOURCE = 700

STANDARD = set("""algorithm any array atomic bitset charconv chrono codecvt complex condition_variable deque exception
execution filesystem forward_list fstream functional future initializer_list iomanip ios iosfwd iostream istream
iterator limits list locale map memory memory_resource mutex new numeric optional ostream queue random ratio regex
scoped_allocator set shared_mutex sstream stack stdexcept streambuf string string_view strstream system_error thread
tuple type_traits typeindex typeinfo unordered_map unordered_set utility valarray variant vector cassert cctype cerrno
cfenv cfloat cinttypes climits clocale cmath csetjmp csignal cstdarg cstddef cstdint cstdio cstdlib cstring ctime cuchar
cwchar cwctype""".split())

# What logic/ may take from Qt: QtCore without its event machinery, and the value types of QtGui.
QT_LOGIC_REFUSED = re.compile(
    r"Q(Object|CoreApplication|Application|GuiApplication|Thread\w*|Timer|BasicTimer|Mutex\w*|ElapsedTimer|Process\w*|"
    r"File|SaveFile|Temporary\w+|Settings|StandardPaths|Event\w*|SignalBlocker|Signal\w*|LibraryInfo|Library|"
    r"PluginLoader|Painter\w*|Pixmap|Icon|Cursor|Screen|Window|OpenGL\w*|Surface\w*|Clipboard|DesktopServices|"
    r"StandardItem\w*|Abstract\w+)$")
QT_GUI_VALUES = {"QPolygon", "QPolygonF", "QRgb", "QRgba64", "QColor", "QVector2D", "QVector3D", "QVector4D",
                 "QMatrix4x4", "QQuaternion", "QTransform", "QMatrix", "qrgb.h"}
QT_CORE = set("""QString QStringList QStringRef QStringView QLatin1String QLatin1Char QChar QByteArray QByteArrayList
QByteArrayView QVector QList QLinkedList QMap QMultiMap QHash QMultiHash QSet QPair QPoint QPointF QRect QRectF QSize
QSizeF QLine QLineF QMargins QMarginsF QVariant QVariantList QVariantMap QUrl QDate QTime QDateTime QLocale QRegExp
QRegularExpression QRegularExpressionMatch QTextStream QDataStream QtGlobal QtMath QtDebug QDebug QtAlgorithms
QtEndian QFlags QFlag QFileInfo QDir QUuid QJsonDocument QJsonObject QJsonArray QJsonValue QXmlStreamReader
QXmlStreamWriter QIODevice QBuffer QCollator QVarLengthArray QQueue QStack QBitArray QStringBuilder QMetaType QMetaEnum
QSharedPointer QScopedPointer QSharedDataPointer QSharedData QCryptographicHash Qt qglobal.h qmath.h qnamespace.h
qendian.h QStringLiteral QLatin1StringView QIntegerForSize QOverload QCoreCompare QtNumeric qnumeric.h""".split())

RULES = {
    "voxm-includes": "VOXM/ includes the standard library and itself",
    "host-includes": "host/ includes the standard library, Qt and the contract",
    "library-includes": "a library of the workstation includes the contract, others' libraries and libraries before it",
    "app-includes": "workstation/app and workstation/testing include contract and libraries, never the plug-in",
    "room-includes": "a room of the plug-in includes the contract, VOXM, itself, render/gl and the rooms before it",
    "logic-includes": "logic/ includes std, value types of Qt, hvapi/values, VOXM and logic/ of the rooms before it",
    "glew": "one file of render/gl includes glew.h, and none of Qt's OpenGL headers with it",
    "later": "no notes about work to be done later",
    "shader-empty": "a shader file has code in it",
    "class-name": "a header with nothing but one class is called like it (logic/ is called by subject)",
    "source-length": "a source file is at most %d lines long" % LONGEST_SOURCE,
    "guard": "a test that docs/host-contract.md or docs/kept-on-purpose.md names is there",
    "allowance": "every exception in allowed.txt is needed",
}

# Spelled in pieces, so that this file passes its own check.
LATER = re.compile(r"\b(?:TO" r"DO|FIX" r"ME|X" r"XX|HA" r"CK)\b")

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*(?:"([^"\n]+)"|<([^>\n]+)>)', re.MULTILINE)
COMMENT = re.compile(r"//[^\n]*|/\*.*?\*/", re.DOTALL)
TYPE = re.compile(r"^(?:template\s*<[^;{}]*?>\s*)?(class|struct)\s+(?:\w+_EXPORT\s+)?(\w+)\s*(?:final\s*)?"
                  r"(?::(?!:)[^;{]*)?\{", re.MULTILINE)
QT_HEADER = re.compile(r"^(?:Qt\w+/)?(Q\w+|q\w+\.h|Qt)$")
GUARDED_PAGES = ("docs/host-contract.md", "docs/kept-on-purpose.md")
# `Suite.Case`; a name of a file has a known ending in place of the case.
GUARD = re.compile(r"`([A-Z]\w*)\.(?!(?:cmake|cpp|csv|dat|frag|glsl|h|ini|json|log|md|png|raw|tfn|txt|ui|vox|xml)`)(\w+)`")
TEST = re.compile(r"^TEST(?:_F|_P)?\(\s*(\w+)\s*,\s*(\w+)\s*\)", re.MULTILINE)
QT_GL = re.compile(r"^(?:Qt\w+/)?(?:QOpenGL\w*|qopengl\w*\.h|QGL\w*)$")


class Tree:
    """The files of a source tree and what its includes lead to."""

    def __init__(self, root):
        self.root = Path(root).resolve()
        self.paths = sorted(self._list())
        self._known = set(self.paths)

    def _list(self):
        listed = self._listed_by_git()
        if listed is not None:
            yield from (name for name in listed if (self.root / name).is_file())
            return
        for folder, folders, files in os.walk(self.root):
            folders[:] = [f for f in folders if f not in ("build", ".git", ".cache", "__pycache__")]
            for name in files:
                yield (Path(folder) / name).relative_to(self.root).as_posix()

    def _listed_by_git(self):
        """What git keeps or would keep, or None where there is no git or no repository of this very folder."""
        if not (self.root / ".git").exists():
            return None
        try:
            run = subprocess.run(["git", "-C", str(self.root), "ls-files", "-z", "--cached", "--others",
                                  "--exclude-standard"], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        except OSError:
            return None
        if run.returncode != 0:
            return None
        return {name.decode(errors="surrogateescape") for name in run.stdout.split(b"\0") if name}

    def text(self, path):
        """The file as text, or None if it is none."""
        data = (self.root / path).read_bytes()
        return None if b"\0" in data[:8192] else data.decode("utf-8", errors="replace")

    def target(self, path, name):
        """The file of this tree that an include of `name` in `path` means, or a likely path of a generated one, or
        None for somebody else's header."""
        folder = os.path.dirname(path)
        tried = [os.path.normpath(os.path.join(folder, name))]
        tried += [os.path.normpath(root + name) for root in INCLUDE_ROOTS]
        for candidate in tried:
            if candidate in self._known:
                return candidate
        first = name.split("/")[0]
        if "/" in name and first in ROOMS:
            return SOURCE + name
        if "/" in name and first in HOST_LIBRARIES:
            return "host/" + name
        if "/" in name and first in ("lib", "app", "testing"):
            return "workstation/" + name
        if first == "VOXM" or first.startswith("voxm_"):
            return "VOXM/" + name
        return None


def room_of(path):
    """The room of the plug-in that a file counts to, or None. The palette's sources are the plug-in's own."""
    if not path.startswith(SOURCE):
        return None
    if os.path.basename(path).startswith(PALETTE):
        return "plugin"
    first = path[len(SOURCE):].split("/")[0]
    return first if first in ROOMS else None


def is_logic(path):
    return path.startswith(SOURCE) and "/logic/" in path


def library_of(path):
    match = re.match(r"workstation/lib/(\w+)/", path)
    return match.group(1) if match else None


def is_standard(name):
    return name in STANDARD


def qt_class(name):
    match = QT_HEADER.match(name)
    return match.group(1) if match else None


def is_qt(name):
    return name.startswith("Qt") and "/" in name or qt_class(name) is not None


def fits_logic_qt(name):
    qt = qt_class(name)
    if qt is None or QT_LOGIC_REFUSED.match(qt):
        return False
    module = name.split("/")[0] if "/" in name else None
    return qt in QT_CORE or qt in QT_GUI_VALUES or (module == "QtCore" and qt != "QtCore")


def check_voxm(path, name, target):
    if target is not None and target.startswith("VOXM/") or is_standard(name):
        return None
    return "voxm-includes"


def check_host(path, name, target):
    if target is not None:
        return None if target.startswith("host/") else "host-includes"
    return None if is_standard(name) or is_qt(name) else "host-includes"


def check_library(path, name, target):
    if target is None or target.startswith("host/"):
        return None
    own, other = library_of(path), library_of(target)
    if other is not None and (own == other or LIBRARY_RANK.get(other, 99) < LIBRARY_RANK.get(own, -1)):
        return None
    return "library-includes"


def check_app(path, name, target):
    if target is None or target.startswith(("host/", "workstation/")):
        return None
    return "app-includes"


def check_room(path, name, target):
    if target is None or target.startswith(("host/", "VOXM/")):
        return None
    own, other = room_of(path), room_of(target)
    if target.startswith(SOURCE + "render/gl/"):
        return None
    if own is not None and other is not None and ROOMS.index(other) <= ROOMS.index(own):
        return None
    return "room-includes"


def check_logic(path, name, target):
    if target is None:
        return None if is_standard(name) or fits_logic_qt(name) else "logic-includes"
    if target.startswith(("host/hvapi/values/", "VOXM/")) or re.fullmatch(r"host/hvapi/\w+_global\.h", target):
        return None
    own, other = room_of(path), room_of(target)
    if is_logic(target) and own and other and ROOMS.index(other) <= ROOMS.index(own):
        return None
    return "logic-includes"


def include_check(path):
    """The rule for the includes of a file, or None where everything may be included."""
    if path.startswith("VOXM/"):
        return check_voxm
    if path.startswith("host/"):
        return check_host
    if path.startswith("workstation/lib/"):
        return check_library
    if path.startswith("workstation/"):
        return check_app
    if is_logic(path):
        return check_logic
    if path.startswith(SOURCE):
        return check_room
    return None


def line_of(text, offset):
    return text.count("\n", 0, offset) + 1


def lint_includes(tree, path, text, report, glew_users):
    check = include_check(path)
    names = []
    for match in INCLUDE.finditer(text):
        name = match.group(1) or match.group(2)
        names.append(name)
        target = tree.target(path, name)
        if name.lower() in ("gl/glew.h", "glew.h"):
            glew_users.append(path)
            if not path.startswith(SOURCE + "render/gl/"):
                report("glew", path, line_of(text, match.start()), name)
            continue
        rule = check(path, name, target) if check else None
        if rule:
            report(rule, path, line_of(text, match.start()), name)
    if path in glew_users:
        for name in names:
            if QT_GL.match(name):
                report("glew", path, 1, name)


def lint_words(path, text, report):
    if path.startswith("tests/lint/"):
        return
    for match in LATER.finditer(text):
        report("later", path, line_of(text, match.start()), match.group(0))


def lint_shape(path, text, report):
    if path.endswith((".frag", ".vert", ".geom", ".glsl")) and not COMMENT.sub("", text).strip():
        report("shader-empty", path, 1, os.path.basename(path))
    if path.endswith(".cpp") and text.count("\n") > LONGEST_SOURCE:
        report("source-length", path, LONGEST_SOURCE, "%d lines" % text.count("\n"))
    if path.endswith(".h") and path.startswith(("host/", "workstation/", "Plug-ins/", "VOXM/", "tools/")) \
            and "/logic/" not in path:
        types = TYPE.findall(COMMENT.sub("", text))
        if len(types) == 1 and types[0][0] == "class" and types[0][1] != Path(path).stem:
            report("class-name", path, 1, types[0][1])


def lint_guards(tree, report):
    pages = [path for path in tree.paths if path in GUARDED_PAGES]
    if not pages:
        return
    tests = {test for path in tree.paths if path.startswith("tests/") and path.endswith(".cpp")
             for test in TEST.findall(tree.text(path) or "")}
    for path in pages:
        text = tree.text(path) or ""
        for match in GUARD.finditer(text):
            if match.groups() not in tests:
                report("guard", path, line_of(text, match.start()), ".".join(match.groups()))


def read_allowances(file):
    """(rule, file pattern, detail pattern) of each line; the reason is for the reader."""
    allowances = []
    for number, line in enumerate(file.read_text().splitlines() if file.exists() else [], 1):
        entry, _, reason = line.partition("#")
        if not entry.strip():
            continue
        fields = entry.split(None, 2)
        if len(fields) != 3 or fields[0] not in RULES or not reason.strip():
            sys.exit("%s:%d: wanted: rule file detail # reason" % (file, number))
        allowances.append(tuple(field.strip() for field in fields))
    return allowances


def lint(root, allowance_file):
    """All findings as (rule, path, line, detail), sorted."""
    tree = Tree(root)
    allowances = read_allowances(allowance_file)
    used, findings, glew_users = set(), [], []

    def report(rule, path, line, detail):
        for allowance in allowances:
            if allowance[0] == rule and fnmatch.fnmatchcase(path, allowance[1]) \
                    and fnmatch.fnmatchcase(detail, allowance[2]):
                used.add(allowance)
                return
        findings.append((rule, path, line, detail))

    for path in tree.paths:
        text = tree.text(path)
        if text is None:
            continue
        lint_words(path, text, report)
        lint_shape(path, text, report)
        if path.endswith((".h", ".hpp", ".cpp", ".inl")):
            lint_includes(tree, path, text, report, glew_users)
    lint_guards(tree, report)
    for path in [p for p in glew_users if p.startswith(SOURCE + "render/gl/")][1:]:
        report("glew", path, 1, "a second file with glew.h")
    for allowance in allowances:
        if allowance not in used and any(fnmatch.fnmatchcase(p, allowance[1]) for p in tree.paths):
            findings.append(("allowance", allowance[1], 1, allowance[0] + " " + allowance[2]))
    return sorted(findings)


def main(arguments):
    if arguments == ["--rules"]:
        for rule, meaning in RULES.items():
            print("%-17s %s" % (rule, meaning))
        return 0
    if len(arguments) > 1 or arguments and arguments[0].startswith("-"):
        sys.exit(__doc__.strip())
    root = Path(arguments[0]) if arguments else HERE.parent.parent
    findings = lint(root, root / "tests/lint/allowed.txt")
    for rule, path, line, detail in findings:
        print("%s:%d: [%s] %s  (%s)" % (path, line, rule, detail, RULES[rule]))
    print("lint: %d rule(s) broken" % len(findings) if findings else "lint: the tree keeps its rules")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
