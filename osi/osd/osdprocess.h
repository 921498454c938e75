// Child processes: starting a program, noticing that it ended, ending it.
#pragma once

// A child process's identity; -1 for none.
using OsdProcessId = int;

// Starts the program at executable (searched on the PATH when it has no
// slash) with arguments, argument zero first and a null pointer last. What
// this process has buffered for output is flushed first, so that the child
// does not print it again. The child's identity, or -1 when none could be
// made; a child that cannot run the program exits with -1.
OsdProcessId osdStartProgram(const char* executable, char* const arguments[]);
// Whether the child has ended, without waiting; an ended child is reaped.
// False for -1.
bool osdProcessHasEnded(OsdProcessId child);
// Kills the child at once and reaps it.
void osdKillProcess(OsdProcessId child);
