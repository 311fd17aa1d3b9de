#include "view/Layout.h"

#include <algorithm>

namespace view {

namespace {

constexpr double margin = 20;
constexpr double headerTop = 40;    // below the title line
constexpr double headerHeight = 40; // the box with instance name and role
constexpr double firstRowGap = 28;  // between the boxes and the first step
constexpr double rowHeight = 22;
constexpr double verdictGap = 30;
constexpr double verdictHeight = 30;
// Rough widths of a character in the fonts the writer uses, to keep texts
// apart without measuring them.
constexpr double labelChar = 7, nameChar = 8.5, kindChar = 5.5;

Element const* findLifeline(Diagram const& diagram, std::string const& name) {
    for (Element const& lifeline : diagram.lifelines) {
        if (lifeline.instance == name) {
            return &lifeline;
        }
    }
    return nullptr;
}

// The lifeline a step's arrow crosses to, null for the environment. A port's
// steps cross to the component; the component's own steps name the port in
// front of the event ("p.e"), the longest name that fits when names nest.
Element const* partner(Diagram const& diagram, Element const& own, Element const& step) {
    Element const* found = nullptr;
    for (Element const& other : diagram.lifelines) {
        if (&other == &own) {
            continue;
        }
        if (own.role != "component" && other.role == "component") {
            return &other;
        }
        if (own.role == "component" && step.label().starts_with(other.instance + ".") &&
            (found == nullptr || other.instance.size() > found->instance.size())) {
            found = &other;
        }
    }
    return found;
}

// Calls go from the client to the server, replies and notifications back.
// The client of a provided port is the port's user, so the port stands for it;
// through a required port the component is the client.
std::pair<std::string, std::string> clientAndServer(Element const& own, Element const* other) {
    if (other == nullptr) {
        return {environmentName, own.instance};
    }
    Element const& port = own.role == "component" ? *other : own;
    Element const& component = own.role == "component" ? own : *other;
    if (port.role == "required") {
        return {component.instance, port.instance};
    }
    return {port.instance, component.instance};
}

Row placeStep(Diagram const& diagram, Element const& step, double y) {
    Row row{&step, y, false, {}, step.instance};
    // The built-in action `illegal` ends the run and reaches no one.
    if (step.sync == SyncType::None || step.label() == "illegal") {
        return row;
    }
    Element const& own = *findLifeline(diagram, step.instance);
    Element const* other = partner(diagram, own, step);
    // A component's step that names none of its ports has no one to cross to.
    if (other == nullptr && own.role == "component") {
        return row;
    }
    auto [client, server] = clientAndServer(own, other);
    row.arrow = true;
    row.from = step.sync == SyncType::Call ? client : server;
    row.to = step.sync == SyncType::Call ? server : client;
    return row;
}

// Wide enough that a header, an arrow's label or a mark's kind fits between
// two neighbouring columns.
double columnSpacing(Diagram const& diagram) {
    double spacing = 180;
    for (Element const& lifeline : diagram.lifelines) {
        double const name = std::max(lifeline.instance.size(), lifeline.role.size()) * nameChar;
        spacing = std::max(spacing, name + 40);
    }
    for (Element const& step : diagram.steps) {
        double const mark = (step.kind.size() + 1 + step.label().size()) * kindChar;
        spacing = std::max({spacing, mark + 30, step.label().size() * labelChar + 40});
    }
    return spacing;
}

void placeColumns(Layout& layout, Diagram const& diagram) {
    bool const environment = std::any_of(layout.rows.begin(), layout.rows.end(), [](Row const& r) {
        return r.arrow && (r.from == environmentName || r.to == environmentName);
    });
    if (environment) {
        layout.columns.push_back({nullptr, environmentName});
    }
    for (Element const& lifeline : diagram.lifelines) {
        layout.columns.push_back({&lifeline, lifeline.instance});
    }
    for (std::size_t i = 0; i < layout.columns.size(); ++i) {
        layout.columns[i].x = margin + layout.spacing * (static_cast<double>(i) + 0.5);
    }
}

double columnX(Layout const& layout, std::string const& name) {
    for (Column const& column : layout.columns) {
        if (column.name == name) {
            return column.x;
        }
    }
    return 0;
}

} // namespace

Layout layOut(Diagram const& diagram) {
    Layout layout;
    layout.spacing = columnSpacing(diagram);
    layout.headerTop = headerTop;
    layout.headerHeight = headerHeight;
    double y = headerTop + headerHeight + firstRowGap;
    for (Element const& step : diagram.steps) {
        layout.rows.push_back(placeStep(diagram, step, y));
        y += rowHeight;
    }
    placeColumns(layout, diagram);
    for (Row& row : layout.rows) {
        row.fromX = columnX(layout, row.arrow ? row.from : row.to);
        row.toX = columnX(layout, row.to);
    }
    layout.lifelineBottom = y;
    layout.verdict.top = y + verdictGap - rowHeight / 2;
    layout.verdict.height = verdictHeight;
    if (diagram.verdict && !layout.rows.empty()) {
        layout.verdict.pointsAt = layout.rows.size() - 1;
    }
    double const message = diagram.verdict ? diagram.verdict->message.size() * labelChar : 0;
    // Half a column more on the right for the texts beside the last lifeline's marks.
    double const columns = layout.spacing * (static_cast<double>(layout.columns.size()) + 0.5);
    layout.width = 2 * margin + std::max(columns, message + 40);
    layout.height = layout.verdict.top + verdictHeight + margin;
    return layout;
}

} // namespace view
