// Why an analysis cannot be done: one line, naming the file where there is
// one. The tools report it and go on or stop as they see fit.
#pragma once

#include <stdexcept>
#include <string>

namespace velora_spectrum {

class SpectrumFailure : public std::runtime_error
{
public:
	explicit SpectrumFailure(const std::string& message) : std::runtime_error(message) {}
};

} // namespace velora_spectrum
