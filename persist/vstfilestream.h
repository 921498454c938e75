// The typed stream over a host-supplied plug-in stream (not owned).
#pragma once

#include "persist/typedstream.h"
#include "pluginterfaces/base/ibstream.h"

class VstFileStream : public TypedStream
{
public:
	VstFileStream() = default;
	explicit VstFileStream(Steinberg::IBStream* stream) : stream(stream) {}

	Steinberg::IBStream* hostStream() const { return stream; }
	void setHostStream(Steinberg::IBStream* s) { stream = s; }

	bool readBytes(void* data, size_t size) override;
	bool writeBytes(const void* data, size_t size) override;
	bool seek(long long position) override;
	bool tell(long long& position) override;

private:
	Steinberg::IBStream* stream = nullptr;
};
