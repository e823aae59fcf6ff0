// What a run says on the console and in a file: progress while it goes, tables and failures at its end.
#pragma once

#include <fstream>
#include <string>
#include <vector>

namespace fault_tests {

class Report {
public:
    // Without a file name there is no file.
    explicit Report(const std::string& fileName);

    void Progress(const std::string& line);
    // At once, and once more at the end.
    void Fail(const std::string& line);
    int Failures() const { return static_cast<int>(m_failures.size()); }

    // The first row is the heading.
    void Table(const std::string& title, const std::vector<std::vector<std::string>>& rows);

    // Prints what went wrong. Returns the exit code.
    int Finish(const std::string& advice);

private:
    std::ofstream m_file;
    std::vector<std::string> m_failures;
};

} // namespace fault_tests
