#pragma once

/// The whole program, from the command line to its exit status; see ExitCode.
int runWorkstation(int argc, char** argv);
