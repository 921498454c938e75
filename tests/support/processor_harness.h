// Drives an audio processor through the SDK interfaces, with the SDK hosting
// library's process data and parameter-change classes, as a host does.
#pragma once

#include "pluginterfaces/vst/ivstaudioprocessor.h"
#include "pluginterfaces/vst/ivstcomponent.h"
#include "public.sdk/source/vst/hosting/parameterchanges.h"
#include "public.sdk/source/vst/hosting/processdata.h"

#include <optional>
#include <vector>

namespace velora_test {

using namespace Steinberg;
using namespace Steinberg::Vst;

struct StereoBlock
{
	std::vector<float> left;
	std::vector<float> right;
};

class ProcessorHarness
{
public:
	// Adopts a newly created processor (reference count 1), initialises it,
	// and activates it unless told not to.
	ProcessorHarness(FUnknown* created, double sampleRate, int32 maxBlock, bool activate = true);
	~ProcessorHarness();

	IAudioProcessor* processor() { return audio; }
	IComponent* component() { return comp; }

	// Processes one block. Each point of queue is one (value) for parameter
	// id, at increasing offsets; prefill is what the output buffers hold
	// before the call.
	StereoBlock run(const std::vector<float>& input,
	                const std::vector<std::pair<ParamID, std::vector<double>>>& changes = {},
	                float prefill = 0.0f);

	// Processes a block that carries the normalised pan value, once.
	StereoBlock runWithPan(const std::vector<float>& input, double normalized)
	{
		return run(input, {{100, {normalized}}});
	}

private:
	FUnknownPtr<IAudioProcessor> audio;
	FUnknownPtr<IComponent> comp;
	HostProcessData data;
	ParameterChanges changes;
	bool active = false;
};

// Normalised value of an angle in degrees.
inline double normalizedPan(double degrees)
{
	return (degrees + 90.0) / 180.0;
}

} // namespace velora_test
