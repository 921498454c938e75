// How many processors this process can run on.
#pragma once

// At least 1: the processors available to the process, else those online.
int osdNumberOfProcessors();
