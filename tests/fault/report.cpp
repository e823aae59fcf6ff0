#include "fault/report.h"

#include <algorithm>
#include <cstdio>
#include <fstream>

namespace fault_tests {

void Report::Progress(const std::string& line) {
    std::printf("%s\n", line.c_str());
    std::fflush(stdout);
}

void Report::Print(const std::string& line) {
    Progress(line);
    m_text += line + "\n";
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
    Print(std::string("\n").append(title));
    for (const auto& row : rows) {
        std::string line;
        for (std::size_t column = 0; column < row.size(); ++column) {
            line += "  ";
            line += row[column];
            if (column + 1 < row.size())
                line.append(widths[column] - row[column].size(), ' ');
        }
        Print(line.substr(0, line.find_last_not_of(' ') + 1));
    }
}

int Report::Finish(const std::string& advice) {
    Print(std::string("\n").append(std::to_string(m_failures.size())).append(" failures"));
    for (const std::string& failure : m_failures)
        Print(std::string("  ").append(failure));
    if (!m_failures.empty())
        Print(std::string("\n").append(advice));
    if (!m_fileName.empty())
        std::ofstream(m_fileName) << m_text;
    return m_failures.empty() ? 0 : 1;
}

} // namespace fault_tests
