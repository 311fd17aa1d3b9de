#include "view/StepText.h"

namespace view {

namespace {

char const* syncName(SyncType sync) {
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

} // namespace

std::string heading(Element const& element) {
    std::string text = std::to_string(element.index) + " " + element.kind;
    return element.instance.empty() ? text : text + " on " + element.instance;
}

std::string happening(Element const& element) {
    if (element.sync != SyncType::None) {
        return std::string(syncName(element.sync)) + " " + element.label();
    }
    return element.label();
}

std::string where(Selection const& selection) {
    return selection.file + ":" + std::to_string(selection.line) + ":" +
           std::to_string(selection.column);
}

std::string tooltip(Element const& element) {
    std::string text = heading(element);
    for (std::string const& line : {happening(element), element.message}) {
        if (!line.empty()) {
            text += "\n" + line;
        }
    }
    for (Selection const& selection : element.selections) {
        if (selection.located()) {
            text += "\n" + where(selection);
        }
    }
    for (StateEntry const& entry : element.state) {
        text += "\n" + entry.variable + " = " + entry.value;
    }
    return text;
}

} // namespace view
