#include "processor_harness.h"

namespace velora_test {

ProcessorHarness::ProcessorHarness(FUnknown* created, double sampleRate, int32 maxBlock,
                                   bool activate)
: audio(created),
  comp(created),
  changes(4)
{
	created->release();
	comp->initialize(nullptr);
	SpeakerArrangement in = SpeakerArr::kMono;
	SpeakerArrangement out = SpeakerArr::kStereo;
	audio->setBusArrangements(&in, 1, &out, 1);
	ProcessSetup setup{kRealtime, kSample32, maxBlock, sampleRate};
	audio->setupProcessing(setup);
	if (activate)
	{
		comp->setActive(true);
		audio->setProcessing(true);
		active = true;
	}
	data.prepare(*comp, maxBlock, kSample32);
	data.inputParameterChanges = &changes;
}

ProcessorHarness::~ProcessorHarness()
{
	if (active)
	{
		audio->setProcessing(false);
		comp->setActive(false);
	}
	data.unprepare();
	comp->terminate();
}

StereoBlock
ProcessorHarness::run(const std::vector<float>& input,
                      const std::vector<std::pair<ParamID, std::vector<double>>>& queued,
                      float prefill)
{
	const auto n = static_cast<int32>(input.size());
	data.numSamples = n;
	std::copy(input.begin(), input.end(), data.inputs[0].channelBuffers32[0]);
	for (int32 c = 0; c < data.outputs[0].numChannels; ++c)
		std::fill_n(data.outputs[0].channelBuffers32[c], n, prefill);

	changes.clearQueue();
	for (const auto& [id, values] : queued)
	{
		int32 index = 0;
		IParamValueQueue* queue = changes.addParameterData(id, index);
		int32 offset = 0;
		for (double v : values)
			queue->addPoint(offset++, v, index);
	}

	audio->process(data);

	StereoBlock block;
	block.left.assign(data.outputs[0].channelBuffers32[0], data.outputs[0].channelBuffers32[0] + n);
	block.right.assign(data.outputs[0].channelBuffers32[1],
	                   data.outputs[0].channelBuffers32[1] + n);
	return block;
}

} // namespace velora_test
