// A chained hash table of untyped element pointers that it does not own,
// under polymorphic keys, with a bucket count fixed at construction. Each
// used bucket is a ring behind a sentinel node and keeps insertion order.
#pragma once

#include "osi/containers/cohashkey.h"
#include "osi/containers/colistnode.h"

#include <memory>
#include <vector>

// A stored element with its own copy of the key it was stored under.
class OsiHashTableNode : public OsiListNode
{
public:
	OsiHashTableNode(OsiListNode* before, void* element, std::unique_ptr<OsiHashTableKey> key);
	const OsiHashTableKey& key() const { return *nodeKey; }

private:
	std::unique_ptr<OsiHashTableKey> nodeKey;
};

class OsiHashTable
{
public:
	OsiHashTable(bool uniqueKeys, int buckets);
	virtual ~OsiHashTable();
	OsiHashTable(const OsiHashTable&) = delete;
	OsiHashTable& operator=(const OsiHashTable&) = delete;

	// False for a null element, a table without buckets, or a key already
	// present in a table of unique keys.
	bool insert(void* element, const OsiHashTableKey& key);
	// Removes the entry of this element under this key.
	bool remove(void* element, const OsiHashTableKey& key);
	// Removes every entry under the key; false when there was none.
	bool remove(const OsiHashTableKey& key);
	void removeAll();

	// The first element under the key, or null.
	void* find(const OsiHashTableKey& key) const;
	// The element if it is stored under the key, or null.
	void* find(void* element, const OsiHashTableKey& key) const;

	// Walks under one key: each returns the element reached and sets node to
	// its node (both null past the end). findNext and findPrev start from node.
	void* findFirst(const OsiHashTableKey& key, OsiHashTableNode*& node) const;
	void* findNext(const OsiHashTableKey& key, OsiHashTableNode*& node) const;
	void* findLast(const OsiHashTableKey& key, OsiHashTableNode*& node) const;
	void* findPrev(const OsiHashTableKey& key, OsiHashTableNode*& node) const;
	// Walks over the whole table, buckets in ascending order; bucket follows.
	void* findFirst(OsiHashTableNode*& node, int& bucket) const;
	void* findNext(OsiHashTableNode*& node, int& bucket) const;
	void* findLast(OsiHashTableNode*& node, int& bucket) const;
	void* findPrev(OsiHashTableNode*& node, int& bucket) const;

	// Call fn on each element (all, or those under the key) until it returns
	// true; return that element, or null. fn may remove the element it is given.
	void* forAllDo(bool (*fn)(void* element, void* data), void* data) const;
	void* forAllDo(bool (*fn)(void* element, void* data), const OsiHashTableKey& key,
	               void* data) const;

	int count() const { return elements; }
	int bucketCount() const { return static_cast<int>(buckets.size()); }
	bool hasUniqueKeys() const { return uniqueKeys; }

private:
	friend class OsiHashTableWalk;
	friend class OsiHashTableIter;
	friend class OsiKeylessHashTableIter;

	OsiListNode* head(int bucket) const { return buckets[static_cast<size_t>(bucket)].get(); }
	// From node `from` (included) towards the sentinel, the first node under the key.
	OsiHashTableNode* keyedFrom(const OsiHashTableKey& key, OsiListNode* from, int bucket,
	                            bool forward) const;
	// From node `from` (included) of bucket, the first node, crossing into the
	// following (or preceding) buckets at the sentinel.
	OsiHashTableNode* anyFrom(OsiListNode* from, int& bucket, bool forward) const;
	void* firstUnder(const OsiHashTableKey& key, OsiHashTableNode*& node, bool forward) const;
	void* nextUnder(const OsiHashTableKey& key, OsiHashTableNode*& node, bool forward) const;
	static void* elementOf(const OsiHashTableNode* node)
	{
		return node ? node->element() : nullptr;
	}
	void deleteNode(OsiHashTableNode* node);

	bool uniqueKeys;
	std::vector<std::unique_ptr<OsiListNode>> buckets;
	int elements = 0;
};
