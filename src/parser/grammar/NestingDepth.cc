#include "parser/grammar/NestingDepth.h"

#include "om/ObjectModel.h"

#include <iterator>
#include <utility>
#include <vector>

namespace language {

// A stack of its own, since the tree may be deeper than the call stack allows.
om::Object const* findTooDeep(om::Object const& top, std::size_t limit) {
    std::vector<std::pair<om::Object const*, std::size_t>> pending{{&top, 0}};
    std::vector<om::Object const*> children;
    while (!pending.empty()) {
        auto const [object, depth] = pending.back();
        pending.pop_back();
        if (depth > limit) {
            return object;
        }
        children.clear();
        for (auto const& entry : object->getCompositions()) {
            for (om::Oid const childId : entry.second) {
                children.push_back(object->getOwner().find(childId));
            }
        }
        for (auto child = children.rbegin(); child != children.rend(); ++child) {
            pending.emplace_back(*child, depth + 1);
        }
    }
    return nullptr;
}

} // namespace language
