#include "vgui/vguigraphdata.h"

#include <algorithm>

VGuiGraphData::VGuiGraphData(int size, int identifier, const VGuiGraphParameterisedFunction* f)
: id(identifier)
{
	this->size(size, f);
}

void VGuiGraphData::size(int n, const VGuiGraphParameterisedFunction* f)
{
	number = std::max(n, 0);
	points.assign(static_cast<size_t>(number), VGuiGraphPoint());
	valid = true;
	if (f)
		fill(*f);
}

void VGuiGraphData::reSize(int n, int extra, const VGuiGraphParameterisedFunction* f)
{
	number = std::max(n, 0);
	if (number > capacity())
		points.resize(static_cast<size_t>(number) + static_cast<size_t>(std::max(extra, 0)));
	valid = true;
	if (f)
		fill(*f);
}

void VGuiGraphData::fill(const VGuiGraphParameterisedFunction& f)
{
	const double last = number > 1 ? number - 1 : 1;
	for (int i = 0; i < number; ++i)
		f.valueAt((*this)[i], i / last);
}

template <typename Reduce> VGuiGraphPoint VGuiGraphData::reduced(Reduce reduce) const
{
	if (number == 0)
		return VGuiGraphPoint();
	VGuiGraphPoint result = points[0];
	for (int i = 1; i < number; ++i)
		reduce(result, (*this)[i]);
	return result;
}

VGuiGraphPoint VGuiGraphData::maximum() const
{
	return reduced([](VGuiGraphPoint& r, const VGuiGraphPoint& p) {
		r = VGuiGraphPoint(std::max(r.x, p.x), std::max(r.y, p.y), std::max(r.z, p.z));
	});
}

VGuiGraphPoint VGuiGraphData::minimum() const
{
	return reduced([](VGuiGraphPoint& r, const VGuiGraphPoint& p) {
		r = VGuiGraphPoint(std::min(r.x, p.x), std::min(r.y, p.y), std::min(r.z, p.z));
	});
}

VGuiGraphPoint VGuiGraphData::minimumPositive(double fallback) const
{
	// Zero stands for "none yet": minimumPositiveOf keeps it until a
	// positive value comes.
	VGuiGraphPoint smallest;
	for (int i = 0; i < number; ++i)
		smallest.minimumPositiveOf(smallest, (*this)[i]);
	return VGuiGraphPoint(smallest.x > 0.0 ? smallest.x : fallback,
	                      smallest.y > 0.0 ? smallest.y : fallback,
	                      smallest.z > 0.0 ? smallest.z : fallback);
}
