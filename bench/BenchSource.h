// A kel source loaded and checked by the whole front end, for benchmarks that
// run its models.
#pragma once

#include "interpreter/ModelInstance.h"

#include "metamodel/BuiltinDeclarations.h"
#include "metamodel/ComponentDeclaration.h"
#include "metamodel/Factory.h"
#include "metamodel/Kel.h"
#include "om/ObjectModel.h"
#include "parser/grammar/Parser.h"

#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>

namespace bench {

struct BenchSource {
    explicit BenchSource(char const* text) {
        store.createRecursive(kel::Root::ClassName);
        std::istringstream in(text);
        if (!parser.parseStream(in, "bench.kel", {}, false, true, true)) {
            throw std::runtime_error("the bench source does not load");
        }
    }

    kel::ModelDeclaration const& model(std::string const& name) const {
        for (auto const* model : kel::GetDefaultNamespace(store)->getModelsVec()) {
            if (model->getName() == name) {
                return *model;
            }
        }
        throw std::logic_error("the bench source has no model " + name);
    }

    ModelInstancePtr run(std::string const& name) const {
        return std::make_shared<ModelInstance const>(model(name));
    }

    kel::Factory factory;
    om::ObjectModel store{factory};
    language::Parser parser{store};
};

} // namespace bench
