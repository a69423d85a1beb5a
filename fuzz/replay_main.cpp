// Runs a fuzzer's code over every file of a folder: what fuzzing once found stays found.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize);

int main(int argc, char** argv)
{
    int nFiles = 0;
    for (int n = 1; n < argc; ++n)
    {
        for (const auto& entry : std::filesystem::directory_iterator(argv[n]))
        {
            std::ifstream file(entry.path(), std::ios::binary);
            const std::vector<char> bytes{ std::istreambuf_iterator<char>(file), {} };
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()),
                                   bytes.size());
            ++nFiles;
        }
    }
    std::printf("%d inputs\n", nFiles);
    return nFiles > 0 ? 0 : 1;
}
