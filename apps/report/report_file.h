// The files of a traced run (docs/trace-format.md) as one page that needs nothing else.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace report {

// Whether the folder holds the events of at least one process.
bool HasTrace(const std::filesystem::path& folder);

// `page`: the page with a mark where the trace goes. Writes a file beside `output` first, so that an earlier
// report stays if this one fails. The lines of the trace are taken as they are: the page reads them. Pictures
// go into the page up to 64 MB; those beyond are looked for in the page's folder when it is opened.
// Throws std::runtime_error with a sentence in UTF-8.
void WriteReport(const std::filesystem::path& folder, std::string_view page,
                 const std::filesystem::path& output);

// For messages, in UTF-8.
std::string PathText(const std::filesystem::path& path);

} // namespace report
