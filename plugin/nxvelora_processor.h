// The audio component: mono in, stereo out, placed at the pan angle by the
// pan law.
#pragma once

#include "angle_handover.h"
#include "pan_parameter.h"
#include "public.sdk/source/vst/vstaudioeffect.h"
#include "velora_law.h"

#include <atomic>
#include <memory>

namespace Steinberg {
namespace Vst {

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

	std::unique_ptr<VeloraLaw> law;
	// The pan parameter converts normalised values to degrees. Its value is
	// kept beside it, atomic: the audio thread sets it from the host's
	// automation while the user-interface thread saves and restores it.
	IPtr<PanParameter> panParameter;
	std::atomic<ParamValue> panNormalized;
	// The angles are the audio thread's; restored ones come through the
	// hand-over at the start of a block.
	double currentAngle = 0.0;
	double previousAngle = 0.0;
	AngleHandover restoredAngles;
};

} // namespace Vst
} // namespace Steinberg
