// Small sources parsed through the driver, with the errors they give, the
// errors their lines expect, and lookups of their declarations by name.
#pragma once

#include "TestStore.h"
#include "metamodel/BuiltinDeclarations.h"
#include "parser/grammar/Parser.h"

#include <gtest/gtest.h>

#include <regex>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace language::test {

using Lines = std::vector<std::string>;

// How far the driver takes a source: resolution only, or every check as well.
enum class Passes { Resolve, Check };

struct ParsedSource {
    // The error lines, "t.kel:line:column: message" each.
    Lines parse(std::string const& source, Passes passes) {
        std::istringstream in(source);
        succeeded = parser.parseStream(in, "t.kel", {}, false, passes == Passes::Check, true);
        std::ostringstream out;
        parser.printErrors(out);
        Lines errors;
        std::istringstream printed(out.str());
        for (std::string line; std::getline(printed, line);) {
            errors.push_back(line);
        }
        return errors;
    }

    TestStore store;
    Parser parser{store.model};
    bool succeeded = false;
};

// A source that must resolve, for the analyses that the checks call.
struct ResolvedSource : ParsedSource {
    explicit ResolvedSource(std::string const& source) {
        Lines const errors = parse(source, Passes::Resolve);
        EXPECT_TRUE(succeeded) << "the source of the test must resolve:\n"
                               << testing::PrintToString(errors);
    }

    kel::ModelDeclaration const& model(std::string const& name) const {
        for (kel::ModelDeclaration const* model :
             kel::GetDefaultNamespace(store.model)->getModelsVec()) {
            if (model->getName() == name) {
                return *model;
            }
        }
        throw std::logic_error("no model " + name);
    }

    kel::Behaviour const& behaviour(std::string const& modelName) const {
        return model(modelName).getBehaviour();
    }

    kel::FunctionDeclaration const& function(std::string const& modelName,
                                             std::string const& name) const {
        for (kel::FunctionDeclaration const* function : behaviour(modelName).getFunctionsVec()) {
            if (function->getName() == name) {
                return *function;
            }
        }
        throw std::logic_error("no function " + name);
    }
};

// Expectations written on the lines that cause them: "//@12: text" on line 5
// expects "t.kel:5:12: text". On one line they are taken in the order written.
inline Lines annotatedErrors(std::string const& source) {
    static std::regex const annotation(R"(//@(\d+): (.*?)\s*(?= //@|$))");
    Lines expected;
    std::istringstream lines(source);
    int number = 0;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        for (std::sregex_iterator it(line.begin(), line.end(), annotation), end; it != end; ++it) {
            expected.push_back("t.kel:" + std::to_string(number) + ":" + (*it)[1].str() + ": " +
                               (*it)[2].str());
        }
    }
    return expected;
}

// The line of an error at a line and column of "t.kel".
inline std::string at(int line, int column, std::string const& message) {
    return "t.kel:" + std::to_string(line) + ":" + std::to_string(column) + ": " + message;
}

// The same for a well-formedness error.
inline std::string wf(int line, int column, std::string const& message) {
    return at(line, column, "Well-formedness error: " + message);
}

// A source, which begins with a line break so that line 1 is the one after it,
// and the errors it must give, in the order of reporting.
struct SourceCase {
    std::string name;
    std::string source;
    Lines expected;
    Passes passes = Passes::Check;
};

// A case whose expectations are written on its lines.
inline SourceCase annotatedCase(std::string const& name, std::string const& source,
                                Passes passes = Passes::Check) {
    return {name, source, annotatedErrors(source.substr(1)), passes};
}

inline std::string caseName(testing::TestParamInfo<SourceCase> const& info) {
    return info.param.name;
}

// Each file of cases instantiates this with its own prefix.
class SourceErrorsTest : public testing::TestWithParam<SourceCase> {};

} // namespace language::test
