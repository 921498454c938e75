// A doubly linked list of untyped element pointers that it does not own, and
// its iterator, which stays valid when its element is removed.
#pragma once

#include "osi/containers/colistnode.h"

class OsiList
{
public:
	OsiList() = default;
	~OsiList() { removeAll(); }
	OsiList(const OsiList&) = delete;
	OsiList& operator=(const OsiList&) = delete;

	// Each returns the new node, or null for a null element.
	OsiListNode* insert(void* element); // at the front
	// In front of before, a node of this list (null: at the end).
	OsiListNode* insert(OsiListNode* before, void* element);
	OsiListNode* append(void* element);

	// Removes the first node holding element.
	bool remove(void* element);
	// Removes a node of this list.
	bool remove(OsiListNode* node);
	// Each returns the removed element, or null for an empty list.
	void* removeFirst();
	void* removeLast();
	void removeAll();

	// Calls fn on each element in order until it returns true; returns that
	// element, or null. fn may remove the element it is given.
	void* forAllDo(bool (*fn)(void* element, void* data), void* data) const;
	// Sorts stably by compare (given two elements, negative when the first
	// goes first), then calls visit, if given, on each element in the new order.
	// Iterators keep their elements.
	void sort(int (*compare)(const void*, const void*), void (*visit)(void*) = nullptr);

	int count() const { return elements; }
	bool isEmpty() const { return elements == 0; }
	OsiListNode* firstNode() const;
	OsiListNode* lastNode() const;
	// The list's own sentinel node, which holds no element: before the first
	// node and after the last.
	OsiListNode* end() const { return &head; }

private:
	mutable OsiListNode head{nullptr};
	int elements = 0;
};

// Walks a list in either direction. A new iterator stands on the first
// element. next() and prev() step and return the element reached (null past
// either end); the post-increment and post-decrement operators return the
// current element and then step. When the current element is removed, the
// next step forward yields the element that followed it.
class OsiListIter : public OsiHashTableIterProtection
{
public:
	explicit OsiListIter(OsiList& list);
	explicit OsiListIter(const OsiList& list);
	explicit OsiListIter(OsiList* list);
	explicit OsiListIter(const OsiList* list);

	void* first();
	void* last();
	void* next();
	void* prev();
	// Stands on the first node holding element; returns it, or null.
	void* find(void* element);
	void* current() const;
	// Removes the current element (not through an iterator on a const list).
	bool remove();
	void* operator++(int);
	void* operator--(int);

private:
	void* moveTo(OsiListNode* node);
	bool atEnd() const;

	const OsiList* list;
	OsiList* changeable;
};
