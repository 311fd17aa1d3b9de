#include "view/DetailPanel.h"

#include "view/Escape.h"
#include "view/StepText.h"

namespace view {

namespace {

void writeState(std::ostream& out, std::vector<StateEntry> const& state) {
    if (state.empty()) {
        return;
    }
    out << "<h3>state</h3><table class=\"state\">";
    for (StateEntry const& entry : state) {
        out << "<tr><td>" << escape(entry.variable) << "</td><td>" << escape(entry.value)
            << "</td></tr>";
    }
    out << "</table>\n";
}

void writeExcerpt(std::ostream& out, std::vector<ExcerptLine> const& lines) {
    if (lines.empty()) {
        return;
    }
    out << "<pre class=\"excerpt\">";
    for (ExcerptLine const& line : lines) {
        out << "<span class=\"line" << (line.selected ? " selected" : "")
            << "\"><span class=\"number\">" << line.number << "</span>" << escape(line.text)
            << "</span>\n";
    }
    out << "</pre>";
}

void writeSources(std::ostream& out, std::vector<Selection> const& selections, SourceFiles& files) {
    bool first = true;
    for (Selection const& selection : selections) {
        if (!selection.located()) {
            continue;
        }
        out << (first ? "<h3>source</h3>" : "") << "<div class=\"source\"><p class=\"where\">"
            << escape(where(selection)) << "</p>";
        writeExcerpt(out, excerpt(files, selection));
        out << "</div>\n";
        first = false;
    }
}

void writeDetail(std::ostream& out, Element const& element, SourceFiles& files) {
    out << "<section class=\"detail\" id=\"detail-" << element.index << "\" hidden><h2>"
        << escape(heading(element)) << "</h2>";
    for (std::string const& line : {happening(element), element.message}) {
        if (!line.empty()) {
            out << "<p class=\"happening\">" << escape(line) << "</p>";
        }
    }
    out << "\n";
    writeState(out, element.state);
    writeSources(out, element.selections, files);
    out << "</section>\n";
}

} // namespace

void writeDetails(std::ostream& out, Diagram const& diagram, SourceFiles& files) {
    for (Element const& lifeline : diagram.lifelines) {
        writeDetail(out, lifeline, files);
    }
    for (Element const& step : diagram.steps) {
        writeDetail(out, step, files);
    }
    if (diagram.verdict) {
        writeDetail(out, *diagram.verdict, files);
    }
}

} // namespace view
