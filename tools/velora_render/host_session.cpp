#include "host_session.h"

#include "failure.h"

#include "public.sdk/source/common/memorystream.h"

#include <algorithm>
#include <filesystem>

namespace velora_render {

using namespace Steinberg;
using namespace Steinberg::Vst;

namespace {

constexpr ParamID kPanParameter = 100;

// The SDK's messages end in newlines and may span lines; one line reads better.
std::string oneLine(std::string text)
{
	while (!text.empty() && (text.back() == '\n' || text.back() == ' '))
		text.pop_back();
	std::replace(text.begin(), text.end(), '\n', ' ');
	return text;
}

bool hasPanParameter(IEditController& controller)
{
	for (int32 i = 0; i < controller.getParameterCount(); ++i)
	{
		ParameterInfo info = {};
		if (controller.getParameterInfo(i, info) == kResultTrue && info.id == kPanParameter)
			return true;
	}
	return false;
}

std::vector<char> bytesOf(MemoryStream& stream)
{
	const char* data = stream.getData();
	return data ? std::vector<char>(data, data + stream.getSize()) : std::vector<char>();
}

} // namespace

HostSession::HostSession(const std::string& bundlePath) : bundle(bundlePath)
{
	std::error_code error;
	if (!std::filesystem::exists(bundle, error))
		throw runtimeError("no VST3 bundle at '" + bundle + "'");
	std::string why;
	module = VST3::Hosting::Module::create(bundle, why);
	if (!module)
		fail("is not a VST3 module (" + oneLine(why) + ")");

	const auto classes = module->getFactory().classInfos();
	const auto effect = std::find_if(classes.begin(), classes.end(), [](const auto& info) {
		return info.category() == kVstAudioEffectClass;
	});
	if (effect == classes.end())
		fail("holds no audio effect class (\"" kVstAudioEffectClass "\")");
	classInfo = *effect;

	host = std::make_unique<HostApplication>();
	PluginContextFactory::instance().setPluginContext(host.get());
	PlugProvider::setErrorStream(&providerErrors);
	provider = owned(new PlugProvider(module->getFactory(), classInfo));
	if (!provider->initialize())
		fail("could not be set up: " + oneLine(providerErrors.str()));
	component = owned(provider->getComponent());
	controller = owned(provider->getController());
	if (!component || !controller)
		fail("did not give a processor and an edit controller");
	processor = FUnknownPtr<IAudioProcessor>(component).getInterface();
	if (!processor)
		fail("has no audio processor");
	if (!hasPanParameter(*controller))
		fail("has no pan parameter (ID 100)");
}

HostSession::~HostSession()
{
	stop();
	processor = nullptr;
	controller = nullptr;
	component = nullptr;
	provider = nullptr; // terminates and disconnects the plug-in
	PluginContextFactory::instance().setPluginContext(nullptr);
	PlugProvider::setErrorStream(nullptr);
}

void HostSession::fail(const std::string& what) const
{
	throw runtimeError("plug-in '" + bundle + "' " + what);
}

bool HostSession::restoreState(const std::vector<char>& record)
{
	std::vector<char> copy = record;
	auto in = owned(new MemoryStream(copy.data(), static_cast<TSize>(copy.size())));
	component->setState(in);
	auto saved = owned(new MemoryStream);
	component->getState(saved);
	if (bytesOf(*saved) != record)
		return false;
	in->seek(0, IBStream::kIBSeekSet, nullptr);
	controller->setComponentState(in);
	return true;
}

std::vector<char> HostSession::saveState()
{
	auto out = owned(new MemoryStream);
	component->getState(out);
	return bytesOf(*out);
}

double HostSession::panDegrees() const
{
	return controller->normalizedParamToPlain(kPanParameter,
	                                          controller->getParamNormalized(kPanParameter));
}

double HostSession::normalisedPan(double degrees) const
{
	return controller->plainParamToNormalized(kPanParameter, degrees);
}

void HostSession::start(double sampleRate, int maxBlockFrames)
{
	SpeakerArrangement in = SpeakerArr::kMono;
	SpeakerArrangement out = SpeakerArr::kStereo;
	if (processor->setBusArrangements(&in, 1, &out, 1) != kResultTrue)
		fail("does not take a mono input and a stereo output");
	if (processor->canProcessSampleSize(kSample32) != kResultTrue)
		fail("cannot process 32-bit samples");
	ProcessSetup setup = {kOffline, kSample32, maxBlockFrames, sampleRate};
	if (processor->setupProcessing(setup) != kResultOk)
		fail("refused processing at " + std::to_string(sampleRate) + " Hz");
	component->activateBus(kAudio, kInput, 0, true);
	component->activateBus(kAudio, kOutput, 0, true);
	if (!data.prepare(*component, maxBlockFrames, kSample32) || data.numInputs < 1 ||
	    data.numOutputs < 1 || data.outputs[0].numChannels < 2)
		fail("has no mono input bus and stereo output bus");
	if (component->setActive(true) != kResultOk)
		fail("could not be activated");
	active = true;
	processor->setProcessing(true);

	context.state = ProcessContext::kPlaying | ProcessContext::kContTimeValid;
	context.sampleRate = sampleRate;
	data.processContext = &context;
	data.inputParameterChanges = &changes;
}

float* HostSession::input() const
{
	return data.inputs[0].channelBuffers32[0];
}

const float* HostSession::left() const
{
	return data.outputs[0].channelBuffers32[0];
}

const float* HostSession::right() const
{
	return data.outputs[0].channelBuffers32[1];
}

void HostSession::process(int frames, std::optional<double> pan)
{
	changes.clearQueue();
	if (pan)
	{
		int32 queueIndex = 0;
		int32 pointIndex = 0;
		// The value is reached at the block's end.
		changes.addParameterData(kPanParameter, queueIndex)
		    ->addPoint(std::max(frames - 1, 0), *pan, pointIndex);
	}
	tresult result = kResultOk;
	if (frames == 0)
	{
		// A parameter flush: no audio buffers at all.
		ProcessData flush = data;
		flush.numSamples = 0;
		flush.numInputs = 0;
		flush.numOutputs = 0;
		flush.inputs = nullptr;
		flush.outputs = nullptr;
		result = processor->process(flush);
	}
	else
	{
		data.numSamples = frames;
		result = processor->process(data);
	}
	if (result != kResultOk)
		fail("failed to process a block");
	context.projectTimeSamples += frames;
	context.continousTimeSamples += frames;
}

void HostSession::stop()
{
	if (!active)
		return;
	active = false;
	processor->setProcessing(false);
	component->setActive(false);
	data.unprepare();
}

} // namespace velora_render
