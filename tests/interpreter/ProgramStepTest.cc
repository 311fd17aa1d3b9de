#include "LoadedSource.h"

#include "ErrorText.h"
#include "interpreter/ProgramStep.h"

#include "metamodel/Behaviour.h"
#include "metamodel/EnumTypeDeclaration.h"
#include "metamodel/InterfaceDeclaration.h"
#include "metamodel/Kel.h"
#include "metamodel/TreePredicates.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace interpreter::test {
namespace {

using ::test::errorOf;
using Step = ProgramStep;

LoadedSource const& Source() {
    static LoadedSource const source(R"(
interface I {
    enum R { ok, nok };
    in void e();
    in R v();
    out void o();
    behaviour {
        on e: {}
        on v: reply(R.ok);
        on optional: o;
    }
}
component C {
    provides I p;
    requires I r;
    behaviour {
        bool b = false;
        bool f() { return true; }
        on p.e(): {
            r.e();
            b = f();
        }
        on p.v(): {
            I.R x = r.v();
            reply(x);
        }
        on r.o(): p.o();
    }
}
)");
    return source;
}

kel::ConstBehaviourStatementVec TopOf(std::string const& model) {
    return Source().model(model).getBehaviour().getStatement().getStatements();
}

kel::OnEventStatement const& On(std::string const& model, std::size_t i) {
    return *TopOf(model)[i]->asOnEventStatement();
}

kel::BehaviourStatement const& BodyStatement(std::size_t on, std::size_t i) {
    return *On("C", on).getStatement().asCompoundStatement()->getStatements()[i];
}

kel::EventInstance const& EventOf(std::string const& model, std::size_t on) {
    return *On(model, on).getEvents()[0];
}

kel::EventInstance const& ActionEvent(kel::BehaviourStatement const& statement) {
    return *kel::tryGetActionEventInstance(statement);
}

kel::EnumValueDeclaration const& R(std::string const& name) {
    for (auto const* value :
         Source().model("I").asInterfaceDeclaration()->getTypes()[0]->asEnumTypeDeclaration()->getValues()) {
        if (value->getName() == name) {
            return *value;
        }
    }
    throw std::logic_error("no value " + name);
}

struct StepCase {
    std::string label;
    std::function<ProgramStepPtr(ProgramStep::SV)> make;
    std::string kindName;
    std::string observableName;
    Step::SynchronizationType synchronization;
    bool synchronizes;
    bool hasPortEvent;
    std::string netString;
};

void PrintTo(StepCase const& c, std::ostream* out) { *out << c.label; }

class ComponentStepTest : public testing::TestWithParam<StepCase> {};

TEST_P(ComponentStepTest, TextsAndSynchronizationOfTheStep) {
    auto const& c = GetParam();
    auto const step = c.make(std::make_shared<StateVector const>(Source().run("C")));
    EXPECT_EQ(step->getStepKindName(), c.kindName);
    EXPECT_EQ(step->getObservableEventName(), c.observableName);
    EXPECT_EQ(step->getSynchronizationType(), c.synchronization);
    EXPECT_EQ(step->isSynchronizationStep(), c.synchronizes);
    EXPECT_EQ(step->hasPortEvent(), c.hasPortEvent);
    EXPECT_EQ(step->to_net_string(), c.netString);
}

kel::PortEvent const None;
using SV = ProgramStep::SV;

kel::PortEvent Ev(std::size_t on) { return kel::PortEvent(EventOf("C", on)); }
EnumStateVariableValue Enum(std::string const& name) { return EnumStateVariableValue(R(name)); }

INSTANTIATE_TEST_SUITE_P(
    Steps, ComponentStepTest,
    testing::Values(
        StepCase{"call action",
                 [](SV v) { return Step::Statement(BodyStatement(0, 0), v, None); },
                 "ActionStatement", "r.e", Step::Call, true, true, "r.e"},
        StepCase{"valued call in a declaration",
                 [](SV v) { return Step::Statement(BodyStatement(1, 0), v, None); },
                 "VariableDeclarationStatement", "r.v", Step::Call, true, true, "r.v"},
        StepCase{"send action",
                 [](SV v) { return Step::Statement(On("C", 2).getStatement(), v, None); },
                 "ActionStatement", "p.o", Step::None, false, true, "p.o"},
        StepCase{"function call",
                 [](SV v) {
                     auto const& assignment = *BodyStatement(0, 1).asAssignmentStatement();
                     return Step::FunctionCall(*assignment.getValue().asFunctionCallExpression(),
                                               v, None);
                 },
                 "FunctionCall", "PSK_FunctionCall", Step::None, false, false, "PSK_FunctionCall"},
        StepCase{"valued return",
                 [](SV v) { return Step::OnEventValuedReturn(EventOf("C", 1), Enum("ok"), v, None); },
                 "OnEventReturn", "p.R_ok", Step::Return, true, false, "p.R_ok"},
        StepCase{"action return",
                 [](SV v) {
                     return Step::ActionValuedReturn(ActionEvent(BodyStatement(1, 0)), Enum("nok"),
                                                     v, None);
                 },
                 "ActionReturn", "r.R_nok", Step::Return, true, false, "r.R_nok"},
        StepCase{"receive",
                 [](SV v) { return Step::Receive(ActionEvent(On("C", 2).getStatement()), v, None); },
                 "Receive", "p.o", Step::Notification, true, true, "p.o"},
        StepCase{"dequeue",
                 [](SV v) { return Step::Dequeue(Ev(2), v, None); },
                 "Dequeue", "PSK_Dequeue", Step::None, false, true, "r.o"},
        StepCase{"thread of the model",
                 [](SV v) { return Step::ThreadEnter(Source().model("C"), v, None); },
                 "ThreadEnter", "tau", Step::None, false, true, "tau"},
        StepCase{"thread exit",
                 [](SV v) { return Step::ThreadExit(Ev(0), v, None); },
                 "ThreadExit", "PSK_ThreadExit", Step::None, false, true, "p.e"},
        StepCase{"block",
                 [](SV v) { return Step::Block(Ev(0), v, None); },
                 "Block", "PSK_Block", Step::None, false, true, "p.e"},
        StepCase{"release",
                 [](SV v) { return Step::Release(Ev(0), v, None); },
                 "Release", "PSK_Release", Step::None, false, true, "p.e"},
        StepCase{"error", [](SV v) { return Step::Error("broken", v, None); },
                 "Error", "PSK_Error", Step::None, false, false, "PSK_Error"}),
    [](auto const& info) {
        auto name = info.param.label;
        std::replace(name.begin(), name.end(), ' ', '_');
        return name;
    });

TEST(ProgramStepTest, ARunOfAPortShowsThePortInFrontOfItsEvents) {
    auto const vector = std::make_shared<StateVector const>(Source().runOfPort("C", "r"));
    auto const accepted = Step::OnEvent(EventOf("I", 0), vector, None);
    EXPECT_EQ(accepted->portEvent.port, nullptr);
    EXPECT_EQ(accepted->getPortEvent().str(), "r.e");
    EXPECT_EQ(accepted->to_net_string(), "r.e");
    EXPECT_EQ(&accepted->getPort(), &Source().port("C", "r"));
    auto const returned = Step::OnEventVoidReturn(EventOf("I", 0), vector, None);
    EXPECT_EQ(returned->getPortReturn().str(), "r.return");
    EXPECT_EQ(Step::Initialize(vector, None)->to_net_string(), "r.PSK_Initialize");
}

TEST(ProgramStepTest, AnEnqueuedEventWithoutPortIsNoStepOfTheDiagram) {
    auto const vector = std::make_shared<StateVector const>(Source().run("I"));
    auto const step = Step::Enqueue(kel::PortEvent(EventOf("I", 0)), vector, None);
    EXPECT_EQ(errorOf<std::runtime_error>([&] { step->isSynchronizationStep(); }),
              "PortEvent has no port");
    EXPECT_EQ(errorOf<std::runtime_error>([&] { Step::Initialize(vector, None)->getPort(); }),
              "ProgramStep not associated with a port");
}

TEST(ProgramStepTest, AStepRepeatsAnotherWithTheSameStatementAndVariables) {
    auto const vector = std::make_shared<StateVector const>(Source().run("C"));
    auto const& assignment = BodyStatement(0, 1);
    auto const first = Step::Statement(assignment, vector, None);
    EXPECT_TRUE(*first <= *Step::Statement(assignment, vector, None));
    EXPECT_FALSE(*first <= *Step::Statement(BodyStatement(0, 0), vector, None));
    EXPECT_FALSE(*first <= *Step::Initialize(vector, None));
    auto const& b = *Source().model("C").getBehaviour().getVariables()[0];
    StateVector changed(*vector);
    changed.AssignStateVariable(b, BoolStateVariableValue(true));
    EXPECT_FALSE(*first <=
                 *Step::Statement(assignment, std::make_shared<StateVector const>(changed), None));
    // Two valued steps hold two values: never the same.
    auto const valued =
        Step::OnEventValuedReturn(EventOf("C", 1), EnumStateVariableValue(R("ok")), vector, None);
    EXPECT_TRUE(*valued <= *valued);
    EXPECT_FALSE(*valued <= *Step::OnEventValuedReturn(EventOf("C", 1),
                                                       EnumStateVariableValue(R("ok")), vector,
                                                       None));
}

} // namespace
} // namespace interpreter::test
