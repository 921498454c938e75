// The keys of OsiHashTable: numbers, strings and byte structures. A key built
// from a caller's pointer refers to the caller's text or bytes; a copy (and
// the copy constructor asked to) owns its own.
#pragma once

#include <memory>

class OsiHashTableKey
{
public:
	enum Type
	{
		number = 0,
		structure = 1,
		string = 2
	};

	virtual ~OsiHashTableKey() = default;
	// The bucket of this key among buckets (> 0).
	virtual int hash(int buckets) const = 0;
	// Keys of different types are never equal.
	virtual bool isEqual(const OsiHashTableKey& other) const = 0;
	virtual std::unique_ptr<OsiHashTableKey> copy() const = 0;
	virtual Type type() const = 0;
};

class OsiNumberHashTableKey : public OsiHashTableKey
{
public:
	explicit OsiNumberHashTableKey(int value) : keyValue(value) {}

	int hash(int buckets) const override;
	bool isEqual(const OsiHashTableKey& other) const override;
	std::unique_ptr<OsiHashTableKey> copy() const override;
	Type type() const override { return number; }
	int value() const { return keyValue; }

private:
	int keyValue;
};

class OsiStringHashTableKey : public OsiHashTableKey
{
public:
	OsiStringHashTableKey(const char* text, bool caseSensitive);
	OsiStringHashTableKey(const OsiStringHashTableKey& other, bool ownCopy = false);
	OsiStringHashTableKey& operator=(const OsiStringHashTableKey&) = delete;

	// Sums position × character over the text, whatever the case flag: a key
	// that ignores case finds only entries whose texts also hash alike.
	int hash(int buckets) const override;
	// Compares ignoring case when this key was built case-insensitive.
	bool isEqual(const OsiHashTableKey& other) const override;
	std::unique_ptr<OsiHashTableKey> copy() const override;
	Type type() const override { return string; }
	const char* text() const { return keyText; }
	bool isCaseSensitive() const { return caseSensitive; }
	bool ownsText() const { return owned != nullptr; }

private:
	const char* keyText;
	bool caseSensitive;
	std::unique_ptr<char[]> owned;
};

class OsiStructureHashTableKey : public OsiHashTableKey
{
public:
	OsiStructureHashTableKey(const void* bytes, int length);
	OsiStructureHashTableKey(const OsiStructureHashTableKey& other, bool ownCopy = false);
	OsiStructureHashTableKey& operator=(const OsiStructureHashTableKey&) = delete;

	int hash(int buckets) const override;
	bool isEqual(const OsiHashTableKey& other) const override;
	std::unique_ptr<OsiHashTableKey> copy() const override;
	Type type() const override { return structure; }
	const void* bytes() const { return keyBytes; }
	int length() const { return keyLength; }
	bool ownsBytes() const { return owned != nullptr; }

private:
	const unsigned char* keyBytes;
	int keyLength;
	std::unique_ptr<unsigned char[]> owned;
};
