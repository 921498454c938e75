// The edit controller: publishes the pan parameter, restores it from saved
// state and keeps the open editors in step with it.
#pragma once

#include "public.sdk/source/vst/vsteditcontroller.h"

#include <vector>

namespace Steinberg {
namespace Vst {

class NxVeloraEditorView;

class NxVeloraController : public EditController
{
public:
	NxVeloraController() = default;
	~NxVeloraController() override;

	static FUnknown* createInstance(void*);

	tresult PLUGIN_API initialize(FUnknown* context) override;
	tresult PLUGIN_API terminate() override;
	tresult PLUGIN_API setComponentState(IBStream* state) override;
	tresult PLUGIN_API setState(IBStream* state) override;
	tresult PLUGIN_API getState(IBStream* state) override;
	IPlugView* PLUGIN_API createView(FIDString name) override;
	void editorDestroyed(EditorView* editor) override;
	void editorAttached(EditorView* editor) override;
	void editorRemoved(EditorView* editor) override;

	void addDependentView(NxVeloraEditorView* view);
	void removeDependentView(NxVeloraEditorView* view);
	const std::vector<NxVeloraEditorView*>& dependentViews() const { return viewsArray; }

private:
	void syncDependentViews();

	// The open editors, in the order they were attached; not owned.
	std::vector<NxVeloraEditorView*> viewsArray;
};

} // namespace Vst
} // namespace Steinberg
