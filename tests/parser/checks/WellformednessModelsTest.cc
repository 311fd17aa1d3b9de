// Interfaces, components, internal and injected ports, names that clash with
// their model, and systems: parsed sources with the errors that the rules
// give, in the order that the checks run.
#include "ParsedSource.h"

#include <gmock/gmock.h>

namespace language::test {
namespace {

// Lines 1-2 of the system sources: an interface and a component to instantiate.
#define LEAF                                                                                       \
    "\ninterface I { in void e(); behaviour { on e: {} } }"                                        \
    "\ncomponent Leaf { provides I p; requires I r; behaviour { on p.e(): r.e(); } }"

INSTANTIATE_TEST_SUITE_P(
    Declarations, SourceErrorsTest,
    testing::Values(
        SourceCase{"Interfaces",
                   R"kel(
extern D $int$;
subint S {2..1};
interface I {
  in void e(D d, S x);
  out bool o(out D d, inout D f, D g);
  behaviour { on e: {} }
}
interface J { }
interface K { out void o(); behaviour { } }
subint Same {3..3};
)kel",
                   {wf(2, 8, "Minimum version must not be smaller than maximum value"),
                    wf(4, 18, "Parameter type must be a data type.: 'S'"),
                    wf(5, 7, "Out Event with non void return type is not allowed: 'o'"),
                    wf(5, 18, "Out Parameter is not allowed for out Event: 'd'"),
                    wf(5, 29, "Inout Parameter is not allowed for out Event: 'f'"),
                    wf(8, 11, "Interface must define at least one event: 'J'"),
                    wf(8, 11, "Interface must define behaviour: 'J'")}},
        SourceCase{"Components",
                   R"kel(
interface I { in void e(); behaviour { on e: {} } }
component A { requires I r; behaviour { bool b = true; on r.e(): b = false; } }
component B { provides I B; }
component D { }
component E { provides I p; behaviour { bool E = true; enum A { E }; on p.e(): {} } }
)kel",
                   {wf(2, 11, "Component with behaviour needs at least one trigger event: 'A'"),
                    wf(2, 11, "Component with behaviour must have at least one provides port: 'A'"),
                    wf(2, 59, "Event is not a valid trigger: 'r.e'"),
                    wf(3, 26, "Port name must not be equal to model name: 'B'"),
                    wf(5, 46, "Variable name must not be equal to model name: 'E'")}},
        SourceCase{"TypesOfABehaviour",
                   R"kel(
interface I { in void e(); behaviour { on e: {} } }
component C {
  provides I p;
  behaviour {
    enum C { x };
    subint R {1..0};
    on p.e(): {}
  }
}
)kel",
                   {wf(5, 10, "Enum type name must not be equal to model name: 'C'"),
                    wf(6, 12, "Minimum version must not be smaller than maximum value")}},
        SourceCase{"InternalAndInjectedPorts",
                   R"kel(
extern D $int$;
interface I { in void e(); behaviour { on e: {} } }
interface T { in void e(); out void o(); out void o2(); behaviour { on e: {} } }
component C {
  provides I p;
  requires injected T t;
  behaviour {
    requires kel.async(D x, out D y) a;
    on p.e(): {}
  }
}
component In {
  provides I p;
  requires injected I t;
  behaviour {
    requires kel.async(D x, inout D y) a;
    on p.e(): {}
  }
}
)kel",
                   {wf(8, 14, "Out Parameter is not allowed for out Event: 'y'"),
                    wf(16, 14, "Inout Parameter is not allowed for out Event: 'y'"),
                    wf(6, 23, "Injected Port has out event: 't'"),
                    wf(8, 33, "Only 'in' parameters are allowed here: 'y'"),
                    wf(16, 35, "Only 'in' parameters are allowed here: 'y'")}}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    Systems, SourceErrorsTest,
    testing::Values(
        SourceCase{"MissingBindingsStopTheCycleCheck",
                   LEAF R"kel(
component M {
  provides I p;
  requires I q;
  system {
    Leaf a;
    p <=> a.p;
  }
}
)kel",
                   {wf(5, 14, "Port is not bound: 'q'"), wf(7, 5, "Port is not bound: 'a.r'")}},
        SourceCase{
            "DoubleBindings",
            LEAF R"kel(
component M {
  provides I p;
  system {
    Leaf a;
    Leaf b;
    p <=> a.p;
    a.r <=> b.p;
    a.r <=> b.p;
    b.r <=> *;
    b.r <=> *;
  }
}
component N {
  provides I p;
  system {
    Leaf a;
    p <=> a.p;
    a.r <=> a.r;
    a.r <=> a.p;
  }
}
)kel",
            {wf(10, 5, "Port is bound twice: 'a.r'"), wf(10, 13, "Port is bound twice: 'b.p'"),
             wf(11, 13, "Wildcard can be bound to a provided port only"),
             wf(12, 13, "Wildcard can be bound to a provided port only"),
             wf(20, 5, "Port is bound twice: 'a.r'"), wf(21, 13, "Port is bound twice: 'a.p'"),
             wf(21, 5, "Port is bound twice: 'a.r'"),
             wf(20, 13, "Binding directions do not match")}},
        // One report per earlier binding that names a side, in the
        // order of those bindings, left side before right.
        SourceCase{
            "PortsBoundMoreThanTwice",
            LEAF R"kel(
component M {
  provides I p;
  system {
    Leaf a;
    Leaf b;
    Leaf c;
    Leaf d;
    p <=> a.p;
    a.r <=> b.p;
    c.r <=> d.p;
    a.r <=> d.p;
    a.r <=> d.p;
  }
}
)kel",
            {wf(13, 5, "Port is bound twice: 'a.r'"), wf(13, 13, "Port is bound twice: 'd.p'"),
             wf(14, 5, "Port is bound twice: 'a.r'"), wf(14, 13, "Port is bound twice: 'd.p'"),
             wf(14, 5, "Port is bound twice: 'a.r'"), wf(14, 13, "Port is bound twice: 'd.p'")}},
        SourceCase{"BindingDirections",
                   LEAF R"kel(
component W {
  provides I p;
  system {
    Leaf a;
    Leaf b;
    p <=> a.r;
    a.p <=> b.p;
    b.r <=> a.p;
    * <=> *;
    * <=> b.p;
  }
}
)kel",
                   {wf(10, 13, "Port is bound twice: 'a.p'"),
                    wf(8, 11, "Binding directions do not match"),
                    wf(9, 13, "Binding directions do not match"),
                    wf(11, 11, "Binding two wildcards is not allowed")}},
        SourceCase{"InjectedPortsOfInstancesNeedNoBinding",
                   LEAF R"kel(
interface T { in void e(); behaviour { on e: {} } }
component Svc { provides I p; requires injected T t; behaviour { on p.e(): t.e(); } }
component Top { provides I p; system { Svc s; p <=> s.p; } }
)kel",
                   {}},
        SourceCase{"ExternalPorts",
                   LEAF R"kel(
component X {
  provides I p;
  requires external I q;
  system {
    Leaf a;
    p <=> a.p;
    a.r <=> q;
  }
}
component Ext { provides I p; requires external I r; behaviour { on p.e(): r.e(); } }
component Y {
  provides I p;
  requires external I q;
  system {
    Ext a;
    p <=> a.p;
    a.r <=> q;
  }
}
)kel",
                   {wf(9, 13, "External port must be bound to external port: 'q'")}},
        SourceCase{"CyclesThroughRequiredPorts",
                   LEAF R"kel(
component Dual {
  provides I p;
  provides I p2;
  requires I r;
  behaviour { on p.e(): r.e(); on p2.e(): r.e(); }
}
component Y {
  provides I p;
  system {
    Dual a;
    Dual b;
    Leaf c;
    Leaf d;
    p <=> c.p;
    c.r <=> a.p;
    a.r <=> b.p;
    b.r <=> a.p2;
    b.p2 <=> d.r;
  }
}
)kel",
                   {wf(12, 5, "Component is part of a cyclic binding: 'a'"),
                    wf(13, 5, "Component is part of a cyclic binding: 'b'"),
                    wf(14, 5, "Component is part of a cyclic binding: 'c'"),
                    wf(15, 5, "Component is part of a cyclic binding: 'd'")}}),
    caseName);

} // namespace
} // namespace language::test
