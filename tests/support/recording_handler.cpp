#include "support/recording_handler.h"

namespace velora_test {

RecordingHandler::RecordingHandler(){FUNKNOWN_CTOR}

RecordingHandler::~RecordingHandler(){FUNKNOWN_DTOR}

IMPLEMENT_FUNKNOWN_METHODS(RecordingHandler, IComponentHandler, IComponentHandler::iid)

    tresult PLUGIN_API RecordingHandler::beginEdit(ParamID id)
{
	return note("begin", id, 0);
}

tresult PLUGIN_API RecordingHandler::performEdit(ParamID id, ParamValue v)
{
	return note("perform", id, v);
}

tresult PLUGIN_API RecordingHandler::endEdit(ParamID id)
{
	return note("end", id, 0);
}

tresult RecordingHandler::note(const char* what, ParamID id, ParamValue v)
{
	calls.push_back({what, id, v});
	return kResultOk;
}

} // namespace velora_test
