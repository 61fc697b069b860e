#include "CommandLine.h"

#include "ExitCode.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QRegularExpression>

#include <map>

namespace {

constexpr int smallestSide = 16;
constexpr int largestSide = 8192;

const std::map<QString, CommandLine::View>& views()
{
    static const std::map<QString, CommandLine::View> names{
        {QStringLiteral("front"), CommandLine::View::Front},
        {QStringLiteral("side"), CommandLine::View::Side},
        {QStringLiteral("top"), CommandLine::View::Top},
        {QStringLiteral("iso"), CommandLine::View::Iso}};
    return names;
}

/// The options in the order in which --help lists them.
struct Options
{
    QCommandLineOption snapshot{
        QStringLiteral("snapshot"),
        QStringLiteral("Load the files, draw the 3D view (of a sequence without a volume its Sequence View), "
                       "write the picture to FILE and exit. "
                       "The ending of FILE gives the format (png, jpg, bmp). Shows no window "
                       "and waits for nobody."),
        QStringLiteral("FILE")};
    QCommandLineOption size{
        QStringLiteral("size"),
        QStringLiteral("Size of the picture in pixels, 16 to 8192 a side (default 640x640)."),
        QStringLiteral("WxH")};
    QCommandLineOption view{
        QStringLiteral("view"),
        QStringLiteral("Where the picture is taken from: front, side, top or iso (default iso)."),
        QStringLiteral("VIEW")};
    QCommandLineOption press{
        QStringLiteral("press"),
        QStringLiteral("After the load press the palette's button or check box of that text, or a button "
                       "of the box or dialog that has opened; may be given again and again."),
        QStringLiteral("TEXT")};
    QCommandLineOption log{QStringLiteral("log"), QStringLiteral("Write the session's log to FILE as well."),
                           QStringLiteral("FILE")};
    QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this text.")};
    QCommandLineOption version{{QStringLiteral("v"), QStringLiteral("version")},
                               QStringLiteral("Show the version.")};

    void addTo(QCommandLineParser& parser) const
    {
        parser.addOptions({snapshot, size, view, press, log, help, version});
    }
};

CommandLine complaint(const QString& text)
{
    CommandLine line;
    line.wish = CommandLine::Wish::Complain;
    line.error = text;
    return line;
}

/// An empty size when the text is not WxH within the limits.
QSize parseSize(const QString& text)
{
    static const QRegularExpression form(QStringLiteral("^(\\d{1,5})[xX](\\d{1,5})$"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch()) return {};
    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    const bool fits =
        qMin(size.width(), size.height()) >= smallestSide && qMax(size.width(), size.height()) <= largestSide;
    return fits ? size : QSize();
}

}  // namespace

CommandLine parseCommandLine(const QStringList& arguments)
{
    const Options options;
    QCommandLineParser parser;
    options.addTo(parser);
    if (!parser.parse(arguments)) return complaint(parser.errorText());

    CommandLine line;
    if (parser.isSet(options.help)) {
        line.wish = CommandLine::Wish::Help;
        return line;
    }
    if (parser.isSet(options.version)) {
        line.wish = CommandLine::Wish::Version;
        return line;
    }

    line.paths = parser.positionalArguments();
    if (line.paths.contains(QString())) return complaint(QStringLiteral("A path is empty."));

    if (parser.isSet(options.log)) {
        line.logFile = parser.value(options.log);
        if (line.logFile.isEmpty()) return complaint(QStringLiteral("--log needs the name of a file."));
    }

    const bool isSnapshot = parser.isSet(options.snapshot);
    for (const QCommandLineOption* option : {&options.size, &options.view, &options.press}) {
        if (parser.isSet(*option) && !isSnapshot)
            return complaint(
                QStringLiteral("--%1 is about a picture and needs --snapshot.").arg(option->names().first()));
    }
    if (!isSnapshot) return line;

    line.wish = CommandLine::Wish::Snapshot;
    line.snapshotFile = parser.value(options.snapshot);
    if (line.snapshotFile.isEmpty())
        return complaint(QStringLiteral("--snapshot needs the name of a picture."));
    if (line.paths.isEmpty()) return complaint(QStringLiteral("--snapshot needs the path of a volume."));
    if (parser.isSet(options.size)) {
        line.snapshotSize = parseSize(parser.value(options.size));
        if (line.snapshotSize.isEmpty())
            return complaint(QStringLiteral("'%1' is no size: WxH, each from %2 to %3, is needed.")
                                 .arg(parser.value(options.size))
                                 .arg(smallestSide)
                                 .arg(largestSide));
    }
    if (parser.isSet(options.view)) {
        const auto view = views().find(parser.value(options.view).toLower());
        if (view == views().end())
            return complaint(QStringLiteral("'%1' is no view: front, side, top or iso is needed.")
                                 .arg(parser.value(options.view)));
        line.view = view->second;
    }
    line.presses = parser.values(options.press);
    if (line.presses.contains(QString()))
        return complaint(QStringLiteral("--press needs the text of a button."));
    return line;
}

QString helpText(const QString& program)
{
    QString text;
    text +=
        QStringLiteral(
            "Usage: %1 [OPTION...] [PATH...]\n"
            "       %1 --snapshot FILE.png [--size WxH] [--view front|side|top|iso] [--press TEXT...]\n"
            "             PATH...\n\n"
            "A workstation for preclinical images. The files named by PATH make one volume, which is\n"
            "opened in a new 3D scene. A folder stands for the files in it: DICOM slices by their place,\n"
            "others by name. A SequenceInfo.txt, or the folder of one, opens that sequence.\n\nOptions:\n")
            .arg(program);
    const Options options;
    for (const QCommandLineOption& option : {options.snapshot, options.size, options.view, options.press,
                                             options.log, options.help, options.version}) {
        QStringList names;
        for (const QString& name : option.names())
            names << (name.size() == 1 ? QStringLiteral("-") : QStringLiteral("--")) + name;
        QString left = names.join(QStringLiteral(", "));
        if (!option.valueName().isEmpty()) left += QLatin1Char(' ') + option.valueName();
        QString line = QStringLiteral("  ") + left.leftJustified(18);
        const QStringList words = option.description().split(QLatin1Char(' '));
        for (const QString& word : words) {
            if (line.size() + 1 + word.size() > 92) {
                text += line + QLatin1Char('\n');
                line = QString(20, QLatin1Char(' '));
            }
            line += QLatin1Char(' ') + word;
        }
        text += line + QLatin1Char('\n');
    }
    text +=
        QStringLiteral(
            "\nA snapshot answers questions by their safe default and logs both. It uses a data folder of\n"
            "its own, so that it can run beside an open workstation.\n\n"
            "Exit status:\n"
            "  %1  all went well\n"
            "  %2  the program could not start: another instance runs, or there is no plug-in or OpenGL\n"
            "  %3  the command line makes no sense\n"
            "  %4  a dialog asked for values that only the user has; one line on stderr names them\n"
            "  %5  a file was not loaded\n"
            "  %6  the picture or the log was not written\n\n")
            .arg(ExitOk)
            .arg(ExitCannotStart)
            .arg(ExitUsage)
            .arg(ExitNeedsValues)
            .arg(ExitLoadFailed)
            .arg(ExitWriteFailed);
    text += QStringLiteral(
        "Environment:\n"
        "  HALVANE_HOME         one folder for settings and program data, in place of the XDG folders\n"
        "  HALVANE_PLUGIN_PATH  folders with plug-ins, separated by ':', in place of the program's own\n"
        "  QT_QPA_PLATFORM      the window system; xcb unless set\n");
    return text;
}

QString versionText()
{
    return QStringLiteral("halvane %1 (Qt %2)\n")
        .arg(QStringLiteral(HALVANE_VERSION), QString::fromLatin1(qVersion()));
}
