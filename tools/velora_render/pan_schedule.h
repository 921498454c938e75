// Which pan value a block's parameter changes carry. The processor glides
// from its previous to its latest value in every block until a new change
// arrives, so a changed value is sent when it differs from the last one, and
// once more in the following block when it has stopped changing: the second,
// equal change settles the glide on a constant angle.
#pragma once

#include <optional>

namespace velora_render {

class PanSchedule
{
public:
	// The value to send with the next block, whose target is `value` (the
	// normalised pan at the block's end); nothing when the processor already
	// sits still on it.
	std::optional<double> next(double value);

private:
	std::optional<double> last; // the value last sent
	bool settled = false;       // it was sent twice in a row
};

} // namespace velora_render
