#include "osi/pool/cothreadpool.h"

#include "osi/osd/osdprocessors.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <list>
#include <utility>
#include <vector>

namespace {

// Text that workers finished, waiting for the thread that prints it.
struct OutputList
{
	std::list<string_ext<char>> strings;
	bool hasOutput = false;
};

struct PoolState
{
	// Guards opening and closing and the nesting count.
	OsdAtomicLock lifecycle;
	int nesting = 0;
	bool initialised = false;

	std::atomic<int> size{0};
	std::atomic<int> live{0};
	std::unique_ptr<OsdSemaphore, OsiReleaseReference> free;
	std::unique_ptr<OsdSemaphore, OsiReleaseReference> complete;
	std::atomic<OsiOutputCallback> stdOutCallback{nullptr};
	std::atomic<OsiOutputCallback> stdErrCallback{nullptr};
	std::atomic<bool> closing{false};
	std::atomic<long long> outstanding{0};
	// The worker that went idle last: the one most likely still spinning for
	// its next run rather than asleep, so handing it over needs no wake-up.
	std::atomic<int> lastIdle{0};

	// Guarded by the pool mutex.
	OutputList stdOut;
	OutputList stdErr;
	std::vector<std::unique_ptr<OsiThreadPoolInfo>> workers;
};

// Neither is ever destroyed: workers of a pool still open when the process
// exits keep using them until they are stopped with it.
PoolState& pool()
{
	static PoolState* state = new PoolState;
	return *state;
}

const OsdMutex& poolMutex()
{
	static const OsdMutex* mutex = new OsdMutex("OsiThreadPool");
	return *mutex;
}

class PoolLock
{
public:
	PoolLock() : wait(&poolMutex(), OsdInfiniteWait) {}

private:
	OsdWaitOnMutex wait;
};

// Output of a serial loop or of the main thread, kept per thread so that
// serial loops on different threads do not share it.
thread_local string_ext<char> serialisedOut;
thread_local string_ext<char> serialisedErr;

void emit(string_ext<char>& text, OsiOutputCallback callback, std::FILE* stream)
{
	if (callback)
		callback(text);
	else
		std::fwrite(text.data(), 1, text.size(), stream);
}

void collect(string_ext<char>& text, OutputList& list)
{
	if (text.empty())
		return;
	list.strings.push_back(std::move(text));
	list.hasOutput = true;
	text.clear();
}

// Prints a list's strings outside the lock, so that workers never wait for
// the output stream.
void flushStringList(OutputList& list, OsiOutputCallback callback, std::FILE* stream)
{
	std::list<string_ext<char>> taken;
	{
		PoolLock lock;
		if (!list.hasOutput)
			return;
		taken.swap(list.strings);
		list.hasOutput = false;
	}
	for (string_ext<char>& text : taken)
		emit(text, callback, stream);
	std::fflush(stream);
}

void flushString(string_ext<char>& text, OsiOutputCallback callback, std::FILE* stream)
{
	if (text.empty())
		return;
	emit(text, callback, stream);
	text.clear();
	std::fflush(stream);
}

} // namespace

OsiThreadPoolInfo::OsiThreadPoolInfo(int number, OsdThreadType type)
: thread(new OsdThread(type)),
  wakeUp(new OsdSemaphore("OsiThreadPool wake-up", 0, 1)),
  number(number)
{}

int OsiThreadPool::numberOfCores()
{
	return osdNumberOfProcessors();
}

int OsiThreadPool::numberOfThreads()
{
	return pool().size.load();
}

int OsiThreadPool::liveThreads()
{
	return pool().live.load();
}

bool OsiThreadPool::initialise(int threads, OsdThreadType type)
{
	PoolState& state = pool();
	OsdAtomicLockScope scope(state.lifecycle);
	return open(threads, type);
}

void OsiThreadPool::close()
{
	PoolState& state = pool();
	OsdAtomicLockScope scope(state.lifecycle);
	// Workers that run a loop's bodies cannot be joined from inside it; the
	// outermost loop closes the pool as it ends.
	if (state.nesting == 0)
		shutDown();
}

bool OsiThreadPool::enterLoop()
{
	PoolState& state = pool();
	OsdAtomicLockScope scope(state.lifecycle);
	++state.nesting;
	return open(0, OsdThreadType::normal);
}

void OsiThreadPool::leaveLoop()
{
	PoolState& state = pool();
	OsdAtomicLockScope scope(state.lifecycle);
	if (--state.nesting == 0)
		shutDown();
}

bool OsiThreadPool::open(int threads, OsdThreadType type)
{
	PoolState& state = pool();
	if (state.initialised)
		return true;
	const int cores = numberOfCores();
	const int size = std::min(threads >= 1 && threads < cores ? threads : cores, maximumThreads);
	if (size < 1 || !state.workers.empty())
		return false;
	state.free.reset(new OsdSemaphore("OsiThreadPool free", size, size));
	state.complete.reset(new OsdSemaphore("OsiThreadPool complete", 0, 1));
	bool started = true;
	{
		PoolLock lock;
		for (int number = 0; number < size && started; ++number)
		{
			state.workers.push_back(std::make_unique<OsiThreadPoolInfo>(number, type));
			OsiThreadPoolInfo* info = state.workers.back().get();
			state.live.fetch_add(1);
			started = info->thread->open(run, static_cast<void*>(info));
			if (!started)
				state.live.fetch_sub(1);
		}
	}
	if (!started)
	{
		shutDown();
		return false;
	}
	state.size.store(size);
	state.initialised = true;
	return true;
}

// Workers notice the close flag when woken, or after their next round at the
// latest; joining them means that none is left when the pool reports closed.
void OsiThreadPool::shutDown()
{
	PoolState& state = pool();
	if (state.workers.empty())
		return;
	state.closing.store(true);
	for (const auto& worker : state.workers)
		worker->wakeUp->signal(1);
	for (const auto& worker : state.workers)
		worker->thread->waitForThreadClosure();
	PoolLock lock;
	state.workers.clear();
	state.size.store(0);
	state.initialised = false;
	state.closing.store(false);
	state.outstanding.store(0);
	state.lastIdle.store(0);
	state.free.reset();
	state.complete.reset();
}

// A worker wakes for a run, or at least once a round to see whether the pool
// closes (a closing pool also wakes it, with no run).
unsigned int OsiThreadPool::run(void* argument, unsigned int)
{
	OsiThreadPoolInfo& info = *static_cast<OsiThreadPoolInfo*>(argument);
	{
		PoolLock lock;
		info.threadId = OsdThread::threadId();
	}
	PoolState& state = pool();
	while (!state.closing.load())
	{
		if (info.wakeUp->waitOnSemaphore(roundMilliseconds) != 0)
			continue;
		if (OsiParallelBody body = info.body.load())
		{
			body(info.data, info.index, info.number, info.stdOut);
			finishRun(info);
		}
	}
	state.live.fetch_sub(1);
	return 0;
}

// The text goes to the lists before the run counts as done, so that the
// waiting thread's last flush prints it; the worker is idle again only after
// that, and announced free last.
void OsiThreadPool::finishRun(OsiThreadPoolInfo& info)
{
	PoolState& state = pool();
	if (!info.stdOut.empty() || !info.stdErr.empty())
	{
		PoolLock lock;
		collect(info.stdOut, state.stdOut);
		collect(info.stdErr, state.stdErr);
	}
	if (state.outstanding.fetch_sub(1) == 1)
		state.complete->signal(1);
	info.data = nullptr;
	info.body.store(nullptr);
	state.lastIdle.store(info.number);
	state.free->signal(1);
}

void OsiThreadPool::beginRun(int count)
{
	if (numberOfThreads() == 0)
		return;
	pool().outstanding.fetch_add(count);
}

// The caller holds a unit of "free", so some worker is idle and unclaimed;
// several dispatching threads may race for the same one, hence the exchange.
OsiThreadPoolInfo* OsiThreadPool::claimWorker(OsiParallelBody body)
{
	PoolState& state = pool();
	const auto claim = [body](OsiThreadPoolInfo& worker) {
		OsiParallelBody idle = nullptr;
		return worker.body.compare_exchange_strong(idle, body);
	};
	OsiThreadPoolInfo& likely = *state.workers[static_cast<size_t>(state.lastIdle.load())];
	if (claim(likely))
		return &likely;
	for (;;)
	{
		for (const auto& worker : state.workers)
		{
			if (claim(*worker))
				return worker.get();
		}
	}
}

void OsiThreadPool::addRun(void* data, OsiParallelBody body, int index)
{
	if (!body || numberOfThreads() == 0)
		return;
	PoolState& state = pool();
	state.free->waitOnSemaphore(OsdInfiniteWait);
	OsiThreadPoolInfo* worker = claimWorker(body);
	worker->data = data;
	worker->index = index;
	worker->wakeUp->signal(1);
}

void OsiThreadPool::waitForCompletion()
{
	if (numberOfThreads() == 0)
		return;
	PoolState& state = pool();
	bool done = false;
	while (!done)
	{
		state.complete->waitOnSemaphore(roundMilliseconds);
		done = state.outstanding.load() <= 0;
		flushStdOutAndStdErr();
	}
}

OsiThreadPoolInfo* OsiThreadPool::callingWorker()
{
	const OsdThreadId self = OsdThread::threadId();
	PoolLock lock;
	for (const auto& worker : pool().workers)
	{
		if (worker->threadId == self)
			return worker.get();
	}
	return nullptr;
}

bool OsiThreadPool::writeToStdString(const char* text, bool toStdOut)
{
	if (!text)
		return false;
	if (OsiThreadPoolInfo* worker = callingWorker())
	{
		(toStdOut ? worker->stdOut : worker->stdErr) += text;
		return true;
	}
	if (!OsdThread::isMainThread())
		return false;
	(toStdOut ? serialisedOut : serialisedErr) += text;
	return true;
}

bool OsiThreadPool::writeToStdOutString(const char* text)
{
	return writeToStdString(text, true);
}

bool OsiThreadPool::writeToStdErrString(const char* text)
{
	return writeToStdString(text, false);
}

void OsiThreadPool::flushStdOutAndStdErr()
{
	PoolState& state = pool();
	flushStringList(state.stdOut, state.stdOutCallback.load(), stdout);
	flushStringList(state.stdErr, state.stdErrCallback.load(), stderr);
	flushSerialised();
}

void OsiThreadPool::flushSerialised()
{
	PoolState& state = pool();
	flushString(serialisedOut, state.stdOutCallback.load(), stdout);
	flushString(serialisedErr, state.stdErrCallback.load(), stderr);
}

void OsiThreadPool::clearSerialised()
{
	serialisedOut.clear();
	serialisedErr.clear();
}

void OsiThreadPool::passSerialisedToCallbacks()
{
	PoolState& state = pool();
	for (auto [text, callback] : {std::make_pair(&serialisedOut, state.stdOutCallback.load()),
	                              std::make_pair(&serialisedErr, state.stdErrCallback.load())})
	{
		if (callback && !text->empty())
			callback(*text);
	}
	clearSerialised();
}

string_ext<char>& OsiThreadPool::serialisedStdOut()
{
	return serialisedOut;
}

void OsiThreadPool::setStdOutCallback(OsiOutputCallback callback)
{
	pool().stdOutCallback.store(callback);
}

void OsiThreadPool::setStdErrCallback(OsiOutputCallback callback)
{
	pool().stdErrCallback.store(callback);
}

OsiOutputCallback OsiThreadPool::getStdOutCallback()
{
	return pool().stdOutCallback.load();
}

OsiOutputCallback OsiThreadPool::getStdErrCallback()
{
	return pool().stdErrCallback.load();
}
