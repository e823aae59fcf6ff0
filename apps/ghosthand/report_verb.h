// The report of a traced run.
#pragma once

#include <filesystem>

namespace apps {

// Writes the report into the file. Throws std::runtime_error with a sentence in UTF-8.
void WriteReport(const std::filesystem::path& folder, const std::filesystem::path& output);

} // namespace apps
