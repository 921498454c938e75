// The graph's lists of plots, markers and elements: the framework's list of
// untyped pointers, typed, holding one reference on each object it holds.
#pragma once

#include "osi/containers/colist.h"

template <typename T> class VGuiGraphList
{
public:
	VGuiGraphList() = default;
	~VGuiGraphList() { releaseAll(); }
	VGuiGraphList(const VGuiGraphList&) = delete;
	VGuiGraphList& operator=(const VGuiGraphList&) = delete;

	// Each takes a reference on a non-null object.
	void append(T* object)
	{
		if (object && list.append(object))
			object->lock();
	}
	void insert(T* object)
	{
		if (object && list.insert(object))
			object->lock();
	}
	// Releases the list's reference; false when the object is not held.
	bool remove(T* object)
	{
		if (!object || !list.remove(object))
			return false;
		object->release();
		return true;
	}
	// Puts replacement in old's place, taking a reference on it and releasing
	// old's; false, changing nothing, when old is not held.
	bool replace(T* old, T* replacement)
	{
		for (OsiListNode* n = list.firstNode(); n && n != list.end(); n = n->next())
		{
			if (n->element() != old)
				continue;
			replacement->lock();
			list.insert(n, replacement);
			list.remove(n);
			old->release();
			return true;
		}
		return false;
	}
	// The last object, with the list's reference handed to the caller; null
	// when empty.
	T* takeLast() { return static_cast<T*>(list.removeLast()); }
	void releaseAll()
	{
		while (T* object = static_cast<T*>(list.removeFirst()))
			object->release();
	}

	bool contains(T* object) const
	{
		return forFirst([object](T* o) { return o == object; }) != nullptr;
	}
	// The first object, front to back, for which fn is true; null if none.
	// fn may remove the object it is given.
	template <typename Fn> T* forFirst(Fn fn) const
	{
		OsiListIter it(list);
		for (void* element = it.current(); element; element = it.next())
		{
			if (fn(static_cast<T*>(element)))
				return static_cast<T*>(element);
		}
		return nullptr;
	}
	template <typename Fn> void forEach(Fn fn) const
	{
		forFirst([&fn](T* o) {
			fn(o);
			return false;
		});
	}

	int count() const { return list.count(); }
	bool isEmpty() const { return list.isEmpty(); }
	const OsiList& osiList() const { return list; }

private:
	OsiList list;
};
