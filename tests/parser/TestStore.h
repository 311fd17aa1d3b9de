// A store for the syntax tree of one test, with its Root.
#pragma once

#include "metamodel/Factory.h"
#include "metamodel/Kel.h"
#include "om/ObjectModel.h"

namespace language {

struct TestStore {
    TestStore() { model.createRecursive(kel::Root::ClassName); }

    kel::Factory factory;
    om::ObjectModel model{factory};
};

} // namespace language
