// Iterators over an OsiHashTable: under one key (in insertion order) or over
// all elements (buckets in ascending order, each in insertion order). A new
// iterator stands on its first element; next() and prev() step and return the
// element reached (null past either end); the post-increment and
// post-decrement operators return the current element and then step. When
// the current element is removed, through the iterator or the table, the next
// step forward yields the element that followed it.
#pragma once

#include "osi/containers/cohashtable.h"

#include <memory>

// What the keyed and the keyless iterator share: stepping, the gap left by a
// removed entry, find and remove. They differ only in where a walk starts
// and how it goes on past a node.
class OsiHashTableWalk : public OsiHashTableIterProtection
{
public:
	void* first() { return moveTo(firstNode()); }
	void* last() { return moveTo(lastNode()); }
	void* next() { return moveTo(stepFrom(true)); }
	void* prev() { return moveTo(stepFrom(false)); }
	// Stands on the first entry of this element in the walk; returns it, or null.
	void* find(void* element);
	void* current() const;
	// Removes the current entry (not through an iterator on a const table).
	bool remove();
	void* operator++(int);
	void* operator--(int);

protected:
	OsiHashTableWalk(const OsiHashTable* table, OsiHashTable* changeable, int bucket)
	: table(table),
	  changeable(changeable),
	  bucket(bucket)
	{}
	~OsiHashTableWalk() = default;

	OsiHashTableNode* currentNode() const;
	virtual OsiHashTableNode* firstNode() = 0;
	virtual OsiHashTableNode* lastNode() = 0;
	// The walk's next node from a list position, forward or backward.
	virtual OsiHashTableNode* continueFrom(OsiListNode* from, bool forward) = 0;

	const OsiHashTable* table;
	OsiHashTable* changeable;
	int bucket;

private:
	void* moveTo(OsiHashTableNode* node);
	OsiHashTableNode* stepFrom(bool forward);
};

// The entries under one key.
class OsiHashTableIter : public OsiHashTableWalk
{
public:
	OsiHashTableIter(OsiHashTable& table, const OsiHashTableKey& key);
	OsiHashTableIter(const OsiHashTable& table, const OsiHashTableKey& key);
	OsiHashTableIter(OsiHashTable* table, const OsiHashTableKey& key);
	OsiHashTableIter(const OsiHashTable* table, const OsiHashTableKey& key);

private:
	OsiHashTableIter(const OsiHashTable* table, OsiHashTable* changeable,
	                 const OsiHashTableKey& key);
	OsiHashTableNode* firstNode() override;
	OsiHashTableNode* lastNode() override;
	OsiHashTableNode* continueFrom(OsiListNode* from, bool forward) override;

	std::unique_ptr<OsiHashTableKey> key;
};

// Every entry of the table.
class OsiKeylessHashTableIter : public OsiHashTableWalk
{
public:
	explicit OsiKeylessHashTableIter(OsiHashTable& table);
	explicit OsiKeylessHashTableIter(const OsiHashTable& table);
	explicit OsiKeylessHashTableIter(OsiHashTable* table);
	explicit OsiKeylessHashTableIter(const OsiHashTable* table);

	// The key of the current entry, or null.
	const OsiHashTableKey* currentKey() const;

private:
	OsiKeylessHashTableIter(const OsiHashTable* table, OsiHashTable* changeable);
	OsiHashTableNode* firstNode() override;
	OsiHashTableNode* lastNode() override;
	OsiHashTableNode* continueFrom(OsiListNode* from, bool forward) override;
};
