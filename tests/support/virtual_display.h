// An X server for tests that open real windows: the one in DISPLAY when it
// answers, otherwise an Xvfb started for the test program and stopped with it.
#pragma once

#include <gtest/gtest.h>

#include <sys/types.h>

// Xlib's own declaration; its header's macros (None, Bool) would clash with
// the test framework's names.
typedef struct _XDisplay Display;

namespace velora_test {

class VirtualDisplay : public ::testing::Environment
{
public:
	void SetUp() override;
	void TearDown() override;

	// The test program's connection; null until SetUp has found a server.
	static Display* display;

private:
	void start();
	pid_t server = 0;
};

} // namespace velora_test
