#include "osi/runtime/cocallback.h"

OsiCallbackInstance::OsiCallbackInstance(Callback callback, void* data)
: referenceCount(0),
  data(data),
  callback(callback)
{}

OsiCallbackInstance::OsiCallbackInstance(const OsiCallbackInstance& other)
: referenceCount(0),
  data(other.data),
  callback(other.callback)
{}

OsiCallbackInstance::~OsiCallbackInstance()
{
	unlink();
}

void OsiCallbackInstance::link(const OsiCallbackInstance* member)
{
	cursor = nullptr;
	if (!member || member == this)
		return;
	OsiCallbackInstance* first = const_cast<OsiCallbackInstance*>(member);
	OsiCallbackInstance* last = first->previous;
	last->next = next;
	next->previous = last;
	next = first;
	first->previous = this;
}

void OsiCallbackInstance::unlink()
{
	// A walk now calling this member goes on from the member before it, which
	// takes over the walk's position should it be unlinked in turn.
	if (cursor && *cursor == this)
	{
		*cursor = previous;
		previous->cursor = cursor;
	}
	cursor = nullptr;
	previous->next = next;
	next->previous = previous;
	next = this;
	previous = this;
}

bool OsiCallbackInstance::notify(void* message)
{
	for (OsiCallbackInstance* current = next; current != this; current = current->next)
	{
		OsiCallbackInstance* member = current;
		if (!member->callback)
			continue;
		member->cursor = &current;
		const bool claimed = member->callback(member->data, message);
		// A member that unlinked itself has moved the walk back to a member
		// still linked (and may be gone itself).
		if (current->cursor == &current)
			current->cursor = nullptr;
		if (claimed)
			return true;
	}
	return false;
}
