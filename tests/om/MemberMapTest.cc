#include "om/MemberMap.h"
#include "om/AssociationValue.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <vector>

namespace om {
namespace {

using Map = MemberMap<AssociationValue>;
using Reference = std::map<std::string, std::vector<Oid>>;

Reference contentOf(Map const& map) {
    Reference content;
    for (auto const& [name, value] : map) {
        EXPECT_FALSE(content.contains(name)) << name;
        content[name] = value.asOidVec();
    }
    return content;
}

// Against an ordered map of lists: names added in random order, values
// changed through lookups, copies and assignments between maps of other
// names; walks must go in name order and equality must agree.
TEST(MemberMapTest, AgreesWithAnOrderedMap) {
    std::mt19937 random(9);
    std::vector<std::string> const names{"b", "a", "Zed", "c2", "c10", "", "aa"};
    std::vector<Map> maps(4);
    std::vector<Reference> references(4);
    for (int step = 0; step < 3000; ++step) {
        std::size_t const i = random() % maps.size();
        std::string const& name = names[random() % names.size()];
        switch (random() % 4) {
        case 0: {
            std::size_t const j = random() % maps.size();
            maps[i] = maps[j];
            references[i] = references[j];
            break;
        }
        case 1:
            EXPECT_EQ(maps[i].contains(name), references[i].contains(name));
            if (auto* value = maps[i].find(name)) {
                value->clear();
                references[i][name].clear();
            }
            break;
        default: {
            Oid const id = static_cast<Oid>(random() % 5) + 1;
            maps[i][name].push_back(id);
            references[i][name].push_back(id);
        }
        }
        ASSERT_EQ(contentOf(maps[i]), references[i]);
        ASSERT_EQ(maps[i].size(), references[i].size());
        std::size_t const j = random() % maps.size();
        ASSERT_EQ(maps[i] == maps[j], references[i] == references[j]);
    }
}

TEST(MemberMapTest, MapsOfTheSameNamesShareThem) {
    MemberNames const& names = MemberNames::of({"x", "y"});
    Map first(names);
    Map second;
    second["x"];
    second["y"];
    EXPECT_EQ(&first.names(), &second.names());
    EXPECT_EQ(&MemberNames::empty().with("x").with("y"), &names);
    EXPECT_EQ(names.find("y"), 1u);
    EXPECT_EQ(names.find("z"), MemberNames::NoSlot);
    Map moved(std::move(first));
    EXPECT_EQ(moved.size(), 2u);
    EXPECT_EQ(&moved.names(), &names);
}

} // namespace
} // namespace om
