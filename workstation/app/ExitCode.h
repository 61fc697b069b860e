#pragma once

/// What the program hands back to the shell. The numbers are part of its interface: --help lists them.
enum ExitCode
{
    ExitOk = 0,
    ExitCannotStart =
        1,  ///< no program data folder, another instance holds it, no OpenGL, no plug-in in snapshot mode
    ExitUsage = 2,        ///< the command line makes no sense
    ExitNeedsValues = 3,  ///< a dialog asked for values that only the user has
    ExitLoadFailed = 4,   ///< a file was not loaded
    ExitWriteFailed = 5   ///< the picture or the log was not written
};
