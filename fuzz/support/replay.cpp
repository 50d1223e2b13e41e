// Replaces the fuzzer: runs each file of the given directories once.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

namespace {

std::vector<std::filesystem::path> filesIn(const std::filesystem::path &directory)
{
    std::vector<std::filesystem::path> files;
    for (const auto &entry : std::filesystem::directory_iterator(directory)) {
        if (entry.is_regular_file())
            files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

void replay(const std::filesystem::path &path)
{
    std::ifstream file(path, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    // Printed before the run, so that the last name in the output is the input of a crash.
    std::printf("%s, %zu bytes\n", path.filename().c_str(), bytes.size());
    std::fflush(stdout);
    // A copy of exactly this size, so that a sanitizer detects a read past its end.
    const std::vector<std::uint8_t> input(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(input.data(), input.size());
}

} // namespace

int main(int argc, char **argv)
{
    LLVMFuzzerInitialize(&argc, &argv);
    std::size_t count = 0;
    for (int i = 1; i < argc; ++i) {
        for (const std::filesystem::path &path : filesIn(argv[i])) {
            replay(path);
            ++count;
        }
    }
    if (count == 0) {
        std::fprintf(stderr, "no inputs to replay\n");
        return 1;
    }
    std::printf("%zu inputs\n", count);
    return 0;
}
