// A source checked by the whole front end, and runs of its models.
#pragma once

#include "interpreter/ModelInstance.h"

#include "metamodel/BuiltinDeclarations.h"
#include "metamodel/ComponentDeclaration.h"
#include "metamodel/Factory.h"
#include "metamodel/Kel.h"
#include "om/ObjectModel.h"
#include "parser/grammar/Parser.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>

namespace interpreter::test {

struct LoadedSource {
    explicit LoadedSource(std::string const& source) {
        store.createRecursive(kel::Root::ClassName);
        std::istringstream in(source);
        bool const loaded = parser.parseStream(in, "t.kel", {}, false, true, true);
        std::ostringstream errors;
        parser.printErrors(errors);
        EXPECT_TRUE(loaded) << "the source of the test must load:\n" << errors.str();
    }

    kel::ModelDeclaration const& model(std::string const& name) const {
        for (auto const* model : kel::GetDefaultNamespace(store)->getModelsVec()) {
            if (model->getName() == name) {
                return *model;
            }
        }
        throw std::logic_error("no model " + name);
    }

    kel::PortDeclaration const& port(std::string const& component, std::string const& name) const {
        for (auto const* port : model(component).asComponentDeclaration()->getPorts()) {
            if (port->getName() == name) {
                return *port;
            }
        }
        throw std::logic_error("no port " + name);
    }

    ModelInstancePtr run(std::string const& name) const {
        return std::make_shared<ModelInstance const>(model(name));
    }

    ModelInstancePtr runOfPort(std::string const& component, std::string const& name) const {
        return std::make_shared<ModelInstance const>(port(component, name));
    }

    kel::Factory factory;
    om::ObjectModel store{factory};
    language::Parser parser{store};
};

} // namespace interpreter::test
