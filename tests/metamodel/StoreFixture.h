// A store with the metamodel factory, and short ways to make and change
// objects in it the way the construction helpers do.
#pragma once

#include "metamodel/Factory.h"
#include "metamodel/Kel.h"
#include "om/AsType.h"
#include "om/ObjectModel.h"

#include <gtest/gtest.h>

#include <string>

namespace kel::test {

class StoreFixture : public ::testing::Test {
protected:
    // A new object of class T with its required children.
    template <class T> T const& make() {
        return om::AsType<T>(*model.createRecursive(T::ClassName));
    }

    // Applies `change` to a copy of the stored object and stores the copy.
    template <class T, class Change> T const& change(T const& object, Change change) {
        T copy(object);
        change(copy);
        model.update(copy);
        return object;
    }

    template <class T> T const& named(std::string const& name) {
        return change(make<T>(), [&](T& copy) { copy.setName(name); });
    }

    Factory factory;
    om::ObjectModel model{factory};
};

} // namespace kel::test
