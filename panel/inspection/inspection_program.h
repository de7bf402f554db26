// `recipe-panel probe FILE` and `recipe-panel validate FILE`: the command lines of looking at plug-ins.
#ifndef INSPECTION_PROGRAM_H
#define INSPECTION_PROGRAM_H

#include <optional>

/// Nothing: the first argument is neither "probe" nor "validate". Else the program's exit code: 0 all well, 1 the
/// library is no plug-in or a check failed, 2 the command line has faults.
std::optional<int> runInspection(int argc, char** argv);

#endif
