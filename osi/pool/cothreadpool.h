// The process-wide pool of worker threads that runs the bodies of parallel
// loops, and the collection of the text those bodies print.
#pragma once

#include "osi/base/string_ext.h"
#include "osi/osd/osdatomic.h"
#include "osi/osd/osdmutex.h"
#include "osi/osd/osdsemaphore.h"
#include "osi/osd/osdthread.h"

#include <atomic>
#include <memory>

// A loop body: called once per index. threadIndex is the worker's number
// (0 .. pool size - 1; 0 when the loop runs serially) and out the worker's
// text for the standard output, printed whole by the thread that waits.
using OsiParallelBody = void (*)(void* data, int index, int threadIndex, string_ext<char>& out);

// Receives collected text in place of the standard output or error.
using OsiOutputCallback = void (*)(string_ext<char>& text);

// Gives back a reference on a reference-counted object of the runtime.
struct OsiReleaseReference
{
	void operator()(OsiReferenceCount* object) const { object->release(); }
};

// One worker: its thread, the semaphore that wakes it, its collected text and
// the run handed to it. A dispatching thread claims an idle worker by setting
// its body (null while idle), then fills in data and index and signals it.
struct OsiThreadPoolInfo
{
	OsiThreadPoolInfo(int number, OsdThreadType type);

	std::unique_ptr<OsdThread, OsiReleaseReference> thread;
	std::unique_ptr<OsdSemaphore, OsiReleaseReference> wakeUp;
	string_ext<char> stdOut;
	string_ext<char> stdErr;
	std::atomic<OsiParallelBody> body{nullptr};
	void* data = nullptr;
	const int number;
	int index = 0;
	OsdThreadId threadId = 0;
};

// All state is static: there is one pool per process. It opens on first use
// by a loop (or explicitly, with a chosen size) and closes when the last loop
// using it ends (or explicitly), so that the next loop gets every core.
class OsiThreadPool
{
public:
	// Opens the pool (nothing if open) with threads workers, or one per core
	// when threads < 1 or not below the core count; never more than
	// maximumThreads. False if the workers cannot be started.
	static bool initialise(int threads, OsdThreadType type = OsdThreadType::normal);
	// Closes the pool now; while loops run on it, the outermost closes it.
	static void close();
	// Pool size; 0 while closed.
	static int numberOfThreads();
	// Worker threads still running (they end shortly after a close begins).
	static int liveThreads();
	// Processors available to this process, at least 1.
	static int numberOfCores();

	// Hand-over of runs while the pool is open: count the runs first, then add
	// them one by one (each waits for a free worker), then wait for all.
	static void beginRun(int count);
	static void addRun(void* data, OsiParallelBody body, int index);
	static void waitForCompletion();

	// Appends text to the calling worker's output, or on the main thread to
	// the serialised output; false on any other thread or for null text.
	static bool writeToStdOutString(const char* text);
	static bool writeToStdErrString(const char* text);
	// Prints (or passes to the callbacks) what workers collected, and the
	// calling thread's serialised output.
	static void flushStdOutAndStdErr();
	// Prints the calling thread's serialised output.
	static void flushSerialised();
	// A serial loop clears the serialised output before every body and after
	// it passes what the body wrote to the callbacks that are set.
	static void clearSerialised();
	static void passSerialisedToCallbacks();
	// The serialised output that serial loop bodies write to.
	static string_ext<char>& serialisedStdOut();

	static void setStdOutCallback(OsiOutputCallback callback);
	static void setStdErrCallback(OsiOutputCallback callback);
	static OsiOutputCallback getStdOutCallback();
	static OsiOutputCallback getStdErrCallback();

	// A loop holds the pool open from enterLoop to leaveLoop; loops nest, and
	// the outermost one closes a pool that nobody opened explicitly.
	// enterLoop returns whether the pool is open.
	static bool enterLoop();
	static void leaveLoop();
	// The record of the calling thread when it is one of the pool's workers.
	static OsiThreadPoolInfo* callingWorker();

	static constexpr int maximumThreads = 127;
	// The longest that a worker or the waiting thread blocks at a time.
	static constexpr unsigned int roundMilliseconds = 50;

private:
	static bool open(int threads, OsdThreadType type);
	static void shutDown();
	static unsigned int run(void* info, unsigned int threadNumber);
	static void finishRun(OsiThreadPoolInfo& info);
	static OsiThreadPoolInfo* claimWorker(OsiParallelBody body);
	static bool writeToStdString(const char* text, bool toStdOut);
};
