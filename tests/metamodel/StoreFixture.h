// A store with the metamodel factory, and short ways to make and change
// objects in it the way the construction helpers do.
#pragma once

#include "metamodel/Factory.h"
#include "metamodel/Kel.h"
#include "om/AsType.h"
#include "om/ObjectModel.h"

#include <gtest/gtest.h>

#include <cstdint>
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

    // The Root of the store, made on first use.
    Root const& root() {
        if (m_root == nullptr) {
            m_root = &make<Root>();
        }
        return *m_root;
    }

    // A File of that name under the Root.
    File const& addFile(std::string const& name) {
        auto const& file = named<File>(name);
        change(root(), [&](Root& copy) { copy.addToFiles(file.getOid()); });
        return file;
    }

    // Gives the object a position in `file`, each field a different number.
    template <class T> T const& place(T const& object, File const& file, std::int32_t line) {
        return change(object, [&](T& copy) {
            copy.setLine(line);
            copy.setColumn(2);
            copy.setBeginLine(line);
            copy.setBeginColumn(1);
            copy.setEndLine(line + 1);
            copy.setEndColumn(9);
            copy.setFile(file);
        });
    }

    template <class T> T const& find(om::Oid id) { return om::AsType<T>(*model.find(id)); }

    Factory factory;
    om::ObjectModel model{factory};

private:
    Root const* m_root = nullptr;
};

} // namespace kel::test
