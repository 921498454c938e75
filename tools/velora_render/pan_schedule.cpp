#include "pan_schedule.h"

namespace velora_render {

std::optional<double> PanSchedule::next(double value)
{
	if (!last || *last != value)
	{
		last = value;
		settled = false;
		return value;
	}
	if (!settled)
	{
		settled = true;
		return value;
	}
	return std::nullopt;
}

} // namespace velora_render
