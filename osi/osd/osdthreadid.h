// The identity of a thread as the framework holds it: the platform's thread
// handle kept in an integer of the same size, so that no platform type shows
// above the platform layer and a zero-filled lock holds no thread. On the
// supported platforms the handle is a scalar, so equal values are the same
// thread.
#pragma once

#include <cstdint>

using OsdThreadId = std::uintptr_t;

// The calling thread's identity; never 0.
OsdThreadId osdCurrentThread();
