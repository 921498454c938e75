// A typed binary stream: arrays of C-typed elements written in the native
// layout, with a header that records byte orders and type sizes, and read back
// with conversion when the writer's layout differs. The byte transport (a
// host stream or a C file) is supplied by the derived class.
#pragma once

#include "osi/base/string_ext.h"

#include <cstddef>
#include <cstdint>

class TypedStream
{
public:
	enum DataType
	{
		kUInt8 = 0,
		kChar = 1,
		kByte = 2,
		kShort = 3,
		kUShort = 4,
		kLong = 5,
		kULong = 6,
		kInt = 7,
		kUInt = 8,
		kFloat = 9,
		kDouble = 10,
		kLongDouble = 11,
		kLongLong = 12,
		kSignedWord = 13,
		kRawBlock = 14,
	};
	static constexpr int kSizedTypes = 12;

	TypedStream();
	virtual ~TypedStream() = default;

	bool read(void* data, DataType type, int count, unsigned long elementSize = 0);
	bool write(const void* data, DataType type, int count, unsigned long elementSize = 0);

	bool writeSizeofHeader();
	bool readSizeofHeader();

	bool write(const char* text, bool withLength);
	bool write(const string_ext<char>& text, bool withLength);
	bool read(string_ext<char>& text);
	bool matchRead(const string_ext<char>& expected);
	bool writeInit(const char& fill, int count);

	static bool bigEndianNative();
	static bool bigEndianFloatingPointNative();

	// The byte transport.
	virtual bool readBytes(void* data, size_t size) = 0;
	virtual bool writeBytes(const void* data, size_t size) = 0;
	virtual bool seek(long long position) = 0;
	virtual bool tell(long long& position) = 0;

	// Back to a fresh stream's layout: native sizes, both flags 0.
	void resetLayout();

private:
	struct Layout;
	bool layoutOf(DataType type, Layout& layout) const;
	bool readConverted(uint8_t* out, const Layout& layout, int count);
	bool writeConverted(const uint8_t* in, const Layout& layout, int count);

	uint8_t integerSwap = 0; // 1: data are big-endian and must be swapped here
	uint8_t floatSwap = 0;   // the same for the floating types
	uint8_t sizes[kSizedTypes];
};
