#pragma once

#include <Kelvor/KelvorHostExport.h>

/// Runs the inspector as a program: makes the application object, reads the command line, opens the window
/// and returns the exit code. 0; 1 with one sentence on standard error when a scene, a plug-in, a profile or
/// a selection that was asked for is not found or cannot be read.
KELVOR_HOST_EXPORT int runKelvor(int argc, char** argv);
