// Feeds arbitrary bytes as a source file through loading and checking.
#include "PrivateSource.h"

#include "tool/File.h"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    WritePrivateSource(reinterpret_cast<char const*>(data), size);
    try {
        File const file(PrivateSourcePath(), {});
        (void)file.ModelNames();
        (void)file.TryGetModel("a.b.M");
    } catch (std::exception const&) {
        // A source error: the tool reports the text and exits with 1.
    }
    return 0;
}
