// Finishes a type library file that widl wrote: finish_type_library <input> <output>
#include "finish_type_library.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace {

std::vector<std::uint8_t> ReadFile(const char* path) {
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw std::runtime_error("the file cannot be opened");
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void WriteFile(const char* path, const std::vector<std::uint8_t>& bytes) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file)
        throw std::runtime_error("the finished library cannot be written to " + std::string(path));
}

} // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 3) {
        std::fputs("usage: finish_type_library <input> <output>\n", stderr);
        return EXIT_FAILURE;
    }
    try {
        WriteFile(arguments[2], FinishTypeLibrary(ReadFile(arguments[1])));
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "finish_type_library: %s: %s\n", arguments[1], error.what());
        return EXIT_FAILURE;
    }
}
