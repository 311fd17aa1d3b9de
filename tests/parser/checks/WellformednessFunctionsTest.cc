// Returns, tail recursion, replies and modeling events: parsed sources with
// the errors that the rules give, in the order that the checks run.
#include "ParsedSource.h"

#include <gmock/gmock.h>

namespace language::test {
namespace {

// Line 1 of several sources: an interface for components to use.
#define SERVICE "\ninterface I { in void e(); out void o(); behaviour { on e: {} } }"

INSTANTIATE_TEST_SUITE_P(
    Returns, SourceErrorsTest,
    testing::Values(SourceCase{"MissingReturnOnlyForValuedFunctions",
                               SERVICE R"kel(
component C {
  provides I p;
  behaviour {
    bool b = true;
    bool f() { if (b) { return true; } }
    bool k() { if (b) { b = false; } else { return true; } }
    bool g() { if (b) { return true; } else { illegal; } }
    void h() { if (b) { return; } }
    on p.e(): { h(); b = g(); }
  }
}
)kel",
                               {wf(6, 10, "Function does not return a value in all cases: 'f'"),
                                wf(7, 10, "Function does not return a value in all cases: 'k'")}},
                    SourceCase{"ReturnOutsideFunctions",
                               SERVICE R"kel(
component C {
  provides I p;
  behaviour {
    on p.e(): { return; }
  }
}
)kel",
                               {wf(5, 17, "Return Statement not allowed here")}}),
    caseName);

INSTANTIATE_TEST_SUITE_P(TailRecursion, SourceErrorsTest,
                         testing::Values(SourceCase{
                             "OnlyReturnsAfterTheRecursiveCall",
                             SERVICE R"kel(
component C {
  provides I p;
  behaviour {
    bool b = true;
    void down() { if (b) { b = false; down(); return; } }
    void loop() { if (b) { loop(); b = false; } }
    void outer() { if (b) { outer(); } b = false; {} }
    void ping() { pong(); b = true; }
    void pong() { if (b) { ping(); } }
    on p.e(): { down(); loop(); outer(); ping(); }
  }
}
)kel",
                             {wf(7, 38, "Statement violates tail recursion in recursive Function"),
                              wf(8, 42, "Statement violates tail recursion in recursive Function"),
                              wf(9, 29,
                                 "Statement violates tail recursion in recursive Function")}}),
                         caseName);

INSTANTIATE_TEST_SUITE_P(
    Replies, SourceErrorsTest,
    testing::Values(SourceCase{"RepliesOfAnInterface",
                               R"kel(
enum E { x };
interface I {
  in bool q();
  out void o();
  behaviour {
    on q: reply(true);
    on q: reply(E.x);
    on q: reply();
  }
}
)kel",
                               {wf(7, 11, "Reply type does not match any event type: 'E'"),
                                wf(8, 11, "Void Reply type does not match any event type")}},
                    SourceCase{"RepliesWithOneProvidedPort",
                               R"kel(
interface I { in void e(); in bool q(); out void o(); behaviour { on e: {} on q: reply(true); } }
component C {
  provides I p;
  requires I r;
  behaviour {
    on p.e(): reply();
    on p.q(): reply(true);
    on r.o(): reply(false);
    on p.e(): r.reply();
  }
}
)kel",
                               {wf(9, 15, "Reply not allowed on 'requires' Port: 'r'")}},
                    SourceCase{"RepliesWithTwoProvidedPorts",
                               R"kel(
interface I { in void e(); out void o(); behaviour { on e: {} } }
interface J { in bool q(); behaviour { on q: reply(true); } }
component C {
  provides I p;
  provides J j;
  requires I r;
  behaviour {
    void f() { reply(); }
    on r.o(): reply();
    on p.e(): { reply(); j.reply(true); }
    on p.e(): reply(true);
    on j.q(): p.reply();
  }
}
)kel",
                               {wf(8, 16,
                                   "Reply without port is not allowed outside the scope of "
                                   "an 'on' clause when multiple 'provides' ports are present"),
                                wf(9, 15,
                                   "Reply without port is not allowed for an 'out' event when "
                                   "multiple 'provides' ports are present"),
                                wf(11, 15, "Reply type does not match any event type: 'bool'")}}),
    caseName);

INSTANTIATE_TEST_SUITE_P(Modeling, SourceErrorsTest,
                         testing::Values(SourceCase{
                             "SilentOnOnePathOnly",
                             R"kel(
interface I {
  in void e();
  out void o();
  behaviour {
    bool b = true;
    void send() { o; }
    void maybe() { if (b) o; }
    on e: {}
    on optional: { if (b) o; else { b = false; } }
    on inevitable: { b = false; send(); }
    on optional: maybe();
    on inevitable: { b = true; }
  }
}
)kel",
                             {wf(9, 18, "Cannot determine silentness of modeling event"),
                              wf(11, 18, "Cannot determine silentness of modeling event")}}),
                         caseName);

} // namespace
} // namespace language::test
