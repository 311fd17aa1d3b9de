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
  bool l = u.x;      //@12: Undefined identifier: 'u'
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
    p;             //@5: Expression with type 'Port' not allowed here: 'p'
    u.x();         //@5: Undefined identifier: 'u'
    I;             //@5: Expression with type 'Interface' not allowed here: 'I'
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
interface I { in void e(S a); in void g(T a); in void h(); in void k(S a, S b); in void m(.S a); }
component C { provides I p; behaviour {
  S s = 0;
  on p.e(x), p.g(x): s = 1; //@18: Trigger parameters with same name but different type: 'x' //@10: previous 'x' defined here
  on p.k(y, y): s = y;      //@13: identifier declared before: 'y' //@10: previous 'y' defined here
  on p.h(z): s = z;         //@6: Event must have the same number of arguments as its definition: 'p.h' //@18: Undefined identifier: 'z'
  on p.e(w.v): s = 1;       //@10: Variable expected
  on p.e(): s = 1;          //@6: Event must have the same number of arguments as its definition: 'p.e'
  on p.k(x <- u, x): s = x; //@15: Undefined identifier: 'u' //@18: identifier declared before: 'x' //@10: previous 'x' defined here
  on p.e: { illegal; s = 1; } //@6: Event must be used with parentheses: 'e'
  on p.e: illegal;
  on p.e(): { illegal; }
  on p.h(z): illegal;       //@6: Event must have the same number of arguments as its definition: 'p.h'
  on q.e(): s = 1;          //@6: undefined Port reference: 'q'
  on p.e(x), p.k(x, t), p.m(x): s = x + t;
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

SourceCase resolved(std::string const& name, std::string const& source, Lines const& expected) {
    return {name, source, expected, Passes::Resolve};
}

// Duplicate declarations, merged namespaces and the scopes that names share.
INSTANTIATE_TEST_SUITE_P(
    SymbolTables, SourceErrorsTest,
    testing::Values(resolved("ATypeTwiceInAnInterfaceIsReportedAtBoth", R"kel(
interface I {
  subint T {0..1};
  subint T {0..2};
}
)kel",
                             {at(3, 10, "identifier declared before: 'T'"),
                              at(2, 10, "previous 'T' defined here")}),
                    resolved("ExternTypesClashOnlyWithAnotherValue", R"kel(
extern D $int$;
extern D $int$;
extern E $int$;
extern E $long$;
)kel",
                             {at(2, 8, "identifier declared before: 'D'"),
                              at(1, 8, "previous 'D' defined here"),
                              at(4, 8, "identifier declared before: 'E'"),
                              at(3, 8, "previous 'E' defined here"),
                              at(4, 8, "conflicting DataType declaration: 'E'"),
                              at(3, 8, "previous 'E' declared here")}),
                    // Their values are other objects, so two equal enums conflict.
                    resolved("TwoEnumsOfOneName", R"kel(
enum E { a };
enum E { a };
)kel",
                             {at(2, 6, "identifier declared before: 'E'"),
                              at(1, 6, "previous 'E' defined here"),
                              at(2, 6, "conflicting EnumType declaration: 'E'"),
                              at(1, 6, "previous 'E' declared here")}),
                    resolved("AnEnumAndAnInterfaceOfOneName", R"kel(
enum E { a };
interface E { }
)kel",
                             {at(2, 11, "identifier declared before: 'E'"),
                              at(1, 6, "previous 'E' defined here")}),
                    resolved("TheSameTypeInTwoBlocksOfANamespace", R"kel(
namespace a { subint x {0..1}; }
namespace a { subint x {0..1}; }
)kel",
                             {at(2, 22, "identifier declared before: 'x'"),
                              at(1, 22, "previous 'x' defined here")}),
                    resolved("DuplicateParametersOfAnEvent", R"kel(
subint S {0..1};
interface I { in void e(S p, S p); }
)kel",
                             {at(2, 30, "duplicate identifiers in Parameter declaration: 'p'"),
                              at(2, 25, "previous 'p' defined here")}),
                    // The inner enum a hides the outer one, else a.y would be undefined.
                    resolved("BehaviourNamesClashAcrossTablesButHideOuterOnes", R"kel(
enum a { x };
interface I { behaviour {
  enum a { y };
  a b = a.y;
  a b = a.y;
  bool a() { }
} }
)kel",
                             {at(5, 5, "identifier declared before: 'b'"),
                              at(4, 5, "previous 'b' defined here"),
                              at(6, 8, "identifier declared before: 'a'"),
                              at(3, 8, "previous 'a' defined here")}),
                    resolved("PortsAndInstancesOfASystemShareOneScope", R"kel(
interface I { }
component C { provides I p; }
component S { provides I p; system { C p; C q; C q; } }
)kel",
                             {at(3, 38, "identifier declared before: 'p'"),
                              at(3, 26, "previous 'p' defined here"),
                              at(3, 48, "identifier declared before: 'q'"),
                              at(3, 43, "previous 'q' defined here")})),
    caseName);

// References of declarations: ports, instances, bindings, types and variables.
INSTANTIATE_TEST_SUITE_P(
    References, SourceErrorsTest,
    testing::Values(resolved("APortTypedByAComponentNamesNoModel", R"kel(
interface I { }
component C { provides I p; }
component D { provides C q; }
)kel",
                             {at(3, 24, "undefined Model reference: 'C'")}),
                    resolved("BoolTypesFunctionsAndEventResultsButNoEventParameter", R"kel(
interface I {
  in bool e(bool b);
  behaviour { bool f(bool c) { } bool v = f(true); }
}
)kel",
                             {at(2, 13, "bool is not allowed as type here")}),
                    resolved("DataVariablesAreForComponentsAndNeedNoInitialValue", R"kel(
extern D $x$;
subint S {0..1};
interface I { behaviour { D d; S s; } }
component C { behaviour { D d; S s; } }
)kel",
                             {at(3, 29, "Datavariable not allowed in Interface: 'd'"),
                              at(3, 34, "Variable must have initial value: 's'"),
                              at(4, 34, "Variable must have initial value: 's'")}),
                    // The tail of a name in an expression is searched outward: b.E.x is found.
                    resolved("OnlyTheFirstPartOfATypeNameLooksOutward", R"kel(
namespace a {
  enum E { x };
  namespace b { }
  component C { behaviour { b.E v = b.E.x; E w = E.y; } }
}
)kel",
                             {at(4, 29, "undefined Type reference: 'b.E'"),
                              at(4, 50, "undefined Enum value reference: 'y' in 'E.y'")}),
                    resolved("BehindAnInterfaceOnlyItsTypesAndEventsAreFound", R"kel(
subint S {0..1};
interface I { subint T {0..1}; }
component C { behaviour { I.T t = 0; I.S s = 0; } }
)kel",
                             {at(3, 38, "undefined Type reference: 'I.S'")}),
                    // The inner E has no x.
                    resolved("ALeadingDotStartsFromTheDefaultNamespace", R"kel(
enum E { x };
namespace n { enum E { y }; component C { behaviour { .E v = .E.x; } } }
)kel",
                             {}),
                    resolved("BindingsResolveInstancesAndTheirComponentsPorts", R"kel(
interface I { }
component C { provides I p; }
component S { provides I q; system {
  C a; X b;
  a.* <=> q;
  a.r <=> x;
  z.p <=> b.p;
} }
)kel",
                             {at(4, 8, "undefined Model reference: 'X'"),
                              at(6, 5, "undefined Port reference: 'r'"),
                              at(6, 11, "undefined Port reference: 'x'"),
                              at(7, 3, "undefined Component variable reference: 'z'")})),
    caseName);

// Lines 1 to 4 of the cases of local variables.
std::string const localsHeader = R"kel(
interface I { in void e(); enum R { ok, nok }; }
component C { provides I p; behaviour {
  I.R r = I.R.ok;
  bool a = a;)kel";

// Local variables of blocks, from line 5 on.
INSTANTIATE_TEST_SUITE_P(
    LocalVariables, SourceErrorsTest,
    testing::Values(resolved("LocalVariablesAreVisibleFromTheirDeclarationToTheEndOfTheirBlock",
                             localsHeader + R"kel(
  { bool y = z; bool z = z; { bool z = y; } bool x = y; }
  reply(x);
} }
)kel",
                             {at(5, 14, "Undefined identifier: 'z'"),
                              at(6, 9, "Undefined identifier: 'x'")}),
                    resolved("LocalDeclarationsRepeatingANameOrMissingAValue", localsHeader + R"kel(
  { bool y = r.ok; bool y = r.ok; I.R w; bool x = r.ok;
    q.reply(x); }
} }
)kel",
                             {at(5, 25, "identifier declared before: 'y'"),
                              at(5, 10, "previous 'y' defined here"),
                              at(5, 39, "Variable must have initial value: 'w'"),
                              at(6, 5, "undefined Port reference: 'q'")})),
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
