#!/usr/bin/env python3
"""Measures how kel-trace's runs grow with the trace, beside the model checker spin.

For every size, generate_run.py writes the three shapes, and kel-trace runs
each under /usr/bin/time, a time limit and a cap on its address space; its
diagram is counted on the fly, not kept. Per shape and size it prints the wall
and CPU time, the peak memory, events and program steps per CPU second, bytes
of peak memory and of diagram per event, and the CPU time's ratio to the size
before. A step is an element of the diagram other than the trace type, the
Initialize elements and an Error. run_phases, built beside kel-trace under
bench/, then times the parts of the same run, and the main run's steps (those
of the model's own lifeline) per CPU second of the main run are printed too.
Every shape also runs with a trace that no way accepts, its last event
replaced, which must take no longer than the accepted one.
Then for the connection shape, generate_promela.py turns the same trace into
a Promela model, which spin and gcc -O2 make into pan; its transitions per
CPU second stand beside kel-trace's steps per CPU second.
Needs: python3, GNU time (/usr/bin/time), coreutils' timeout, spin, gcc.
Usage: measure_run.py path/to/kel-trace [events...]
"""
import math
import os
import re
import resource
import subprocess
import sys
import tempfile

SHAPES = ["connection", "monitor", "sampler"]
TIME_LIMIT = 600  # seconds per run
MEMORY_CAP = 16 << 30  # bytes of address space per run
HERE = os.path.dirname(os.path.abspath(__file__))
ELEMENT, INITIALIZE, ERROR = b'{"kind":', b'{"kind":"Initialize"', b'{"kind":"Error"'


def cap_memory():
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY_CAP, MEMORY_CAP))


def count_diagram(stream, model):
    """Returns the diagram's size in bytes and how often each pattern occurs in it."""
    size, counts, tails = 0, {}, {}
    for pattern in (ELEMENT, INITIALIZE, ERROR, lifeline(model)):
        counts[pattern], tails[pattern] = 0, b""
    while chunk := stream.read(1 << 20):
        size += len(chunk)
        for pattern in counts:
            window = tails[pattern] + chunk
            counts[pattern] += window.count(pattern)
            tails[pattern] = window[1 - len(pattern):]
    return size, counts


def lifeline(model):
    return b'"instance":"' + model.encode() + b'"'


def failure(status, stderr):
    """Names why a limited run did not end normally, or returns None."""
    if status == 124:
        return "timeout"
    if "bad_alloc" in stderr or "out of memory" in stderr.lower():
        return "out of memory"
    if status != 0:
        return f"exit {status}: " + (stderr.strip().splitlines() or [""])[-1][:60]
    return None


def start(command, directory):
    """Starts command under the time limit, the memory cap and /usr/bin/time, which writes to directory/time."""
    return subprocess.Popen(["timeout", str(TIME_LIMIT), "/usr/bin/time", "-f", "%e %U %S %M", "-o", "time"]
                            + command, cwd=directory, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                            preexec_fn=cap_memory)


def timing(directory):
    """Returns wall seconds, CPU seconds and peak bytes of the run that start() timed; none if it was killed."""
    with open(os.path.join(directory, "time")) as lines:
        fields = (lines.read().strip().splitlines() or [""])[-1].split()
    if len(fields) != 4 or not fields[0][0].isdigit():
        return {}
    wall, user, system, rss = fields
    return {"wall": float(wall), "cpu": float(user) + float(system), "rss": int(rss) * 1024}


def run_kel_trace(binary, model, directory, shape, trace, accepted=True):
    process = start([binary, "-m", model, "-t", trace, f"{shape}.kel"], directory)
    size, counts = count_diagram(process.stdout, model)
    # kel-trace writes little on standard error, so reading it after the diagram cannot block.
    errors = process.stderr.read().decode(errors="replace")
    problem = failure(process.wait(), errors)
    if problem is None and bool(counts[ERROR]) == accepted:
        problem = "trace not accepted" if accepted else "rejected trace accepted"
    return {"problem": problem, "bytes": size, "steps": counts[ELEMENT] - 1 - counts[INITIALIZE],
            "main steps": counts[lifeline(model)] - 1, **timing(directory)}


def run_phases(binary, model, directory, shape):
    """CPU seconds of each part of the run, by name; none without run_phases."""
    if not os.path.exists(binary):
        return {}
    out = subprocess.run([binary, f"{shape}.kel", model, f"{shape}.trace"], cwd=directory,
                         capture_output=True, text=True, timeout=TIME_LIMIT, preexec_fn=cap_memory)
    return {name.strip(): float(value) for name, value in re.findall(r"([a-z ]+)=([0-9.e+-]+)", out.stdout)}


def reject_last_event(directory, shape):
    """Writes a copy of the trace whose last event is one that no model here has."""
    with open(os.path.join(directory, f"{shape}.trace")) as lines:
        events = lines.read().split("\n")
    events = [event for event in events if event]
    events[-1] = "nonsense"
    with open(os.path.join(directory, "rejected.trace"), "w") as out:
        out.write("\n".join(events) + "\n")
    return "rejected.trace"


def run_pan(directory, events):
    """Builds pan from the connection trace and searches; returns its transitions and timing, or a problem."""
    subprocess.run([os.path.join(HERE, "generate_promela.py"), "connection.trace", "."], cwd=directory,
                   check=True)
    # Depth: a few transitions per event; hash table: about one slot per state.
    depth = 8 * events + 1000
    for command in (["spin", "-a", "replay.pml"], ["gcc", "-O2", "-DSAFETY", "-o", "pan", "pan.c", "recorded.c"],
                    ["./pan", f"-m{depth}", f"-w{math.ceil(math.log2(depth))}"]):
        process = start(command, directory)
        out, errors = (stream.decode(errors="replace") for stream in process.communicate())
        problem = failure(process.wait(), errors + out)
        if problem is not None:
            return {"problem": f"{command[0]}: {problem}"}
    if "errors: 0" not in out or "Search not completed" in out:
        return {"problem": "pan: trace not accepted"}
    return {"problem": None, "transitions": int(re.search(r"(\d+) transitions", out).group(1)),
            "search": float(re.search(r"elapsed time ([0-9.e+-]+) seconds", out).group(1)), **timing(directory)}


def print_shape(shape, sizes, results):
    print(f"\n{shape}")
    print(f"{'events':>9} {'wall s':>8} {'CPU s':>8} {'peak MB':>8} {'events/s':>9} {'steps':>10} "
          f"{'steps/s':>9} {'mem B/ev':>9} {'diag B/ev':>9} {'mem/diag':>8} {'CPU x':>6} "
          f"{'main s':>7} {'main st/s':>10} {'rejected s':>10}")
    before = None
    for events in sizes:
        r = results[shape, events]
        if r["problem"]:
            spent = ""
            if "cpu" in r:
                spent = f" after {r['wall']:.0f} s wall, {r['cpu']:.0f} s CPU, {r['rss'] / 2**20:.0f} MB"
            print(f"{events:>9} {r['problem']}{spent}")
            before = None
            continue
        cpu = max(r["cpu"], 0.01)
        ratio = f"{r['cpu'] / before:6.1f}" if before else f"{'':>6}"
        main = r["phases"].get("main run")
        main_columns = f"{main:7.2f} {r['main steps'] / max(main, 0.001):10.0f}" if main else f"{'':>18}"
        rejected = results[shape, events, "rejected"]
        rejected_column = f"{rejected['cpu']:10.2f}" if not rejected["problem"] else rejected["problem"]
        print(f"{events:>9} {r['wall']:8.2f} {r['cpu']:8.2f} {r['rss'] / 2**20:8.1f} {events / cpu:9.0f} "
              f"{r['steps']:10d} {r['steps'] / cpu:9.0f} {r['rss'] / events:9.0f} {r['bytes'] / events:9.0f} "
              f"{r['rss'] / r['bytes']:8.2f} {ratio} {main_columns} {rejected_column}")
        before = cpu


def print_comparison(sizes, results, pans):
    print("\nconnection: pan (spin) beside kel-trace; pan's CPU s includes setting up its tables")
    print(f"{'events':>9} {'pan trans':>10} {'search s':>8} {'CPU s':>7} {'peak MB':>8} {'trans/s':>10} "
          f"{'kel steps/s':>11} {'pan/kel':>8}")
    for events in sizes:
        pan, ours = pans[events], results["connection", events]
        if pan["problem"]:
            print(f"{events:>9} {pan['problem']}")
            continue
        line = (f"{events:>9} {pan['transitions']:>10} {pan['search']:8.2f} {pan['cpu']:7.2f} "
                f"{pan['rss'] / 2**20:8.1f}")
        if pan["cpu"] < 0.1:
            print(f"{line} {'too short':>10}")
            continue
        rate = pan["transitions"] / pan["cpu"]
        line += f" {rate:10.0f}"
        if ours["problem"]:
            print(f"{line} kel-trace: {ours['problem']}")
        else:
            steps = ours["steps"] / max(ours["cpu"], 0.01)
            print(f"{line} {steps:11.0f} {rate / steps:8.1f}")


def main():
    binary = os.path.abspath(sys.argv[1])
    phases = os.path.join(os.path.dirname(os.path.dirname(os.path.dirname(binary))), "bench", "run_phases")
    sizes = [int(size) for size in sys.argv[2:]] or [10_000, 100_000, 1_000_000]
    results, pans = {}, {}
    with tempfile.TemporaryDirectory() as work:
        for events in sizes:
            directory = os.path.join(work, str(events))
            os.mkdir(directory)
            for shape in SHAPES:
                model = subprocess.run([os.path.join(HERE, "generate_run.py"), shape, str(events), directory],
                                       capture_output=True, text=True, check=True).stdout.strip()
                results[shape, events] = run_kel_trace(binary, model, directory, shape, f"{shape}.trace")
                results[shape, events]["phases"] = run_phases(phases, model, directory, shape)
                results[shape, events, "rejected"] = run_kel_trace(
                    binary, model, directory, shape, reject_last_event(directory, shape), accepted=False)
                print(f"{shape} {events}: {results[shape, events]}", file=sys.stderr)
            pans[events] = run_pan(directory, events)
            print(f"pan {events}: {pans[events]}", file=sys.stderr)
    print(f"CPU s is user+sys; events/s and steps/s are per CPU second of the whole run; main s is the "
          f"CPU time of the main run alone and main st/s the rate of its own steps; rejected s the CPU "
          f"time of the run whose last event no way accepts; limits: "
          f"{TIME_LIMIT} s and {MEMORY_CAP >> 30} GB of address space per run")
    for shape in SHAPES:
        print_shape(shape, sizes, results)
    print_comparison(sizes, results, pans)


if __name__ == "__main__":
    main()
