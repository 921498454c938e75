#include "nxvelora_controller.h"

#include "nxvelora_editor.h"
#include "nxvelora_state.h"
#include "pan_parameter.h"

#include <algorithm>
#include <cstring>

namespace Steinberg {
namespace Vst {

NxVeloraController::~NxVeloraController() = default;

FUnknown* NxVeloraController::createInstance(void*)
{
	return static_cast<IEditController*>(new NxVeloraController);
}

tresult PLUGIN_API NxVeloraController::initialize(FUnknown* context)
{
	const tresult result = EditController::initialize(context);
	parameters.addParameter(new PanParameter);
	return result;
}

tresult PLUGIN_API NxVeloraController::terminate()
{
	viewsArray.clear();
	return EditController::terminate();
}

// Every pair that the record's count announces; an ID that the container
// does not hold is skipped. Open editors follow whenever a record was read.
tresult PLUGIN_API NxVeloraController::setComponentState(IBStream* state)
{
	const auto pairs = readStateRecord(state, [](int32 count) { return count; });
	if (!pairs)
		return kResultOk;
	for (const auto& [id, value] : *pairs)
		if (Parameter* parameter = parameters.getParameter(id))
			parameter->setNormalized(value);
	syncDependentViews();
	return kResultOk;
}

tresult PLUGIN_API NxVeloraController::setState(IBStream* state)
{
	return setComponentState(state);
}

tresult PLUGIN_API NxVeloraController::getState(IBStream* state)
{
	ParameterValues values;
	for (int32 i = 0; i < parameters.getParameterCount(); ++i)
	{
		Parameter* parameter = parameters.getParameterByIndex(i);
		values.emplace_back(parameter->getInfo().id, parameter->getNormalized());
	}
	writeStateRecord(state, values);
	return kResultOk;
}

// Open editors show a restored state. The list is copied: a view's update
// reaches the host, which may attach or remove views meanwhile.
void NxVeloraController::syncDependentViews()
{
	const std::vector<NxVeloraEditorView*> views = viewsArray;
	for (NxVeloraEditorView* view : views)
		view->syncView(&parameters);
}

IPlugView* PLUGIN_API NxVeloraController::createView(FIDString name)
{
	if (name && std::strcmp(name, ViewType::kEditor) == 0)
		return new NxVeloraEditorView(this);
	return nullptr;
}

void NxVeloraController::editorDestroyed(EditorView*) {}

void NxVeloraController::editorAttached(EditorView* editor)
{
	if (auto* view = FCast<NxVeloraEditorView>(editor))
		addDependentView(view);
}

void NxVeloraController::editorRemoved(EditorView* editor)
{
	if (auto* view = FCast<NxVeloraEditorView>(editor))
		removeDependentView(view);
}

void NxVeloraController::addDependentView(NxVeloraEditorView* view)
{
	viewsArray.push_back(view);
}

void NxVeloraController::removeDependentView(NxVeloraEditorView* view)
{
	const auto it = std::find(viewsArray.begin(), viewsArray.end(), view);
	if (it != viewsArray.end())
		viewsArray.erase(it);
}

} // namespace Vst
} // namespace Steinberg
