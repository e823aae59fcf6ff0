// What the page "Peers" saw happen, line by line, for whoever doubts what a script says of itself.
#pragma once

#include <string>

namespace sample_host {

// Where Note writes to; without it notes are lost. False when the file cannot be written.
bool OpenJournal(const std::string& file);

void Note(const std::string& line);

} // namespace sample_host
