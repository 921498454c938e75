#include "osi/osd/osdthread.h"

#include <pthread.h>
#include <sched.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <thread>

namespace {

std::atomic<unsigned int> lastThreadNumber{0};
thread_local unsigned int threadNumberOfCaller = 0;
const OsdThreadId initialisingThread = osdCurrentThread();

// Scheduling is set by the thread itself, so that a refused request (real-time
// scheduling needs a privilege the process may lack) leaves the default.
void applyType(OsdThreadType type)
{
	sched_param parameters{};
	switch (type)
	{
	case OsdThreadType::normal:
		return;
	case OsdThreadType::background:
#if defined(SCHED_IDLE)
		pthread_setschedparam(pthread_self(), SCHED_IDLE, &parameters);
#endif
		return;
	case OsdThreadType::timeCritical:
		parameters.sched_priority =
		    (sched_get_priority_min(SCHED_FIFO) + sched_get_priority_max(SCHED_FIFO)) / 2;
		pthread_setschedparam(pthread_self(), SCHED_FIFO, &parameters);
		return;
	}
}

// What the thread gives back when it ends, also when it ends through exit().
struct ThreadEnd
{
	OsdThread* thread;
	OsiReferenceCount* argument;
	unsigned int number;

	~ThreadEnd()
	{
		if (argument)
			argument->release();
		thread->release();
		std::printf("*** End thread %d\n", static_cast<int>(number));
	}
};

} // namespace

struct OsdThread::Platform
{
	Platform() { pthread_attr_init(&attributes); }
	~Platform() { pthread_attr_destroy(&attributes); }
	Platform(const Platform&) = delete;
	Platform& operator=(const Platform&) = delete;

	pthread_t handle{};
	pthread_attr_t attributes;
};

OsdThread::OsdThread(OsdThreadType type) : platform(std::make_unique<Platform>()), threadType(type)
{}

OsdThread::~OsdThread()
{
	if (!running)
		return;
	if (pthread_equal(platform->handle, pthread_self()))
		pthread_detach(platform->handle);
	else
		waitForThreadClosure();
}

bool OsdThread::open(Function fn, OsiReferenceCount* arg, unsigned int stackSize)
{
	return start(fn, arg, arg, stackSize);
}

bool OsdThread::open(Function fn, void* arg, unsigned int stackSize)
{
	return start(fn, arg, nullptr, stackSize);
}

bool OsdThread::start(Function fn, void* arg, OsiReferenceCount* counted, unsigned int stackSize)
{
	if (running || !fn || !arg)
		return running;
	function = fn;
	argument = arg;
	countedArgument = counted;
	if (counted)
		counted->lock();
	lock();
	if (stackSize != 0)
		pthread_attr_setstacksize(&platform->attributes, stackSize);
	number = lastThreadNumber.fetch_add(1) + 1;
	running = true;
	if (pthread_create(&platform->handle, &platform->attributes, run, this) != 0)
	{
		running = false;
		if (counted)
			counted->release();
		release();
	}
	return running;
}

void* OsdThread::run(void* self)
{
	OsdThread* thread = static_cast<OsdThread*>(self);
	threadNumberOfCaller = thread->number;
	applyType(thread->threadType);
	std::printf("*** Start thread %d\n", static_cast<int>(thread->number));
	ThreadEnd end{thread, thread->countedArgument, thread->number};
	thread->exitCode = thread->function(thread->argument, thread->number);
	return nullptr;
}

void OsdThread::waitForThreadClosure()
{
	if (!running)
		return;
	std::printf("*** Wait thread closure start %d\n", static_cast<int>(number));
	pthread_join(platform->handle, nullptr);
	running = false;
	std::printf("*** Wait thread closure end %d\n", static_cast<int>(number));
}

void OsdThread::exit(unsigned long value)
{
	exitCode = value;
	pthread_exit(nullptr);
}

OsdThreadId OsdThread::threadId()
{
	return osdCurrentThread();
}

OsdThreadId OsdThread::mainThreadId()
{
	return initialisingThread;
}

bool OsdThread::isMainThread()
{
	return osdCurrentThread() == initialisingThread;
}

unsigned int OsdThread::currentThreadNumber()
{
	return threadNumberOfCaller;
}

void OsdThread::yield()
{
	sched_yield();
}

void OsdThread::sleep(unsigned int milliseconds)
{
	std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}
