#include "osi/cohashiter.h"

// Positions: on a node (the current entry), in the gap before a node that an
// iterator was pushed into when its node was removed, or on nothing (the end).

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
: table(table),
  changeable(changeable),
  key(key.copy()),
  bucket(table->bucketCount() > 0 ? key.hash(table->bucketCount()) : 0)
{
	first();
}

void* OsiHashTableIter::moveTo(OsiHashTableNode* node)
{
	standOn(node);
	return current();
}

OsiHashTableNode* OsiHashTableIter::stepFrom(bool forward) const
{
	OsiListNode* from = position();
	if (!from)
		return nullptr;
	if (forward)
		from = inGap() ? from : from->next();
	else
		from = from->previous();
	return table->keyedFrom(*key, from, bucket, forward);
}

void* OsiHashTableIter::first()
{
	OsiHashTableNode* node;
	table->findFirst(*key, node);
	return moveTo(node);
}

void* OsiHashTableIter::last()
{
	OsiHashTableNode* node;
	table->findLast(*key, node);
	return moveTo(node);
}

void* OsiHashTableIter::next()
{
	return moveTo(stepFrom(true));
}

void* OsiHashTableIter::prev()
{
	return moveTo(stepFrom(false));
}

void* OsiHashTableIter::find(void* element)
{
	for (void* candidate = first(); candidate; candidate = next())
		if (candidate == element)
			return candidate;
	return nullptr;
}

void* OsiHashTableIter::current() const
{
	return position() && !inGap() ? position()->element() : nullptr;
}

bool OsiHashTableIter::remove()
{
	if (!changeable || !current())
		return false;
	changeable->deleteNode(static_cast<OsiHashTableNode*>(position()));
	return true;
}

void* OsiHashTableIter::operator++(int)
{
	if (inGap())
		moveTo(stepFrom(true));
	void* element = current();
	if (element)
		next();
	return element;
}

void* OsiHashTableIter::operator--(int)
{
	if (inGap())
		moveTo(stepFrom(false));
	void* element = current();
	if (element)
		prev();
	return element;
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
: table(table),
  changeable(changeable)
{
	first();
}

void* OsiKeylessHashTableIter::moveTo(OsiHashTableNode* node)
{
	standOn(node);
	return current();
}

OsiHashTableNode* OsiKeylessHashTableIter::stepFrom(bool forward)
{
	OsiListNode* from = position();
	if (!from)
		return nullptr;
	if (forward)
		from = inGap() ? from : from->next();
	else
		from = from->previous();
	return table->anyFrom(from, bucket, forward);
}

OsiHashTableNode* OsiKeylessHashTableIter::currentNode() const
{
	return position() && !inGap() ? static_cast<OsiHashTableNode*>(position()) : nullptr;
}

void* OsiKeylessHashTableIter::first()
{
	OsiHashTableNode* node;
	table->findFirst(node, bucket);
	return moveTo(node);
}

void* OsiKeylessHashTableIter::last()
{
	OsiHashTableNode* node;
	table->findLast(node, bucket);
	return moveTo(node);
}

void* OsiKeylessHashTableIter::next()
{
	return moveTo(stepFrom(true));
}

void* OsiKeylessHashTableIter::prev()
{
	return moveTo(stepFrom(false));
}

void* OsiKeylessHashTableIter::find(void* element)
{
	for (void* candidate = first(); candidate; candidate = next())
		if (candidate == element)
			return candidate;
	return nullptr;
}

void* OsiKeylessHashTableIter::current() const
{
	const OsiHashTableNode* node = currentNode();
	return node ? node->element() : nullptr;
}

const OsiHashTableKey* OsiKeylessHashTableIter::currentKey() const
{
	const OsiHashTableNode* node = currentNode();
	return node ? &node->key() : nullptr;
}

bool OsiKeylessHashTableIter::remove()
{
	OsiHashTableNode* node = currentNode();
	if (!changeable || !node)
		return false;
	changeable->deleteNode(node);
	return true;
}

void* OsiKeylessHashTableIter::operator++(int)
{
	if (inGap())
		moveTo(stepFrom(true));
	void* element = current();
	if (element)
		next();
	return element;
}

void* OsiKeylessHashTableIter::operator--(int)
{
	if (inGap())
		moveTo(stepFrom(false));
	void* element = current();
	if (element)
		prev();
	return element;
}
