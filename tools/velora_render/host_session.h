// The plug-in hosted as a DAW hosts it, through the SDK's hosting library:
// the module loaded from its bundle, processor and controller created and
// connected by the plug provider, buses negotiated (mono in, stereo out),
// 32-bit processing set up, and audio pushed through `process` block by block.
#pragma once

#include "pluginterfaces/vst/ivstaudioprocessor.h"
#include "pluginterfaces/vst/ivstcomponent.h"
#include "pluginterfaces/vst/ivsteditcontroller.h"
#include "pluginterfaces/vst/ivstprocesscontext.h"
#include "public.sdk/source/vst/hosting/hostclasses.h"
#include "public.sdk/source/vst/hosting/module.h"
#include "public.sdk/source/vst/hosting/parameterchanges.h"
#include "public.sdk/source/vst/hosting/plugprovider.h"
#include "public.sdk/source/vst/hosting/processdata.h"

#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace velora_render {

class HostSession
{
public:
	// Loads the bundle and creates the plug-in; a runtime failure says what is
	// missing (no bundle, not a VST3 module, no audio effect, no pan parameter).
	explicit HostSession(const std::string& bundlePath);
	~HostSession();
	HostSession(const HostSession&) = delete;
	HostSession& operator=(const HostSession&) = delete;

	std::string pluginName() const { return classInfo.name(); }

	// Restores a saved record into the processor (setState) and the
	// controller (setComponentState). False when the plug-in did not take it
	// as its own: a record it accepts is one it saves back unchanged.
	bool restoreState(const std::vector<char>& record);
	// The processor's record (getState).
	std::vector<char> saveState();

	// The pan parameter as the controller holds it now, in degrees, and a
	// value in degrees as the normalised value sent to the processor.
	double panDegrees() const;
	double normalisedPan(double degrees) const;

	// Negotiates the buses, sets up processing and activates.
	void start(double sampleRate, int maxBlockFrames);
	// The input buffer for the next block and the outputs of the last.
	float* input() const;
	const float* left() const;
	const float* right() const;
	// One process call over `frames` frames (0 flushes parameters only),
	// carrying the pan value when one is given.
	void process(int frames, std::optional<double> pan);
	// Stops processing and deactivates; also done by the destructor.
	void stop();

private:
	[[noreturn]] void fail(const std::string& what) const;

	std::string bundle;
	std::ostringstream providerErrors;
	VST3::Hosting::Module::Ptr module;
	VST3::Hosting::ClassInfo classInfo;
	// The SDK's host application counts no references: it is owned here.
	std::unique_ptr<Steinberg::Vst::HostApplication> host;
	Steinberg::IPtr<Steinberg::Vst::PlugProvider> provider;
	Steinberg::IPtr<Steinberg::Vst::IComponent> component;
	Steinberg::IPtr<Steinberg::Vst::IEditController> controller;
	Steinberg::IPtr<Steinberg::Vst::IAudioProcessor> processor;
	Steinberg::Vst::HostProcessData data;
	Steinberg::Vst::ParameterChanges changes{1};
	Steinberg::Vst::ProcessContext context = {};
	bool active = false;
};

} // namespace velora_render
