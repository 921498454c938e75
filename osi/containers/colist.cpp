#include "osi/containers/colist.h"

#include <algorithm>
#include <vector>

OsiListNode* OsiList::insert(void* element)
{
	return insert(head.next(), element);
}

OsiListNode* OsiList::insert(OsiListNode* before, void* element)
{
	if (!element)
		return nullptr;
	++elements;
	return new OsiListNode(before ? before : &head, element);
}

OsiListNode* OsiList::append(void* element)
{
	return insert(&head, element);
}

bool OsiList::remove(void* element)
{
	for (OsiListNode* node = head.next(); node != &head; node = node->next())
		if (node->element() == element)
			return remove(node);
	return false;
}

bool OsiList::remove(OsiListNode* node)
{
	if (!node || node == &head)
		return false;
	delete node;
	--elements;
	return true;
}

void* OsiList::removeFirst()
{
	OsiListNode* node = firstNode();
	void* element = node ? node->element() : nullptr;
	remove(node);
	return element;
}

void* OsiList::removeLast()
{
	OsiListNode* node = lastNode();
	void* element = node ? node->element() : nullptr;
	remove(node);
	return element;
}

void OsiList::removeAll()
{
	while (remove(head.next()))
	{}
	head.releaseIterators();
}

OsiListNode* OsiList::firstNode() const
{
	return head.next() == &head ? nullptr : head.next();
}

OsiListNode* OsiList::lastNode() const
{
	return head.previous() == &head ? nullptr : head.previous();
}

void* OsiList::forAllDo(bool (*fn)(void*, void*), void* data) const
{
	if (!fn)
		return nullptr;
	OsiListIter iter(this);
	while (void* element = iter++)
		if (fn(element, data))
			return element;
	return nullptr;
}

void OsiList::sort(int (*compare)(const void*, const void*), void (*visit)(void*))
{
	if (!compare)
		return;
	std::vector<OsiListNode*> nodes;
	nodes.reserve(static_cast<size_t>(elements));
	for (OsiListNode* node = head.next(); node != &head; node = node->next())
		nodes.push_back(node);
	std::stable_sort(nodes.begin(), nodes.end(), [compare](OsiListNode* a, OsiListNode* b) {
		return compare(a->element(), b->element()) < 0;
	});
	for (OsiListNode* node : nodes)
		node->moveBefore(&head);
	if (visit)
		for (OsiListNode* node : nodes)
			visit(node->element());
}

OsiListIter::OsiListIter(OsiList& list) : OsiListIter(&list) {}

OsiListIter::OsiListIter(const OsiList& list) : OsiListIter(&list) {}

OsiListIter::OsiListIter(OsiList* list) : list(list), changeable(list)
{
	first();
}

OsiListIter::OsiListIter(const OsiList* list) : list(list), changeable(nullptr)
{
	first();
}

void* OsiListIter::moveTo(OsiListNode* node)
{
	standOn(node);
	return current();
}

bool OsiListIter::atEnd() const
{
	return !position() || (position() == list->end() && !inGap());
}

void* OsiListIter::first()
{
	return moveTo(list->end()->next());
}

void* OsiListIter::last()
{
	return moveTo(list->end()->previous());
}

void* OsiListIter::next()
{
	if (atEnd())
		return nullptr;
	return moveTo(inGap() ? position() : position()->next());
}

void* OsiListIter::prev()
{
	if (atEnd())
		return nullptr;
	return moveTo(position()->previous());
}

void* OsiListIter::find(void* element)
{
	for (void* candidate = first(); candidate; candidate = next())
		if (candidate == element)
			return candidate;
	return nullptr;
}

void* OsiListIter::current() const
{
	if (atEnd() || inGap() || position() == list->end())
		return nullptr;
	return position()->element();
}

bool OsiListIter::remove()
{
	return changeable && current() && changeable->remove(position());
}

void* OsiListIter::operator++(int)
{
	if (inGap())
		standOn(position());
	void* element = current();
	if (element)
		next();
	return element;
}

void* OsiListIter::operator--(int)
{
	if (inGap())
		standOn(position()->previous());
	void* element = current();
	if (element)
		prev();
	return element;
}
