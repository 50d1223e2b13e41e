// In place of a fuzzer: runs the files of the directories that are named, once each.

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
    // Named beforehand: the last name in the output is the input that ended the program.
    std::printf("%s, %zu bytes\n", path.filename().c_str(), bytes.size());
    std::fflush(stdout);
    // A copy of the very size, so that a sanitizer sees a read past its end.
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
