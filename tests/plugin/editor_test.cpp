// The editor's logic without a window: VSTGUI builds the controls offscreen
// from the bundle's pictures, and a recording component handler stands in
// for the host.
#include "editor_snapshot.h"
#include "nxvelora_controller.h"
#include "nxvelora_editor.h"
#include "persist/memory_stream.h"
#include "support/recording_handler.h"

#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/controls/cknob.h"
#include "vstgui/lib/controls/cparamdisplay.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

namespace velora_test {
namespace {

using namespace Steinberg;
using namespace Steinberg::Vst;

class Graphics : public ::testing::Environment
{
public:
	void SetUp() override
	{
		const char* bundle = std::getenv("VELORA_BUNDLE");
		ASSERT_NE(bundle, nullptr);
		initEditorGraphics(std::string(bundle) + "/Contents/Resources");
	}
	void TearDown() override { exitEditorGraphics(); }
};
const auto* graphics = ::testing::AddGlobalTestEnvironment(new Graphics);

struct Editor : ::testing::Test
{
	Editor()
	{
		controller->initialize(nullptr);
		controller->setComponentHandler(&handler);
	}
	~Editor() override { controller->terminate(); }

	IPtr<NxVeloraEditorView> openView()
	{
		auto view =
		    Steinberg::owned(static_cast<NxVeloraEditorView*>(controller->createView("editor")));
		EXPECT_TRUE(view->open(nullptr, VSTGUI::PlatformType::kDefaultNative));
		return view;
	}

	RecordingHandler handler;
	IPtr<NxVeloraController> controller = owned(new NxVeloraController);
};

TEST_F(Editor, SizeIsTheBackgroundPicture)
{
	auto view =
	    Steinberg::owned(static_cast<NxVeloraEditorView*>(controller->createView("editor")));
	auto background = VSTGUI::makeOwned<VSTGUI::CBitmap>("background.png");
	ViewRect size;
	ASSERT_EQ(view->getSize(&size), kResultTrue);
	EXPECT_EQ(size.left, 0);
	EXPECT_EQ(size.top, 0);
	EXPECT_EQ(size.getWidth(), static_cast<int32>(background->getWidth()));
	EXPECT_EQ(size.getHeight(), static_cast<int32>(background->getHeight()));
	EXPECT_EQ(view->canResize(), kResultFalse);
	ViewRect proposed(3, 4, 500, 600);
	EXPECT_EQ(view->checkSizeConstraint(&proposed), kResultOk);
	EXPECT_EQ(proposed.right, 500);
	ParamID id = 0;
	FUnknownPtr<IParameterFinder> finder(static_cast<IPlugView*>(view));
	ASSERT_TRUE(finder);
	EXPECT_EQ(finder->findParameter(49, 94, id), kResultFalse);
}

TEST_F(Editor, ControlsFollowTheLayout)
{
	auto view = openView();
	VSTGUI::CKnob* knob = view->knob();
	ASSERT_NE(knob, nullptr);
	const VSTGUI::CRect r = knob->getViewSize();
	EXPECT_EQ(r.getCenter(), VSTGUI::CPoint(49, 94));
	EXPECT_EQ(knob->getTag(), 100);
	EXPECT_EQ(knob->getValueNormalized(), 0.5f);
	EXPECT_EQ(view->display()->getViewSize(), VSTGUI::CRect(110, 82, 160, 106));
	EXPECT_EQ(view->display()->getMin(), -90.0f);
	EXPECT_EQ(view->display()->getMax(), 90.0f);
	EXPECT_EQ(view->display()->getPrecision(), 1);
	view->close();
	EXPECT_EQ(view->knob(), nullptr);
}

TEST_F(Editor, SecondOpenIsRefused)
{
	auto view = openView();
	VSTGUI::CKnob* knob = view->knob();
	EXPECT_FALSE(view->open(nullptr, VSTGUI::PlatformType::kDefaultNative));
	EXPECT_EQ(view->knob(), knob);
	view->close();
	EXPECT_TRUE(view->open(nullptr, VSTGUI::PlatformType::kDefaultNative));
	view->close();
}

TEST_F(Editor, TurningTheKnobEditsWithoutBrackets)
{
	auto view = openView();
	view->knob()->setValueNormalized(0.5f);
	view->valueChanged(view->knob());
	ASSERT_EQ(handler.calls.size(), 1u);
	EXPECT_EQ(handler.calls[0].what, "perform");
	EXPECT_EQ(handler.calls[0].id, 100u);
	EXPECT_EQ(handler.calls[0].value, 0.5);
	EXPECT_EQ(view->display()->getValue(), 0.0f); // shown in degrees: "0.0"

	view->knob()->setValueNormalized(0.75f);
	view->valueChanged(view->knob());
	EXPECT_EQ(controller->getParamNormalized(100), 0.75);
	EXPECT_EQ(view->display()->getValue(), 45.0f);
	view->close();
}

TEST_F(Editor, UpdateEditsAndShowsOnlyThePanTag)
{
	auto view = openView();
	view->update(100, 0.25);
	view->update(7, 0.9);
	ASSERT_EQ(handler.calls.size(), 1u);
	EXPECT_EQ(handler.calls[0].value, 0.25);
	EXPECT_EQ(view->display()->getValue(), -45.0f);
	view->close();
}

TEST_F(Editor, RestoredStateReachesEveryOpenEditor)
{
	auto first = openView();
	auto second = openView();
	controller->editorAttached(first);
	controller->editorAttached(second);
	ASSERT_EQ(controller->dependentViews().size(), 2u);

	// A record at -45 degrees, as the processor writes it.
	auto record = owned(new MemoryStream);
	controller->setParamNormalized(100, 0.25);
	controller->getState(record);
	controller->setParamNormalized(100, 0.5);
	record->seek(0, IBStream::kIBSeekSet, nullptr);
	handler.calls.clear();
	ASSERT_EQ(controller->setComponentState(record), kResultOk);

	for (auto* view : {first.get(), second.get()})
	{
		EXPECT_EQ(view->knob()->getValueNormalized(), 0.25f);
		EXPECT_EQ(view->display()->getValue(), -45.0f);
	}
	// Each editor reports the restored value to the host as an edit.
	ASSERT_EQ(handler.calls.size(), 2u);
	EXPECT_EQ(handler.calls[1].value, 0.25);

	controller->editorRemoved(first);
	EXPECT_EQ(controller->dependentViews(), std::vector<NxVeloraEditorView*>{second.get()});
	first->close();
	second->close();
}

TEST_F(Editor, SyncIgnoresAMissingContainer)
{
	auto view = openView();
	view->syncView(nullptr);
	EXPECT_TRUE(handler.calls.empty());
	view->close();
}

} // namespace
} // namespace velora_test
