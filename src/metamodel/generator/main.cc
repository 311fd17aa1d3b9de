// kel-metamodel-gen: turns the metamodel schema table into C++ classes.
// Usage: kel-metamodel-gen <schema file> <output directory>

#include "ClassFiles.h"
#include "SchemaReader.h"
#include "SharedFiles.h"

#include <filesystem>
#include <fstream>
#include <iostream>

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: kel-metamodel-gen <schema file> <output directory>\n";
        return 1;
    }
    try {
        std::ifstream in(argv[1]);
        if (!in) {
            throw std::runtime_error("cannot read the schema");
        }
        auto const schema = kel::gen::ReadSchema(in);
        std::filesystem::path const dir = argv[2];
        std::filesystem::create_directories(dir);
        for (auto const& cls : schema.classes) {
            kel::gen::WriteClassFiles(schema, cls, dir);
        }
        kel::gen::WriteSharedFiles(schema, dir);
    } catch (std::exception const& error) {
        std::cerr << argv[1] << ": " << error.what() << "\n";
        return 1;
    }
    return 0;
}
