#include "journal.h"

#include <fstream>

namespace sample_host {
namespace {

std::ofstream& Journal() {
    static std::ofstream file;
    return file;
}

} // namespace

bool OpenJournal(const std::string& file) {
    Journal().open(file, std::ios::app);
    return Journal().is_open();
}

void Note(const std::string& line) {
    Journal() << line << std::endl; // the host may be ended at any time
}

} // namespace sample_host
