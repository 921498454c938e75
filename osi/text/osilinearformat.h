// A value with its engineering suffix letter and unit: 1500 in Hz at
// precision 3 reads "1.5 kHz", 12.5 reads "12.5 Hz".
#pragma once

#include "osi/text/osivalueformat.h"

class OsiLinearFormat : public OsiValueFormat
{
public:
	using OsiValueFormat::OsiValueFormat;

	const string_ext<char>& format(double value, int precision) const override;
};
