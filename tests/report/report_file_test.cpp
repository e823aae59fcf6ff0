// The report's file: what of a trace goes into the page, and how it is kept from breaking it.
#include "report/report_file.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPage = "<body><!--{trace}--></body>";

void Write(const fs::path& file, std::string_view text) {
    std::ofstream(file, std::ios::binary) << text;
}

std::string Read(const fs::path& file) {
    std::ostringstream text;
    text << std::ifstream(file, std::ios::binary).rdbuf();
    return text.str();
}

class ReportFile : public testing::Test {
protected:
    ReportFile() {
        fs::remove_all(m_folder);
        fs::create_directories(m_folder);
    }
    ~ReportFile() override { fs::remove_all(m_folder); }

    std::string Report() {
        report::WriteReport(m_folder, kPage, m_folder / "report.html");
        return Read(m_folder / "report.html");
    }

    // The name has a character outside ASCII: reports stand in folders of users.
    fs::path m_folder = fs::temp_directory_path() / fs::path(u8"ghosthand_repört_test");
};

TEST_F(ReportFile, LinesCannotEndTheirElement) {
    Write(m_folder / "trace-2.jsonl", "{\"text\":\"</script><!--\"}\n");
    Write(m_folder / "trace-1.jsonl", "{\"text\":\"\xE2\x80\xA8 & \xC3\xBC\"}\nno JSON");
    EXPECT_EQ(Report(), "<body>"
                        "<script type=\"text/plain\" class=\"trace\" data-name=\"trace-1.jsonl\">"
                        "{\"text\":\"\xE2\x80\xA8 & \xC3\xBC\"}\nno JSON</script>\n"
                        "<script type=\"text/plain\" class=\"trace\" data-name=\"trace-2.jsonl\">"
                        "{\"text\":\"\\u003c/script>\\u003c!--\"}\n</script>\n"
                        "</body>");
}

TEST_F(ReportFile, PicturesAreBase64) {
    const std::pair<std::string, const char*> cases[] = {{"", ""},
                                                         {"f", "Zg=="},
                                                         {"fo", "Zm8="},
                                                         {"foo", "Zm9v"},
                                                         {std::string("\0\xFF\x80\x01", 4), "AP+AAQ=="}};
    for (const auto& [bytes, expected] : cases) {
        Write(m_folder / "a&b.png", bytes);
        EXPECT_EQ(Report(), std::string("<body><script type=\"text/plain\" class=\"picture\" "
                                        "data-name=\"a&amp;b.png\">") +
                                expected + "</script>\n</body>");
    }
}

// Pieces of a file join without a seam.
TEST_F(ReportFile, APictureMayBeLong) {
    const std::string bytes(1'000'000, 'x');
    Write(m_folder / "a.png", bytes);
    const std::string page = Report();
    const auto begin = page.find("png\">") + 5;
    const std::string text = page.substr(begin, page.find("</script>") - begin);
    ASSERT_EQ(text.size(), 1'333'336U);
    EXPECT_EQ(text.find_first_not_of("eHh4"), text.size() - 3); // "eA=="
    EXPECT_TRUE(text.ends_with("eHh4eA=="));
}

TEST_F(ReportFile, TooManyPicturesStayOutside) {
    for (const char* name : {"1.png", "2.png", "3.png"}) {
        Write(m_folder / name, "small");
    }
    fs::resize_file(m_folder / "2.png", 64 * 1024 * 1024); // too much only together with the first
    const std::string page = Report();
    EXPECT_NE(page.find("1.png"), std::string::npos);
    EXPECT_EQ(page.find("2.png"), std::string::npos);
    EXPECT_NE(page.find("3.png"), std::string::npos);
}

TEST_F(ReportFile, KnowsATrace) {
    EXPECT_FALSE(report::HasTrace(m_folder));
    Write(m_folder / "run.jsonl", "{}");
    EXPECT_FALSE(report::HasTrace(m_folder)) << "only the note of the run";
    Write(m_folder / "trace-12.jsonl", "");
    EXPECT_TRUE(report::HasTrace(m_folder));
}

TEST_F(ReportFile, AnEarlierReportStaysWhenANewOneFails) {
    Write(m_folder / "report.html", "earlier");
    EXPECT_THROW(report::WriteReport(m_folder, "no place", m_folder / "report.html"), std::runtime_error);
    EXPECT_EQ(Read(m_folder / "report.html"), "earlier");
    EXPECT_THROW(report::WriteReport(m_folder, kPage, m_folder / "missing" / "report.html"),
                 std::runtime_error);
    EXPECT_THROW(report::WriteReport(m_folder / "missing", kPage, m_folder / "report.html"),
                 std::runtime_error);
    EXPECT_EQ(std::distance(fs::directory_iterator(m_folder), fs::directory_iterator()), 1);
}

} // namespace
