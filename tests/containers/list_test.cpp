// The list: order of insertion, removal under an iterator, sorting.
#include "osi/containers/colist.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace {

int items[10];

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
		seen.push_back(e);
	return seen;
}

TEST(ListNode, ANodeBuiltBeforeAnotherJoinsTheTailOfItsRing)
{
	OsiListNode head(nullptr);
	EXPECT_EQ(head.next(), &head);
	EXPECT_EQ(head.previous(), &head);
	OsiListNode first(&head, &items[0]);
	OsiListNode second(&head, &items[1]);
	EXPECT_EQ(head.next(), &first);
	EXPECT_EQ(first.next(), &second);
	EXPECT_EQ(second.next(), &head);
	EXPECT_EQ(head.previous(), &second);
}

TEST(List, InsertPutsInFrontAndAppendAtTheEnd)
{
	OsiList list;
	list.append(&items[1]);
	list.insert(&items[0]);
	OsiListNode* last = list.append(&items[3]);
	list.insert(last, &items[2]);
	EXPECT_EQ(list.insert(nullptr), nullptr);
	EXPECT_EQ(list.count(), 4);
	EXPECT_EQ(contents(list), (std::vector<void*>{&items[0], &items[1], &items[2], &items[3]}));
	EXPECT_EQ(backwards(list), (std::vector<void*>{&items[3], &items[2], &items[1], &items[0]}));

	EXPECT_EQ(list.removeFirst(), &items[0]);
	EXPECT_EQ(list.removeLast(), &items[3]);
	EXPECT_TRUE(list.remove(&items[2]));
	EXPECT_FALSE(list.remove(&items[2]));
	EXPECT_EQ(contents(list), std::vector<void*>{&items[1]});
	list.removeAll();
	EXPECT_TRUE(list.isEmpty());
	EXPECT_EQ(list.removeFirst(), nullptr);
	EXPECT_EQ(list.removeLast(), nullptr);
	EXPECT_FALSE(list.remove(list.end()));
}

TEST(ListIter, RemovalUnderTheIteratorLetsTheWalkGoOn)
{
	OsiList list;
	for (int i = 0; i < 6; ++i)
		list.append(&items[i]);
	std::vector<void*> visited;
	OsiListIter iter(list);
	for (void* e = iter.current(); e; e = iter.next())
	{
		visited.push_back(e);
		if (e == &items[1])
		{
			EXPECT_TRUE(iter.remove());
		}
		if (e == &items[2])
		{
			EXPECT_TRUE(list.remove(e));
		}
		if (e == &items[5])
		{
			EXPECT_TRUE(iter.remove()); // the last: the walk ends
		}
	}
	EXPECT_EQ(visited.size(), 6u);
	EXPECT_EQ(contents(list), (std::vector<void*>{&items[0], &items[3], &items[4]}));

	// Backwards from a gap: the step back yields the element before it.
	OsiListIter back(list);
	EXPECT_EQ(back.find(&items[3]), &items[3]);
	EXPECT_TRUE(back.remove());
	EXPECT_EQ(back--, &items[0]);
	EXPECT_EQ(back.current(), nullptr);
}

TEST(ListIter, TwoIteratorsOnOneRemovedNodeBothMoveOn)
{
	OsiList list;
	for (int i = 0; i < 3; ++i)
		list.append(&items[i]);
	OsiListIter a(list), b(list);
	a.next();
	b.find(&items[1]);
	list.remove(&items[1]);
	EXPECT_EQ(a++, &items[2]);
	EXPECT_EQ(b.next(), &items[2]);
	EXPECT_EQ(b.next(), nullptr);
	EXPECT_EQ(b.next(), nullptr) << "the end stays the end";
}

TEST(ListIter, EmptyingOrDestroyingTheListEndsTheWalk)
{
	auto list = std::make_unique<OsiList>();
	list->append(&items[0]);
	list->append(&items[1]);
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

void recordVisit(void* element)
{
	visitedInSort.push_back(element);
}

TEST(List, SortIsStableAndKeepsIteratorsOnTheirElements)
{
	int values[] = {3, 1, 2, 1, 3};
	OsiList list;
	for (int& v : values)
		list.append(&v);
	OsiListIter iter(list);
	iter.find(&values[2]);
	visitedInSort.clear();
	list.sort(compareByValue, recordVisit);
	const std::vector<void*> sorted{&values[1], &values[3], &values[2], &values[0], &values[4]};
	EXPECT_EQ(contents(list), sorted);
	EXPECT_EQ(visitedInSort, sorted);
	EXPECT_EQ(iter.current(), &values[2]);
	EXPECT_EQ(iter.next(), &values[0]);
	list.sort(nullptr);
	EXPECT_EQ(contents(list), sorted);
}

bool stopAtSecond(void* element, void* data)
{
	auto* list = static_cast<OsiList*>(data);
	list->remove(element);
	return element == &items[1];
}

TEST(List, ForAllDoStopsAtTheFirstTrueAndToleratesRemoval)
{
	OsiList list;
	for (int i = 0; i < 4; ++i)
		list.append(&items[i]);
	EXPECT_EQ(list.forAllDo(stopAtSecond, &list), &items[1]);
	EXPECT_EQ(contents(list), (std::vector<void*>{&items[2], &items[3]}));
	EXPECT_EQ(list.forAllDo(nullptr, nullptr), nullptr);
}

} // namespace
