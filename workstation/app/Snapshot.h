#pragma once

#include "ExitCode.h"

#include <QString>

class ApplicationServices;
class MainWindow;
struct CommandLine;

/// How a snapshot ended, and the line for the user when it did not end well.
struct SnapshotResult
{
    ExitCode code = ExitOk;
    QString complaint;
};

/// Loads the files of the command line into a window that is never shown, draws the 3D view and writes the
/// picture. What `services` logged last explains a load that failed.
SnapshotResult takeSnapshot(MainWindow& window, ApplicationServices& services, const CommandLine& line);
