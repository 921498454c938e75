#include "osi/containers/cohashiter.h"

// Positions: on a node (the current entry), in the gap before a node that an
// iterator was pushed into when its node was removed, or on nothing (the end).

void* OsiHashTableWalk::moveTo(OsiHashTableNode* node)
{
	standOn(node);
	return current();
}

OsiHashTableNode* OsiHashTableWalk::stepFrom(bool forward)
{
	OsiListNode* from = position();
	if (!from)
		return nullptr;
	if (forward)
		from = inGap() ? from : from->next();
	else
		from = from->previous();
	return continueFrom(from, forward);
}

OsiHashTableNode* OsiHashTableWalk::currentNode() const
{
	return position() && !inGap() ? static_cast<OsiHashTableNode*>(position()) : nullptr;
}

void* OsiHashTableWalk::find(void* element)
{
	for (void* candidate = first(); candidate; candidate = next())
		if (candidate == element)
			return candidate;
	return nullptr;
}

void* OsiHashTableWalk::current() const
{
	const OsiHashTableNode* node = currentNode();
	return node ? node->element() : nullptr;
}

bool OsiHashTableWalk::remove()
{
	OsiHashTableNode* node = currentNode();
	if (!changeable || !node)
		return false;
	changeable->deleteNode(node);
	return true;
}

// Post-increment: the current element, then a step; out of a gap, the
// element after it.
void* OsiHashTableWalk::operator++(int)
{
	if (inGap())
		moveTo(stepFrom(true));
	void* element = current();
	if (element)
		next();
	return element;
}

void* OsiHashTableWalk::operator--(int)
{
	if (inGap())
		moveTo(stepFrom(false));
	void* element = current();
	if (element)
		prev();
	return element;
}

OsiHashTableIter::OsiHashTableIter(OsiHashTable& table, const OsiHashTableKey& key)
: OsiHashTableIter(&table, &table, key)
{}

OsiHashTableIter::OsiHashTableIter(const OsiHashTable& table, const OsiHashTableKey& key)
: OsiHashTableIter(&table, nullptr, key)
{}

OsiHashTableIter::OsiHashTableIter(OsiHashTable* table, const OsiHashTableKey& key)
: OsiHashTableIter(table, table, key)
{}

OsiHashTableIter::OsiHashTableIter(const OsiHashTable* table, const OsiHashTableKey& key)
: OsiHashTableIter(table, nullptr, key)
{}

OsiHashTableIter::OsiHashTableIter(const OsiHashTable* table, OsiHashTable* changeable,
                                   const OsiHashTableKey& key)
: OsiHashTableWalk(table, changeable,
                   table->bucketCount() > 0 ? key.hash(table->bucketCount()) : 0),
  key(key.copy())
{
	first();
}

OsiHashTableNode* OsiHashTableIter::firstNode()
{
	OsiHashTableNode* node;
	table->findFirst(*key, node);
	return node;
}

OsiHashTableNode* OsiHashTableIter::lastNode()
{
	OsiHashTableNode* node;
	table->findLast(*key, node);
	return node;
}

OsiHashTableNode* OsiHashTableIter::continueFrom(OsiListNode* from, bool forward)
{
	return table->keyedFrom(*key, from, bucket, forward);
}

OsiKeylessHashTableIter::OsiKeylessHashTableIter(OsiHashTable& table)
: OsiKeylessHashTableIter(&table, &table)
{}

OsiKeylessHashTableIter::OsiKeylessHashTableIter(const OsiHashTable& table)
: OsiKeylessHashTableIter(&table, nullptr)
{}

OsiKeylessHashTableIter::OsiKeylessHashTableIter(OsiHashTable* table)
: OsiKeylessHashTableIter(table, table)
{}

OsiKeylessHashTableIter::OsiKeylessHashTableIter(const OsiHashTable* table)
: OsiKeylessHashTableIter(table, nullptr)
{}

OsiKeylessHashTableIter::OsiKeylessHashTableIter(const OsiHashTable* table,
                                                 OsiHashTable* changeable)
: OsiHashTableWalk(table, changeable, 0)
{
	first();
}

OsiHashTableNode* OsiKeylessHashTableIter::firstNode()
{
	OsiHashTableNode* node;
	table->findFirst(node, bucket);
	return node;
}

OsiHashTableNode* OsiKeylessHashTableIter::lastNode()
{
	OsiHashTableNode* node;
	table->findLast(node, bucket);
	return node;
}

OsiHashTableNode* OsiKeylessHashTableIter::continueFrom(OsiListNode* from, bool forward)
{
	return table->anyFrom(from, bucket, forward);
}

const OsiHashTableKey* OsiKeylessHashTableIter::currentKey() const
{
	const OsiHashTableNode* node = currentNode();
	return node ? &node->key() : nullptr;
}
