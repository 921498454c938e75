// The saved state record on both sides: its exact bytes, round trips between
// processor and controller, and records that must change nothing.
#include "nxvelora_controller.h"
#include "nxvelora_processor.h"
#include "persist/byte_image.h"
#include "persist/memory_stream.h"
#include "support/processor_harness.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace velora_test {
namespace {

constexpr double kRate = 48000.0;
constexpr int32 kBlock = 64;

// The record as it must be written for a normalised pan value.
ByteImage record(double value, int version = 1, const std::string& name = "NxVelora",
                 int complete = 1, const std::string& block = "Parameters")
{
	ByteImage image;
	image.text("VstStructuredFileRelative").sizeHeader(0, 0).text(name).i32(version).i32(complete);
	image.i64(8 + 4 + static_cast<int64_t>(block.size()) + 1 + 4 + 4 + 4 + 8).text(block).i32(1);
	image.i32(1).i32(100).f64(value);
	return image;
}

struct State : ::testing::Test
{
	ProcessorHarness host{NxVeloraProcessor::createInstance(nullptr), kRate, kBlock};
	IPtr<NxVeloraController> controller = owned(new NxVeloraController);
	State() { controller->initialize(nullptr); }
	~State() override { controller->terminate(); }

	std::vector<uint8_t> processorRecord()
	{
		auto stream = streamOf({});
		EXPECT_EQ(host.component()->getState(stream), kResultOk);
		return bytesOf(*stream);
	}
	std::vector<uint8_t> controllerRecord()
	{
		auto stream = streamOf({});
		EXPECT_EQ(controller->getState(stream), kResultOk);
		return bytesOf(*stream);
	}
	// The value the processor saves: the record's last 8 bytes.
	double processorValue()
	{
		double v = 0;
		std::memcpy(&v, processorRecord().data() + 102, sizeof v);
		return v;
	}
	void restoreProcessor(const std::vector<uint8_t>& bytes)
	{
		EXPECT_EQ(host.component()->setState(streamOf(bytes)), kResultOk);
	}
	void restoreController(const std::vector<uint8_t>& bytes)
	{
		EXPECT_EQ(controller->setComponentState(streamOf(bytes)), kResultOk);
	}
};

// Both sides write the exact 110 bytes of the current value; the processor's
// record, read from the middle of a stream, restores the controller.
TEST_F(State, BothSidesWriteTheExactRecordOfTheCurrentValue)
{
	EXPECT_EQ(controllerRecord(), record(0.5).data);
	EXPECT_EQ(processorRecord(), record(0.5).data);
	for (double degrees : {-90.0, 12.5, 90.0})
	{
		host.runWithPan(std::vector<float>(kBlock, 0.0f), normalizedPan(degrees));
		EXPECT_EQ(processorRecord(), record(normalizedPan(degrees)).data) << degrees;
	}
	auto stream = streamOf(std::vector<uint8_t>(33, 1), 33);
	host.component()->getState(stream);
	stream->seek(33, IBStream::kIBSeekSet, nullptr);
	EXPECT_EQ(controller->setComponentState(stream), kResultOk);
	EXPECT_EQ(controller->getParamNormalized(100), normalizedPan(90.0));
}

// What each side holds after restoring a record over a value of 0.25.
TEST_F(State, RestoresWhatTheRecordSaysAndIgnoresForeignOnes)
{
	struct Row
	{
		std::string what;
		std::vector<uint8_t> bytes;
		double processor, controller;
	};
	std::vector<Row> rows = {
	    {"version 2", record(0.9, 2).data, 0.25, 0.25},
	    {"other class", record(0.9, 1, "NxVelorb").data, 0.25, 0.25},
	    {"unfinished", record(0.9, 1, "NxVelora", 0).data, 0.25, 0.25},
	    {"complete flag 2", record(0.9, 1, "NxVelora", 2).data, 0.25, 0.25},
	    {"other block", record(0.9, 1, "NxVelora", 1, "Parameterz").data, 0.25, 0.25},
	};
	// The older signature, whose block end is absolute.
	ByteImage older;
	older.text("VstStructuredFile").sizeHeader(0, 0).text("NxVelora").i32(1).i32(1);
	older.i64(static_cast<int64_t>(older.size()) + 8 + 15 + 4 + 4 + 4 + 8).text("Parameters");
	older.i32(1).i32(1).i32(100).f64(0.75);
	rows.push_back({"older signature", older.data, 0.75, 0.75});
	// Two pairs: the processor takes the first whatever its ID; the controller
	// skips unknown IDs and reads every pair.
	ByteImage two;
	two.text("VstStructuredFileRelative").sizeHeader(0, 0).text("NxVelora").i32(1).i32(1);
	two.i64(8 + 15 + 4 + 4 + 2 * 12).text("Parameters").i32(1).i32(2);
	two.i32(7).f64(0.3).i32(100).f64(0.6);
	rows.push_back({"two pairs", two.data, 0.3, 0.6});
	// Cut short: until the block header is whole nothing changes; after it,
	// the fields that could not be read count as 0.0. The controller only
	// applies a value once the parameter's ID was read.
	const auto whole = record(0.75).data;
	for (size_t length = 0; length < whole.size(); ++length)
		rows.push_back({"cut at " + std::to_string(length),
		                std::vector<uint8_t>(whole.begin(), whole.begin() + long(length)),
		                length >= 94 ? 0.0 : 0.25, length >= 102 ? 0.0 : 0.25});
	for (const Row& row : rows)
	{
		restoreProcessor(record(0.25).data);
		restoreController(record(0.25).data);
		restoreProcessor(row.bytes);
		restoreController(row.bytes);
		EXPECT_EQ(processorValue(), row.processor) << row.what;
		EXPECT_EQ(controller->getParamNormalized(100), row.controller) << row.what;
	}
}

} // namespace
} // namespace velora_test
