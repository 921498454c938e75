// The plug-in's window: a fixed-size picture with the pan knob, the angle in
// degrees and the word "degrees".
#pragma once

#include "pluginterfaces/vst/ivstplugview.h"
#include "public.sdk/source/vst/vstguieditor.h"
#include "vstgui/lib/controls/icontrollistener.h"

namespace VSTGUI {
class CKnob;
class CParamDisplay;
class CTextLabel;
class CFontDesc;
} // namespace VSTGUI

namespace Steinberg {
namespace Vst {

class NxVeloraController;
class ParameterContainer;

class NxVeloraEditorView : public VSTGUIEditor,
                           public IParameterFinder,
                           public VSTGUI::IControlListener
{
public:
	explicit NxVeloraEditorView(NxVeloraController* controller);

	bool PLUGIN_API open(void* parent, const VSTGUI::PlatformType& platformType) override;
	void PLUGIN_API close() override;
	void valueChanged(VSTGUI::CControl* control) override;

	// Performs an edit of the parameter behind tag and shows it. (The SDK's
	// dependency update keeps its own meaning beside it.)
	using VSTGUIEditor::update;
	void update(unsigned int tag, double value);
	// Shows the values of a restored state, reporting them to the host too.
	void syncView(ParameterContainer* container);
	// On each idle tick the knob and the display also follow the controller's
	// value, whoever set it: automation, the host's own controls, undo, or
	// another view.
	VSTGUI::CMessageResult notify(VSTGUI::CBaseObject* sender, const char* message) override;

	void initTextLabel(VSTGUI::CTextLabel* label, const VSTGUI::CColor& colour,
	                   VSTGUI::CFontDesc* font);
	void initParamDisplay(VSTGUI::CParamDisplay* display, unsigned int tag, int precision,
	                      const VSTGUI::CColor& colour, VSTGUI::CFontDesc* font);

	tresult PLUGIN_API canResize() override { return kResultFalse; }
	tresult PLUGIN_API checkSizeConstraint(ViewRect*) override { return kResultOk; }
	tresult PLUGIN_API findParameter(int32, int32, ParamID&) override { return kResultFalse; }

	VSTGUI::CKnob* knob() const { return knobControl; }
	VSTGUI::CParamDisplay* display() const { return valueDisplay; }

	OBJ_METHODS(NxVeloraEditorView, VSTGUIEditor)
	DEFINE_INTERFACES
	DEF_INTERFACE(IParameterFinder)
	END_DEFINE_INTERFACES(VSTGUIEditor)
	REFCOUNT_METHODS(VSTGUIEditor)

private:
	void followController();
	void showValue(double normalized);

	NxVeloraController* owner;
	VSTGUI::CParamDisplay* valueDisplay = nullptr;
	VSTGUI::CKnob* knobControl = nullptr;
};

} // namespace Vst
} // namespace Steinberg
