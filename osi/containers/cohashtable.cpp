#include "osi/containers/cohashtable.h"

#include "osi/containers/cohashiter.h"

OsiHashTableNode::OsiHashTableNode(OsiListNode* before, void* element,
                                   std::unique_ptr<OsiHashTableKey> key)
: OsiListNode(before, element),
  nodeKey(std::move(key))
{}

OsiHashTable::OsiHashTable(bool uniqueKeys, int bucketCount)
: uniqueKeys(uniqueKeys),
  buckets(bucketCount > 0 ? static_cast<size_t>(bucketCount) : 0)
{}

OsiHashTable::~OsiHashTable()
{
	removeAll();
}

bool OsiHashTable::insert(void* element, const OsiHashTableKey& key)
{
	if (!element || buckets.empty())
		return false;
	const int bucket = key.hash(bucketCount());
	std::unique_ptr<OsiListNode>& sentinel = buckets[static_cast<size_t>(bucket)];
	if (!sentinel)
		sentinel = std::make_unique<OsiListNode>(nullptr);
	else if (uniqueKeys && keyedFrom(key, sentinel->next(), bucket, true))
		return false;
	new OsiHashTableNode(sentinel.get(), element, key.copy());
	++elements;
	return true;
}

void OsiHashTable::deleteNode(OsiHashTableNode* node)
{
	delete node;
	--elements;
}

bool OsiHashTable::remove(void* element, const OsiHashTableKey& key)
{
	OsiHashTableNode* node;
	for (void* candidate = findFirst(key, node); candidate; candidate = findNext(key, node))
		if (candidate == element)
		{
			deleteNode(node);
			return true;
		}
	return false;
}

bool OsiHashTable::remove(const OsiHashTableKey& key)
{
	bool removed = false;
	OsiHashTableNode* node;
	while (findFirst(key, node))
	{
		deleteNode(node);
		removed = true;
	}
	return removed;
}

void OsiHashTable::removeAll()
{
	for (std::unique_ptr<OsiListNode>& sentinel : buckets)
	{
		if (!sentinel)
			continue;
		while (sentinel->next() != sentinel.get())
			deleteNode(static_cast<OsiHashTableNode*>(sentinel->next()));
		sentinel.reset();
	}
}

void* OsiHashTable::find(const OsiHashTableKey& key) const
{
	OsiHashTableNode* node;
	return findFirst(key, node);
}

void* OsiHashTable::find(void* element, const OsiHashTableKey& key) const
{
	OsiHashTableNode* node;
	for (void* candidate = findFirst(key, node); candidate; candidate = findNext(key, node))
		if (candidate == element)
			return candidate;
	return nullptr;
}

OsiHashTableNode* OsiHashTable::keyedFrom(const OsiHashTableKey& key, OsiListNode* from, int bucket,
                                          bool forward) const
{
	const OsiListNode* sentinel = head(bucket);
	for (; from && from != sentinel; from = forward ? from->next() : from->previous())
	{
		auto* node = static_cast<OsiHashTableNode*>(from);
		if (key.isEqual(node->key()))
			return node;
	}
	return nullptr;
}

OsiHashTableNode* OsiHashTable::anyFrom(OsiListNode* from, int& bucket, bool forward) const
{
	for (;;)
	{
		if (from && from != head(bucket))
			return static_cast<OsiHashTableNode*>(from);
		bucket += forward ? 1 : -1;
		if (bucket < 0 || bucket >= bucketCount())
			return nullptr;
		const OsiListNode* sentinel = head(bucket);
		from = sentinel ? (forward ? sentinel->next() : sentinel->previous()) : nullptr;
	}
}

void* OsiHashTable::firstUnder(const OsiHashTableKey& key, OsiHashTableNode*& node,
                               bool forward) const
{
	node = nullptr;
	if (buckets.empty())
		return nullptr;
	const int bucket = key.hash(bucketCount());
	const OsiListNode* sentinel = head(bucket);
	if (sentinel)
		node = keyedFrom(key, forward ? sentinel->next() : sentinel->previous(), bucket, forward);
	return elementOf(node);
}

void* OsiHashTable::nextUnder(const OsiHashTableKey& key, OsiHashTableNode*& node,
                              bool forward) const
{
	if (node)
		node = keyedFrom(key, forward ? node->next() : node->previous(), key.hash(bucketCount()),
		                 forward);
	return elementOf(node);
}

void* OsiHashTable::findFirst(const OsiHashTableKey& key, OsiHashTableNode*& node) const
{
	return firstUnder(key, node, true);
}

void* OsiHashTable::findNext(const OsiHashTableKey& key, OsiHashTableNode*& node) const
{
	return nextUnder(key, node, true);
}

void* OsiHashTable::findLast(const OsiHashTableKey& key, OsiHashTableNode*& node) const
{
	return firstUnder(key, node, false);
}

void* OsiHashTable::findPrev(const OsiHashTableKey& key, OsiHashTableNode*& node) const
{
	return nextUnder(key, node, false);
}

void* OsiHashTable::findFirst(OsiHashTableNode*& node, int& bucket) const
{
	bucket = -1;
	node = anyFrom(nullptr, bucket, true);
	return elementOf(node);
}

void* OsiHashTable::findNext(OsiHashTableNode*& node, int& bucket) const
{
	if (node)
		node = anyFrom(node->next(), bucket, true);
	return elementOf(node);
}

void* OsiHashTable::findLast(OsiHashTableNode*& node, int& bucket) const
{
	bucket = bucketCount();
	node = anyFrom(nullptr, bucket, false);
	return elementOf(node);
}

void* OsiHashTable::findPrev(OsiHashTableNode*& node, int& bucket) const
{
	if (node)
		node = anyFrom(node->previous(), bucket, false);
	return elementOf(node);
}

void* OsiHashTable::forAllDo(bool (*fn)(void*, void*), void* data) const
{
	if (!fn)
		return nullptr;
	OsiKeylessHashTableIter iter(this);
	while (void* element = iter++)
		if (fn(element, data))
			return element;
	return nullptr;
}

void* OsiHashTable::forAllDo(bool (*fn)(void*, void*), const OsiHashTableKey& key, void* data) const
{
	if (!fn)
		return nullptr;
	OsiHashTableIter iter(this, key);
	while (void* element = iter++)
		if (fn(element, data))
			return element;
	return nullptr;
}
