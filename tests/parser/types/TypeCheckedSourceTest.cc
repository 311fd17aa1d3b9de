// Sources parsed, resolved and type checked, grouped by family of rules. Each
// source resolves without error, so that every line annotated is a type error.
#include "ParsedSource.h"

#include <gmock/gmock.h>

namespace language::test {
namespace {

INSTANTIATE_TEST_SUITE_P(Families, SourceErrorsTest,
                         testing::Values(annotatedCase("Operators", R"kel(
subint S {0..3};
interface I { in void e(); }
component C { provides I p; behaviour {
  S s = 0;
  bool a = true + true; //@17: '+' requires an int first argument //@17: '+' requires an int second argument //@8: type mismatch: 'bool' expected, found: 'int'
  bool b = (s < 1) && (s + true > 2) || !s; //@26: '+' requires an int second argument //@41: 'not' requires a boolean argument
  bool c = 1 + s <= 3 && s - 1 >= 0 && s > 1;
  bool d = 1 && !true; //@14: '&&' requires a boolean first argument
  on p.e(): {}
} }
)kel"),
                                         annotatedCase("EqualityWithDataTypes", R"kel(
extern Msg $char*$;
enum E { x, y };
interface I { in void e(); out void o(); }
component C { provides I p; behaviour {
  Msg m;
  E v = E.x;
  bool a = m == 1; //@14: data type argument not allowed as first argument in '==' //@14: '==' requires two arguments of equal type
  bool b = 1 != m; //@14: data type argument not allowed as second argument in '!=' //@14: '!=' requires two arguments of equal type
  bool c = m == m; //@14: data type argument not allowed as first argument in '==' //@14: data type argument not allowed as second argument in '=='
  bool d = v == 1; //@14: '==' requires two arguments of equal type
  bool f = v != E.y && p.o() == m;
  on p.e(): {}
} }
)kel"),
                                         annotatedCase("CallsAndArguments", R"kel(
subint S {0..3}; enum E { x, y };
interface I { in void e(); out void o(S a, E b); }
component C { provides I p; behaviour {
  bool f(S a, bool b) { return b; }
  void g() {
    bool r = f(true, 1); //@16: argument does not match Parameter Type //@22: argument does not match Parameter Type
    r = f(1, true, 2, 3 + true); //@20: unexpected argument //@25: unexpected argument
    r = f(1); //@9: missing arguments in Function call: 'f'
    p.o(true, E.x); //@9: Parameter value does not match with expected type
    p.o(1, r); //@12: Parameter value does not match with expected type
  }
  on p.e(): g();
} }
)kel"),
                                         annotatedCase("Returns", R"kel(
subint S {0..3};
interface I { in void e(); out void o(); }
component C { provides I p; behaviour {
  void v() { return 1; } //@21: Return expression not allowed in void function.
  bool w() { return; } //@14: Valued function must return a value.
  bool x() { return 1; } //@21: Return type does not match function type.
  S y() { return 2 + 1; }
  bool z() { return p.o(); } //@21: Typed Expression expected in return. //@21: Return type does not match function type.
  on p.e(): { return 1; }
} }
)kel"),
                                         annotatedCase("Replies", R"kel(
enum E { a, b };
interface I { in E e(); in bool f(); out void o(); }
component C { provides I p; behaviour {
  enum L { lo, hi };
  on p.e(): reply(E.a);
  on p.f(): reply(L.lo); //@19: Behaviour-local Enum value is not allowed in reply
  on p.e(): p.reply(p.o()); //@21: Typed Expression expected in reply
} }
)kel"),
                                         annotatedCase("GuardsAndIfs", R"kel(
interface I { in void e(); out void o(); }
component C { provides I p; behaviour {
  bool b = true;
  [1] on p.e(): {} //@4: Boolean guard expected
  [!1] on p.e(): {} //@4: 'not' requires a boolean argument
  [p.o()] on p.e(): {} //@4: Boolean guard expected
  [otherwise] on p.e(): {
    if (p.o()) b = 1; else if (1 < 2) b = false; //@9: Boolean guard expected //@18: Variable and expression types do not match: 'b'
  }
} }
)kel"),
                                         annotatedCase("InitialValues", R"kel(
subint S {0..3};
interface I { in void e(); out void o(); }
component C { provides I p; behaviour {
  bool a = 1; //@8: type mismatch: 'bool' expected, found: 'int'
  S s = true; //@5: type mismatch: 'S' expected, found: 'bool'
  S t = 3;
  bool u = p.o(); //@8: type mismatch: 'bool' expected, found: <unknown>
  void f() {
    bool c = 2; //@10: type mismatch: 'bool' expected, found: 'int'
    bool d = p.o(); //@10: cannot determine type of right hand side, expected: 'bool'
  }
  on p.e(): f();
} }
)kel"),
                                         annotatedCase("BindingsAndReturnTypes", R"kel(
extern Msg $char*$;
interface I { in void e(); }
interface J { in Msg e(); } //@18: Datatype is not allowed as return type: 'Msg'
namespace n { interface I { in void e(); } }
component A { provides I p; requires J r; behaviour {
  Msg g() { } //@3: Datatype is not allowed as return type: 'Msg'
  on p.e(): {}
} }
component B { provides n.I p; }
component S { provides I p; system {
  A a; A b; B c;
  p <=> a.p;
  a.r <=> b.p; //@11: '<=>' requires two arguments of equal type
  a.r <=> *;
  p <=> c.p; //@9: '<=>' requires two arguments of equal type
} }
)kel")),
                         caseName);

TEST(TypeCheckedDriverTest, ChecksOnlyWhenAskedAndAlsoAfterAFailedResolution) {
    std::string const source = "component C { behaviour { bool a = u; } }";
    for (bool check : {false, true}) {
        TestStore store;
        Parser parser{store.model};
        std::istringstream in(source);
        EXPECT_FALSE(parser.parseStream(in, "t.kel", {}, false, check, true));
        std::ostringstream out;
        parser.printErrors(out);
        std::string expected = "t.kel:1:36: Undefined identifier: 'u'\n";
        if (check) {
            expected += "t.kel:1:32: type mismatch: 'bool' expected, found: <unknown>\n";
        }
        EXPECT_EQ(out.str(), expected) << "check " << check;
    }
}

} // namespace
} // namespace language::test
