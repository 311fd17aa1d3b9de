// The ids of the children that one composition of an object owns; each id at most once.
#pragma once

#include "om/OidList.h"

namespace om {

class CompositionValue : public OidList<CompositionValue> {
public:
    static constexpr bool uniqueIds = true;
    static constexpr char const* typeName = "CompositionValue";

    bool empty() const { return size() == 0; }
};

} // namespace om
