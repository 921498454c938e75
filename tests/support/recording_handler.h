// A component handler that records what the host hears from the controller.
#pragma once

#include "pluginterfaces/vst/ivsteditcontroller.h"

#include <string>
#include <vector>

namespace velora_test {

using namespace Steinberg;
using namespace Steinberg::Vst;

class RecordingHandler : public IComponentHandler
{
public:
	RecordingHandler();
	virtual ~RecordingHandler();

	tresult PLUGIN_API beginEdit(ParamID id) override;
	tresult PLUGIN_API performEdit(ParamID id, ParamValue v) override;
	tresult PLUGIN_API endEdit(ParamID id) override;
	tresult PLUGIN_API restartComponent(int32) override { return kResultOk; }

	struct Call
	{
		std::string what;
		ParamID id;
		ParamValue value;
	};
	std::vector<Call> calls;

	DECLARE_FUNKNOWN_METHODS
private:
	tresult note(const char* what, ParamID id, ParamValue v);
};

} // namespace velora_test
