// A component handler that records the edits the host hears from the
// controller. It lives on the test's stack: it counts no references.
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
	struct Call
	{
		std::string what;
		ParamID id;
		ParamValue value;
	};
	std::vector<Call> calls;

	tresult PLUGIN_API beginEdit(ParamID id) override { return note("begin", id, 0); }
	tresult PLUGIN_API performEdit(ParamID id, ParamValue v) override
	{
		return note("perform", id, v);
	}
	tresult PLUGIN_API endEdit(ParamID id) override { return note("end", id, 0); }
	tresult PLUGIN_API restartComponent(int32) override { return kResultOk; }
	tresult PLUGIN_API queryInterface(const TUID, void** obj) override
	{
		*obj = nullptr;
		return kNoInterface;
	}
	uint32 PLUGIN_API addRef() override { return 1; }
	uint32 PLUGIN_API release() override { return 1; }

private:
	tresult note(const char* what, ParamID id, ParamValue v)
	{
		calls.push_back({what, id, v});
		return kResultOk;
	}
};

} // namespace velora_test
