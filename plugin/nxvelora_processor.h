// The audio component: mono in, stereo out, placed at the pan angle by the
// pan law.
#pragma once

#include "pan_parameter.h"
#include "public.sdk/source/vst/vstaudioeffect.h"
#include "velora_law.h"

#include <memory>

namespace Steinberg {
namespace Vst {

// The processor's private copy of the pan parameter. It only converts the
// host's normalised values to degrees, so setting it must stay real-time
// safe: it skips the change notification of the SDK's parameter, which goes
// through the update handler's lock.
class ProcessorPanParameter : public PanParameter
{
public:
	bool setNormalized(ParamValue v) override;
};

class NxVeloraProcessor final : public AudioEffect
{
public:
	NxVeloraProcessor();
	~NxVeloraProcessor() override;

	static FUnknown* createInstance(void*);

	tresult PLUGIN_API initialize(FUnknown* context) override;
	tresult PLUGIN_API setActive(TBool state) override;
	tresult PLUGIN_API setState(IBStream* state) override;
	tresult PLUGIN_API getState(IBStream* state) override;
	tresult PLUGIN_API setBusArrangements(SpeakerArrangement* inputs, int32 numIns,
	                                      SpeakerArrangement* outputs, int32 numOuts) override;
	tresult PLUGIN_API getBusArrangement(BusDirection dir, int32 index,
	                                     SpeakerArrangement& arr) override;
	tresult PLUGIN_API canProcessSampleSize(int32 symbolicSampleSize) override;
	tresult PLUGIN_API process(ProcessData& data) override;

private:
	void readParameterChanges(IParameterChanges* changes);
	void setPanNormalized(ParamValue value);
	void renderConstant(const float* in, float* left, float* right, int32 count);
	void renderGlide(const float* in, float* left, float* right, int32 count);

	std::unique_ptr<VeloraLaw> law;
	IPtr<ProcessorPanParameter> panParameter;
	double currentAngle = 0.0;
	double previousAngle = 0.0;
};

} // namespace Vst
} // namespace Steinberg
