// The hash table against a model under random operations, its keys, and
// iterators that survive the removal of their element.
#include "osi/containers/cohashiter.h"
#include "osi/containers/cohashtable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <deque>
#include <map>
#include <memory>
#include <random>
#include <vector>

namespace {

int items[64]; // distinct element pointers

// The elements a fresh iterator made from args walks past.
template <typename Iter, typename... Args> std::vector<void*> walk(const Args&... args)
{
	std::vector<void*> seen;
	Iter iter(args...);
	while (void* element = iter++)
		seen.push_back(element);
	return seen;
}

std::vector<void*> walkKeyless(const OsiHashTable& table)
{
	return walk<OsiKeylessHashTableIter>(table);
}

// The elements the table's own steps walk past from the last back (under a
// key, or over all keys with a bucket), put back in order.
template <typename... Where> std::vector<void*> walkBack(const OsiHashTable& table, Where&... where)
{
	std::vector<void*> seen;
	for (void* e = table.findLast(where...); e; e = table.findPrev(where...))
		seen.insert(seen.begin(), e);
	return seen;
}

TEST(HashTable, BehavesAsAMapOfKeysToInsertionOrderedLists)
{
	for (bool unique : {false, true})
	{
		SCOPED_TRACE(unique ? "unique" : "shared");
		std::mt19937 random(unique ? 17 : 18);
		OsiHashTable table(unique, 7);
		std::map<int, std::deque<void*>> model;
		size_t count = 0;
		OsiHashTableNode* node;
		int bucket;
		for (int step = 0; step < 20000; ++step)
		{
			const int key = int(random() % 40) - 20;
			const OsiNumberHashTableKey k(key);
			void* element = &items[random() % 64];
			std::deque<void*>& under = model[key];
			switch (random() % 4)
			{
			case 0:
			case 1:
			{
				const bool refused = unique && !under.empty();
				ASSERT_EQ(table.insert(element, k), !refused);
				if (!refused)
					under.push_back(element), ++count;
				break;
			}
			case 2:
			{
				const auto at = std::find(under.begin(), under.end(), element);
				ASSERT_EQ(table.remove(element, k), at != under.end());
				if (at != under.end())
					under.erase(at), --count;
				break;
			}
			default:
				ASSERT_EQ(table.remove(k), !under.empty()); // all under the key
				count -= under.size();
				under.clear();
			}
			ASSERT_EQ(table.count(), int(count));
			ASSERT_EQ(table.find(k), under.empty() ? nullptr : under.front());
			const std::vector<void*> expected(under.begin(), under.end());
			ASSERT_EQ(walk<OsiHashTableIter>(table, k), expected);
			ASSERT_EQ(walkBack(table, k, node), expected);
		}
		// Over all keys: the table's own steps both ways and the iterator agree.
		std::vector<void*> all, expected;
		for (void* e = table.findFirst(node, bucket); e; e = table.findNext(node, bucket))
			all.push_back(e);
		EXPECT_EQ(walkKeyless(table), all);
		EXPECT_EQ(walkBack(table, node, bucket), all);
		for (const auto& entry : model)
			expected.insert(expected.end(), entry.second.begin(), entry.second.end());
		std::sort(all.begin(), all.end());
		std::sort(expected.begin(), expected.end());
		EXPECT_EQ(all, expected);
	}
}

template <typename Key, typename... Args> std::shared_ptr<OsiHashTableKey> keyOf(Args... args)
{
	return std::make_shared<Key>(args...);
}

TEST(HashKey, KeysCompareByKindAndContent)
{
	using Bytes = OsiStructureHashTableKey;
	using Number = OsiNumberHashTableKey;
	using Text = OsiStringHashTableKey;
	const int value = 97;
	const char a[] = "abcdefghij";
	const char b[] = "abcdefghiX";
	const struct
	{
		std::shared_ptr<OsiHashTableKey> left, right;
		bool equal;
	} cases[] = {
	    {keyOf<Bytes>(a, 9), keyOf<Bytes>(b, 9), true},
	    {keyOf<Bytes>(a, 10), keyOf<Bytes>(b, 10), false},
	    {keyOf<Bytes>(a, 9), keyOf<Bytes>(a, 8), false},
	    {keyOf<Number>(97), keyOf<Text>("a", true), false},
	    {keyOf<Text>("a", true), keyOf<Number>(97), false},
	    {keyOf<Bytes>(&value, int(sizeof value)), keyOf<Number>(97), false},
	    // A case-insensitive key finds any case; a case-sensitive one only its own.
	    {keyOf<Text>("abc", false), keyOf<Text>("ABC", true), true},
	    {keyOf<Text>("ABC", true), keyOf<Text>("abc", false), false},
	};
	for (const auto& c : cases)
		EXPECT_EQ(c.left->isEqual(*c.right), c.equal) << &c - cases;

	// A structure key reads only its own bytes (AddressSanitizer watches).
	for (size_t length = 0; length <= 24; ++length)
	{
		const std::vector<unsigned char> bytes(length, static_cast<unsigned char>(length));
		OsiStructureHashTableKey key(bytes.data(), int(length));
		const int bucket = key.hash(97);
		EXPECT_TRUE(bucket >= 0 && bucket < 97);
		EXPECT_TRUE(key.isEqual(*key.copy()));
		EXPECT_EQ(key.copy()->hash(97), bucket);
	}
}

TEST(HashKey, TableKeepsItsOwnCopyOfTheKey)
{
	char text[] = "volatile";
	OsiStringHashTableKey borrowed(text, true);
	OsiHashTable table(true, 10);
	ASSERT_TRUE(table.insert(&items[0], borrowed));
	std::strcpy(text, "changed!");
	EXPECT_EQ(table.find(OsiStringHashTableKey("volatile", true)), &items[0]);
	EXPECT_EQ(table.find(OsiStringHashTableKey("changed!", true)), nullptr);
}

TEST(HashTable, RefusesNullElementsAndHasNothingWithoutBuckets)
{
	const OsiNumberHashTableKey key(4);
	EXPECT_FALSE(OsiHashTable(false, 10).insert(nullptr, key));
	OsiHashTable none(false, 0);
	EXPECT_FALSE(none.insert(&items[0], key));
	EXPECT_EQ(OsiKeylessHashTableIter(none).current(), nullptr);
	EXPECT_EQ(OsiHashTableIter(none, key).current(), nullptr);
}

TEST(HashTableIter, RemovingTheCurrentElementLetsTheWalkGoOn)
{
	OsiHashTable table(false, 4);
	for (int i = 0; i < 12; ++i)
		table.insert(&items[i], OsiNumberHashTableKey(i % 3 ? i : 1)); // some share key 1
	const std::vector<void*> before = walkKeyless(table);
	// Every other element goes as reached, through the iterator or the table by turns.
	std::vector<void*> visited, kept;
	OsiKeylessHashTableIter iter(table);
	bool drop = true, throughTable = false;
	for (void* e = iter.current(); e; e = iter.next(), drop = !drop)
	{
		visited.push_back(e);
		if (!drop)
		{
			kept.push_back(e);
			continue;
		}
		const int i = int(static_cast<int*>(e) - items);
		OsiKeylessHashTableIter other(table);
		other.find(e);
		EXPECT_TRUE(throughTable ? table.remove(e, OsiNumberHashTableKey(i % 3 ? i : 1))
		                         : iter.remove());
		EXPECT_EQ(iter.current(), nullptr);
		EXPECT_EQ(other.current(), nullptr);
		throughTable = !throughTable;
	}
	EXPECT_EQ(visited, before);
	EXPECT_EQ(walkKeyless(table), kept);
	// Under one key, removing the element that the iterator stands on.
	std::vector<void*> under = walk<OsiHashTableIter>(table, OsiNumberHashTableKey(1));
	ASSERT_GE(under.size(), 2u);
	OsiHashTableIter keyed(table, OsiNumberHashTableKey(1));
	EXPECT_EQ(keyed++, under[0]);
	EXPECT_TRUE(table.remove(under[1], OsiNumberHashTableKey(1)));
	EXPECT_EQ(keyed++, under.size() > 2 ? under[2] : nullptr);
}

TEST(HashTableIter, EmptyingOrDestroyingTheTableEndsEveryWalk)
{
	auto table = std::make_unique<OsiHashTable>(false, 3);
	for (int i = 0; i < 6; ++i)
		table->insert(&items[i], OsiNumberHashTableKey(i));
	OsiKeylessHashTableIter all(*table);
	OsiHashTableIter keyed(*table, OsiNumberHashTableKey(4));
	all.next();
	table->removeAll();
	EXPECT_EQ(all.current(), nullptr);
	EXPECT_EQ(keyed++, nullptr);
	table->insert(&items[7], OsiNumberHashTableKey(4));
	EXPECT_EQ(all.first(), &items[7]);
	EXPECT_EQ(keyed.first(), &items[7]);
	const OsiHashTable& view = *table;
	EXPECT_FALSE(OsiKeylessHashTableIter(view).remove()); // not through a const table
	table.reset();
	EXPECT_EQ(all.current(), nullptr);
	EXPECT_EQ(keyed.current(), nullptr);
}

bool collectUntil(void* element, void* data)
{
	static_cast<std::vector<void*>*>(data)->push_back(element);
	return element == &items[2];
}

TEST(HashTable, ForAllDoStopsAtTheFirstTrue)
{
	const OsiStringHashTableKey same("same", true), other("other", true);
	OsiHashTable table(false, 10);
	for (int i = 0; i < 4; ++i)
		table.insert(&items[i], same);
	std::vector<void*> seen;
	EXPECT_EQ(table.forAllDo(collectUntil, &seen), &items[2]);
	EXPECT_EQ(seen, (std::vector<void*>{&items[0], &items[1], &items[2]}));
	EXPECT_EQ(table.forAllDo(collectUntil, same, &seen), &items[2]);
	EXPECT_EQ(table.forAllDo(collectUntil, other, &seen), nullptr);
	EXPECT_EQ(table.forAllDo(nullptr, nullptr), nullptr);
}

} // namespace
