// The event sets of interfaces, ports and components.
#include "EventModelFixture.h"

#include "metamodel/EventSets.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace kel {
namespace {

using EventSetsTest = test::EventModelFixture;
using Texts = std::vector<std::string>;

TEST_F(EventSetsTest, OfAnInterface) {
    EXPECT_EQ(TextsOf(ObservableEvents(*i)), (Texts{"e", "f", "g", "h", "k", "x", "y"}));
    EXPECT_EQ(TextsOf(InputEvents(*i)), (Texts{"e", "f", "g", "h", "k", "y"}));
    EXPECT_EQ(TextsOf(OutputEvents(*i)), (Texts{"x", "optional"}));
    EXPECT_TRUE(InternalEvents(*i).empty());
}

TEST_F(EventSetsTest, OfPortsByDirection) {
    EXPECT_EQ(TextsOf(InputEvents(*p)), (Texts{"p.e", "p.f", "p.g", "p.h", "p.k", "p.y"}));
    EXPECT_EQ(TextsOf(OutputEvents(*p)), (Texts{"p.x"}));
    EXPECT_EQ(TextsOf(InputEvents(*r)), (Texts{"r.x"}));
    EXPECT_EQ(TextsOf(OutputEvents(*r)), (Texts{"r.e", "r.f", "r.g", "r.h", "r.k", "r.y"}));
    EXPECT_EQ(TextsOf(InputEvents(*unknown)), (Texts{"w.u"}));
    EXPECT_TRUE(OutputEvents(*unknown).empty());
    EXPECT_TRUE(InputEvents(*unresolved).empty());
    EXPECT_TRUE(OutputEvents(*unresolved).empty());
}

TEST_F(EventSetsTest, OfAComponentInPortOrder) {
    EXPECT_EQ(TextsOf(ObservableEvents(*component)),
              (Texts{"p.e", "p.f", "p.g", "p.h", "p.k", "p.x", "p.y", "r.e", "r.f", "r.g", "r.h",
                     "r.k", "r.x", "r.y"}));
    EXPECT_EQ(TextsOf(InputEvents(*component)),
              (Texts{"p.e", "p.f", "p.g", "p.h", "p.k", "p.y", "r.x"}));
    EXPECT_EQ(TextsOf(OutputEvents(*component)),
              (Texts{"p.x", "r.e", "r.f", "r.g", "r.h", "r.k", "r.y"}));
    EXPECT_EQ(TextsOf(InternalEvents(*component)),
              (Texts{"q.e", "q.f", "q.g", "q.h", "q.k", "q.x", "q.y"}));
    EXPECT_EQ(InternalEvents(*component)[0].port, component->getBehaviour().getInternals()[0]);
}

TEST_F(EventSetsTest, AComponentWithoutBehaviourHasNoInternals) {
    auto const& bare =
        find<ComponentDeclaration>(constructComponentDeclaration(model, "B", {}, 0, 0));
    EXPECT_THROW(InternalEvents(bare), std::exception);
    EXPECT_TRUE(ObservableEvents(bare).empty());
}

TEST_F(EventSetsTest, ModelsDispatchOnTheirClass) {
    ModelDeclaration const& asInterface = *i;
    ModelDeclaration const& asComponent = *component;
    EXPECT_EQ(ObservableEvents(asInterface), ObservableEvents(*i));
    EXPECT_EQ(InputEvents(asComponent), InputEvents(*component));
    EXPECT_EQ(OutputEvents(asComponent), OutputEvents(*component));
    EXPECT_EQ(InternalEvents(asComponent), InternalEvents(*component));
    auto const& plain = make<ModelDeclaration>();
    try {
        InputEvents(plain);
        FAIL() << "no exception";
    } catch (std::runtime_error const& error) {
        EXPECT_STREQ(error.what(), "Unexpected ModelDeclaration type");
    }
}

TEST_F(EventSetsTest, PortQueriesByText) {
    EXPECT_EQ(InputEvent(*p, "p.f"), PortEvent(p, &eventOfI("f")));
    try {
        InputEvent(*p, "p.x");
        FAIL() << "no exception";
    } catch (std::runtime_error const& error) {
        EXPECT_STREQ(error.what(), "No port input event namedp.x");
    }
    EXPECT_TRUE(IsPortInputEvent(*r, "r.x"));
    EXPECT_FALSE(IsPortInputEvent(*r, "r.e"));
    EXPECT_FALSE(IsPortInputEvent(*unresolved, "z.e"));
    EXPECT_TRUE(IsPortOutputEvent(*r, "r.e"));
    EXPECT_FALSE(IsPortOutputEvent(*r, "r.optional"));
    EXPECT_FALSE(IsPortOutputEvent(*unknown, "w.u"));
}

} // namespace
} // namespace kel
