// kel-trace-view: draws the JSON sequence diagram of kel-trace as one
// self-contained HTML page, or as a bare SVG.
#include "view/DiagramReader.h"
#include "view/HtmlPage.h"
#include "view/SvgWriter.h"
#include "view/ViewOptions.h"

#include <filesystem>
#include <fstream>
#include <iostream>

namespace {

constexpr char const* program = "kel-trace-view: ";

view::Diagram read(std::string const& input) {
    if (input == "-") {
        return view::readDiagram(std::cin);
    }
    std::ifstream in(input, std::ios::binary);
    std::error_code error;
    if (!in || std::filesystem::is_directory(input, error)) {
        throw std::runtime_error("cannot read " + input);
    }
    try {
        return view::readDiagram(in);
    } catch (view::DiagramError const& bad) {
        throw view::DiagramError(input + ": " + bad.what());
    }
}

std::string render(view::ViewOptions const& options, view::Diagram const& diagram) {
    if (options.svg) {
        return view::writeSvg(diagram);
    }
    bool const fromStdin = options.input == "-";
    // Sources named relative to the diagram are found next to its file.
    view::SourceFiles files(
        fromStdin ? "" : std::filesystem::path(options.input).parent_path().string());
    return view::writeHtml(diagram, files, fromStdin ? "standard input" : options.input);
}

void write(std::string const& output, std::string const& text) {
    if (output.empty()) {
        std::cout << text << std::flush;
        return;
    }
    std::ofstream out(output, std::ios::binary);
    if (!(out << text) || !out.flush()) {
        throw std::runtime_error("cannot write " + output);
    }
}

} // namespace

int main(int argc, char** argv) {
    view::ViewOptions options;
    try {
        options = view::parseViewOptions(std::vector<std::string>(argv + 1, argv + argc));
    } catch (view::UsageError const& error) {
        std::cerr << program << error.what() << "\n" << view::viewUsage;
        return 1;
    }
    if (options.help) {
        std::cout << view::viewUsage;
        return 0;
    }
    try {
        write(options.output, render(options, read(options.input)));
    } catch (std::exception const& error) {
        std::cerr << program << error.what() << "\n";
        return 1;
    }
    return 0;
}
