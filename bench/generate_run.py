#!/usr/bin/env python3
"""Writes a kel source and an accepted trace of the given number of events.

Each shape is a model that users meet, with one round of its trace; the trace
repeats the round and is cut after EVENTS events.
- connection: an interface with an enum state machine in guards, calls that
  reply enum values and optional out events; the round connects, sends, closes.
- monitor: a component with one provided and two required ports; the sensor's
  notifications go through the queue and each makes the component read a
  value from the meter; the round starts, handles three notifications, stops.
- sampler: an interface whose call replies either value, so every call forks
  in two and the way with the other value dies at its reply.
Writes DIR/SHAPE.kel and DIR/SHAPE.trace and prints the model's name.
Usage: generate_run.py SHAPE EVENTS DIR
"""
import itertools
import os
import sys

CONNECTION = """\
interface IConnection {
    enum State { idle, connecting, connected, closing };
    enum Result { ok, refused };

    in Result connect();
    in Result send();
    in void close();
    out void established();
    out void closed();

    behaviour {
        State state = State.idle;

        [state == State.idle] {
            on connect: { state = State.connecting; reply(Result.ok); }
            on send: reply(Result.refused);
            on close: illegal;
        }
        [state == State.connecting] {
            on connect, close: illegal;
            on send: reply(Result.refused);
            on optional: { established; state = State.connected; }
        }
        [state == State.connected] {
            on connect: illegal;
            on send: reply(Result.ok);
            on close: state = State.closing;
        }
        [state == State.closing] {
            on connect, send, close: illegal;
            on optional: { closed; state = State.idle; }
        }
    }
}
"""
CONNECTION_ROUND = ["connect", "Result_ok", "established", "send", "Result_ok", "send", "Result_ok",
                    "close", "return", "closed", "send", "Result_refused"]

MONITOR = """\
subint Level { 0..3 };

interface IControl {
    in void start();
    in void stop();
    out void level();

    behaviour {
        bool running = false;

        [!running] {
            on start: running = true;
            on stop: illegal;
        }
        [running] {
            on start: illegal;
            on stop: running = false;
            on optional: level;
        }
    }
}

interface ISensor {
    in void arm();
    in void disarm();
    out void changed();

    behaviour {
        bool armed = false;

        [!armed] {
            on arm: armed = true;
            on disarm: {}
        }
        [armed] {
            on arm: illegal;
            on disarm: armed = false;
            on optional: changed;
        }
    }
}

interface IMeter {
    in Level read();

    behaviour {
        on read: reply(2);
    }
}

component Monitor {
    provides IControl control;
    requires ISensor sensor;
    requires IMeter meter;

    behaviour {
        bool running = false;
        Level last = 0;

        [!running] {
            on control.start(): { sensor.arm(); running = true; }
            on control.stop(): illegal;
            on sensor.changed(): {}
        }
        [running] {
            on control.start(): illegal;
            on control.stop(): { sensor.disarm(); running = false; }
            on sensor.changed(): { last = meter.read(); control.level(); }
        }
    }
}
"""
MONITOR_ROUND = (["control.start", "sensor.arm", "sensor.return", "control.return"]
                 + ["sensor.changed", "meter.read", "meter.2", "control.level"] * 3
                 + ["control.stop", "sensor.disarm", "sensor.return", "control.return"])

SAMPLER = """\
interface ISampler {
    enum Answer { yes, no };

    in Answer poll();

    behaviour {
        on poll: reply(Answer.yes);
        on poll: reply(Answer.no);
    }
}
"""
SAMPLER_ROUND = ["poll", "Answer_yes", "poll", "Answer_no"]

SHAPES = {
    "connection": ("IConnection", CONNECTION, CONNECTION_ROUND),
    "monitor": ("Monitor", MONITOR, MONITOR_ROUND),
    "sampler": ("ISampler", SAMPLER, SAMPLER_ROUND),
}


def main():
    shape, events, directory = sys.argv[1], int(sys.argv[2]), sys.argv[3]
    model, source, round_ = SHAPES[shape]
    with open(os.path.join(directory, f"{shape}.kel"), "w") as out:
        out.write(source)
    with open(os.path.join(directory, f"{shape}.trace"), "w") as out:
        out.writelines(f"{event}\n" for event in itertools.islice(itertools.cycle(round_), events))
    print(model)


if __name__ == "__main__":
    main()
