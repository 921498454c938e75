// Threads and locks of the framework: the platform's atomic lock, semaphores,
// mutexes and threads.
#pragma once

#include "osi/osd/osdatomic.h"
#include "osi/osd/osdmutex.h"
#include "osi/osd/osdsemaphore.h"
#include "osi/osd/osdthread.h"
