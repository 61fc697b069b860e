#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

/// What the user asked for on the command line.
struct CommandLine
{
    enum class Wish
    {
        Workstation,  ///< windows, until the user leaves
        Snapshot,     ///< one picture, then exit
        Help,
        Version,
        Complain  ///< `error` says what is wrong
    };
    enum class View
    {
        Front,
        Side,
        Top,
        Iso
    };

    Wish wish = Wish::Workstation;
    QStringList paths;     ///< files of one volume, or a sequence, as the user typed them
    QString snapshotFile;  ///< picture to write; set for Wish::Snapshot
    QSize snapshotSize{640, 640};
    View view = View::Iso;
    QStringList presses;  ///< buttons to press after the load and before the picture, in order
    QString logFile;      ///< empty: the session's log is not written to a file of the user's
    QString error;
};

/// Reads the arguments, the program's name first. Never exits and needs no application object.
/// Sides of the picture go from 16 to 8192 pixels.
CommandLine parseCommandLine(const QStringList& arguments);

/// The text of --help, ending in a line break. `program` is the name to be shown in the usage line.
QString helpText(const QString& program);

/// The text of --version, ending in a line break.
QString versionText();
