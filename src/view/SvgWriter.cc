#include "view/SvgWriter.h"

#include "view/Escape.h"
#include "view/Layout.h"
#include "view/StepText.h"
#include "view/SvgStyle.h"

#include <array>
#include <charconv>
#include <sstream>
#include <string_view>

namespace view {

namespace {

// Numbers with one decimal at most, never in exponent form however long the run.
struct Num {
    double value;
};

std::ostream& operator<<(std::ostream& out, Num n) {
    std::array<char, 32> text{};
    auto const end =
        std::to_chars(text.begin(), text.end(), n.value, std::chars_format::fixed, 1).ptr;
    std::string_view digits(text.data(), static_cast<std::size_t>(end - text.data()));
    if (digits.ends_with(".0")) {
        digits.remove_suffix(2);
    }
    return out << digits;
}

char const* syncClass(SyncType sync) {
    switch (sync) {
    case SyncType::Call:
        return "call";
    case SyncType::Return:
        return "return";
    case SyncType::Notification:
        return "notification";
    case SyncType::None:
        break;
    }
    return "";
}

// Line breaks as character references keep every step on one line of the SVG.
void writeTitle(std::ostream& out, Element const& element) {
    out << "<title>";
    for (char c : escape(tooltip(element))) {
        c == '\n' ? out << "&#10;" : out << c;
    }
    out << "</title>";
}

void writeLifeline(std::ostream& out, Layout const& layout, Column const& column) {
    double const top = layout.headerTop, height = layout.headerHeight, x = column.x;
    double const width = layout.spacing - 24;
    if (column.lifeline == nullptr) {
        out << "<g class=\"lifeline environment\" data-name=\"" << escape(column.name) << "\">"
            << "<line class=\"life\" x1=\"" << Num{x} << "\" y1=\"" << Num{top + height}
            << "\" x2=\"" << Num{x} << "\" y2=\"" << Num{layout.lifelineBottom} << "\"/>"
            << "<text class=\"role\" x=\"" << Num{x} << "\" y=\"" << Num{top + height - 6}
            << "\" text-anchor=\"middle\">environment</text></g>\n";
        return;
    }
    Element const& lifeline = *column.lifeline;
    out << "<g class=\"lifeline " << escape(lifeline.role) << "\" data-index=\"" << lifeline.index
        << "\" data-name=\"" << escape(lifeline.instance) << "\" data-role=\""
        << escape(lifeline.role) << "\" tabindex=\"0\">";
    writeTitle(out, lifeline);
    out << "<line class=\"life\" x1=\"" << Num{x} << "\" y1=\"" << Num{top + height} << "\" x2=\""
        << Num{x} << "\" y2=\"" << Num{layout.lifelineBottom} << "\"/>"
        << "<rect class=\"head\" x=\"" << Num{x - width / 2} << "\" y=\"" << Num{top}
        << "\" width=\"" << Num{width} << "\" height=\"" << Num{height} << "\" rx=\"4\"/>"
        << "<text class=\"name\" x=\"" << Num{x} << "\" y=\"" << Num{top + 17}
        << "\" text-anchor=\"middle\">" << escape(lifeline.instance) << "</text>"
        << "<text class=\"role\" x=\"" << Num{x} << "\" y=\"" << Num{top + 32}
        << "\" text-anchor=\"middle\">" << escape(lifeline.role) << "</text></g>\n";
}

// The transparent band across the row that catches the pointer.
void writeHitBand(std::ostream& out, Layout const& layout, Row const& row) {
    out << "<rect class=\"hit\" x=\"0\" y=\"" << Num{row.y - 11} << "\" width=\""
        << Num{layout.width} << "\" height=\"22\"/>";
}

void writeArrow(std::ostream& out, Layout const& layout, Row const& row) {
    Element const& step = *row.step;
    char const* kind = syncClass(step.sync);
    out << "<g class=\"step arrow " << kind << "\" data-index=\"" << step.index << "\" data-from=\""
        << escape(row.from) << "\" data-to=\"" << escape(row.to) << "\" tabindex=\"0\">";
    writeTitle(out, step);
    writeHitBand(out, layout, row);
    out << "<line x1=\"" << Num{row.fromX} << "\" y1=\"" << Num{row.y} << "\" x2=\"" << Num{row.toX}
        << "\" y2=\"" << Num{row.y} << "\" marker-end=\"url(#head-" << kind
        << ")\"/><text class=\"label\" x=\"" << Num{(row.fromX + row.toX) / 2} << "\" y=\""
        << Num{row.y - 4} << "\" text-anchor=\"middle\">" << escape(step.label())
        << "</text></g>\n";
}

// A mark says what the step was, with its event or reply if it has one.
std::string markText(Element const& step) {
    return step.label().empty() ? step.kind : step.kind + " " + step.label();
}

void writeMark(std::ostream& out, Layout const& layout, Row const& row) {
    Element const& step = *row.step;
    out << "<g class=\"step mark\" data-index=\"" << step.index << "\" data-on=\"" << escape(row.to)
        << "\" tabindex=\"0\">";
    writeTitle(out, step);
    writeHitBand(out, layout, row);
    out << "<rect class=\"dot\" x=\"" << Num{row.toX - 3.5} << "\" y=\"" << Num{row.y - 3.5}
        << "\" width=\"7\" height=\"7\"/><text class=\"kind\" x=\"" << Num{row.toX + 12}
        << "\" y=\"" << Num{row.y + 3} << "\">" << escape(markText(step)) << "</text></g>\n";
}

// The failed run's verdict, with a pointer up to the step the run ended on.
void writeVerdict(std::ostream& out, Layout const& layout, Element const& verdict) {
    VerdictPlace const& place = layout.verdict;
    out << "<g class=\"verdict\" data-index=\"" << verdict.index << "\"";
    if (place.pointsAt) {
        out << " data-points-at=\"" << layout.rows[*place.pointsAt].step->index << "\"";
    }
    out << " tabindex=\"0\">";
    writeTitle(out, verdict);
    if (place.pointsAt) {
        Row const& row = layout.rows[*place.pointsAt];
        out << "<circle class=\"ring\" cx=\"" << Num{row.toX} << "\" cy=\"" << Num{row.y}
            << "\" r=\"8\"/><line class=\"pointer\" x1=\"" << Num{row.toX} << "\" y1=\""
            << Num{place.top} << "\" x2=\"" << Num{row.toX} << "\" y2=\"" << Num{row.y + 9}
            << "\" marker-end=\"url(#head-verdict)\"/>";
    }
    out << "<rect class=\"box\" x=\"20\" y=\"" << Num{place.top} << "\" width=\""
        << Num{layout.width - 40} << "\" height=\"" << Num{place.height}
        << "\" rx=\"4\"/><text class=\"message\" x=\"30\" y=\"" << Num{place.top + 20} << "\">"
        << "&#x2717; " << escape(verdict.message) << "</text></g>\n";
}

void writeNoError(std::ostream& out, Layout const& layout) {
    out << "<g class=\"verdict ok\"><text class=\"message\" x=\"30\" y=\""
        << Num{layout.verdict.top + 20} << "\">no error</text></g>\n";
}

} // namespace

std::string writeSvg(Diagram const& diagram) {
    Layout const layout = layOut(diagram);
    std::ostringstream out;
    out << "<svg xmlns=\"http://www.w3.org/2000/svg\" class=\"kel-diagram\" width=\""
        << Num{layout.width} << "\" height=\"" << Num{layout.height} << "\" viewBox=\"0 0 "
        << Num{layout.width} << " " << Num{layout.height} << "\">\n"
        << svgStyle << "<text class=\"title\" x=\"20\" y=\"24\">"
        << escape(diagram.type.empty() ? "sequence diagram" : diagram.type + " run") << "</text>\n";
    for (Column const& column : layout.columns) {
        writeLifeline(out, layout, column);
    }
    for (Row const& row : layout.rows) {
        row.arrow ? writeArrow(out, layout, row) : writeMark(out, layout, row);
    }
    diagram.verdict ? writeVerdict(out, layout, *diagram.verdict) : writeNoError(out, layout);
    out << "</svg>\n";
    return out.str();
}

} // namespace view
