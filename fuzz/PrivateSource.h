// The source file of a harness: one private folder per process, so that
// imports of the input find nothing but what the input itself is.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <fstream>
#include <string>
#include <unistd.h>

inline std::string const& PrivateSourcePath() {
    static std::string const path = [] {
        std::string folder = "/tmp/kel-fuzz-XXXXXX";
        if (mkdtemp(folder.data()) == nullptr) {
            std::abort();
        }
        return folder + "/input.kel";
    }();
    return path;
}

// Replaces the source file's content with `size` bytes at `data`.
inline void WritePrivateSource(char const* data, std::size_t size) {
    std::ofstream out(PrivateSourcePath(), std::ios::binary | std::ios::trunc);
    out.write(data, static_cast<std::streamsize>(size));
}
