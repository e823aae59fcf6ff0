#include "report/report_file.h"

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <stdexcept>
#include <system_error>
#include <vector>

namespace report {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPlaceOfTrace = "<!--{trace}-->";
constexpr std::uintmax_t kMostPictureBytes = 64u << 20;

[[noreturn]] void Fail(const fs::path& path, std::string_view what) {
    throw std::runtime_error(PathText(path) + " " + std::string(what));
}

// In the order of their names.
std::vector<fs::path> FilesOf(const fs::path& folder, std::string_view extension) {
    std::vector<fs::path> files;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        std::error_code unknown;
        if (entry->path().extension() == extension && entry->is_regular_file(unknown)) {
            files.push_back(entry->path());
        }
    }
    if (error) {
        Fail(folder, "cannot be read.");
    }
    std::ranges::sort(files);
    return files;
}

// Gives the file to `take` piece by piece, each but the last of a length that 3 divides.
template <class Take>
void ReadPieces(const fs::path& path, Take take) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        Fail(path, "cannot be read.");
    }
    std::vector<char> piece(3u << 16);
    while (file) {
        file.read(piece.data(), static_cast<std::streamsize>(piece.size()));
        take(std::string_view(piece.data(), static_cast<std::size_t>(file.gcount())));
    }
    if (file.bad()) {
        Fail(path, "cannot be read to its end.");
    }
}

// Within an element a text may hold anything but '<', which would end the element or begin a comment. JSON
// has that character in texts only, where it may be written by its number.
std::string EscapedLines(std::string_view text) {
    std::string escaped;
    for (const char character : text) {
        if (character == '<') {
            escaped += "\\u003c";
        } else {
            escaped += character;
        }
    }
    return escaped;
}

std::string EscapedAttribute(std::string_view text) {
    std::string escaped;
    for (const char character : text) {
        switch (character) {
        case '&':
            escaped += "&amp;";
            break;
        case '"':
            escaped += "&quot;";
            break;
        default:
            escaped += character;
        }
    }
    return escaped;
}

std::string Base64(std::string_view bytes) {
    constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const auto byte = [&](std::size_t index) -> std::uint32_t {
            return index < bytes.size() ? static_cast<unsigned char>(bytes[index]) : 0;
        };
        const std::uint32_t group = byte(at) << 16 | byte(at + 1) << 8 | byte(at + 2);
        const std::size_t length = std::min<std::size_t>(bytes.size() - at, 3);
        for (std::size_t digit = 0; digit < 4; ++digit) {
            text += digit <= length ? kDigits[group >> (18 - 6 * digit) & 63] : '=';
        }
    }
    return text;
}

void WriteElement(std::ostream& output, const fs::path& file, std::string_view className,
                  std::string (*encode)(std::string_view)) {
    output << "<script type=\"text/plain\" class=\"" << className << "\" data-name=\""
           << EscapedAttribute(PathText(file.filename())) << "\">";
    ReadPieces(file, [&](std::string_view piece) { output << encode(piece); });
    output << "</script>\n";
}

void WritePage(std::ostream& output, const fs::path& folder, std::string_view page) {
    const auto place = page.find(kPlaceOfTrace);
    if (place == std::string_view::npos) {
        throw std::runtime_error("The report's page has no place for the trace.");
    }
    output << page.substr(0, place);
    for (const fs::path& file : FilesOf(folder, ".jsonl")) {
        WriteElement(output, file, "trace", EscapedLines);
    }
    std::uintmax_t pictureBytes = 0;
    for (const fs::path& file : FilesOf(folder, ".png")) {
        std::error_code unknown;
        const std::uintmax_t size = fs::file_size(file, unknown);
        if (!unknown && pictureBytes + size <= kMostPictureBytes) {
            pictureBytes += size;
            WriteElement(output, file, "picture", Base64);
        }
    }
    output << page.substr(place + kPlaceOfTrace.size());
}

} // namespace

std::string PathText(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

bool HasTrace(const fs::path& folder) {
    return std::ranges::any_of(FilesOf(folder, ".jsonl"), [](const fs::path& file) {
        return PathText(file.filename()).starts_with("trace-");
    });
}

void WriteReport(const fs::path& folder, std::string_view page, const fs::path& output) {
    fs::path unfinished = output;
    unfinished += ".unfinished";
    std::error_code error;
    try {
        std::ofstream file(unfinished, std::ios::binary);
        if (!file) {
            Fail(output, "cannot be written.");
        }
        WritePage(file, folder, page);
        file.close();
        if (!file) {
            Fail(output, "cannot be written to its end. Is the disk full?");
        }
        fs::rename(unfinished, output, error);
        if (error) {
            Fail(output, "cannot be replaced. Is it open in another program?");
        }
    } catch (...) {
        fs::remove(unfinished, error);
        throw;
    }
}

} // namespace report
