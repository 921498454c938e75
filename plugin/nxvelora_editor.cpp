#include "nxvelora_editor.h"

#include "nxvelora_controller.h"
#include "nxvelora_editor_layout.h"
#include "pan_vstcommon.h"
#include "x11_runloop.h"

#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/cframe.h"
#include "vstgui/lib/controls/cknob.h"
#include "vstgui/lib/controls/cparamdisplay.h"
#include "vstgui/lib/controls/ctextlabel.h"
#include "vstgui/lib/cvstguitimer.h"

namespace Steinberg {
namespace Vst {

using namespace VSTGUI;

namespace {
constexpr int32 kIdleRateMs = 50;
const CColor kTextColour(0x20, 0x20, 0x20, 0xFF);
constexpr int kDisplayPrecision = 1;

CRect rectOf(const EditorLayout::Box& box)
{
	return CRect(box.left, box.top, box.right, box.bottom);
}
} // namespace

NxVeloraEditorView::NxVeloraEditorView(NxVeloraController* controller)
: VSTGUIEditor(controller),
  owner(controller)
{
	setIdleRate(kIdleRateMs);
	// The background picture sets the window's size.
	SharedPointer<CBitmap> background = makeOwned<CBitmap>("background.png");
	setRect(ViewRect(0, 0, static_cast<int32>(background->getWidth()),
	                 static_cast<int32>(background->getHeight())));
}

bool PLUGIN_API NxVeloraEditorView::open(void* parent, const PlatformType& platformType)
{
	if (frame)
		return false;

	SharedPointer<CBitmap> background = makeOwned<CBitmap>("background.png");
	SharedPointer<CBitmap> knobImage = makeOwned<CBitmap>("knob.png");
	frame = new CFrame(CRect(0, 0, background->getWidth(), background->getHeight()), this);
	frame->setBackground(background);

	const CCoord knobWidth = knobImage->getWidth();
	const CCoord knobHeight = knobImage->getHeight();
	CRect knobRect(0, 0, knobWidth, knobHeight);
	knobRect.offset(EditorLayout::kKnobCentreX - knobWidth / 2,
	                EditorLayout::kKnobCentreY - knobHeight / 2);
	knobControl = new CKnob(knobRect, this, kPanParamId, knobImage, nullptr, CPoint(0, 0), 0);
	knobControl->setStartAngle(static_cast<float>(EditorLayout::kKnobStartAngle));
	knobControl->setRangeAngle(static_cast<float>(EditorLayout::kKnobRangeAngle));
	knobControl->setMin(0.f);
	knobControl->setMax(1.f);
	knobControl->setValue(static_cast<float>(owner->getParamNormalized(kPanParamId)));
	frame->addView(knobControl);

	SharedPointer<CFontDesc> valueFont = makeOwned<CFontDesc>("Arial", 20, kBoldFace);
	SharedPointer<CFontDesc> labelFont = makeOwned<CFontDesc>("Arial", 14, kBoldFace);
	auto* label = new CTextLabel(rectOf(EditorLayout::kLabelBox), "degrees");
	initTextLabel(label, kTextColour, labelFont);
	frame->addView(label);
	valueDisplay = new CParamDisplay(rectOf(EditorLayout::kDisplayBox));
	initParamDisplay(valueDisplay, kPanParamId, kDisplayPrecision, kTextColour, valueFont);
	frame->addView(valueDisplay);

	frame->open(parent, platformType, hostRunLoopConfig(plugFrame).get());
	if (parent)
		letRunLoopFinishCairoDevice();
	return true;
}

void PLUGIN_API NxVeloraEditorView::close()
{
	if (frame)
	{
		// The frame owns the controls.
		frame->forget();
		frame = nullptr;
	}
	knobControl = nullptr;
	valueDisplay = nullptr;
}

void NxVeloraEditorView::valueChanged(CControl* control)
{
	if (control->getTag() != static_cast<int32_t>(kPanParamId))
		return;
	const double value = control->getValueNormalized();
	owner->setParamNormalized(kPanParamId, value);
	// Deliberately not bracketed by beginEdit/endEdit.
	owner->performEdit(kPanParamId, value);
	showValue(value);
}

void NxVeloraEditorView::update(unsigned int tag, double value)
{
	if (tag != kPanParamId)
		return;
	owner->performEdit(kPanParamId, value);
	showValue(value);
}

void NxVeloraEditorView::syncView(ParameterContainer* container)
{
	if (!container || !knobControl)
		return;
	for (int32 i = 0; i < container->getParameterCount(); ++i)
	{
		Parameter* parameter = container->getParameterByIndex(i);
		if (!parameter || parameter->getInfo().id != kPanParamId)
			continue;
		knobControl->setValueNormalized(static_cast<float>(parameter->getNormalized()));
		knobControl->valueChanged();
	}
}

CMessageResult NxVeloraEditorView::notify(CBaseObject* sender, const char* message)
{
	if (message == CVSTGUITimer::kMsgTimer)
		followController();
	return VSTGUIEditor::notify(sender, message);
}

// Showing the host's value is not an edit: nothing goes back to the host, or
// automation being played would be recorded over itself. The knob holds a
// float, so a value the knob itself sent compares equal and is left alone.
void NxVeloraEditorView::followController()
{
	if (!knobControl)
		return;
	const auto value = static_cast<float>(owner->getParamNormalized(kPanParamId));
	if (knobControl->getValueNormalized() == value)
		return;
	knobControl->setValueNormalized(value);
	showValue(value);
}

void NxVeloraEditorView::initTextLabel(CTextLabel* label, const CColor& colour, CFontDesc* font)
{
	label->setFont(font);
	label->setFontColor(colour);
	label->setTransparency(true);
	label->setHoriAlign(kLeftText);
}

void NxVeloraEditorView::initParamDisplay(CParamDisplay* display, unsigned int tag, int precision,
                                          const CColor& colour, CFontDesc* font)
{
	display->setFont(font);
	display->setFontColor(colour);
	display->setTransparency(true);
	display->setHoriAlign(kRightText);
	display->setPrecision(static_cast<uint8_t>(precision));
	display->setTag(static_cast<int32_t>(tag));
	if (Parameter* parameter = owner->getParameterObject(tag))
	{
		// Plain values at the ends of the normalised range: the display shows
		// a normalised value in degrees.
		display->setMin(static_cast<float>(parameter->toPlain(0.0)));
		display->setMax(static_cast<float>(parameter->toPlain(1.0)));
		display->setValueNormalized(static_cast<float>(parameter->getNormalized()));
	}
}

void NxVeloraEditorView::showValue(double normalized)
{
	if (valueDisplay)
		valueDisplay->setValueNormalized(static_cast<float>(normalized));
}

} // namespace Vst
} // namespace Steinberg
