// Where statements may stand, which events are triggers and actions, and how
// values of actions and calls may be used: parsed sources with the errors that
// the rules give, in the order that the checks run.
#include "ParsedSource.h"

#include <gmock/gmock.h>

namespace language::test {
namespace {

// Line 1 of several sources: an interface for components to use.
#define SERVICE "\ninterface I { in void e(); out void o(); behaviour { on e: {} } }"

INSTANTIATE_TEST_SUITE_P(
    Placement, SourceErrorsTest,
    testing::Values(
        SourceCase{"FirstStatementMakesTheListImperative",
                   R"kel(
interface I {
  in void e();
  behaviour {
    bool b = false;
    b = true;
    on e: {}
  }
}
)kel",
                   {wf(5, 7, "Assignment statement only allowed within OnEventStatement"),
                    wf(6, 5, "Only imperative Statement allowed here")}},
        SourceCase{"BodyOfOnIsANewList",
                   R"kel(
interface I {
  in void e();
  behaviour {
    bool b = false;
    on e: { b = true; b = false; }
    [b] on e: { on e: {} }
  }
}
)kel",
                   {wf(6, 17, "OnEventStatement not allowed within other OnEventStatement")}},
        SourceCase{"NestedOnAndBlocking",
                   SERVICE R"kel(
component C {
  provides I p;
  behaviour {
    on p.e(): { on p.e(): { on p.e(): {} } }
    blocking blocking on p.e(): {}
  }
}
)kel",
                   {wf(5, 17, "OnEventStatement not allowed within other OnEventStatement"),
                    wf(5, 29, "OnEventStatement not allowed within other OnEventStatement"),
                    wf(6, 14, "BlockingStatement not allowed within other BlockingStatement")}},
        SourceCase{"BlockingWhereItCannotWait",
                   SERVICE R"kel(
interface J {
  in void e();
  behaviour { blocking on e: {} }
}
component C {
  provides I p;
  provides I q;
  behaviour { on q.e(): {} blocking on p.e(): {} }
}
)kel",
                   {wf(4, 15, "BlockingStatement not allowed in interface behaviour"),
                    wf(9, 28, "BlockingStatement not allowed with multiple provides ports")}},
        SourceCase{"OtherwiseWithOthers",
                   R"kel(
interface I {
  in void e();
  behaviour {
    bool b = false;
    [otherwise] on e: {}
    [b] on e: {}
    [otherwise] on e: {}
    on e: {}
  }
}
)kel",
                   {wf(5, 5, "Otherwise guard combined with second otherwise is not allowed"),
                    wf(7, 5, "Second otherwise defined here"),
                    wf(5, 5, "Otherwise guard combined with non GuardedStatement is not allowed"),
                    wf(8, 5, "non GuardedStatement defined here")}},
        SourceCase{"IllegalInAnInterface",
                   R"kel(
interface I {
  in void e();
  behaviour {
    bool b = false;
    void f() { illegal; }
    on e: { if (b) illegal; }
    on e: { illegal; b = true; }
    on e: { { illegal; } }
    on e: illegal;
  }
}
)kel",
                   {wf(5, 16, "Illegal is not allowed in functions"),
                    wf(6, 20, "Illegal is not allowed in if-then-else statements"),
                    wf(7, 13, "Illegal must be the only Statement in a compound")}},
        SourceCase{"IllegalInAComponent",
                   SERVICE R"kel(
component C {
  provides I p;
  behaviour {
    bool b = false;
    void f() { illegal; }
    on p.e(): { if (b) illegal; else f(); }
  }
}
)kel",
                   {}}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    TriggersAndActions, SourceErrorsTest,
    testing::Values(SourceCase{"InterfaceSendsOutAndReactsToIn",
                               R"kel(
interface I {
  in void e();
  out void o();
  behaviour {
    on o: e;
    on e: o;
  }
}
)kel",
                               {wf(5, 8, "Event is not a valid trigger: 'o'"),
                                wf(5, 11, "Event is not an action: 'e'")}},
                    SourceCase{"ComponentPorts",
                               SERVICE R"kel(
component C {
  provides I p;
  requires I r;
  behaviour {
    on p.o(): r.e();
    on r.o(), p.o(): p.e();
    on p.e(), r.o(): { p.o(); r.e(); }
  }
}
)kel",
                               {wf(6, 8, "Event is not a valid trigger: 'p.o'"),
                                wf(7, 15, "Event is not a valid trigger: 'p.o'"),
                                wf(7, 22, "Event is not an action: 'p.e'")}},
                    SourceCase{"OnlyOutEventsMeanNoTriggers",
                               R"kel(
interface I {
  out void o();
  behaviour { on o: {} }
}
)kel",
                               {wf(3, 18, "Event is not a valid trigger: 'o'")}}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    Values, SourceErrorsTest,
    testing::Values(SourceCase{"CallsOnlyAsWholeRightHandSide",
                               R"kel(
interface I {
  in bool e();
  behaviour {
    bool b = true; bool c = f(b);
    bool f(bool x) { return x; }
    on e: { b = f(b); b = f(b) && b; b = f(f(b)); f(b); reply(b); }
  }
}
)kel",
                               {wf(4, 29, "Function calls are not allowed here"),
                                wf(6, 27, "Function calls are not allowed here"),
                                wf(6, 44, "Function calls are not allowed here"),
                                wf(6, 51, "Function value discarded: 'f'")}},
                    SourceCase{"TopOfAnElseBranchIsCheckedTwice",
                               R"kel(
interface I {
  in void e();
  behaviour {
    bool b = true;
    bool f(bool x) { return x; }
    on e: if (b) f(b); else f(b);
  }
}
)kel",
                               {wf(6, 18, "Function value discarded: 'f'"),
                                wf(6, 29, "Function value discarded: 'f'"),
                                wf(6, 29, "Function value discarded: 'f'")}},
                    SourceCase{"ActionValues",
                               R"kel(
interface I { in bool e(); behaviour { on e: reply(true); } }
component C {
  provides I p;
  requires I r;
  behaviour {
    bool b = true;
    on p.e(): { b = r.e(); r.e(); b = !r.e(); reply(b); }
  }
}
)kel",
                               {wf(7, 28, "Action value discarded: 'r.e'"),
                                wf(7, 40, "Actions are not allowed here")}},
                    SourceCase{"InitialValuesAreConstant",
                               R"kel(
enum E { x, y };
interface I {
  in void e();
  behaviour {
    bool b = true;
    E v = E.x;
    bool c = !b || true;
    bool d = v == E.y;
    bool g = E.x != E.y;
    on e: {}
  }
}
)kel",
                               {wf(7, 15, "Constant expression expected: 'b'"),
                                wf(8, 14, "Constant expression expected: 'v'")}}),
    caseName);

} // namespace
} // namespace language::test
