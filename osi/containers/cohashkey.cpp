#include "osi/containers/cohashkey.h"

#include <strings.h>

#include <cstdint>
#include <cstring>

namespace {

int bucketOf(uint64_t sum, int buckets)
{
	return static_cast<int>(sum % static_cast<uint64_t>(buckets));
}

} // namespace

int OsiNumberHashTableKey::hash(int buckets) const
{
	return bucketOf(static_cast<uint32_t>(keyValue), buckets);
}

bool OsiNumberHashTableKey::isEqual(const OsiHashTableKey& other) const
{
	return other.type() == number &&
	       static_cast<const OsiNumberHashTableKey&>(other).keyValue == keyValue;
}

std::unique_ptr<OsiHashTableKey> OsiNumberHashTableKey::copy() const
{
	return std::make_unique<OsiNumberHashTableKey>(keyValue);
}

OsiStringHashTableKey::OsiStringHashTableKey(const char* text, bool caseSensitive)
: keyText(text),
  caseSensitive(caseSensitive)
{}

OsiStringHashTableKey::OsiStringHashTableKey(const OsiStringHashTableKey& other, bool ownCopy)
: keyText(other.keyText),
  caseSensitive(other.caseSensitive)
{
	if (ownCopy && other.keyText)
	{
		const size_t size = std::strlen(other.keyText) + 1;
		owned = std::make_unique<char[]>(size);
		std::memcpy(owned.get(), other.keyText, size);
		keyText = owned.get();
	}
}

int OsiStringHashTableKey::hash(int buckets) const
{
	uint32_t sum = 0;
	if (keyText)
		for (uint32_t position = 1; keyText[position - 1] != '\0'; ++position)
			sum +=
			    position * static_cast<uint32_t>(static_cast<signed char>(keyText[position - 1]));
	return bucketOf(sum, buckets);
}

bool OsiStringHashTableKey::isEqual(const OsiHashTableKey& other) const
{
	if (other.type() != string)
		return false;
	const char* otherText = static_cast<const OsiStringHashTableKey&>(other).keyText;
	if (!keyText || !otherText)
		return keyText == otherText;
	return (caseSensitive ? std::strcmp(keyText, otherText) : strcasecmp(keyText, otherText)) == 0;
}

std::unique_ptr<OsiHashTableKey> OsiStringHashTableKey::copy() const
{
	return std::make_unique<OsiStringHashTableKey>(*this, true);
}

OsiStructureHashTableKey::OsiStructureHashTableKey(const void* bytes, int length)
: keyBytes(static_cast<const unsigned char*>(bytes)),
  keyLength(bytes && length > 0 ? length : 0)
{}

OsiStructureHashTableKey::OsiStructureHashTableKey(const OsiStructureHashTableKey& other,
                                                   bool ownCopy)
: keyBytes(other.keyBytes),
  keyLength(other.keyLength)
{
	if (ownCopy && keyLength > 0)
	{
		owned = std::make_unique<unsigned char[]>(static_cast<size_t>(keyLength));
		std::memcpy(owned.get(), other.keyBytes, static_cast<size_t>(keyLength));
		keyBytes = owned.get();
	}
}

// Position × 8-byte word over the whole words of the key, then position ×
// byte over the bytes that follow the last word; positions count from 1.
// Every byte read lies within the key.
int OsiStructureHashTableKey::hash(int buckets) const
{
	uint64_t sum = 0;
	const int words = keyLength / 8;
	for (int i = 0; i < words; ++i)
	{
		uint64_t word;
		std::memcpy(&word, keyBytes + 8 * i, sizeof word);
		sum += static_cast<uint64_t>(i + 1) * word;
	}
	for (int i = 0; i < keyLength % 8; ++i)
		sum += static_cast<uint64_t>(i + 1) * keyBytes[8 * words + i];
	return bucketOf(sum, buckets);
}

bool OsiStructureHashTableKey::isEqual(const OsiHashTableKey& other) const
{
	if (other.type() != structure)
		return false;
	const auto& key = static_cast<const OsiStructureHashTableKey&>(other);
	return key.keyLength == keyLength &&
	       (keyLength == 0 ||
	        std::memcmp(key.keyBytes, keyBytes, static_cast<size_t>(keyLength)) == 0);
}

std::unique_ptr<OsiHashTableKey> OsiStructureHashTableKey::copy() const
{
	return std::make_unique<OsiStructureHashTableKey>(*this, true);
}
