// Where everything of the picture goes: one column per lifeline, one row per
// step, the verdict below. Pure geometry, so that the SVG writer only draws.
#pragma once

#include "view/Diagram.h"

#include <optional>
#include <string>
#include <vector>

namespace view {

// The name of the column that stands for whoever drives a model that has no
// component in front of it; the parentheses keep it apart from any instance.
inline constexpr char const* environmentName = "(environment)";

struct Column {
    Element const* lifeline = nullptr; // null for the environment
    std::string name;
    double x = 0;
};

// One step: an arrow between two columns or a mark on its own column.
struct Row {
    Element const* step = nullptr;
    double y = 0;
    bool arrow = false;
    std::string from, to; // column names; `to` is the column of a mark
    double fromX = 0, toX = 0;
};

// The verdict's box below the last step; a run without an error gets the box
// too, to say so.
struct VerdictPlace {
    double top = 0;
    double height = 0;
    std::optional<std::size_t> pointsAt; // the row of the step a failed run ended on
};

struct Layout {
    double width = 0, height = 0;
    double spacing = 0; // distance between two columns
    double headerTop = 0, headerHeight = 0;
    double lifelineBottom = 0;
    std::vector<Column> columns;
    std::vector<Row> rows;
    VerdictPlace verdict;
};

// The layout keeps pointers into `diagram`, which must outlive it.
Layout layOut(Diagram const& diagram);

} // namespace view
