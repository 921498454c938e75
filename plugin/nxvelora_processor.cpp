#include "nxvelora_processor.h"

#include "glide_renderer.h"
#include "nxvelora_state.h"
#include "pan_output.h"
#include "pan_vstcommon.h"
#include "pluginterfaces/vst/ivstparameterchanges.h"

namespace Steinberg {
namespace Vst {

namespace {
inline ParamValue clampNormalized(ParamValue v)
{
	return v < 0.0 ? 0.0 : (v > 1.0 ? 1.0 : v);
}
} // namespace

NxVeloraProcessor::NxVeloraProcessor()
: panParameter(owned(new PanParameter)),
  panNormalized(panParameter->getNormalized())
{
	setControllerClass(NxVeloraControllerUID);
}

NxVeloraProcessor::~NxVeloraProcessor() = default;

FUnknown* NxVeloraProcessor::createInstance(void*)
{
	return static_cast<IAudioProcessor*>(new NxVeloraProcessor);
}

tresult PLUGIN_API NxVeloraProcessor::initialize(FUnknown* context)
{
	const tresult result = Component::initialize(context);
	if (result != kResultOk)
		return result;
	addAudioInput(STR16("Mono In"), SpeakerArr::kMono);
	addAudioOutput(STR16("Stereo Out"), SpeakerArr::kStereo);
	return result;
}

// getBusArrangement always answers a stereo output, so there is always an
// output to activate.
tresult PLUGIN_API NxVeloraProcessor::setActive(TBool state)
{
	if (state)
		law = std::make_unique<VeloraLaw>(processSetup.sampleRate);
	return Component::setActive(state);
}

// The processor takes the first pair of the record as the pan value, whatever
// the count and the ID say. Hosts restore while audio runs: the angle goes
// to the audio thread through the hand-over, and the blocks from the next
// one on glide to it.
tresult PLUGIN_API NxVeloraProcessor::setState(IBStream* state)
{
	const auto pairs = readStateRecord(state, [](int32) { return 1; });
	if (!pairs || pairs->empty())
		return kResultOk;
	const ParamValue value = pairs->front().second;
	panNormalized.store(clampNormalized(value), std::memory_order_relaxed);
	restoredAngles.post(panParameter->toPlain(value));
	return kResultOk;
}

tresult PLUGIN_API NxVeloraProcessor::getState(IBStream* state)
{
	writeStateRecord(state, {{kPanParamId, panNormalized.load(std::memory_order_relaxed)}});
	return kResultOk;
}

tresult PLUGIN_API NxVeloraProcessor::setBusArrangements(SpeakerArrangement* inputs, int32 numIns,
                                                         SpeakerArrangement* outputs, int32 numOuts)
{
	if (numIns != 1 || numOuts != 1 || !inputs || !outputs)
		return kResultFalse;
	if (inputs[0] != SpeakerArr::kMono && inputs[0] != SpeakerArr::kStereo)
		return kResultFalse;
	if (outputs[0] != SpeakerArr::kStereo)
		return kResultFalse;
	return AudioEffect::setBusArrangements(inputs, 1, outputs, 1);
}

tresult PLUGIN_API NxVeloraProcessor::getBusArrangement(BusDirection dir, int32,
                                                        SpeakerArrangement& arr)
{
	// Fixed answers, whatever setBusArrangements accepted: the processor
	// always reads one channel and writes two.
	if (dir == kInput)
	{
		arr = SpeakerArr::kMono;
		return kResultTrue;
	}
	if (dir == kOutput)
	{
		arr = SpeakerArr::kStereo;
		return kResultTrue;
	}
	return kResultFalse;
}

tresult PLUGIN_API NxVeloraProcessor::canProcessSampleSize(int32 symbolicSampleSize)
{
	return symbolicSampleSize == kSample32 ? kResultTrue : kResultFalse;
}

void NxVeloraProcessor::setPanNormalized(ParamValue value)
{
	panNormalized.store(clampNormalized(value), std::memory_order_relaxed);
	previousAngle = currentAngle;
	currentAngle = panParameter->toPlain(value);
}

void NxVeloraProcessor::readParameterChanges(IParameterChanges* changes)
{
	if (!changes)
		return;
	const int32 queues = changes->getParameterCount();
	for (int32 q = 0; q < queues; ++q)
	{
		IParamValueQueue* queue = changes->getParameterData(q);
		if (!queue)
			continue;
		// Only the last point of a block counts; its offset is not used.
		int32 offset = 0;
		ParamValue value = 0.0;
		if (queue->getPoint(queue->getPointCount() - 1, offset, value) != kResultTrue)
			continue;
		if (queue->getParameterId() == kPanParamId)
			setPanNormalized(value);
	}
}

tresult PLUGIN_API NxVeloraProcessor::process(ProcessData& data)
{
	restoredAngles.takeInto(previousAngle, currentAngle);
	readParameterChanges(data.inputParameterChanges);
	if (!law || data.numSamples < 1)
		return kResultOk;
	// A host that hands over no buffers gets nothing written.
	if (data.numInputs < 1 || data.numOutputs < 1 || !data.inputs || !data.outputs ||
	    data.inputs[0].numChannels < 1 || data.outputs[0].numChannels < 2 ||
	    !data.inputs[0].channelBuffers32 || !data.outputs[0].channelBuffers32)
		return kResultOk;
	float* left = data.outputs[0].channelBuffers32[0];
	float* right = data.outputs[0].channelBuffers32[1];
	// getBusArrangement always reports a mono input, so only input channel 0
	// is read, even when a stereo input was accepted.
	const float* in = data.inputs[0].channelBuffers32[0];
	if (!left || !right || !in)
		return kResultOk;

	// After a change the angle glides; the previous angle is deliberately left
	// as it is, so every following block repeats the glide until the
	// parameter changes again.
	if (previousAngle == currentAngle)
		renderConstant(in, left, right, data.numSamples);
	else
		GlideRenderer::fastest(law->filter(), previousAngle, currentAngle, in, left, right,
		                       data.numSamples);
	return kResultOk;
}

// The gains are the same for the whole block; the filter still runs on every
// sample so that its history is right when the angle moves past 30 degrees.
// It runs on a local copy, which stays in registers where the law's own,
// as far as the compiler knows, might share memory with the outputs.
void NxVeloraProcessor::renderConstant(const float* in, float* left, float* right, int32 count)
{
	LowPassFilter filter = law->filter();
	const double angle = currentAngle;
	const double gL = VeloraLaw::gainAt(angle);
	const double gR = VeloraLaw::gainAt(-angle);
	for (int32 i = 0; i < count; ++i)
	{
		const double s = in[i];
		const double f = filter.y(s);
		left[i] = static_cast<float>(PanOutput::left(s, f, angle, gL));
		right[i] = static_cast<float>(PanOutput::right(s, f, angle, gR));
	}
	law->filter() = filter;
}

} // namespace Vst
} // namespace Steinberg
