#!/usr/bin/env python3
"""Writes a Promela model that replays a trace of the connection shape of
generate_run.py, for the model checker spin.

One process steps the connection's state machine through the trace and asserts
that every event is allowed in its state; a call's reply is the next event.
The trace is a constant C array in a file of its own, recorded.c, to be
compiled with pan.c: it stays outside the state vector, and outside the model,
whose embedded C spin limits in length. The state vector holds only the
machine's state, the awaited reply, the position in the trace and the event
read there (not hidden: the search must restore it when it backs up).
Writes DIR/replay.pml and DIR/recorded.c.
Usage: generate_promela.py TRACE DIR
"""
import os
import sys

EVENTS = ["connect", "send", "close", "established", "closed", "return", "Result_ok", "Result_refused"]

PROTOCOL = """\
byte state = IDLE;
byte awaited = NONE; /* the reply that the call before asks for */
int next;            /* position in the trace */
byte event;          /* the event at next */

active proctype replay() {
    do
    :: next == LENGTH -> break
    :: else ->
        c_code { now.event = recorded[now.next]; };
        if
        :: awaited != NONE -> assert(event == awaited); awaited = NONE
        :: awaited == NONE && state == IDLE && event == connect -> state = CONNECTING; awaited = Result_ok
        :: awaited == NONE && state == IDLE && event == send -> awaited = Result_refused
        :: awaited == NONE && state == CONNECTING && event == send -> awaited = Result_refused
        :: awaited == NONE && state == CONNECTING && event == established -> state = CONNECTED
        :: awaited == NONE && state == CONNECTED && event == send -> awaited = Result_ok
        :: awaited == NONE && state == CONNECTED && event == close -> state = CLOSING; awaited = return
        :: awaited == NONE && state == CLOSING && event == closed -> state = IDLE
        :: else -> assert(false)
        fi;
        next++
    od
}
"""


def main():
    with open(sys.argv[1]) as lines:
        trace = [EVENTS.index(line.rstrip("\n")) + 1 for line in lines]
    defines = [f"#define {name} {code}" for code, name in enumerate(EVENTS, 1)]
    states = [f"#define {name} {code}" for code, name in enumerate(["IDLE", "CONNECTING", "CONNECTED", "CLOSING"])]
    with open(os.path.join(sys.argv[2], "replay.pml"), "w") as out:
        out.write("\n".join(defines + ["#define NONE 0"] + states + [f"#define LENGTH {len(trace)}"]) + "\n")
        out.write("c_decl { extern const unsigned char recorded[]; }\n")
        out.write(PROTOCOL)
    with open(os.path.join(sys.argv[2], "recorded.c"), "w") as out:
        out.write("const unsigned char recorded[] = {\n")
        out.writelines(",".join(map(str, trace[start:start + 40])) + ",\n" for start in range(0, len(trace), 40))
        out.write("};\n")


if __name__ == "__main__":
    main()
