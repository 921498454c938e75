// What a batch output was made with, kept beside it in a hidden file
// (".NAME.render"), so that a later batch renders only what is out of date.
#pragma once

#include "batch_plan.h"
#include "options.h"

#include <string>

namespace velora_render {

// The options that decide an output's samples and format, as text.
std::string renderSettings(const Options& options);

// The output exists, is newer than its input and than the files the options
// name (automation, state), and its record holds `settings`.
bool isUpToDate(const BatchFile& file, const Options& options, const std::string& settings);

// Writes the record of a committed output; a runtime failure if it cannot.
void recordSettings(const std::string& output, const std::string& settings);

} // namespace velora_render
