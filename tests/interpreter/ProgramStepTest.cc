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
    std::function<ProgramStepPtr(StateVector const&)> make;
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
    StateVector const vector(Source().run("C"));
    auto const step = c.make(vector);
    EXPECT_EQ(step->getStepKindName(), c.kindName);
    EXPECT_EQ(step->getObservableEventName(), c.observableName);
    EXPECT_EQ(step->getSynchronizationType(), c.synchronization);
    EXPECT_EQ(step->isSynchronizationStep(), c.synchronizes);
    EXPECT_EQ(step->hasPortEvent(), c.hasPortEvent);
    EXPECT_EQ(step->to_net_string(), c.netString);
}

kel::PortEvent const None;

INSTANTIATE_TEST_SUITE_P(
    Steps, ComponentStepTest,
    testing::Values(
        StepCase{"call action",
                 [](auto const& sv) { return Step::Statement(BodyStatement(0, 0), sv, None); },
                 "ActionStatement", "r.e", Step::Call, true, true, "r.e"},
        StepCase{"assignment",
                 [](auto const& sv) { return Step::Statement(BodyStatement(0, 1), sv, None); },
                 "AssignmentStatement", "PSK_Statement", Step::None, false, false,
                 "PSK_Statement"},
        StepCase{"valued call in a declaration",
                 [](auto const& sv) { return Step::Statement(BodyStatement(1, 0), sv, None); },
                 "VariableDeclarationStatement", "r.v", Step::Call, true, true, "r.v"},
        StepCase{"send action",
                 [](auto const& sv) {
                     return Step::Statement(On("C", 2).getStatement(), sv, None);
                 },
                 "ActionStatement", "p.o", Step::None, false, true, "p.o"},
        StepCase{"on",
                 [](auto const& sv) {
                     return Step::Statement(On("C", 0), sv, None);
                 },
                 "OnEventStatement", "PSK_Statement", Step::None, false, false, "PSK_Statement"},
        StepCase{"function call",
                 [](auto const& sv) {
                     auto const& assignment = *BodyStatement(0, 1).asAssignmentStatement();
                     return Step::FunctionCall(*assignment.getValue().asFunctionCallExpression(),
                                               sv, None);
                 },
                 "FunctionCall", "PSK_FunctionCall", Step::None, false, false, "PSK_FunctionCall"},
        StepCase{"accepted event",
                 [](auto const& sv) { return Step::OnEvent(EventOf("C", 0), sv, None); },
                 "OnEvent", "PSK_OnEvent", Step::None, false, true, "p.e"},
        StepCase{"void return",
                 [](auto const& sv) { return Step::OnEventVoidReturn(EventOf("C", 0), sv, None); },
                 "OnEventReturn", "p.return", Step::Return, true, false, "p.return"},
        StepCase{"valued return",
                 [](auto const& sv) {
                     return Step::OnEventValuedReturn(EventOf("C", 1),
                                                      EnumStateVariableValue(R("ok")), sv, None);
                 },
                 "OnEventReturn", "p.R_ok", Step::Return, true, false, "p.R_ok"},
        StepCase{"action return",
                 [](auto const& sv) {
                     return Step::ActionValuedReturn(ActionEvent(BodyStatement(1, 0)),
                                                     EnumStateVariableValue(R("nok")), sv, None);
                 },
                 "ActionReturn", "r.R_nok", Step::Return, true, false, "r.R_nok"},
        StepCase{"return assignment",
                 [](auto const& sv) {
                     return Step::ValuedReturnAssignment(BodyStatement(1, 0),
                                                         EnumStateVariableValue(R("nok")), sv,
                                                         None);
                 },
                 "ReturnAssignement", "PSK_ReturnAssignment", Step::None, false, false,
                 "PSK_ReturnAssignment"},
        StepCase{"receive",
                 [](auto const& sv) {
                     return Step::Receive(ActionEvent(On("C", 2).getStatement()), sv, None);
                 },
                 "Receive", "p.o", Step::Notification, true, true, "p.o"},
        StepCase{"enqueue",
                 [](auto const& sv) {
                     return Step::Enqueue(kel::PortEvent(EventOf("C", 2)), sv, None);
                 },
                 "Enqueue", "r.o", Step::Notification, true, true, "r.o"},
        StepCase{"dequeue",
                 [](auto const& sv) {
                     return Step::Dequeue(kel::PortEvent(EventOf("C", 2)), sv, None);
                 },
                 "Dequeue", "PSK_Dequeue", Step::None, false, true, "r.o"},
        StepCase{"thread of a call",
                 [](auto const& sv) {
                     return Step::ThreadEnter(kel::PortEvent(EventOf("C", 0)), sv, None);
                 },
                 "ThreadEnter", "p.e", Step::Call, true, true, "p.e"},
        StepCase{"thread of the model",
                 [](auto const& sv) {
                     return Step::ThreadEnter(Source().model("C"), sv, None);
                 },
                 "ThreadEnter", "tau", Step::None, false, true, "tau"},
        StepCase{"thread exit",
                 [](auto const& sv) {
                     return Step::ThreadExit(kel::PortEvent(EventOf("C", 0)), sv, None);
                 },
                 "ThreadExit", "PSK_ThreadExit", Step::None, false, true, "p.e"},
        StepCase{"block",
                 [](auto const& sv) {
                     return Step::Block(kel::PortEvent(EventOf("C", 0)), sv, None);
                 },
                 "Block", "PSK_Block", Step::None, false, true, "p.e"},
        StepCase{"release",
                 [](auto const& sv) {
                     return Step::Release(kel::PortEvent(EventOf("C", 0)), sv, None);
                 },
                 "Release", "PSK_Release", Step::None, false, true, "p.e"},
        StepCase{"initialize", [](auto const& sv) { return Step::Initialize(sv, None); },
                 "Initialize", "PSK_Initialize", Step::None, false, false, "PSK_Initialize"},
        StepCase{"error", [](auto const& sv) { return Step::Error("broken", sv, None); },
                 "Error", "PSK_Error", Step::None, false, false, "PSK_Error"}),
    [](auto const& info) {
        auto name = info.param.label;
        std::replace(name.begin(), name.end(), ' ', '_');
        return name;
    });

TEST(ProgramStepTest, ARunOfAPortShowsThePortInFrontOfItsEvents) {
    StateVector const vector(Source().runOfPort("C", "r"));
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
    StateVector const vector(Source().run("I"));
    auto const step = Step::Enqueue(kel::PortEvent(EventOf("I", 0)), vector, None);
    EXPECT_EQ(errorOf<std::runtime_error>([&] { step->isSynchronizationStep(); }),
              "PortEvent has no port");
    EXPECT_EQ(errorOf<std::runtime_error>([&] { Step::Initialize(vector, None)->getPort(); }),
              "ProgramStep not associated with a port");
}

TEST(ProgramStepTest, FactoriesSetWhatTheDiagramSelects) {
    StateVector const vector(Source().run("C"));
    auto const& send = On("C", 2).getStatement();
    auto const statement = Step::Statement(send, vector, None);
    EXPECT_EQ(statement->locationObject, &send);
    EXPECT_EQ(statement->eventInstance, &ActionEvent(send));
    EXPECT_EQ(statement->tryGetEvent()->getName(), "o");
    EXPECT_EQ(Step::Initialize(vector, None)->locationObject, &Source().model("C"));
    EXPECT_EQ(Step::Enqueue(kel::PortEvent(EventOf("C", 2)), vector, None)->locationObject,
              &Source().model("C").getBehaviour());
    auto const valued =
        Step::OnEventValuedReturn(EventOf("C", 1), EnumStateVariableValue(R("ok")), vector, None);
    ASSERT_TRUE(valued->value.has_value());
    EXPECT_EQ((*valued->value)->str(), "R.ok");
    EXPECT_EQ(valued->portReturn.enumValue, &R("ok"));
    EXPECT_FALSE(Step::OnEventVoidReturn(EventOf("C", 1), vector, None)->value.has_value());
    EXPECT_EQ(Step::Error("broken", vector, None)->errorMessage, "broken");
}

TEST(ProgramStepTest, AStepRepeatsAnotherWithTheSameStatementAndVariables) {
    StateVector vector(Source().run("C"));
    auto const& assignment = BodyStatement(0, 1);
    auto const first = Step::Statement(assignment, vector, None);
    EXPECT_TRUE(*first <= *Step::Statement(assignment, vector, None));
    EXPECT_FALSE(*first <= *Step::Statement(BodyStatement(0, 0), vector, None));
    EXPECT_FALSE(*first <= *Step::Initialize(vector, None));
    auto const& b = *Source().model("C").getBehaviour().getVariables()[0];
    StateVector changed(vector);
    changed.AssignStateVariable(b, BoolStateVariableValue(true));
    EXPECT_FALSE(*first <= *Step::Statement(assignment, changed, None));
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
