// The hash table: its hash values, unique and duplicate keys, walk orders,
// and iterators that survive the removal of their element.
#include "osi/containers/cohashiter.h"
#include "osi/containers/cohashtable.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace {

// Distinct element pointers.
int items[16];

std::vector<void*> walkKeyless(const OsiHashTable& table)
{
	std::vector<void*> seen;
	OsiKeylessHashTableIter iter(table);
	while (void* element = iter++)
		seen.push_back(element);
	return seen;
}

std::vector<void*> walkKey(const OsiHashTable& table, const OsiHashTableKey& key)
{
	std::vector<void*> seen;
	OsiHashTableIter iter(table, key);
	while (void* element = iter++)
		seen.push_back(element);
	return seen;
}

TEST(HashKey, StringKeyHashIsThePositionWeightedSumOfSignedCharacters)
{
	EXPECT_EQ(OsiStringHashTableKey("ab", true).hash(100), 93); // 97 + 2 × 98 = 293
	EXPECT_EQ(OsiStringHashTableKey("ab", false).hash(100), 93);
	EXPECT_EQ(OsiStringHashTableKey("", true).hash(100), 0);
	// Characters above 127 count negatively: 1 × 97 + 2 × (-23) = 51.
	EXPECT_EQ(OsiStringHashTableKey("a\xe9", true).hash(100), 51);
	// A negative sum wraps as an unsigned 32-bit number: 2^32 - 23 = 4294967273.
	EXPECT_EQ(OsiStringHashTableKey("\xe9", true).hash(100), 73);
}

TEST(HashKey, NumberKeyHashIsTheUnsignedValueModuloBuckets)
{
	EXPECT_EQ(OsiNumberHashTableKey(1234).hash(100), 34);
	EXPECT_EQ(OsiNumberHashTableKey(-1).hash(100), 95); // 4294967295 mod 100
	EXPECT_EQ(OsiNumberHashTableKey(7).hash(1), 0);
}

// A key over exactly `length` heap bytes, so that AddressSanitizer catches
// any read past them.
struct HeapBytes
{
	explicit HeapBytes(const std::vector<unsigned char>& content)
	: bytes(new unsigned char[content.size() ? content.size() : 1]),
	  length(static_cast<int>(content.size()))
	{
		if (!content.empty())
			std::memcpy(bytes.get(), content.data(), content.size());
	}
	std::unique_ptr<unsigned char[]> bytes;
	int length;
};

TEST(HashKey, StructureKeyHashReadsOnlyItsOwnBytes)
{
	std::vector<unsigned char> content(12);
	uint64_t word = 0x0102030405060708ull;
	std::memcpy(content.data(), &word, 8);
	content[8] = 1, content[9] = 2, content[10] = 3, content[11] = 4;
	HeapBytes key(content);
	// One word at position 1, then the 4 bytes that follow at positions 1..4.
	const uint64_t sum = word + 1 * 1 + 2 * 2 + 3 * 3 + 4 * 4;
	EXPECT_EQ(OsiStructureHashTableKey(key.bytes.get(), key.length).hash(1000),
	          static_cast<int>(sum % 1000));

	for (int length = 0; length <= 24; ++length)
	{
		std::vector<unsigned char> bytes(static_cast<size_t>(length));
		for (int i = 0; i < length; ++i)
			bytes[static_cast<size_t>(i)] = static_cast<unsigned char>(i * 37 + 11);
		HeapBytes exact(bytes);
		OsiStructureHashTableKey probe(exact.bytes.get(), exact.length);
		const int bucket = probe.hash(97);
		EXPECT_GE(bucket, 0);
		EXPECT_LT(bucket, 97);
		auto copy = probe.copy();
		EXPECT_TRUE(probe.isEqual(*copy));
		EXPECT_EQ(copy->hash(97), bucket);
	}
}

TEST(HashKey, StructureKeysAreEqualOnEqualLengthsAndBytes)
{
	const char a[] = "abcdefghij";
	const char b[] = "abcdefghiX";
	EXPECT_TRUE(OsiStructureHashTableKey(a, 9).isEqual(OsiStructureHashTableKey(b, 9)));
	EXPECT_FALSE(OsiStructureHashTableKey(a, 10).isEqual(OsiStructureHashTableKey(b, 10)));
	EXPECT_FALSE(OsiStructureHashTableKey(a, 9).isEqual(OsiStructureHashTableKey(a, 8)));
}

TEST(HashKey, KeysOfDifferentKindsAreNeverEqual)
{
	const int value = 97;
	OsiNumberHashTableKey number(97);
	OsiStringHashTableKey text("a", true);
	OsiStructureHashTableKey bytes(&value, sizeof value);
	EXPECT_FALSE(number.isEqual(text));
	EXPECT_FALSE(text.isEqual(number));
	EXPECT_FALSE(bytes.isEqual(number));
	EXPECT_FALSE(number.isEqual(bytes));
	EXPECT_EQ(number.type(), OsiHashTableKey::number);
	EXPECT_EQ(bytes.type(), OsiHashTableKey::structure);
	EXPECT_EQ(text.type(), OsiHashTableKey::string);
}

TEST(HashKey, CaseInsensitiveKeyComparesEqualButHashesApart)
{
	OsiStringHashTableKey lower("abc", false);
	OsiStringHashTableKey upper("ABC", true);
	EXPECT_TRUE(lower.isEqual(upper));
	EXPECT_FALSE(upper.isEqual(lower)) << "a case-sensitive key compares with case";
	EXPECT_NE(lower.hash(100), upper.hash(100));

	OsiHashTable table(true, 100);
	ASSERT_TRUE(table.insert(&items[0], upper));
	EXPECT_EQ(table.find(lower), nullptr) << "found across buckets";
	EXPECT_EQ(table.find(OsiStringHashTableKey("ABC", false)), &items[0]);
	EXPECT_EQ(table.find(OsiStringHashTableKey("ABC", true)), &items[0]);
}

TEST(HashKey, CopiesOwnTheirTextAndBytes)
{
	char text[] = "volatile";
	OsiStringHashTableKey borrowed(text, true);
	EXPECT_FALSE(borrowed.ownsText());
	OsiStringHashTableKey owned(borrowed, true);
	EXPECT_TRUE(owned.ownsText());
	EXPECT_NE(owned.text(), text);

	OsiHashTable table(true, 10);
	ASSERT_TRUE(table.insert(&items[0], borrowed));
	std::strcpy(text, "changed!");
	EXPECT_EQ(table.find(OsiStringHashTableKey("volatile", true)), &items[0]);
	EXPECT_EQ(table.find(OsiStringHashTableKey("changed!", true)), nullptr);
}

TEST(HashTable, UniqueKeysRefuseASecondEntryUnderAnEqualKey)
{
	OsiHashTable table(true, 100);
	EXPECT_TRUE(table.insert(&items[0], OsiNumberHashTableKey(5)));
	EXPECT_FALSE(table.insert(&items[1], OsiNumberHashTableKey(5)));
	EXPECT_EQ(table.count(), 1);
	EXPECT_EQ(table.find(OsiNumberHashTableKey(5)), &items[0]);
	// Another key in the same bucket is not a duplicate.
	EXPECT_TRUE(table.insert(&items[2], OsiNumberHashTableKey(105)));
	EXPECT_EQ(table.count(), 2);
}

TEST(HashTable, DuplicateKeysKeepInsertionOrderUnderTheirKey)
{
	OsiHashTable table(false, 100);
	const OsiNumberHashTableKey key(3);
	for (int i : {0, 1, 2})
		ASSERT_TRUE(table.insert(&items[i], key));
	// An entry of another key in the same bucket, between them.
	ASSERT_TRUE(table.insert(&items[9], OsiNumberHashTableKey(103)));
	ASSERT_TRUE(table.insert(&items[3], key));
	EXPECT_EQ(table.count(), 5);
	EXPECT_EQ(walkKey(table, key),
	          (std::vector<void*>{&items[0], &items[1], &items[2], &items[3]}));

	OsiHashTableIter iter(table, key);
	EXPECT_EQ(iter.last(), &items[3]);
	EXPECT_EQ(iter.prev(), &items[2]);
	EXPECT_EQ(iter--, &items[2]);
	EXPECT_EQ(iter.current(), &items[1]);
	EXPECT_EQ(iter.find(&items[2]), &items[2]);
	EXPECT_EQ(iter.find(&items[9]), nullptr);
}

TEST(HashTable, KeylessWalkGoesThroughBucketsInOrder)
{
	OsiHashTable table(false, 10);
	table.insert(&items[0], OsiNumberHashTableKey(7));
	table.insert(&items[1], OsiNumberHashTableKey(2));
	table.insert(&items[2], OsiNumberHashTableKey(17));
	table.insert(&items[3], OsiNumberHashTableKey(0));
	EXPECT_EQ(walkKeyless(table), (std::vector<void*>{&items[3], &items[1], &items[0], &items[2]}));

	OsiHashTableNode* node;
	int bucket;
	std::vector<void*> backwards;
	for (void* e = table.findLast(node, bucket); e; e = table.findPrev(node, bucket))
		backwards.push_back(e);
	EXPECT_EQ(backwards, (std::vector<void*>{&items[2], &items[0], &items[1], &items[3]}));
	EXPECT_EQ(table.findFirst(node, bucket), &items[3]);
	EXPECT_EQ(bucket, 0);
	EXPECT_EQ(node->key().type(), OsiHashTableKey::number);
}

TEST(HashTable, KeyedWalkFunctionsStayUnderTheirKey)
{
	OsiHashTable table(false, 10);
	table.insert(&items[0], OsiNumberHashTableKey(4));
	table.insert(&items[1], OsiNumberHashTableKey(14));
	table.insert(&items[2], OsiNumberHashTableKey(4));
	OsiHashTableNode* node;
	const OsiNumberHashTableKey key(4);
	EXPECT_EQ(table.findFirst(key, node), &items[0]);
	EXPECT_EQ(table.findNext(key, node), &items[2]);
	EXPECT_EQ(table.findNext(key, node), nullptr);
	EXPECT_EQ(node, nullptr);
	EXPECT_EQ(table.findLast(key, node), &items[2]);
	EXPECT_EQ(table.findPrev(key, node), &items[0]);
	EXPECT_EQ(table.findPrev(key, node), nullptr);
	EXPECT_EQ(table.find(&items[1], key), nullptr);
	EXPECT_EQ(table.find(&items[1], OsiNumberHashTableKey(14)), &items[1]);
}

TEST(HashTable, RefusesNullElementsAndTablesWithoutBuckets)
{
	OsiHashTable table(false, 10);
	EXPECT_FALSE(table.insert(nullptr, OsiNumberHashTableKey(1)));
	OsiHashTable none(false, 0);
	EXPECT_FALSE(none.insert(&items[0], OsiNumberHashTableKey(1)));
	EXPECT_EQ(none.find(OsiNumberHashTableKey(1)), nullptr);
	EXPECT_EQ(OsiKeylessHashTableIter(none).current(), nullptr);
	EXPECT_EQ(OsiHashTableIter(none, OsiNumberHashTableKey(1)).current(), nullptr);
	EXPECT_EQ(table.find(OsiNumberHashTableKey(1)), nullptr);
	EXPECT_FALSE(table.remove(&items[0], OsiNumberHashTableKey(1)));
	EXPECT_FALSE(table.remove(OsiNumberHashTableKey(1)));
}

TEST(HashTable, RemovalNeedsBothKeyAndElement)
{
	OsiHashTable table(false, 10);
	table.insert(&items[0], OsiNumberHashTableKey(1));
	table.insert(&items[1], OsiNumberHashTableKey(1));
	table.insert(&items[2], OsiNumberHashTableKey(2));
	EXPECT_FALSE(table.remove(&items[2], OsiNumberHashTableKey(1)));
	EXPECT_TRUE(table.remove(&items[1], OsiNumberHashTableKey(1)));
	EXPECT_EQ(table.count(), 2);
	EXPECT_TRUE(table.remove(OsiNumberHashTableKey(1)));
	EXPECT_EQ(walkKeyless(table), std::vector<void*>{&items[2]});
}

TEST(HashTableIter, RemovingTheCurrentElementLetsTheKeylessWalkGoOn)
{
	OsiHashTable table(false, 4);
	for (int i = 0; i < 12; ++i)
		table.insert(&items[i], OsiNumberHashTableKey(i));
	const std::vector<void*> before = walkKeyless(table);

	// Remove every other element as the walk reaches it, through the iterator
	// and through the table by turns.
	std::vector<void*> visited;
	OsiKeylessHashTableIter iter(table);
	bool drop = true, throughTable = false;
	for (void* e = iter.current(); e; e = iter.next())
	{
		visited.push_back(e);
		if (drop)
		{
			const int key = static_cast<int>(static_cast<int*>(e) - items);
			const bool removed =
			    throughTable ? table.remove(e, OsiNumberHashTableKey(key)) : iter.remove();
			EXPECT_TRUE(removed);
			EXPECT_EQ(iter.current(), nullptr);
			throughTable = !throughTable;
		}
		drop = !drop;
	}
	EXPECT_EQ(visited, before);
	EXPECT_EQ(table.count(), 6);
	std::vector<void*> kept;
	for (size_t i = 1; i < before.size(); i += 2)
		kept.push_back(before[i]);
	EXPECT_EQ(walkKeyless(table), kept);
}

TEST(HashTableIter, RemovingTheCurrentElementLetsTheKeyedWalkGoOn)
{
	OsiHashTable table(false, 4);
	const OsiNumberHashTableKey key(1);
	for (int i = 0; i < 6; ++i)
	{
		table.insert(&items[i], key);
		table.insert(&items[10], OsiNumberHashTableKey(5)); // same bucket, other key
	}
	// The post-increment walk: after items[1] the iterator stands on items[2],
	// which is removed under it; items[3] is removed once the walk has left it.
	std::vector<void*> visited;
	OsiHashTableIter iter(table, key);
	while (void* e = iter++)
	{
		visited.push_back(e);
		if (e == &items[1])
		{
			ASSERT_EQ(iter.current(), &items[2]);
			EXPECT_TRUE(table.remove(&items[2], key));
		}
		if (e == &items[3])
		{
			EXPECT_TRUE(table.remove(e, key));
		}
	}
	EXPECT_EQ(visited, (std::vector<void*>{&items[0], &items[1], &items[3], &items[4], &items[5]}));
	EXPECT_EQ(walkKey(table, key),
	          (std::vector<void*>{&items[0], &items[1], &items[4], &items[5]}));
}

TEST(HashTableIter, RemovingTheLastElementOfABucketMovesOnToTheNextBucket)
{
	OsiHashTable table(false, 10);
	table.insert(&items[0], OsiNumberHashTableKey(1));
	table.insert(&items[1], OsiNumberHashTableKey(5));
	OsiKeylessHashTableIter iter(table);
	OsiKeylessHashTableIter second(table);
	ASSERT_EQ(iter.current(), &items[0]);
	EXPECT_TRUE(iter.remove());
	EXPECT_EQ(second.current(), nullptr) << "both iterators stood on the removed node";
	EXPECT_EQ(iter.next(), &items[1]);
	EXPECT_EQ(second++, &items[1]);
	EXPECT_EQ(second.current(), nullptr);
	// Backwards from the gap left by the last element.
	EXPECT_TRUE(table.remove(&items[1], OsiNumberHashTableKey(5)));
	EXPECT_EQ(iter.prev(), nullptr);
}

TEST(HashTableIter, EmptyingTheTableEndsEveryWalk)
{
	auto table = std::make_unique<OsiHashTable>(false, 3);
	for (int i = 0; i < 6; ++i)
		table->insert(&items[i], OsiNumberHashTableKey(i));
	OsiKeylessHashTableIter all(*table);
	OsiHashTableIter keyed(*table, OsiNumberHashTableKey(4));
	all.next();
	table->removeAll();
	EXPECT_EQ(table->count(), 0);
	EXPECT_EQ(all.current(), nullptr);
	EXPECT_EQ(all.next(), nullptr);
	EXPECT_EQ(keyed++, nullptr);
	table->insert(&items[7], OsiNumberHashTableKey(4));
	EXPECT_EQ(all.first(), &items[7]);
	EXPECT_EQ(keyed.first(), &items[7]);
	table.reset(); // destroying the table releases the iterators standing in it
	EXPECT_EQ(all.current(), nullptr);
	EXPECT_EQ(keyed.current(), nullptr);
}

TEST(HashTableIter, IteratorsOnAConstTableCannotRemove)
{
	OsiHashTable table(false, 10);
	table.insert(&items[0], OsiNumberHashTableKey(1));
	const OsiHashTable& view = table;
	OsiKeylessHashTableIter all(view);
	OsiHashTableIter keyed(&view, OsiNumberHashTableKey(1));
	EXPECT_FALSE(all.remove());
	EXPECT_FALSE(keyed.remove());
	EXPECT_EQ(table.count(), 1);
	EXPECT_EQ(all.currentKey()->type(), OsiHashTableKey::number);
}

bool collectUntil(void* element, void* data)
{
	auto* seen = static_cast<std::vector<void*>*>(data);
	seen->push_back(element);
	return element == &items[2];
}

bool removeEach(void* element, void* data)
{
	auto* table = static_cast<OsiHashTable*>(data);
	return !table->remove(element, OsiStringHashTableKey("same", true));
}

TEST(HashTable, ForAllDoStopsAtTheFirstTrueAndToleratesRemoval)
{
	OsiHashTable table(false, 10);
	for (int i = 0; i < 4; ++i)
		table.insert(&items[i], OsiStringHashTableKey("same", true));
	std::vector<void*> seen;
	EXPECT_EQ(table.forAllDo(collectUntil, &seen), &items[2]);
	EXPECT_EQ(seen, (std::vector<void*>{&items[0], &items[1], &items[2]}));
	seen.clear();
	EXPECT_EQ(table.forAllDo(collectUntil, OsiStringHashTableKey("other", true), &seen), nullptr);
	EXPECT_TRUE(seen.empty());
	EXPECT_EQ(table.forAllDo(removeEach, OsiStringHashTableKey("same", true), &table), nullptr);
	EXPECT_EQ(table.count(), 0);
	EXPECT_EQ(table.forAllDo(nullptr, nullptr), nullptr);
}

} // namespace
