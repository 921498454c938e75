// A POSIX thread that runs one function on one argument and is numbered.
#pragma once

#include "osi/base/referencecount.h"
#include "osi/osd/osdthreadid.h"

#include <memory>

// The kind of a thread. Background threads run at the lowest scheduling
// class the system offers an ordinary process; time-critical threads ask for
// real-time scheduling and fall back to the default when that is refused.
enum class OsdThreadType
{
	normal,
	background,
	timeCritical
};

class OsdThread : public OsiReferenceCount
{
public:
	using Function = unsigned int (*)(void* argument, unsigned int threadNumber);

	explicit OsdThread(OsdThreadType type = OsdThreadType::normal);
	// Joins a thread still running (or lets it go when the thread itself
	// dropped the last reference).
	~OsdThread() override;

	// Starts the thread: it holds a reference on the argument object and on
	// this thread object until its function returns. Refused while running and
	// for a null function or argument; returns whether the thread runs.
	bool open(Function function, OsiReferenceCount* argument, unsigned int stackSize = 0);
	// The same on a plain argument that the caller keeps alive.
	bool open(Function function, void* argument, unsigned int stackSize = 0);

	// Joins the thread; nothing when it does not run.
	void waitForThreadClosure();
	// Called on the thread itself: ends it with this exit value.
	void exit(unsigned long value);

	bool isRunning() const { return running; }
	unsigned int threadNumber() const { return number; }
	// Valid after waitForThreadClosure.
	unsigned long exitValue() const { return exitCode; }

	static OsdThreadId threadId();
	// The thread that initialised the framework.
	static OsdThreadId mainThreadId();
	static bool isMainThread();
	// The number of the calling thread; 0 on a thread not started here.
	static unsigned int currentThreadNumber();
	// Lets other threads run before the caller goes on.
	static void yield();
	static void sleep(unsigned int milliseconds);

private:
	// The POSIX thread handle and attributes.
	struct Platform;

	static void* run(void* self);
	bool start(Function function, void* argument, OsiReferenceCount* counted,
	           unsigned int stackSize);

	std::unique_ptr<Platform> platform;
	OsdThreadType threadType;
	unsigned int number = 0;
	unsigned long exitCode = 0;
	bool running = false;
	void* argument = nullptr;
	OsiReferenceCount* countedArgument = nullptr;
	Function function = nullptr;
};
