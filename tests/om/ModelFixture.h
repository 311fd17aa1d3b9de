// A store over the test classes, with shorthands that change objects the way
// the rest of the system does: copy, change the copy, update.
#pragma once

#include "TestClasses.h"
#include "om/AsType.h"
#include "om/ObjectModel.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace test {

class ModelFixture : public ::testing::Test {
protected:
    om::Oid create(std::string const& className) {
        return model.createRecursive(className)->getOid();
    }

    template <class T> T copyOf(om::Oid id) const { return om::AsType<T>(*model.find(id)); }

    om::Oid childIn(om::Oid parent, std::string const& composition, std::size_t index = 0) const {
        return model.find(parent)->getComposition(composition).at(index);
    }

    void addChild(om::Oid parent, std::string const& composition, om::Oid child) {
        std::unique_ptr<om::Object> changed = model.find(parent)->clone();
        changed->getCompositionRef(composition).push_back(child);
        model.update(*changed);
    }

    void link(om::Oid user, std::string const& association, om::Oid target) {
        std::unique_ptr<om::Object> changed = model.find(user)->clone();
        changed->getAssociationRef(association).push_back(target);
        model.update(*changed);
    }

    // Checks the indexes against the objects reachable from the roots: every
    // child names its parent, every live target lists its users and back.
    void expectConsistentIndexes() const {
        std::set<om::Oid> live;
        for (om::Oid const root : model.getRootOids()) {
            EXPECT_EQ(model.getParentOid(root), om::NULL_OID);
            for (om::Oid const id : model.getTreeOids(root)) {
                EXPECT_TRUE(live.insert(id).second) << id << " hangs in two trees";
            }
        }
        for (om::Oid const id : live) {
            om::Object const* object = model.find(id);
            EXPECT_EQ(object->tryGetOwner(), &model);
            for (om::Oid const child : object->getAllChildren()) {
                EXPECT_EQ(model.getParentOid(child), id) << "child " << child;
            }
            for (om::Oid const target : object->getAllAssociations()) {
                if (model.tryFind(target) != nullptr) {
                    EXPECT_TRUE(model.getUserOids(target).contains(id)) << target << " by " << id;
                }
            }
            for (om::Oid const user : model.getUserOids(id)) {
                ASSERT_TRUE(live.contains(user)) << "stale user " << user << " of " << id;
                EXPECT_TRUE(model.find(user)->getAllAssociations().contains(id));
            }
        }
    }

    Factory factory;
    om::ObjectModel model{factory};
};

} // namespace test
