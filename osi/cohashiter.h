// Iterators over an OsiHashTable: under one key (in insertion order) or over
// all elements (buckets in ascending order, each in insertion order). A new
// iterator stands on its first element; next() and prev() step and return the
// element reached (null past either end); the post-increment and
// post-decrement operators return the current element and then step. When
// the current element is removed, through the iterator or the table, the next
// step forward yields the element that followed it.
#pragma once

#include "osi/cohashtable.h"

#include <memory>

class OsiHashTableIter : public OsiHashTableIterProtection
{
public:
	OsiHashTableIter(OsiHashTable& table, const OsiHashTableKey& key);
	OsiHashTableIter(const OsiHashTable& table, const OsiHashTableKey& key);
	OsiHashTableIter(OsiHashTable* table, const OsiHashTableKey& key);
	OsiHashTableIter(const OsiHashTable* table, const OsiHashTableKey& key);

	void* first();
	void* last();
	void* next();
	void* prev();
	// Stands on the entry of this element under the key; returns it, or null.
	void* find(void* element);
	void* current() const;
	// Removes the current entry (not through an iterator on a const table).
	bool remove();
	void* operator++(int);
	void* operator--(int);

private:
	OsiHashTableIter(const OsiHashTable* table, OsiHashTable* changeable,
	                 const OsiHashTableKey& key);
	void* moveTo(OsiHashTableNode* node);
	OsiHashTableNode* stepFrom(bool forward) const;

	const OsiHashTable* table;
	OsiHashTable* changeable;
	std::unique_ptr<OsiHashTableKey> key;
	int bucket;
};

class OsiKeylessHashTableIter : public OsiHashTableIterProtection
{
public:
	explicit OsiKeylessHashTableIter(OsiHashTable& table);
	explicit OsiKeylessHashTableIter(const OsiHashTable& table);
	explicit OsiKeylessHashTableIter(OsiHashTable* table);
	explicit OsiKeylessHashTableIter(const OsiHashTable* table);

	void* first();
	void* last();
	void* next();
	void* prev();
	// Stands on the first entry of this element; returns it, or null.
	void* find(void* element);
	void* current() const;
	// The key of the current entry, or null.
	const OsiHashTableKey* currentKey() const;
	bool remove();
	void* operator++(int);
	void* operator--(int);

private:
	OsiKeylessHashTableIter(const OsiHashTable* table, OsiHashTable* changeable);
	void* moveTo(OsiHashTableNode* node);
	OsiHashTableNode* stepFrom(bool forward);
	OsiHashTableNode* currentNode() const;

	const OsiHashTable* table;
	OsiHashTable* changeable;
	int bucket = 0;
};
