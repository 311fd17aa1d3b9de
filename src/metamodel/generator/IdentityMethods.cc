#include "ClassMethods.h"

namespace kel::gen {

Methods IdentityMethods(ClassDef const& cls) {
    auto const& x = cls.name;
    auto const& base = cls.base;
    Methods methods;
    // The fields hold their defaults already, so only the relations are laid out.
    methods.push_back({.name = x,
                       .initializers = base + "(true)",
                       .body = "initializeRelations(getDefinition());"});
    methods.push_back(
        {.name = x, .parameters = "bool flag", .prefix = "explicit ", .initializers = base + "(flag)"});
    methods.push_back({.name = x, .parameters = x + " const& other", .specifier = "= default"});
    methods.push_back({.name = x, .parameters = x + "&& other", .specifier = "= default"});
    methods.push_back(
        {.result = x + "&",
         .name = "operator=",
         .parameters = x + " const& other",
         .body = "if (this != &other) {\n    om::Object::operator=(other);\n}\nreturn *this;"});
    methods.push_back({.result = "std::unique_ptr<om::Object>",
                       .name = "clone",
                       .isConst = true,
                       .specifier = "override",
                       .body = "return std::make_unique<" + x + ">(*this);"});
    methods.push_back({.result = "om::ObjectDefinition const&",
                       .name = "getDefinition",
                       .isConst = true,
                       .specifier = "override",
                       .body = "if (Definition == nullptr) {\n    Definition = new " + x +
                               "Definition();\n}\nreturn *Definition;"});
    // The kind of the object's own class: a cast compares it with a range of kinds.
    methods.push_back({.result = "std::uint32_t",
                       .name = "classKind",
                       .isConst = true,
                       .specifier = "override",
                       .body = "return FirstKind;"});
    methods.push_back({.result = VecName(x),
                       .name = "toConstVec",
                       .isConst = true,
                       .body = VecName(x) + " result;\nresult.push_back(this);\nreturn result;"});
    return Family("Construction, copies, the clone, the run-time definition, the class kind, "
                  "and as a vector.",
                  methods);
}

} // namespace kel::gen
