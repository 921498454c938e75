// process() must not allocate: every global allocation in this binary is
// counted, and the count must not move across process calls.
#include "nxvelora_processor.h"

#include "public.sdk/source/vst/hosting/parameterchanges.h"
#include "public.sdk/source/vst/hosting/processdata.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace {
std::atomic<long> allocations{0};
}

void* operator new(std::size_t size)
{
	++allocations;
	if (void* p = std::malloc(size ? size : 1))
		return p;
	throw std::bad_alloc();
}
void* operator new[](std::size_t size)
{
	return operator new(size);
}
void operator delete(void* p) noexcept
{
	std::free(p);
}
void operator delete[](void* p) noexcept
{
	std::free(p);
}
void operator delete(void* p, std::size_t) noexcept
{
	std::free(p);
}
void operator delete[](void* p, std::size_t) noexcept
{
	std::free(p);
}

namespace {

using namespace Steinberg;
using namespace Steinberg::Vst;

TEST(RealTime, ProcessAllocatesNothing)
{
	constexpr int32 kBlock = 512;
	FUnknownPtr<IAudioProcessor> audio(owned(NxVeloraProcessor::createInstance(nullptr)));
	FUnknownPtr<IComponent> comp(audio);
	comp->initialize(nullptr);
	ProcessSetup setup{kRealtime, kSample32, kBlock, 48000.0};
	audio->setupProcessing(setup);
	comp->setActive(true);
	audio->setProcessing(true);

	HostProcessData data;
	data.prepare(*comp, kBlock, kSample32);
	data.numSamples = kBlock;
	ParameterChanges changes(1);
	data.inputParameterChanges = &changes;
	for (int32 i = 0; i < kBlock; ++i)
		data.inputs[0].channelBuffers32[0][i] = static_cast<float>((i % 17) - 8) / 8.0f;

	// Constant, gliding, far-channel and settled blocks, with and without changes.
	const double values[] = {0.5, 0.5, 0.9, 0.9, 0.0, 0.1, 1.0, 1.0};
	for (double v : values)
	{
		changes.clearQueue();
		int32 index = 0;
		changes.addParameterData(100, index)->addPoint(0, v, index);
		const long before = allocations.load();
		audio->process(data);
		EXPECT_EQ(allocations.load(), before) << "with a change to " << v;

		changes.clearQueue();
		const long quiet = allocations.load();
		audio->process(data);
		EXPECT_EQ(allocations.load(), quiet) << "after a change to " << v;
	}

	audio->setProcessing(false);
	comp->setActive(false);
	data.unprepare();
	comp->terminate();
}

} // namespace
