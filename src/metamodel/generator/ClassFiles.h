// The four generated files of one metamodel class: X.h, XDefinition.h,
// ConstXVec.h and X.cc.
#pragma once

#include "Schema.h"

#include <filesystem>

namespace kel::gen {

void WriteClassFiles(Schema const& schema, ClassDef const& cls, std::filesystem::path const& dir);

} // namespace kel::gen
