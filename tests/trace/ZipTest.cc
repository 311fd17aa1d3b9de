// The zip walk keeps running counts; this test holds it to the plain form that
// recounts everything from the start of each history on every pass.
#include "interpreter/LoadedSource.h"

#include "interpreter/KelSemantics.h"
#include "trace/Zip.h"

#include "metamodel/Behaviour.h"
#include "metamodel/InternalDeclaration.h"
#include "metamodel/Kel.h"
#include "metamodel/TreePredicates.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <variant>
#include <stdexcept>

namespace interpreter::test {
namespace {

using Port = kel::PortDeclaration const*;

// The walk as first written: every count taken afresh on every pass.
MicroSteps RecountingZip(Histories const& traces) {
    std::map<Port, std::size_t, PortOrder> cursors;
    for (auto const& entry : traces) {
        cursors[entry.first] = 0;
    }
    MicroSteps microSteps;
    auto exhausted = [&](Port port) { return cursors.at(port) == traces.at(port).size(); };
    auto silentRest = [&](Port port) {
        auto const& steps = traces.at(port);
        return is_silent_transition(steps.begin() + static_cast<long>(cursors.at(port)),
                                    steps.end());
    };
    auto copy = [&](Port port) { microSteps.push_back(traces.at(port)[cursors.at(port)++]); };
    auto copyActivity = [&](Port port) {
        while (!exhausted(port)) {
            bool const exit = traces.at(port)[cursors.at(port)]->kind == ProgramStep::PSK_ThreadExit;
            copy(port);
            if (exit) {
                break;
            }
        }
    };
    Port current = nullptr;
    while (true) {
        if (exhausted(current)) {
            break;
        }
        std::set<Port> blocked;
        auto const& component = traces.at(nullptr);
        for (std::size_t i = 0; i < cursors.at(nullptr); ++i) {
            if (component[i]->kind == ProgramStep::PSK_Block) {
                blocked.insert(component[i]->tryGetPort());
            } else if (component[i]->kind == ProgramStep::PSK_Release) {
                blocked.erase(component[i]->tryGetPort());
            }
        }
        std::size_t busy = 0;
        for (auto const& [port, steps] : traces) {
            int sum = 0;
            for (std::size_t i = 0; i < cursors.at(port); ++i) {
                auto const kind = steps[i]->kind;
                sum += kind == ProgramStep::PSK_ThreadEnter || kind == ProgramStep::PSK_Release;
                sum -= kind == ProgramStep::PSK_ThreadExit || kind == ProgramStep::PSK_Block;
            }
            busy += sum != 0;
        }
        if (blocked.size() == busy) {
            bool found = false;
            for (auto const& entry : cursors) {
                auto const port = entry.first;
                if (port != nullptr && port->getDirection() != kel::idirProvided &&
                    silentRest(port)) {
                    current = port;
                    found = true;
                    break;
                }
            }
            if (!found) {
                long pending = 0;
                for (auto const& step : microSteps) {
                    pending += step->kind == ProgramStep::PSK_Enqueue;
                    pending -= step->kind == ProgramStep::PSK_Dequeue;
                }
                current = nullptr;
                if (pending == 0 && !exhausted(nullptr)) {
                    auto const& next = *component[cursors.at(nullptr)];
                    if (next.kind == ProgramStep::PSK_ThreadEnter) {
                        current = next.tryGetPort();
                    } else if (next.kind == ProgramStep::PSK_Enqueue &&
                               next.getPortEvent().GetPort().asInternalDeclaration() == nullptr) {
                        current = next.tryGetPort();
                    }
                }
            }
        }
        if (exhausted(current)) {
            break;
        }
        auto const& steps = traces.at(current);
        if (current != nullptr && steps[cursors.at(current)]->kind == ProgramStep::PSK_ThreadEnter &&
            silentRest(current)) {
            copyActivity(current);
            continue;
        }
        copy(current);
        if (current != nullptr && current->getDirection() == kel::idirProvided &&
            silentRest(current)) {
            copyActivity(current);
        }
        auto const& s = *microSteps.back();
        auto const* runPort = s.stateVector->modelInstance->port;
        Port next = runPort;
        if (s.kind == ProgramStep::PSK_OnEvent && runPort != nullptr &&
            runPort->getDirection() == kel::idirProvided && s.getPortEvent().event != nullptr &&
            !kel::IsBuiltin(*s.getPortEvent().event)) {
            next = nullptr;
        } else if (s.kind == ProgramStep::PSK_Statement && s.statement != nullptr &&
                   KelSemantics::IsEventCallAction(*s.statement)) {
            auto const* port = s.getPortEvent().port;
            next = port == nullptr || port->asInternalDeclaration() != nullptr ? nullptr : port;
        } else if (s.kind == ProgramStep::PSK_Receive) {
            next = runPort != nullptr ? nullptr : s.getPortEvent().port;
        } else if (s.kind == ProgramStep::PSK_Enqueue) {
            auto const& port = s.getPortEvent().GetPort();
            next = port.asInternalDeclaration() != nullptr ? nullptr : &port;
        } else if (s.kind == ProgramStep::PSK_ThreadExit) {
            next = runPort != nullptr || s.portEvent.event == nullptr ? nullptr
                                                                      : s.getPortEvent().port;
        }
        current = exhausted(next) ? nullptr : next;
    }
    Port provided = nullptr;
    for (auto const& entry : traces) {
        if (entry.first != nullptr && entry.first->getDirection() == kel::idirProvided) {
            provided = entry.first;
            break;
        }
    }
    if (provided == nullptr) {
        throw std::runtime_error("provided_port_handle precondition not met");
    }
    while (!exhausted(provided)) {
        bool const required = is_match_required(*traces.at(provided)[cursors.at(provided)]);
        copy(provided);
        if (required) {
            break;
        }
    }
    std::erase_if(microSteps, [](MicroStep const& step) {
        return step->kind == ProgramStep::PSK_Error &&
               step->stateVector->modelInstance->getRoleName() == "provided";
    });
    for (std::size_t i = 0; i < microSteps.size(); ++i) {
        if (microSteps[i]->kind == ProgramStep::PSK_Error) {
            microSteps.erase(microSteps.begin() + static_cast<long>(i) + 1, microSteps.end());
            break;
        }
    }
    return microSteps;
}

LoadedSource const& Source() {
    static LoadedSource const source(R"(
interface I {
    in void e();
    out void n();
    behaviour {
        on e: {}
        on optional: n;
    }
}
component C {
    provides I p;
    requires I r;
    requires I s;
    provides I q;
    behaviour {
        requires kel.async t;
        on p.e(): r.e();
        on q.e(): t.req();
        on r.n(): {}
        on s.n(): {}
        on t.ack(): {}
    }
}
)");
    return source;
}

// Random steps of every kind that moves the walk, on the component's ports
// and in the ports' own runs.
class HistoryGenerator {
public:
    explicit HistoryGenerator(unsigned seed) : random(seed) {
        auto const& component = Source().model("C");
        for (auto const* port : component.asComponentDeclaration()->getPorts()) {
            ports.push_back(port);
        }
        auto const& behaviour = component.getBehaviour();
        auto const& top = behaviour.getStatement().getStatements();
        callAction = &top[0]->asOnEventStatement()->getStatement();
        internalAction = &top[1]->asOnEventStatement()->getStatement();
        internalPort = behaviour.getInternals()[0];
        componentRun = Source().run("C");
    }

    Histories histories() {
        Histories result;
        std::vector<Port> chosen(ports.begin(), ports.begin() + pick(2, 4));
        result.emplace(nullptr, history(componentRun, chosen));
        for (auto const* port : chosen) {
            result.emplace(port, history(std::make_shared<ModelInstance const>(*port), chosen));
        }
        return result;
    }

private:
    std::size_t pick(std::size_t low, std::size_t high) {
        return std::uniform_int_distribution<std::size_t>(low, high)(random);
    }

    kel::PortEvent event(Port port, std::string const& name) const {
        auto const& interface = port->getInterface().getDeclaration();
        for (auto const* declared : interface.getEvents()) {
            if (declared->getName() == name) {
                return {port, declared};
            }
        }
        throw std::logic_error("no event " + name);
    }

    MicroSteps history(ModelInstancePtr const& run, std::vector<Port> const& chosen) {
        auto const vector = std::make_shared<StateVector const>(run);
        bool const ofPort = run->port != nullptr;
        MicroSteps steps{MicroStep(ProgramStep::Initialize(vector, {}))};
        auto const length = pick(0, 24);
        for (std::size_t i = 0; i < length; ++i) {
            // A port's run names no port of its own; the walk reads the run's.
            Port port = ofPort ? nullptr : chosen[pick(0, chosen.size() - 1)];
            auto const e = ofPort ? event(run->port, "e") : event(port, "e");
            auto const n = ofPort ? event(run->port, "n") : event(port, "n");
            kel::PortEvent const plainE(port, e.event);
            kel::PortEvent const plainN(port, n.event);
            ProgramStepPtr step;
            switch (pick(0, 13)) {
            case 0: step = ProgramStep::ThreadEnter(plainE, vector, {}); break;
            case 1: step = ProgramStep::ThreadEnter(*run->model, vector, {}); break;
            case 2: step = ProgramStep::ThreadExit(plainE, vector, {}); break;
            case 3: step = ProgramStep::ThreadExit(*run->model, vector, {}); break;
            case 4: step = ProgramStep::Block(plainE, vector, {}); break;
            case 5: step = ProgramStep::Release(plainE, vector, {}); break;
            case 6:
                step = ProgramStep::Enqueue(
                    pick(0, 5) == 0 ? kel::PortEvent(internalPort, nullptr) : plainN, vector, {});
                break;
            case 7: step = ProgramStep::Dequeue(plainN, vector, {}); break;
            case 8: step = ProgramStep::Receive(plainN, vector, {}); break;
            case 9: step = ProgramStep::OnEvent(*componentEvent(), vector, {}); break;
            case 10: step = ProgramStep::Statement(*callAction, vector, {}); break;
            case 11: step = ProgramStep::Statement(*internalAction, vector, {}); break;
            case 12: step = ProgramStep::Error("failed here", vector, {}); break;
            default: step = ProgramStep::ThreadExit(plainN, vector, {}); break;
            }
            steps.emplace_back(std::move(step));
        }
        return steps;
    }

    kel::EventInstance const* componentEvent() {
        auto const& top = Source().model("C").getBehaviour().getStatement().getStatements();
        return top[pick(0, top.size() - 1)]->asOnEventStatement()->getEvents()[0];
    }

    std::mt19937 random;
    std::vector<Port> ports;
    kel::BehaviourStatement const* callAction;
    kel::BehaviourStatement const* internalAction;
    Port internalPort;
    ModelInstancePtr componentRun;
};

// The steps, or the text of what was thrown.
std::variant<std::vector<ProgramStep const*>, std::string> Outcome(auto zip,
                                                                   Histories const& histories) {
    try {
        std::vector<ProgramStep const*> steps;
        for (auto const& step : zip(histories)) {
            steps.push_back(step.get().get());
        }
        return steps;
    } catch (std::exception const& error) {
        return std::string(error.what());
    }
}

TEST(ZipTest, TheRunningCountsGiveWhatRecountingGives) {
    std::size_t merged = 0;
    for (unsigned seed = 0; seed < 3000; ++seed) {
        HistoryGenerator generator(seed);
        auto const histories = generator.histories();
        auto const expected = Outcome(RecountingZip, histories);
        ASSERT_EQ(Outcome(zipHistories, histories), expected) << "seed " << seed;
        merged += expected.index() == 0 ? std::get<0>(expected).size() : 0;
    }
    // The generated histories must mostly merge rather than fail.
    EXPECT_GT(merged, 3000u * 5);
}

} // namespace
} // namespace interpreter::test
