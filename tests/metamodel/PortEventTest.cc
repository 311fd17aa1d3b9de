// Events on ports and their replies: text forms, directions and reply sets.
#include "EventModelFixture.h"

#include "metamodel/PortEvent.h"
#include "metamodel/StatementConstructors.h"
#include "om/OMException.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace kel {
namespace {

using PortEventTest = test::EventModelFixture;

std::vector<std::string> ReplyTexts(PortEvent const& event) {
    std::vector<std::string> texts;
    for (auto const& reply : event.PortReturns()) {
        texts.push_back(reply.str());
    }
    return texts;
}

template <class Error> void ExpectError(auto action, std::string const& message) {
    try {
        action();
        FAIL() << "no exception";
    } catch (Error const& error) {
        EXPECT_EQ(error.what(), message);
    }
}

TEST_F(PortEventTest, SilentStep) {
    PortEvent const tau;
    EXPECT_EQ(tau.str(), "tau");
    EXPECT_EQ(tau.event_str(), "tau");
    EXPECT_FALSE(tau.IsInput());
    EXPECT_FALSE(tau.IsCall());
    EXPECT_TRUE(tau.IsVoid());
    EXPECT_TRUE(tau.PortReturns().empty());
    ExpectError<std::runtime_error>([&] { tau.GetPort(); }, "PortEvent has no port");
    ExpectError<std::runtime_error>([&] { tau.getInterface(); }, "PortEvent has no event");
}

TEST_F(PortEventTest, TextForms) {
    PortEvent const onPort(p, &eventOfI("x"));
    EXPECT_EQ(onPort.event_str(), "x");
    EXPECT_EQ(onPort.str(), "p.x");
    EXPECT_EQ(&onPort.GetPort(), p);
    EXPECT_EQ(PortEvent(nullptr, &eventOfI("x")).str(), "x");
}

TEST_F(PortEventTest, MadeFromAResolvedInstance) {
    auto const& instance = find<EventInstance>(constructEventInstance(model, "p", "e", false));
    change(instance.getEvent(),
           [&](EventReference& copy) { copy.setDeclaration(eventOfI("e").getOid()); });
    change(instance.getPort(), [&](PortReference& copy) { copy.setDeclaration(p->getOid()); });
    EXPECT_EQ(PortEvent(instance), PortEvent(p, &eventOfI("e")));
    auto const& bare = find<EventInstance>(constructEventInstance(model, "", "e", false));
    change(bare.getEvent(),
           [&](EventReference& copy) { copy.setDeclaration(eventOfI("e").getOid()); });
    EXPECT_EQ(PortEvent(bare), PortEvent(nullptr, &eventOfI("e")));
}

TEST_F(PortEventTest, TheInterfaceIsTheEventsParent) {
    EXPECT_EQ(&PortEvent(r, &eventOfI("e")).getInterface(), i);
    auto const& loose = event("loose", edirIn, "void", nullptr);
    ExpectError<om::OMException>([&] { PortEvent(nullptr, &loose).getInterface(); },
                                 "Object doesn't have parent of type kel::InterfaceDeclaration");
}

TEST_F(PortEventTest, InputsCallsAndVoids) {
    struct Row {
        PortDeclaration const* port;
        std::string event;
        bool input;
        bool call;
        bool isVoid;
    };
    std::vector<Row> const rows{
        {nullptr, "e", true, true, true},    {nullptr, "x", false, false, true},
        {p, "e", true, true, true},          {p, "x", false, false, true},
        {r, "e", false, true, true},         {r, "x", true, false, true},
        {p, "f", true, true, false},         {nullptr, "inevitable", false, false, true},
        {r, "optional", false, false, true}, {unknown, "u", false, false, true},
    };
    for (auto const& row : rows) {
        PortEvent const event(row.port, &eventOfI(row.event));
        EXPECT_EQ(event.IsInput(), row.input) << event.str();
        EXPECT_EQ(event.IsCall(), row.call) << event.str();
        EXPECT_EQ(event.IsVoid(), row.isVoid) << event.str();
    }
}

TEST_F(PortEventTest, RepliesFollowTheReturnType) {
    EXPECT_EQ(ReplyTexts(PortEvent(p, &eventOfI("e"))), (std::vector<std::string>{"p.return"}));
    EXPECT_EQ(ReplyTexts(PortEvent(nullptr, &eventOfI("e"))), (std::vector<std::string>{"return"}));
    EXPECT_EQ(ReplyTexts(PortEvent(p, &eventOfI("f"))),
              (std::vector<std::string>{"p.Result_ok", "p.Result_nok"}));
    EXPECT_EQ(ReplyTexts(PortEvent(p, &eventOfI("g"))),
              (std::vector<std::string>{"p.true", "p.false"}));
    EXPECT_EQ(ReplyTexts(PortEvent(nullptr, &eventOfI("h"))),
              (std::vector<std::string>{"0", "1", "2", "3"}));
    EXPECT_TRUE(ReplyTexts(PortEvent(p, &eventOfI("y"))).empty()); // unresolved type
    EXPECT_TRUE(ReplyTexts(PortEvent(p, &eventOfI("optional"))).empty());
}

TEST_F(PortEventTest, TypesOfAnotherInterfaceCarryItsName) {
    EXPECT_EQ(ReplyTexts(PortEvent(p, &eventOfI("k"))),
              (std::vector<std::string>{"p.J.Other_a", "p.J.Other_b"}));
    EXPECT_EQ(ReplyTexts(PortEvent(nullptr, &eventOfI("k"))),
              (std::vector<std::string>{"J.Other_a", "J.Other_b"}));
    // Seen from J itself, its own type needs no prefix.
    PortReturn reply;
    reply.interface = j;
    reply.type = j->getTypes().toPtr();
    reply.enumValue = j->getTypes().asEnumTypeDeclaration().toPtr()->getValues()[1];
    EXPECT_EQ(reply.value_str(), "Other_b");
}

TEST_F(PortEventTest, RepliesKnowTheirInterface) {
    auto const withPort = PortEvent(p, &eventOfI("g")).PortReturns();
    EXPECT_EQ(withPort[0].getInterface(), i);
    EXPECT_EQ(withPort[0].port, p);
    EXPECT_TRUE(withPort[0].boolValue);
    EXPECT_FALSE(withPort[1].boolValue);
    auto const withoutPort = PortEvent(nullptr, &eventOfI("e")).PortReturns();
    EXPECT_EQ(withoutPort[0].interface, i);
    EXPECT_EQ(withoutPort[0].type, nullptr);
}

TEST_F(PortEventTest, ValidReturnsByText) {
    PortEvent const voidEvent(p, &eventOfI("e"));
    EXPECT_TRUE(voidEvent.IsValidReturn("p.return"));
    EXPECT_FALSE(voidEvent.IsValidReturn("p.ok"));
    EXPECT_FALSE(voidEvent.IsValidReturn("return"));
    PortEvent const intEvent(r, &eventOfI("h"));
    EXPECT_TRUE(intEvent.IsValidReturn("r.3"));
    EXPECT_FALSE(intEvent.IsValidReturn("r.4"));
}

TEST_F(PortEventTest, OtherTypesGiveAPlaceholderText) {
    PortReturn reply;
    reply.type = &find<DataTypeDeclaration>(constructDataTypeDeclaration(model, "D", "$x$"));
    EXPECT_EQ(reply.value_str(), "bummer");
    reply.port = p;
    EXPECT_EQ(reply.str(), "p.bummer");
}

} // namespace
} // namespace kel
