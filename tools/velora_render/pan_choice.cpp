#include "pan_choice.h"

#include "automation_file.h"
#include "numbers.h"
#include "test_signal.h"

namespace velora_render {

PanChoice choosePan(const Options& options, bool testSignal, const AudioSource& source,
                    const HostSession& session)
{
	const PanOption& pan = options.pan;
	switch (pan.kind)
	{
	case PanOption::Kind::constant:
		return {PanCurve::constant(pan.from), "constant " + formatNumber(pan.from) + " degrees"};
	case PanOption::Kind::sweep:
		return {PanCurve::line(pan.from, pan.to,
		                       static_cast<double>(source.frames()) / source.sampleRate()),
		        "sweep " + formatNumber(pan.from) + " to " + formatNumber(pan.to) + " degrees"};
	case PanOption::Kind::automation:
	{
		PanCurve curve = readAutomation(pan.automationPath);
		// Named before the curve moves into the choice.
		std::string text = "automation " + pan.automationPath + " (" +
		                   std::to_string(curve.size()) +
		                   (curve.size() == 1 ? " point)" : " points)");
		return {std::move(curve), std::move(text)};
	}
	case PanOption::Kind::none:
		break;
	}
	if (testSignal && options.loadStatePath.empty())
		return {PanCurve::line(-90.0, 90.0, TestSignal::kSeconds), "sweep -90 to 90 degrees"};
	const double degrees = session.panDegrees();
	std::string text = "constant " + formatNumber(degrees) + " degrees";
	if (!options.loadStatePath.empty())
		text += " (restored from " + options.loadStatePath + ")";
	return {PanCurve::constant(degrees), text};
}

} // namespace velora_render
