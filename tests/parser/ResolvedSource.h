// A source parsed and resolved without the checks, with lookups of its
// declarations by name, for the analyses that the checks call.
#pragma once

#include "TestStore.h"
#include "metamodel/BuiltinDeclarations.h"
#include "parser/Parser.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <string>

namespace language::test {

struct ResolvedSource {
    explicit ResolvedSource(std::string const& source) {
        std::istringstream in(source);
        bool const resolved = parser.parseStream(in, "t.kel", {}, false, false, true);
        std::ostringstream errors;
        parser.printErrors(errors);
        EXPECT_TRUE(resolved) << "the source of the test must resolve:\n" << errors.str();
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

    TestStore store;
    Parser parser{store.model};
};

} // namespace language::test
