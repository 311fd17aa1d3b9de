// Sources parsed and resolved, with the errors each line must give written on
// that line: "//@12: text" expects "t.kel:<line>:12: text", in the order written.
#include "ParsedSource.h"

#include <gmock/gmock.h>

#include <sstream>

namespace language::test {
namespace {

SourceCase resolvedCase(std::string const& name, std::string const& source) {
    return annotatedCase(name, source, Passes::Resolve);
}

INSTANTIATE_TEST_SUITE_P(Sources, SourceErrorsTest,
                         testing::Values(resolvedCase("AsyncInternals", R"kel(
interface I { in void e(); }
component C { provides I p; behaviour {
  requires kel.async x;
  on p.e(): x.req();
  on x.ack(): x.req; //@15: Event must be used with parentheses: 'req'
} }
)kel"),
                                         resolvedCase("EnumValues", R"kel(
enum E { a, b, a }; //@16: identifier declared before: 'a' //@10: previous 'a' defined here
component C { behaviour { E v = E.a; E w = E.b; } }
)kel"),
                                         resolvedCase("Expressions", R"kel(
interface I { in void e(); enum R { ok, nok }; }
component C { provides I p; behaviour {
  I.R r = I.R.ok;
  bool f(bool x) { bool x = !x; return x; }
  bool a = u;        //@12: Undefined identifier: 'u'
  bool b = p;        //@12: Expression with type 'Port' not allowed here: 'p'
  bool c = a();      //@12: Parentheses not allowed for variable: 'a'
  bool d = f;        //@12: Function call without parameters is not allowed: 'f'
  bool g = I.R.ok(); //@12: Parentheses not allowed in Enum constant: 'I.R.ok'
  bool h = r.ok();   //@12: Parentheses not allowed in variable expression: 'r.ok'
  bool i = a.x;      //@12: Variable is not an Enum variable: 'a'
  bool j = I.e;      //@12: undefined Port reference: 'I'
  bool k = r.nok && f(a) && p.e() && !(1 + 2 < 3);
} }
)kel"),
                                         resolvedCase("Statements", R"kel(
interface I { in void e(); out void v(); }
component C { provides I p; behaviour {
  bool s = true;
  on p.e(): {
    bool y = z;    //@14: Undefined identifier: 'z'
    bool z = z;
    s;             //@5: Expression with type 'Variable' not allowed here: 's'
    u.x();         //@5: Undefined identifier: 'u'
    p.v();
    p.v;           //@5: Event must be used with parentheses: 'v'
    q.reply(true); //@5: undefined Port reference: 'q'
    reply(y);
  }
} }
)kel"),
                                         resolvedCase("ComponentTriggers", R"kel(
subint S {0..3};
subint T {0..3};
interface I { in void e(S a); in void g(T a); in void h(); in void k(S a, S b); }
component C { provides I p; behaviour {
  S s = 0;
  on p.e(x), p.g(x): s = 1; //@18: Trigger parameters with same name but different type: 'x' //@10: previous 'x' defined here
  on p.k(y, y): s = y;      //@13: identifier declared before: 'y' //@10: previous 'y' defined here
  on p.h(z): s = z;         //@6: Event must have the same number of arguments as its definition: 'p.h' //@18: Undefined identifier: 'z'
  on p.e(w.v): s = 1;       //@10: Variable expected
  on p.e: s = 1;            //@6: Event must be used with parentheses: 'e'
  on p.e: illegal;
  on p.e(): { illegal; }
  on q.e(): s = 1;          //@6: undefined Port reference: 'q'
  on p.e(x), p.k(x, t): s = x + t;
} }
)kel"),
                                         resolvedCase("InterfaceTriggers", R"kel(
interface I { in void e(); out void f();
  behaviour {
    on e: {}
    on e(): {}       //@8: Event must be used without parentheses: 'e'
    on p.e: {}       //@8: this is not a valid InterfaceInstance: 'p.e'
    on inevitable: f;
    on e: g;         //@11: Undefined identifier: 'g'
  }
}
)kel")),
                         caseName);

TEST(ResolvedSourceDriverTest, ResolvesAfterAFailedParseAndReportsBehindTheParser) {
    TestStore store;
    Parser parser{store.model};
    std::istringstream in("component C { behaviour { bool a = u; } }\nenum E {};");
    EXPECT_FALSE(parser.parseStream(in, "t.kel", {}, false, false, true));
    std::ostringstream out;
    parser.printErrors(out);
    EXPECT_EQ(out.str(), "t.kel:2:9: syntax error, unexpected }, expecting identifier\n"
                         "t.kel:1:36: Undefined identifier: 'u'\n");
}

TEST(ResolvedSourceDriverTest, ACleanSourceLeavesNoNameUnresolved) {
    TestStore store;
    Parser parser{store.model};
    std::istringstream in(
        "interface I { in void e(); }\n"
        "component C { provides I p; behaviour { bool a = true; on p.e(): a = !a; } }");
    EXPECT_TRUE(parser.parseStream(in, "t.kel", {}, false, false, true));
    for (om::Object const* object : store.model.getRootObjectsVec()) {
        for (om::Object const* node : store.model.getTreeVec(object)) {
            EXPECT_EQ(dynamic_cast<kel::NameExpression const*>(node), nullptr);
            EXPECT_EQ(dynamic_cast<kel::NameStatement const*>(node), nullptr);
        }
    }
}

} // namespace
} // namespace language::test
