#include "vgui/vguigraphaxisticks.h"

#include "osi/text/osinumbertostring.h"

#include <algorithm>
#include <cmath>

namespace {

// Ticks within this fraction of a step beyond the range still count as
// inside it, so that rounding never drops the tick on a range's end.
constexpr double kSlack = 1e-9;

// The decimals that labels spaced by step need.
int decimalsFor(double step)
{
	return std::max(0, -static_cast<int>(std::floor(std::log10(step) + kSlack)));
}

string_ext<char> fixedLabel(double value, int decimals)
{
	string_ext<char> text;
	text.sprintf("%.*f", decimals, value);
	return text;
}

string_ext<char> engineeringLabel(double value)
{
	OsiNumberToString number;
	return number.format(value, 3).text();
}

} // namespace

double VGuiGraphAxisTicks::niceStep(double least, int level)
{
	// The steps numbered: step 3k + m is 1, 2 or 5 (by m) times 10^k.
	auto step = [](int n) {
		static const double kMantissas[] = {1.0, 2.0, 5.0};
		const int k = static_cast<int>(std::floor(n / 3.0));
		return kMantissas[n - 3 * k] * std::pow(10.0, k);
	};
	int n = 3 * static_cast<int>(std::floor(std::log10(least)));
	while (step(n) < least * (1.0 - kSlack))
		++n;
	return step(n + level);
}

int VGuiGraphAxisTicks::engineeringExponent(double lo, double hi)
{
	const double largest = std::max(std::fabs(lo), std::fabs(hi));
	if (largest == 0.0 || !std::isfinite(largest) || (largest < 1e4 && largest >= 1e-2))
		return 0;
	return 3 * static_cast<int>(std::floor(std::log10(largest) / 3.0));
}

VGuiGraphAxisTicks VGuiGraphAxisTicks::linear(double lo, double hi, double step, int exponent)
{
	VGuiGraphAxisTicks result;
	result.exponent = exponent;
	if (!(step > 0.0) || !(hi >= lo))
		return result;
	const double scale = std::pow(10.0, -exponent);
	const int decimals = decimalsFor(step * scale);
	const double mantissa = step / std::pow(10.0, std::floor(std::log10(step) + kSlack));
	const int subdivisions = mantissa > 1.5 && mantissa < 2.5 ? 2 : 5;
	const double minor = step / subdivisions;
	const double first = std::ceil(lo / minor - kSlack);
	const double last = std::floor(hi / minor + kSlack);
	for (double i = first; i <= last; ++i)
	{
		const bool major = std::fmod(std::fabs(i), subdivisions) == 0.0;
		// Multiplying the index, rather than adding steps, keeps 0 exactly 0
		// (and adding 0 turns the -0 of ceil(-0.5) into 0).
		const double value = i * minor + 0.0;
		result.ticks.push_back(
		    {value, major, major ? fixedLabel(value * scale, decimals) : string_ext<char>()});
	}
	return result;
}

VGuiGraphAxisTicks VGuiGraphAxisTicks::decades(double lo, double hi, int stride,
                                               bool withTwoAndFive)
{
	VGuiGraphAxisTicks result;
	if (!(lo > 0.0) || !(hi >= lo) || stride < 1)
		return result;
	const int first = static_cast<int>(std::floor(std::log10(lo) + kSlack));
	const int last = static_cast<int>(std::floor(std::log10(hi) + kSlack));
	for (int decade = first; decade <= last; ++decade)
	{
		const double power = std::pow(10.0, decade);
		const bool labelledDecade = decade % stride == 0;
		for (int m = 1; m <= 9; ++m)
		{
			const double value = m * power;
			if (value < lo * (1.0 - kSlack) || value > hi * (1.0 + kSlack))
				continue;
			const bool major = labelledDecade && (m == 1 || (withTwoAndFive && (m == 2 || m == 5)));
			result.ticks.push_back(
			    {value, major, major ? engineeringLabel(value) : string_ext<char>()});
		}
	}
	return result;
}

int VGuiGraphAxisTicks::majorCount() const
{
	return static_cast<int>(
	    std::count_if(ticks.begin(), ticks.end(), [](const VGuiGraphTick& t) { return t.major; }));
}

void VGuiGraphAxisTicks::majorOnly()
{
	ticks.erase(
	    std::remove_if(ticks.begin(), ticks.end(), [](const VGuiGraphTick& t) { return !t.major; }),
	    ticks.end());
}
