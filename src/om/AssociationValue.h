// The ids that one association of an object refers to; may hold an id twice.
#pragma once

#include "om/OidList.h"

namespace om {

class AssociationValue : public OidList<AssociationValue> {
public:
    static constexpr bool uniqueIds = false;
    static constexpr char const* typeName = "AssociationValue";
};

} // namespace om
