// Flags that every member definition carries; the framework only stores them.
#pragma once

#include <cstdint>

namespace om {

enum SerializedFlagType : std::int32_t { sfNotSerialized = 0, sfSerialized = 1 };

enum UndoFlagType : std::int32_t { ufNoUndo = 0, ufUndo = 1 };

} // namespace om
