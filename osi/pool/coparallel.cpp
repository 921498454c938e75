#include "osi/pool/coparallel.h"

#include <algorithm>
#include <climits>
#include <map>

namespace {

// The indices a loop runs, addressed by position: a contiguous range or a
// list of indices.
struct IndexRange
{
	int begin;
	int end;
	long long size() const { return static_cast<long long>(end) - begin; }
	int operator[](long long position) const { return static_cast<int>(begin + position); }
};

struct IndexList
{
	const std::vector<int>& indices;
	long long size() const { return static_cast<long long>(indices.size()); }
	int operator[](long long position) const { return indices[static_cast<size_t>(position)]; }
};

// Holds the pool open for one loop, also while an exception passes.
class LoopUse
{
public:
	LoopUse() : poolOpen(OsiThreadPool::enterLoop()) {}
	~LoopUse() { OsiThreadPool::leaveLoop(); }
	LoopUse(const LoopUse&) = delete;
	LoopUse& operator=(const LoopUse&) = delete;

	bool isOpen() const { return poolOpen; }

private:
	const bool poolOpen;
};

// A worker already runs a body of an outer loop: an inner loop runs right
// here, in order, with the worker's number and output (waiting for other
// workers could mean waiting for itself).
template <typename Indices>
void runOnWorker(void* data, OsiParallelBody body, const Indices& indices,
                 OsiThreadPoolInfo& worker)
{
	for (long long position = 0; position < indices.size(); ++position)
		body(data, indices[position], worker.number, worker.stdOut);
}

template <typename Indices>
void runSerially(void* data, OsiParallelBody body, const Indices& indices)
{
	if (OsiThreadPoolInfo* worker = OsiThreadPool::callingWorker())
		return runOnWorker(data, body, indices, *worker);
	for (long long position = 0; position < indices.size(); ++position)
	{
		OsiThreadPool::clearSerialised();
		body(data, indices[position], 0, OsiThreadPool::serialisedStdOut());
		OsiThreadPool::passSerialisedToCallbacks();
	}
}

template <typename Indices> void runOnPool(void* data, OsiParallelBody body, const Indices& indices)
{
	LoopUse use;
	if (!use.isOpen())
		return runSerially(data, body, indices);
	if (OsiThreadPoolInfo* worker = OsiThreadPool::callingWorker())
		return runOnWorker(data, body, indices, *worker);
	for (long long left = indices.size(); left > 0; left -= INT_MAX)
		OsiThreadPool::beginRun(static_cast<int>(std::min<long long>(left, INT_MAX)));
	for (long long position = 0; position < indices.size(); ++position)
		OsiThreadPool::addRun(data, body, indices[position]);
	OsiThreadPool::waitForCompletion();
}

} // namespace

void parallelFor(void* data, OsiParallelBody body, int begin, int end, bool serial)
{
	if (end <= begin || !body)
		return;
	const IndexRange range{begin, end};
	if (serial)
		runSerially(data, body, range);
	else
		runOnPool(data, body, range);
}

void priorityParallelFor(void* data, OsiParallelBody body, const std::vector<int>& priority,
                         int begin, int end, bool serial)
{
	if (end <= begin || priority.empty() || !body)
		return;
	if (begin < 0 || static_cast<size_t>(end) > priority.size())
		return;
	// Equal priorities keep their indices in ascending order.
	std::multimap<int, int> order;
	for (int index = begin; index < end; ++index)
		order.emplace(priority[static_cast<size_t>(index)], index);
	std::vector<int> wave;
	for (auto at = order.begin(); at != order.end();)
	{
		wave.clear();
		const int level = at->first;
		for (; at != order.end() && at->first == level; ++at)
			wave.push_back(at->second);
		const IndexList indices{wave};
		if (wave.size() > 1 && !serial)
			runOnPool(data, body, indices);
		else
			runSerially(data, body, indices);
	}
}

bool openThreadPool(int threads, OsdThreadType type)
{
	return OsiThreadPool::initialise(threads, type);
}

void closeThreadPool()
{
	OsiThreadPool::close();
}

int numberOfThreads()
{
	return OsiThreadPool::numberOfThreads();
}

int numberOfCores()
{
	return OsiThreadPool::numberOfCores();
}

bool writeToStdOutString(const char* text)
{
	return OsiThreadPool::writeToStdOutString(text);
}

bool writeToStdErrString(const char* text)
{
	return OsiThreadPool::writeToStdErrString(text);
}
