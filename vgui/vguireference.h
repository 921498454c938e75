// One reference on a reference-counted object, given back when the holder
// goes or takes another object: how graphs, axes, grids and plots hold what
// they share.
#pragma once

#include <utility>

template <typename T> class VGuiReference
{
public:
	VGuiReference() = default;
	// Takes a reference of its own on p (none for null).
	explicit VGuiReference(T* p) { reset(p); }
	// Takes over the reference that the creator of a new object holds.
	static VGuiReference adopt(T* p)
	{
		VGuiReference r;
		r.object = p;
		return r;
	}
	VGuiReference(const VGuiReference& other) { reset(other.object); }
	VGuiReference(VGuiReference&& other) noexcept : object(std::exchange(other.object, nullptr)) {}
	VGuiReference& operator=(const VGuiReference& other)
	{
		reset(other.object);
		return *this;
	}
	VGuiReference& operator=(VGuiReference&& other) noexcept
	{
		std::swap(object, other.object);
		return *this;
	}
	~VGuiReference() { reset(); }

	// Holds p (taking a reference on it) instead of the old object (giving
	// its reference back).
	void reset(T* p = nullptr)
	{
		if (p)
			p->lock();
		T* old = std::exchange(object, p);
		if (old)
			old->release();
	}

	T* get() const { return object; }
	T* operator->() const { return object; }
	T& operator*() const { return *object; }
	explicit operator bool() const { return object != nullptr; }

private:
	T* object = nullptr;
};
