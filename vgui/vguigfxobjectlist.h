// The objects of a graphic group in drawing order: the framework's list of
// untyped pointers, typed for graphic objects. Like every framework list it
// owns nothing; the group that holds it keeps the references.
#pragma once

#include "osi/containers/colist.h"

class VGuiGfxObject;

class VGuiGfxObjectList
{
public:
	void insert(VGuiGfxObject* object) { list.insert(object); }
	void append(VGuiGfxObject* object) { list.append(object); }
	void removeAll() { list.removeAll(); }
	int count() const { return list.count(); }

	// Calls fn with each object, front to back.
	template <typename Fn> void forEach(Fn fn) const
	{
		OsiListIter it(list);
		for (void* element = it.current(); element; element = it.next())
			fn(static_cast<VGuiGfxObject*>(element));
	}

private:
	OsiList list;
};
