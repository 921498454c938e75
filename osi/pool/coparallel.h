// Parallel loops on the process-wide thread pool: one run per index, bodies on
// the pool's workers while the calling thread waits and prints what they
// wrote. A loop started from inside a body of another one (serial or not) runs
// its indices on that body's worker, in order, with the worker's number and
// output, so nested loops never wait for each other.
#pragma once

#include "osi/pool/cothreadpool.h"

#include <vector>

// Runs body once for every index from begin to end - 1. Serial loops run on
// the calling thread in ascending order with thread index 0 and open no pool.
void parallelFor(void* data, OsiParallelBody body, int begin, int end, bool serial);

// Runs the indices begin .. end - 1 in waves of ascending priority[index]; a
// wave ends before the next one starts. A wave of several indices runs like
// parallelFor, a wave of one on the calling thread. Nothing runs unless
// priority has an entry for every index of the range.
void priorityParallelFor(void* data, OsiParallelBody body, const std::vector<int>& priority,
                         int begin, int end, bool serial);

bool openThreadPool(int threads, OsdThreadType type = OsdThreadType::normal);
void closeThreadPool();
int numberOfThreads();
int numberOfCores();
bool writeToStdOutString(const char* text);
bool writeToStdErrString(const char* text);
