#include "view/DiagramReader.h"

#include "view/ElementReader.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iterator>
#include <string>

namespace view {

namespace {

using Json = nlohmann::json;

[[noreturn]] void fail(long index, std::string const& what) {
    throw DiagramError("element " + std::to_string(index) + ": " + what);
}

// nlohmann's messages start with a code for programmers; the user needs the rest.
std::string withoutCode(std::string const& what) {
    auto const end = what.find("] ");
    return what.starts_with("[json.exception.") && end != std::string::npos ? what.substr(end + 2)
                                                                            : what;
}

// Parses the text and, when it is no JSON, names the element of the root array
// that the parser was in, counting the elements it had finished.
Json parse(std::string const& text) {
    long finished = 0;
    bool rootOpened = false;
    auto const count = [&](int depth, Json::parse_event_t event, Json&) {
        rootOpened = rootOpened || (depth == 0 && event == Json::parse_event_t::array_start);
        if (depth == 1 &&
            (event == Json::parse_event_t::object_end || event == Json::parse_event_t::array_end ||
             event == Json::parse_event_t::value)) {
            ++finished;
        }
        return true;
    };
    try {
        return Json::parse(text, count);
    } catch (Json::parse_error const& error) {
        std::string const where = rootOpened ? "element " + std::to_string(finished) + ": " : "";
        throw DiagramError(where + "bad JSON: " + withoutCode(error.what()));
    }
}

// Lifelines stand as users draw them: provided ports, the model, required ports.
int side(Element const& lifeline) {
    if (lifeline.role == "provided") {
        return 0;
    }
    return lifeline.role == "required" ? 2 : 1;
}

bool hasLifeline(Diagram const& diagram, std::string const& name) {
    return std::any_of(diagram.lifelines.begin(), diagram.lifelines.end(),
                       [&](Element const& lifeline) { return lifeline.instance == name; });
}

// Files one checked element where it belongs.
void place(Diagram& diagram, Element element, Json const& json, bool last) {
    if (element.kind == "TraceType") {
        diagram.type = stringMember(json, "type", element.index);
    } else if (element.kind == "Error") {
        if (!last) {
            fail(element.index, "an \"Error\" element must be the last");
        }
        diagram.verdict = std::move(element);
    } else if (element.kind == "Initialize") {
        diagram.lifelines.push_back(std::move(element));
    } else {
        diagram.steps.push_back(std::move(element));
    }
}

} // namespace

Diagram readDiagram(std::string const& text) {
    Json const root = parse(text);
    if (!root.is_array()) {
        throw DiagramError("the document is no JSON array of diagram elements");
    }
    Diagram diagram;
    for (std::size_t i = 0; i < root.size(); ++i) {
        place(diagram, readElement(root[i], static_cast<long>(i)), root[i], i + 1 == root.size());
    }
    std::stable_sort(diagram.lifelines.begin(), diagram.lifelines.end(),
                     [](Element const& a, Element const& b) { return side(a) < side(b); });
    for (Element const& step : diagram.steps) {
        if (!hasLifeline(diagram, step.instance)) {
            fail(step.index,
                 "\"instance\" \"" + step.instance + "\" has no \"Initialize\" element");
        }
    }
    return diagram;
}

Diagram readDiagram(std::istream& in) {
    return readDiagram(std::string(std::istreambuf_iterator<char>(in), {}));
}

} // namespace view
