// The editor and the controller's list of its views, without a window: VSTGUI
// builds the controls offscreen from the bundle's pictures, and a recording
// component handler stands in for the host.
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
#include <tuple>
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

// Only the exact name makes a view; the list holds this class's views, not
// owned, once per attach, and terminate empties it.
TEST_F(Editor, OnlyEditorMakesAViewAndTheListHoldsItsOwnViews)
{
	for (const char* name : {"Editor", "", "editor2", static_cast<const char*>(nullptr)})
		EXPECT_EQ(controller->createView(name), nullptr) << (name ? name : "null");
	auto other = owned(new EditorView(controller));
	controller->editorAttached(other);
	EXPECT_TRUE(controller->dependentViews().empty());
	// Never dereferenced.
	auto* a = reinterpret_cast<NxVeloraEditorView*>(0x10);
	auto* b = reinterpret_cast<NxVeloraEditorView*>(0x20);
	for (auto* view : {a, b, a})
		controller->addDependentView(view);
	controller->removeDependentView(a);
	controller->removeDependentView(reinterpret_cast<NxVeloraEditorView*>(0x30));
	EXPECT_EQ(controller->dependentViews(), (std::vector<NxVeloraEditorView*>{b, a}));
	controller->terminate();
	EXPECT_TRUE(controller->dependentViews().empty());
	controller->initialize(nullptr);
}

// The size of the background picture, fixed; one open at a time. (Where the
// controls are drawn the editor picture test sees.)
TEST_F(Editor, SizeOfTheBackgroundAndOneOpenAtATime)
{
	auto view = openView();
	auto background = VSTGUI::makeOwned<VSTGUI::CBitmap>("background.png");
	ViewRect size;
	ASSERT_EQ(view->getSize(&size), kResultTrue);
	EXPECT_EQ(std::tie(size.left, size.top, size.right, size.bottom),
	          std::make_tuple(0, 0, static_cast<int32>(background->getWidth()),
	                          static_cast<int32>(background->getHeight())));
	EXPECT_EQ(view->canResize(), kResultFalse);
	VSTGUI::CKnob* knob = view->knob();
	EXPECT_FALSE(view->open(nullptr, VSTGUI::PlatformType::kDefaultNative));
	EXPECT_EQ(view->knob(), knob);
	view->syncView(nullptr);
	view->close();
	EXPECT_EQ(view->knob(), nullptr);
	EXPECT_TRUE(view->open(nullptr, VSTGUI::PlatformType::kDefaultNative));
	view->close();
	EXPECT_TRUE(handler.calls.empty());
}

// The knob and update() edit without begin/end brackets and show degrees;
// update() takes only the pan tag.
TEST_F(Editor, KnobAndUpdateEditAndShowDegrees)
{
	auto view = openView();
	const struct
	{
		ParamID tag;
		double value;
		bool byKnob;
		float shown;
	} steps[] = {{100, 0.5, true, 0.0f},
	             {100, 0.75, true, 45.0f},
	             {100, 0.25, false, -45.0f},
	             {7, 0.9, false, -45.0f}};
	for (const auto& step : steps)
	{
		view->knob()->setValueNormalized(static_cast<float>(step.value));
		if (step.byKnob)
			view->valueChanged(view->knob());
		else
			view->update(step.tag, step.value);
		EXPECT_EQ(handler.calls.back().what, "perform");
		EXPECT_EQ(handler.calls.back().id, 100u);
		EXPECT_EQ(handler.calls.back().value, step.tag == 100 ? step.value : 0.25);
		EXPECT_TRUE(!step.byKnob || controller->getParamNormalized(100) == step.value);
		EXPECT_EQ(view->display()->getValue(), step.shown);
	}
	EXPECT_EQ(handler.calls.size(), 3u);
	view->close();
}

TEST_F(Editor, RestoredStateReachesEveryOpenEditor)
{
	auto first = openView();
	auto second = openView();
	controller->editorAttached(first);
	controller->editorAttached(second);

	// A record at -45 degrees, as the processor writes it.
	auto record = owned(new MemoryStream);
	controller->setParamNormalized(100, 0.25);
	controller->getState(record);
	controller->setParamNormalized(100, 0.5);
	record->seek(0, IBStream::kIBSeekSet, nullptr);
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

} // namespace
} // namespace velora_test
