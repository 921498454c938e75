// The list against std::list under random operations, removal under an
// iterator, and sorting.
#include "osi/containers/colist.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <list>
#include <memory>
#include <random>
#include <vector>

namespace {

int items[16];

std::vector<void*> contents(const OsiList& list)
{
	std::vector<void*> seen;
	OsiListIter iter(list);
	while (void* e = iter++)
		seen.push_back(e);
	return seen;
}

std::vector<void*> backwards(const OsiList& list)
{
	std::vector<void*> seen;
	OsiListIter iter(list);
	for (void* e = iter.last(); e; e = iter.prev())
		seen.insert(seen.begin(), e);
	return seen;
}

TEST(List, BehavesAsAStandardList)
{
	std::mt19937 random(99);
	OsiList list;
	std::list<void*> model;
	for (int step = 0; step < 20000; ++step)
	{
		void* element = &items[random() % 16];
		switch (random() % 6)
		{
		case 0:
			list.insert(element);
			model.push_front(element);
			break;
		case 1:
			list.append(element);
			model.push_back(element);
			break;
		case 2:
		{
			// Before the node of the first occurrence of another element.
			void* before = &items[random() % 16];
			OsiListNode* node = list.end()->next();
			while (node != list.end() && node->element() != before)
				node = node->next();
			list.insert(node == list.end() ? nullptr : node, element);
			model.insert(std::find(model.begin(), model.end(), before), element);
			break;
		}
		case 3:
		{
			const auto at = std::find(model.begin(), model.end(), element);
			ASSERT_EQ(list.remove(element), at != model.end());
			if (at != model.end())
				model.erase(at);
			break;
		}
		case 4:
			ASSERT_EQ(list.removeFirst(), model.empty() ? nullptr : model.front());
			if (!model.empty())
				model.pop_front();
			break;
		default:
			ASSERT_EQ(list.removeLast(), model.empty() ? nullptr : model.back());
			if (!model.empty())
				model.pop_back();
		}
		const std::vector<void*> expected(model.begin(), model.end());
		ASSERT_EQ(list.count(), int(model.size()));
		ASSERT_EQ(contents(list), expected);
		ASSERT_EQ(backwards(list), expected);
	}
	EXPECT_EQ(list.insert(nullptr), nullptr);
	EXPECT_FALSE(list.remove(list.end()));
}

TEST(ListIter, RemovalUnderTheIteratorLetsEveryWalkGoOn)
{
	OsiList list;
	for (int i = 0; i < 6; ++i)
		list.append(&items[i]);
	std::vector<void*> visited;
	OsiListIter iter(list), other(list);
	other.find(&items[1]);
	for (void* e = iter.current(); e; e = iter.next())
	{
		visited.push_back(e);
		if (e == &items[1] || e == &items[2] || e == &items[5])
		{
			EXPECT_TRUE(e == &items[2] ? list.remove(e) : iter.remove());
		}
	}
	EXPECT_EQ(visited.size(), 6u);
	EXPECT_EQ(contents(list), (std::vector<void*>{&items[0], &items[3], &items[4]}));
	EXPECT_EQ(other.next(), &items[3]); // its node went, it moved on
	// Backwards from a gap: the step back yields the element before it.
	EXPECT_TRUE(other.remove());
	EXPECT_EQ(other--, &items[0]);
	EXPECT_EQ(other.current(), nullptr);
	// forAllDo walks on past removals too, up to the first true.
	auto removeUpToLast = [](void* element, void* data) {
		return static_cast<OsiList*>(data)->remove(element) && element == &items[4];
	};
	EXPECT_EQ(list.forAllDo(removeUpToLast, &list), &items[4]);
	EXPECT_EQ(list.count(), 0);
	EXPECT_EQ(list.forAllDo(nullptr, nullptr), nullptr);
}

TEST(ListIter, EmptyingOrDestroyingTheListEndsTheWalk)
{
	auto list = std::make_unique<OsiList>();
	list->append(&items[0]);
	OsiListIter iter(*list);
	list->removeAll();
	EXPECT_EQ(iter.current(), nullptr);
	EXPECT_EQ(iter.next(), nullptr);
	list->append(&items[2]);
	EXPECT_EQ(iter.first(), &items[2]);
	list.reset();
	EXPECT_EQ(iter.current(), nullptr);
}

int compareByValue(const void* a, const void* b)
{
	return *static_cast<const int*>(a) - *static_cast<const int*>(b);
}

std::vector<void*> visitedInSort;

TEST(List, SortIsStableAndKeepsIteratorsOnTheirElements)
{
	int values[] = {3, 1, 2, 1, 3};
	OsiList list;
	for (int& v : values)
		list.append(&v);
	OsiListIter iter(list);
	iter.find(&values[2]);
	visitedInSort.clear();
	list.sort(compareByValue, [](void* element) { visitedInSort.push_back(element); });
	const std::vector<void*> sorted{&values[1], &values[3], &values[2], &values[0], &values[4]};
	EXPECT_EQ(contents(list), sorted);
	EXPECT_EQ(visitedInSort, sorted);
	EXPECT_EQ(iter.next(), &values[0]);
	list.sort(nullptr);
	EXPECT_EQ(contents(list), sorted);
}

} // namespace
