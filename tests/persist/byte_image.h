// Builds byte images of typed streams by hand, in either byte order, so that
// readers are tested against data they did not write themselves.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace velora_test {

class ByteImage
{
public:
	explicit ByteImage(bool bigEndian = false) : big(bigEndian) {}

	ByteImage& bytes(std::initializer_list<uint8_t> list)
	{
		for (uint8_t b : list)
			data.push_back(b);
		return *this;
	}
	// An integer of the given width, in the image's byte order.
	ByteImage& integer(uint64_t value, size_t width)
	{
		for (size_t i = 0; i < width; ++i)
		{
			const size_t shift = 8 * (big ? width - 1 - i : i);
			data.push_back(static_cast<uint8_t>(value >> shift));
		}
		return *this;
	}
	ByteImage& i32(int32_t v) { return integer(static_cast<uint32_t>(v), 4); }
	ByteImage& i64(int64_t v) { return integer(static_cast<uint64_t>(v), 8); }
	ByteImage& f64(double v)
	{
		uint64_t bits = 0;
		std::memcpy(&bits, &v, 8);
		return integer(bits, 8);
	}
	// A string as the streams store it: kInt length with the NUL, then the bytes.
	ByteImage& text(const std::string& s)
	{
		i32(static_cast<int32_t>(s.size() + 1));
		return chars(s).bytes({0});
	}
	// Characters alone, without length or NUL.
	ByteImage& chars(const std::string& s)
	{
		for (char c : s)
			data.push_back(static_cast<uint8_t>(c));
		return *this;
	}
	// The current size header: marker, version, both flags, twelve sizes.
	ByteImage& sizeHeader(uint8_t intFlag, uint8_t floatFlag, std::vector<uint8_t> sizes = {})
	{
		if (sizes.empty())
			sizes = nativeSizes();
		bytes({0xFF, 0x01, intFlag, floatFlag});
		for (uint8_t b : sizes)
			data.push_back(b);
		return *this;
	}
	static std::vector<uint8_t> nativeSizes() { return {1, 2, 2, 8, 8, 4, 4, 4, 8, 16, 8, 8}; }
	size_t size() const { return data.size(); }

	std::vector<uint8_t> data;

private:
	bool big;
};

} // namespace velora_test
