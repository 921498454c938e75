// The saved state record on both sides: its exact bytes, round trips between
// processor and controller, and records that must change nothing.
#include "nxvelora_controller.h"
#include "nxvelora_processor.h"
#include "persist/byte_image.h"
#include "persist/memory_stream.h"
#include "support/processor_harness.h"

#include <gtest/gtest.h>

#include <cstring>

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

	std::vector<uint8_t> processorRecord(int64_t start = 0)
	{
		auto stream = streamOf(std::vector<uint8_t>(static_cast<size_t>(start), 0x55), start);
		EXPECT_EQ(host.component()->getState(stream), kResultOk);
		auto bytes = bytesOf(*stream);
		return std::vector<uint8_t>(bytes.begin() + start, bytes.end());
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
	void restoreProcessor(const std::vector<uint8_t>& bytes, int64_t start = 0)
	{
		std::vector<uint8_t> padded(static_cast<size_t>(start), 0x55);
		padded.insert(padded.end(), bytes.begin(), bytes.end());
		EXPECT_EQ(host.component()->setState(streamOf(padded, start)), kResultOk);
	}
	void restoreController(const std::vector<uint8_t>& bytes)
	{
		EXPECT_EQ(controller->setComponentState(streamOf(bytes)), kResultOk);
	}
};

TEST_F(State, DefaultRecordIsTheExact110Bytes)
{
	const auto expected = record(0.5).data;
	ASSERT_EQ(expected.size(), 110u);
	EXPECT_EQ(processorRecord(), expected);
	EXPECT_EQ(controllerRecord(), expected);
}

TEST_F(State, RecordCarriesTheCurrentValueAtOffset102)
{
	for (double degrees : {-90.0, -30.0, 12.5, 90.0})
	{
		host.runWithPan(std::vector<float>(kBlock, 0.0f), normalizedPan(degrees));
		EXPECT_EQ(processorRecord(), record(normalizedPan(degrees)).data) << degrees;
	}
}

TEST_F(State, ProcessorRecordRestoresTheController)
{
	host.runWithPan(std::vector<float>(kBlock, 0.0f), 0.8);
	for (int64_t start : {0, 33})
	{
		auto stream = streamOf(std::vector<uint8_t>(static_cast<size_t>(start), 1), start);
		host.component()->getState(stream);
		stream->seek(start, IBStream::kIBSeekSet, nullptr);
		controller->setParamNormalized(100, 0.1);
		EXPECT_EQ(controller->setComponentState(stream), kResultOk);
		EXPECT_EQ(controller->getParamNormalized(100), 0.8) << start;
	}
}

TEST_F(State, ControllerRecordRestoresTheProcessorWhichGlidesThere)
{
	controller->setParamNormalized(100, normalizedPan(-30));
	for (int64_t start : {0, 7})
	{
		restoreProcessor(controllerRecord(), start);
		EXPECT_EQ(processorValue(), normalizedPan(-30)) << start;
	}
	// The first restore moved the angle from 0 to -30, the second from -30 to -30.
	const std::vector<float> ones(kBlock, 1.0f);
	const auto out = host.run(ones);
	EXPECT_EQ(out.left[0], 1.0f);
	EXPECT_EQ(out.right[0], 0.0f);

	// From -30 to +30: the next block starts at -30 and glides.
	controller->setParamNormalized(100, normalizedPan(30));
	restoreProcessor(controllerRecord());
	const auto glide = host.run(ones);
	EXPECT_EQ(glide.left[0], 1.0f);
	EXPECT_GT(glide.right[kBlock - 1], 0.9f);
}

TEST_F(State, ForeignRecordsChangeNothing)
{
	restoreProcessor(record(0.25).data);
	restoreController(record(0.25).data);
	ASSERT_EQ(processorValue(), 0.25);

	ByteImage older;
	const std::vector<std::pair<const char*, std::vector<uint8_t>>> foreign = {
	    {"version 2", record(0.9, 2).data},
	    {"other class", record(0.9, 1, "NxVelorb").data},
	    {"unfinished", record(0.9, 1, "NxVelora", 0).data},
	    {"complete flag 2", record(0.9, 1, "NxVelora", 2).data},
	    {"other block", record(0.9, 1, "NxVelora", 1, "Parameterz").data},
	    {"empty", {}},
	};
	for (const auto& [what, bytes] : foreign)
	{
		restoreProcessor(bytes);
		restoreController(bytes);
		EXPECT_EQ(processorValue(), 0.25) << what;
		EXPECT_EQ(controller->getParamNormalized(100), 0.25) << what;
	}
}

TEST_F(State, OlderSignatureWithAbsoluteBlockEndIsRead)
{
	ByteImage image;
	image.text("VstStructuredFile").sizeHeader(0, 0).text("NxVelora").i32(1).i32(1);
	const int64_t end = static_cast<int64_t>(image.size()) + 8 + 15 + 4 + 4 + 4 + 8;
	image.i64(end).text("Parameters").i32(1).i32(1).i32(100).f64(0.75);
	restoreProcessor(image.data);
	restoreController(image.data);
	EXPECT_EQ(processorValue(), 0.75);
	EXPECT_EQ(controller->getParamNormalized(100), 0.75);
}

TEST_F(State, ControllerSkipsUnknownIdsAndReadsEveryPair)
{
	ByteImage image;
	image.text("VstStructuredFileRelative").sizeHeader(0, 0).text("NxVelora").i32(1).i32(1);
	image.i64(8 + 15 + 4 + 4 + 2 * 12).text("Parameters").i32(1).i32(2);
	image.i32(7).f64(0.3).i32(100).f64(0.6);
	restoreController(image.data);
	EXPECT_EQ(controller->getParamNormalized(100), 0.6);
	// The processor takes the first pair, whatever its ID.
	restoreProcessor(image.data);
	EXPECT_EQ(processorValue(), 0.3);
}

TEST_F(State, TruncatedRecordsAtEveryLength)
{
	const auto whole = record(0.75).data;
	for (size_t length = 0; length < whole.size(); ++length)
	{
		restoreProcessor(record(0.25).data);
		restoreController(record(0.25).data);
		const std::vector<uint8_t> cut(whole.begin(), whole.begin() + length);
		restoreProcessor(cut);
		restoreController(cut);
		// Until the block header is whole nothing changes; after it, the
		// fields that could not be read count as 0.0. The controller only
		// applies a value once the parameter's ID was read.
		const bool blockEntered = length >= 94;
		EXPECT_EQ(processorValue(), blockEntered ? 0.0 : 0.25) << length;
		EXPECT_EQ(controller->getParamNormalized(100), length >= 102 ? 0.0 : 0.25) << length;
	}
}

} // namespace
} // namespace velora_test
