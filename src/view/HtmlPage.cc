#include "view/HtmlPage.h"

#include "view/DetailPanel.h"
#include "view/Escape.h"
#include "view/PageAssets.h"
#include "view/SvgWriter.h"

#include <sstream>

namespace view {

std::string writeHtml(Diagram const& diagram, SourceFiles& files, std::string const& title) {
    std::ostringstream out;
    out << "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>"
        << escape(title) << " - kel-trace-view</title>\n"
        << pageStyle << "</head>\n<body>\n<header><h1>" << escape(title) << "</h1>" << legend
        << "</header>\n<main>\n<div class=\"picture\">\n"
        << writeSvg(diagram) << "</div>\n<aside id=\"details\">\n"
        << hint;
    writeDetails(out, diagram, files);
    out << "</aside>\n</main>\n" << pageScript << "</body>\n</html>\n";
    return out.str();
}

} // namespace view
