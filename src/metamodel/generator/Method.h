// One member function of a generated class, printed once as a declaration in
// the header and once as a definition in the source.
#pragma once

#include <string>
#include <vector>

namespace kel::gen {

struct Method {
    std::string result{};     // empty for constructors and destructors
    std::string name{};       // "getName", or the class name for a constructor
    std::string parameters{}; // "std::string const& value"
    bool isConst = false;
    std::string specifier{};    // "override", "= default" or empty
    std::string prefix{};       // "explicit ", "virtual " or empty
    std::string initializers{}; // constructors: what follows the colon
    std::string body{};         // statements, one per line, without the braces
    std::string comment{};      // the line above the first method of a family

    // The line in the class body.
    std::string declaration() const;
    // The out-of-class definition; empty for a defaulted member.
    std::string definition(std::string const& className) const;
};

using Methods = std::vector<Method>;

// The methods, with a one-line comment above the first one's declaration.
Methods Family(std::string const& comment, Methods methods);

// Appends the declarations, indented for a class body: each family under its
// comment, a blank line between two families.
void PrintDeclarations(std::string& out, Methods const& methods);
void PrintDefinitions(std::string& out, std::string const& className, Methods const& methods);

} // namespace kel::gen
