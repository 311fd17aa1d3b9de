#!/usr/bin/env python3
"""Writes a kel source of about the given number of lines to standard output.

The source is made of units in namespaces of 10: each unit is an interface with
an enumeration and a behaviour of PHASES guarded blocks, and a component that
provides it and requires the unit before it in its namespace. Every namespace
ends with a component whose system instantiates and binds all its units.
Usage: generate_source.py LINES
"""
import sys

PHASES = 20
UNITS_PER_NAMESPACE = 10


def interface(k):
    phases = ", ".join(f"p{i}" for i in range(PHASES))
    lines = [
        f"    interface IUnit{k} {{",
        f"        enum Phase{k} {{ {phases} }};",
        "        in void start();",
        "        in void step();",
        "        in void stop();",
        "        out void finished();",
        "        behaviour {",
        f"            Phase{k} phase = Phase{k}.p0;",
        "            bool busy = false;",
    ]
    for i in range(PHASES):
        following = (i + 1) % PHASES
        lines += [
            f"            [phase == Phase{k}.p{i}] {{",
            f"                on step: phase = Phase{k}.p{following};",
            "                on start: busy = true;",
            "                on stop: { busy = false; finished; }",
            "            }",
        ]
    lines += ["        }", "    }"]
    return lines


def component(k, first):
    lines = [f"    component Unit{k} {{", f"        provides IUnit{k} api;"]
    if not first:
        lines.append(f"        requires IUnit{k - 1} next;")
    lines += ["        behaviour {", "            bool running = false;"]
    call = "" if first else " next.start();"
    stop = "" if first else " next.stop();"
    lines += [
        "            [!running] {",
        f"                on api.start(): {{{call} running = true; }}",
        "                on api.step(): {}",
        "                on api.stop(): illegal;",
        "            }",
        "            [running] {",
        "                on api.start(): illegal;",
        "                on api.step(): {}",
        f"                on api.stop(): {{{stop} running = false; api.finished(); }}",
        "            }",
    ]
    if not first:
        lines += ["            on next.finished(): {}"]
    lines += ["        }", "    }"]
    return lines


def system(units):
    first, last = units[0], units[-1]
    lines = ["    component Chain {", f"        provides IUnit{last} api;", "        system {"]
    lines += [f"            Unit{k} unit{k};" for k in units]
    lines.append(f"            api <=> unit{last}.api;")
    lines += [f"            unit{k}.next <=> unit{k - 1}.api;" for k in units if k != first]
    lines += ["        }", "    }"]
    return lines


def main():
    wanted = int(sys.argv[1])
    written = 0
    group = 0
    while written < wanted:
        units = list(range(group * UNITS_PER_NAMESPACE, (group + 1) * UNITS_PER_NAMESPACE))
        lines = [f"namespace g{group} {{"]
        for k in units:
            lines += interface(k) + component(k, k == units[0])
        lines += system(units) + ["}"]
        print("\n".join(lines))
        written += len(lines)
        group += 1


if __name__ == "__main__":
    main()
