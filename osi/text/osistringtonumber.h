// Checks and converts one typed number, accepting an engineering suffix
// letter (3.3k is 3300, 10u is 1e-5) and, as a fallback, decimal, octal (017)
// and hexadecimal (0x1A) integers; optionally enforces an allowed range.
#pragma once

class OsiStringToNumber
{
public:
	static constexpr const char* kInvalidFormat = "Invalid numerical format";
	static constexpr const char* kInvalidSuffix = "Invalid engineering format suffix";
	static constexpr const char* kAboveMaximum = "Value greater than maximum allowable value";
	static constexpr const char* kBelowMinimum = "Value less than minimum allowable value";

	// Equal bounds (the default) mean no range check; the bounds themselves
	// are allowed.
	explicit OsiStringToNumber(double minimum = 0, double maximum = 0)
	: maximum(maximum),
	  minimum(minimum)
	{}

	// Sets valid, value and errorMessage; returns valid.
	bool convert(const char* text);

	bool valid = false;
	double value = 0;
	double maximum;
	double minimum;
	// One of the messages above; meaningful while valid is false.
	const char* errorMessage = kInvalidFormat;

private:
	bool convertFloating(const char* text);
	bool convertInteger(const char* text);
	bool checkRange();
};
