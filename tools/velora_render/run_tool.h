// How a command-line tool of this project ends: the status its run returns,
// or, when a failure stops it, one line "NAME: message" on standard error
// and the failure's status (kExitRuntime for any other error).
#pragma once

namespace velora_render {

int runTool(const char* name, int (*run)(int argc, const char* const* argv), int argc, char** argv);

} // namespace velora_render
