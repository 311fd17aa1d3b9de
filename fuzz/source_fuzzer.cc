// Feeds arbitrary bytes as a source file through loading and checking.
#include "tool/File.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <string>
#include <unistd.h>

namespace {

// One private folder per process, so that imports of the input find nothing
// but what the input itself is.
std::string const& sourcePath() {
    static std::string const path = [] {
        std::string folder = "/tmp/kel-fuzz-XXXXXX";
        if (mkdtemp(folder.data()) == nullptr) {
            std::abort();
        }
        return folder + "/input.kel";
    }();
    return path;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    {
        std::ofstream out(sourcePath(), std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<char const*>(data), static_cast<std::streamsize>(size));
    }
    try {
        File const file(sourcePath(), {});
        (void)file.ModelNames();
        (void)file.TryGetModel("a.b.M");
    } catch (std::exception const&) {
        // A source error: the tool reports the text and exits with 1.
    }
    return 0;
}
