#!/usr/bin/env python3
"""Looks for loading and checking costs that grow faster than the source.

Each shape stretches one construct (one long list, one wide system, ...) that
the uniform sources of generate_source.py keep small. Every shape is loaded at
N and 4N repetitions; a CPU-time ratio near 4 is linear, near 16 quadratic.
Usage: measure_shapes.py path/to/kel-trace [N]
"""
import os
import resource
import subprocess
import sys
import tempfile


def flat_interfaces(n):
    return "".join(f"interface I{i} {{ in void e(); behaviour {{ on e: {{}} }} }}\n" for i in range(n)), "I0"


def dotted_interfaces(n):
    return "".join(f"interface a.b.I{i} {{ in void e(); behaviour {{ on e: {{}} }} }}\n" for i in range(n)), "a.b.I0"


def many_events(n):
    events = "".join(f"  in void e{i}();\n" for i in range(n))
    ons = "".join(f"    on e{i}: {{}}\n" for i in range(n))
    return f"interface I {{\n{events}  behaviour {{\n{ons}  }}\n}}\n", "I"


def many_triggers(n):
    events = "".join(f"  in void e{i}();\n" for i in range(n))
    triggers = ", ".join(f"e{i}" for i in range(n))
    return f"interface I {{\n{events}  behaviour {{ on {triggers}: {{}} }}\n}}\n", "I"


def many_parameters(n):
    parameters = ", ".join(f"D d{i}" for i in range(n))
    arguments = ", ".join(f"d{i}" for i in range(n))
    return (f"extern D $int$;\ninterface I {{ in void e({parameters}); behaviour {{ on e: {{}} }} }}\n"
            f"component C {{ provides I p; behaviour {{ on p.e({arguments}): {{}} }} }}\n"), "C"


def long_enum(n):
    values = ", ".join(f"v{i}" for i in range(n))
    return (f"interface I {{ enum E {{ {values} }}; in void e();\n"
            f"  behaviour {{ E x = E.v0; on e: x = E.v{n - 1}; }} }}\n"), "I"


def many_guards(n):
    guards = "".join(f"    [x == {i % 4}] {{ on e: x = {(i + 1) % 4}; }}\n" for i in range(n))
    return (f"interface I {{ subint S {{ 0..3 }}; in void e();\n"
            f"  behaviour {{ S x = 0;\n{guards}  }} }}\n"), "I"


def many_variables(n):
    variables = "".join(f"    bool b{i} = false;\n" for i in range(n))
    return (f"interface I {{ in void e();\n  behaviour {{\n{variables}"
            f"    on e: b{n - 1} = true;\n  }} }}\n"), "I"


def many_functions(n):
    functions = "".join(f"    bool f{i}(bool p) {{ return !p; }}\n" for i in range(n))
    return (f"interface I {{ in void e();\n  behaviour {{ bool b = false;\n{functions}"
            f"    on e: b = f{n - 1}(b);\n  }} }}\n"), "I"


def call_chain(n):
    calls = "".join(f"    void f{i}() {{ f{i + 1}(); }}\n" for i in range(n))
    return ("interface I { in void e(); behaviour { on e: {} } }\n"
            f"component C {{ provides I p; behaviour {{\n{calls}    void f{n}() {{ }}\n"
            "    on p.e(): f0();\n  } }\n"), "C"


def block_of_actions(n):
    actions = "".join("      p.f();\n" for _ in range(n))
    return ("interface I { in void e(); out void f(); behaviour { on e: f; } }\n"
            f"component C {{ provides I p; behaviour {{\n    on p.e(): {{\n{actions}    }}\n  }} }}\n"), "C"


def block_of_assignments(n):
    assignments = "".join("      b = !b;\n" for _ in range(n))
    return ("interface I { in void e(); behaviour { on e: {} } }\n"
            f"component C {{ provides I p; behaviour {{ bool b = false;\n    on p.e(): {{\n"
            f"{assignments}    }}\n  }} }}\n"), "C"


def many_required_ports(n):
    ports = "".join(f"  requires I r{i};\n" for i in range(n))
    return (f"interface I {{ in void e(); behaviour {{ on e: {{}} }} }}\n"
            f"component C {{ provides I p;\n{ports}"
            f"  behaviour {{ on p.e(): r{n - 1}.e(); }} }}\n"), "C"


def wide_system(n):
    instances = "".join(f"    L l{i};\n" for i in range(n))
    bindings = "".join(f"    l{i}.down <=> l{i + 1}.up;\n" for i in range(n - 1))
    return ("interface I { in void e(); behaviour { on e: {} } }\n"
            "component L { provides I up; requires I down; behaviour { on up.e(): down.e(); } }\n"
            f"component S {{ provides I up; requires I down;\n  system {{\n{instances}"
            f"    up <=> l0.up;\n{bindings}    l{n - 1}.down <=> down;\n  }} }}\n"), "S"


SHAPES = [flat_interfaces, dotted_interfaces, many_events, many_triggers, many_parameters,
          long_enum, many_guards,
          many_variables, many_functions, call_chain, block_of_actions, block_of_assignments,
          many_required_ports, wide_system]


def cpu_seconds(binary, path, model):
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    run = subprocess.run([binary, "-m", model, "-T", "x", path],
                         capture_output=True, text=True)
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    first_error = run.stderr.splitlines()[0] if run.stderr else ""
    seconds = after.ru_utime - before.ru_utime + after.ru_stime - before.ru_stime
    return seconds, first_error


def main():
    binary = sys.argv[1]
    n = int(sys.argv[2]) if len(sys.argv) > 2 else 5000
    print(f"{'shape':22} {'N':>7} {'CPU N':>8} {'CPU 4N':>8} {'ratio':>6}  stderr of 4N")
    with tempfile.TemporaryDirectory() as work:
        for shape in SHAPES:
            times = []
            for size in (n, 4 * n):
                text, model = shape(size)
                path = os.path.join(work, f"{shape.__name__}{size}.kel")
                with open(path, "w") as source:
                    source.write(text)
                times.append(cpu_seconds(binary, path, model))
            ratio = times[1][0] / max(times[0][0], 1e-3)
            print(f"{shape.__name__:22} {n:>7} {times[0][0]:>8.2f} {times[1][0]:>8.2f} "
                  f"{ratio:>6.1f}  {times[1][1][:60]}")


if __name__ == "__main__":
    main()
