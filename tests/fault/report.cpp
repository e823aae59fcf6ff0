#include "fault/report.h"

#include <algorithm>
#include <cstdio>

namespace fault_tests {

Report::Report(const std::string& fileName) {
    if (!fileName.empty())
        m_file.open(fileName);
}

void Report::Progress(const std::string& line) {
    std::printf("%s\n", line.c_str());
    std::fflush(stdout);
    m_file << line << std::endl;
}

void Report::Fail(const std::string& line) {
    Progress(std::string("FAILED: ").append(line));
    m_failures.push_back(line);
}

void Report::Table(const std::string& title, const std::vector<std::vector<std::string>>& rows) {
    std::vector<std::size_t> widths;
    for (const auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t column = 0; column < row.size(); ++column)
            widths[column] = std::max(widths[column], row[column].size());
    }
    Progress(std::string("\n").append(title));
    for (const auto& row : rows) {
        std::string line;
        for (std::size_t column = 0; column < row.size(); ++column) {
            line += "  ";
            line += row[column];
            if (column + 1 < row.size())
                line.append(widths[column] - row[column].size(), ' ');
        }
        Progress(line.substr(0, line.find_last_not_of(' ') + 1));
    }
}

int Report::Finish(const std::string& advice) {
    Progress(std::string("\n").append(std::to_string(m_failures.size())).append(" failures"));
    for (const std::string& failure : m_failures)
        Progress(std::string("  ").append(failure));
    if (!m_failures.empty())
        Progress(std::string("\n").append(advice));
    return m_failures.empty() ? 0 : 1;
}

} // namespace fault_tests
