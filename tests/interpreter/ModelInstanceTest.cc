#include "LoadedSource.h"

#include "interpreter/ModelInstance.h"

#include <gtest/gtest.h>

namespace interpreter::test {
namespace {

LoadedSource const& Source() {
    static LoadedSource const source(R"(
interface I {
    in void e();
    out void o();
    behaviour {
        on e: {}
        on optional: o;
    }
}
component C {
    provides I p;
    requires I r;
    requires external I x;
    behaviour {
        requires kel.async t;
        on p.e(): {}
        on r.o(): {}
        on x.o(): {}
        on t.ack(): {}
    }
}
)");
    return source;
}

struct PortEventCase {
    std::string model;
    std::string text;
    std::string port;  // "" for none
    std::string event; // "" for none
};

class GetPortEventTest : public testing::TestWithParam<PortEventCase> {};

TEST_P(GetPortEventTest, ResolvesTheTextOfATraceEntry) {
    auto const& c = GetParam();
    auto const event = ModelInstance(Source().model(c.model)).getPortEvent(c.text);
    EXPECT_EQ(event.port == nullptr ? "" : event.port->getName(), c.port);
    EXPECT_EQ(event.event == nullptr ? "" : event.event->getName(), c.event);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, GetPortEventTest,
    testing::Values(PortEventCase{"I", "e", "", "e"}, PortEventCase{"I", "o", "", "o"},
                    // Built-in events are no observable events of the interface.
                    PortEventCase{"I", "optional", "", ""}, PortEventCase{"I", "p.e", "", ""},
                    PortEventCase{"C", "p.e", "p", "e"}, PortEventCase{"C", "r.o", "r", "o"},
                    // An internal port's events come second.
                    PortEventCase{"C", "t.ack", "t", "ack"},
                    // A first dotted part that names a port gives the port alone.
                    PortEventCase{"C", "p.flush", "p", ""}, PortEventCase{"C", "r", "r", ""},
                    PortEventCase{"C", "r.o.x", "r", ""}, PortEventCase{"C", "", "", ""},
                    PortEventCase{"C", "q.e", "", ""}));

TEST(ModelInstanceTest, NamesTheRoleOfTheRun) {
    auto const& source = Source();
    EXPECT_EQ(ModelInstance(source.port("C", "p")).getRoleName(), "provided");
    EXPECT_EQ(ModelInstance(source.port("C", "r")).getRoleName(), "required");
    EXPECT_EQ(ModelInstance(source.port("C", "x")).getRoleName(), "required external");
}

TEST(ModelInstanceTest, TellsInputFromOutputEvents) {
    ModelInstance const component(Source().model("C"));
    EXPECT_TRUE(component.isInputEvent("p.e"));
    EXPECT_TRUE(component.isInputEvent("r.o"));
    EXPECT_FALSE(component.isInputEvent("p.o"));
    EXPECT_TRUE(component.isOutputEvent("p.o"));
    EXPECT_TRUE(component.isOutputEvent("r.e"));
    EXPECT_FALSE(component.isOutputEvent("r.o"));
    ModelInstance const interface(Source().model("I"));
    EXPECT_TRUE(interface.isInputEvent("e"));
    EXPECT_TRUE(interface.isOutputEvent("o"));
    EXPECT_FALSE(interface.isOutputEvent("e"));
}

} // namespace
} // namespace interpreter::test
