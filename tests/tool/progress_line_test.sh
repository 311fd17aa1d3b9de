#!/usr/bin/env bash
# The progress line of a long run, seen on a real terminal inside tmux: it
# appears while a search that forks at every event goes on, and is gone when
# the run ends. With the log stream in a file instead, the run writes nothing
# there at all. The trace grows by an event until a run lasts long enough to
# show the line, so that a fast and a sanitised build both take seconds.
# Usage: progress_line_test.sh KEL_TRACE
set -uo pipefail
tool=$1
work=$(mktemp -d)
# One tmux server for each run, on a socket of its own.
socket=
tmux_() { tmux -S "$socket" -f /dev/null "$@"; }
stop_tmux() { [ -z "$socket" ] || tmux_ kill-server 2>/dev/null; }
trap 'stop_tmux; rm -rf "$work"' EXIT
fail() { echo "FAIL: $*"; exit 1; }

# Four ways to send every `o`; only the first way, which the search tries
# first, can send the last `p`, so the search finds the solution at once and
# still walks all the other ways, each of which ends one event short.
cat >"$work/fork.kel" <<'KEL'
interface Fork {
    out void o();
    out void p();
    behaviour {
        bool late = false;
        on optional: o;
        on optional: { o; late = true; }
        on optional: { o; late = true; }
        on optional: { o; late = true; }
        [!late] on optional: p;
    }
}
KEL
command="'$tool' -m Fork -t '$work/fork.trace' '$work/fork.kel' > '$work/diagram.json'"
pattern='searching: [0-9]+ of [0-9]+ events, [0-9]+ states, [0-9]+ s'

pane_has() { tmux_ capture-pane -p -t run | grep -Eq "$1"; }

# run_on_terminal EVENTS: runs the model in a fresh tmux session and sets
# `seen` (whether the line showed) and `tenths` (how long the run took).
run_on_terminal() {
    { for ((i = 0; i < $1; i++)); do echo o; done; echo p; } >"$work/fork.trace"
    rm -f "$work/status"
    stop_tmux
    socket=$work/tmux.$1
    TERM=xterm tmux_ new-session -d -s run -x 100 -y 10 \
        "$command; echo \$? > '$work/status.new'; mv '$work/status.new' '$work/status'; sleep 600" \
        </dev/null || fail "tmux did not start"
    seen=0
    for ((tenths = 0; tenths < 1200; tenths++)); do
        [ -f "$work/status" ] && break
        pane_has "$pattern" && seen=1
        sleep 0.1
    done
    [ -f "$work/status" ] || fail "a run of $1 events did not end within two minutes"
    [ "$(<"$work/status")" = 0 ] || fail "exit status $(<"$work/status")"
}

for ((events = 6; ; events++)); do
    run_on_terminal $events
    [ "$seen" = 1 ] && break
    [ "$tenths" -lt 30 ] || fail "no progress line in a run of $tenths tenths of a second"
done
! pane_has 'searching' || fail "the progress line stayed: $(tmux_ capture-pane -p -t run)"
grep -q '"kind":"TraceType"' "$work/diagram.json" || fail "no diagram"

sh -c "$command" 2>"$work/log" </dev/null
[ ! -s "$work/log" ] || fail "a log stream that is no terminal got: $(head -c 200 "$work/log")"
