# SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures the editor beside its peers, in turn (A B A B ...), and prints one table.

Usage: compare.py <folder with the programs> <folder for inputs> <table to write> [--quick] [group...]

Times are CPU times (user and system) of the one process that does the work, so that waiting for the
disk or for another program does not count; the wall time is measured beside it.
"""

import argparse
import dataclasses
import datetime
import math
import os
import pathlib
import platform
import statistics
import subprocess
import sys
import time
from typing import Callable, Optional

WARM_UPS = 3
ROUNDS = 15
QUICK_ROUNDS = 5
FEW_ROUNDS = 3  # for work that takes long
SHORTEST_SAMPLE = 20e6  # ns; shorter work is done several times for one sample

# No verdict on a time is given when others used more than this share of one processor meanwhile.
MOST_FOREIGN_LOAD = 0.1

parser = argparse.ArgumentParser()
parser.add_argument("programs", type=pathlib.Path)
parser.add_argument("inputs", type=pathlib.Path)
parser.add_argument("table", type=pathlib.Path)
parser.add_argument("--quick", action="store_true", help="few rounds, for a first impression")
parser.add_argument("groups", nargs="*", help="what to measure; everything if not given")
options = parser.parse_intermixed_args()

environment = dict(
    os.environ,
    LC_ALL="C",
    QT_HASH_SEED="0",
    QT_LOGGING_RULES="qt.*=false;default.warning=false",
    QT_QPA_PLATFORM="offscreen",
    XDG_CONFIG_HOME=str(options.inputs / "settings"),
    XDG_RUNTIME_DIR=str(options.inputs),
)


# ---------------------------------------------------------------------------------------------------
# What is measured


class Server:
    """A program that stays alive and does one measurement whenever it is asked to."""

    repeats = None

    def __init__(self, command, with_memory=False):
        self.command = [str(word) for word in command]
        self.with_memory = with_memory
        if with_memory:
            self.repeats = 1

    def start(self):
        self.process = subprocess.Popen(
            self.command, env=environment, text=True, bufsize=1,
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)

    def ask(self, question):
        self.process.stdin.write(f"{question}\n")
        answer = self.process.stdout.readline().split()
        if not answer:
            sys.exit(f"no answer from {' '.join(self.command)}")
        return [int(word) for word in answer]

    def sample(self):
        wall, cpu = self.ask(self.repeats or 1)
        if self.repeats is None:
            self.repeats = max(1, math.ceil(SHORTEST_SAMPLE / max(wall, 1)))
        values = {"wall": wall, "cpu": cpu}
        if self.with_memory:
            values["resident"] = self.ask("memory")[0]
        return values

    def cpu_so_far(self):
        fields = pathlib.Path(f"/proc/{self.process.pid}/stat").read_text().rsplit(")", 1)[1].split()
        return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")

    def stop(self):
        self.process.stdin.close()
        self.process.wait()


class Program:
    """A program that does its work once and ends. It may itself say what its work took."""

    def __init__(self, command, output=None, says_cost=False, good_codes=(0,)):
        self.command = [str(word) for word in command]
        self.output = output or options.inputs / "output"
        self.says_cost = says_cost
        self.good_codes = good_codes

    def start(self):
        pass

    def sample(self):
        with open(self.output, "wb") as output:
            start = time.perf_counter_ns()
            process = subprocess.Popen(
                self.command, env=environment,
                stdin=subprocess.DEVNULL, stdout=output, stderr=subprocess.DEVNULL)
            _, status, usage = os.wait4(process.pid, 0)
            wall = time.perf_counter_ns() - start
        process.returncode = os.waitstatus_to_exitcode(status)
        if process.returncode not in self.good_codes:
            sys.exit(f"this failed: {' '.join(self.command)[:200]}")
        cpu = (usage.ru_utime + usage.ru_stime) * 1e9
        if self.says_cost:
            wall, cpu = map(int, pathlib.Path(self.output).read_text().split())
        return {"wall": wall, "cpu": cpu, "peak": usage.ru_maxrss * 1024}

    def cpu_so_far(self):
        return 0

    def stop(self):
        pass


class Resting:
    """A program whose memory is looked at once it is ready."""

    def __init__(self, command):
        self.command = [str(word) for word in command]

    def start(self):
        pass

    def sample(self):
        with subprocess.Popen(
                self.command, env=environment, text=True,
                stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL) as process:
            if process.stdout.readline() != "ready\n":
                sys.exit(f"no answer from {' '.join(self.command)}")
            lines = pathlib.Path(f"/proc/{process.pid}/smaps_rollup").read_text().splitlines()
            values = {line.split(":")[0]: line.split()[1] for line in lines if line.endswith(" kB")}
            process.stdin.close()
        return {"resident": int(values["Rss"]) * 1024, "proportional": int(values["Pss"]) * 1024}

    def cpu_so_far(self):
        return 0

    def stop(self):
        pass


def ours(measurement, size=0, **further):
    return Server([options.programs / "korvela-bench", options.inputs, measurement, size], **further)


def python(measurement, size):
    script = pathlib.Path(__file__).with_name("peers.py")
    return Server([sys.executable, script, options.inputs, measurement, size])


def program(name, *arguments, **further):
    return Program([options.programs / f"korvela-bench-{name}", *arguments], **further)


# ---------------------------------------------------------------------------------------------------
# What is compared


@dataclasses.dataclass
class Line:
    """One line of the table: the work of two sides of a group, ours first."""

    work: str
    peer: str
    must: Optional[float] = None
    aim: Optional[float] = None
    side: str = "ours"
    quantity: str = "cpu"
    limit: Optional[str] = None
    budget: Optional[float] = None  # ms that ours may take, whatever others do
    figures: Optional[Callable] = None  # (ours, peer) from the samples, where it is not each round's


@dataclasses.dataclass
class Group:
    sides: dict
    lines: list
    rounds: Optional[int] = None


def parsing(size, must, aim):
    work = f"parse {size:,} point lines"
    return Group(
        sides={
            "ours": ours("parse-text", size),
            "pandas `read_csv`": python("read-csv", size),
            "numpy `loadtxt`": python("loadtxt", size),
            "bare `from_chars` loop": ours("parse-by-from-chars", size),
            "plain way": ours("parse-by-expression", size),
            "the same, as after typing": ours("parse-typed", size),
            "copying the text": ours("copy-text", size),
        },
        lines=[
            Line(work, "pandas `read_csv`", must, aim, limit="copying the text"),
            Line(work, "numpy `loadtxt`", must, aim),
            Line(work, "bare `from_chars` loop", 1.3, 0.8),
            Line(work, "plain way", 1 / 20, 1 / 50),
            Line("the same, as after typing", "bare `from_chars` loop", side="the same, as after typing"),
        ])


def resampling(size, wide=""):
    work = f"resample {size:,} points over {'1,000' if wide else '10'} eV"
    return Group(
        sides={
            "ours": ours(f"resample{wide}", size),
            "numpy `interp`": python(f"interp{wide}", size),
            "reading the points": ours("read-points", size),
        },
        lines=[Line(work, "numpy `interp`", 1.0, 0.6, limit="reading the points")])


def command(name, measurement, size):
    return Group(
        sides={
            "ours": ours(measurement, size),
            "a tenth": ours(measurement, size // 10),
            "`setPlainText` and a chart update": ours(f"{measurement}-result", size),
            "a tenth of that": ours(f"{measurement}-result", size // 10),
        },
        lines=[
            Line(f"{name}, {size:,} points", "a tenth", 12),
            Line(f"{name}, {size:,} points", "`setPlainText` and a chart update", 3, 2),
            Line("`setPlainText` and a chart update alone", "a tenth of that",
                 side="`setPlainText` and a chart update"),
        ])


# What a motion at a chart of 5,000, 50,000 and 100,000 points may take, in ms. A frame of a screen
# that is painted sixty times a second is 16.7 ms.
FRAME = 1000 / 60
MOTIONS = {
    "hover": ("move the mouse over the chart", (2, 2, 2), ("bare",)),
    "rubber-band": ("drag a rectangle", (2, 2, 2), ("bare",)),
    "switch-tab": ("show the tab again", (16, 30, 40), ()),
    "zoom": ("zoom", (FRAME, None, 60), ("bare", "custom")),
    "unzoom": ("end the zoom", (FRAME, None, 60), ("bare",)),
    "resize": ("resize by a step", (FRAME, None, None), ("bare", "custom")),
    "paste": ("paste over all", (FRAME, None, 800), ("bare",)),
    "select-all": ("select all", (FRAME, None, 100), ("bare",)),
    "line-spectrum": ("tick *Line spectrum*", (FRAME, None, 200), ()),
}
PEERS = {"bare": "Qt alone", "custom": "QCustomPlot"}


def motion(name, size, index):
    work, budgets, peers = MOTIONS[name]
    work = f"{work}, {size:,} points"
    sides = {"ours": ours(name, size)}
    sides |= {PEERS[peer]: ours(f"{name}-{peer}", size) for peer in peers}
    budget = budgets[index]
    return Group(
        sides=sides,
        lines=[Line(work, PEERS[peer], budget=budget) for peer in peers] or
              [Line(work, "ours", budget=budget)])


def percentile(values, share):
    return sorted(values)[min(len(values) - 1, math.floor(share * len(values)))]


def slowest_and_median(_, samples):
    costs = samples["cpu"]
    return percentile(costs, 0.99), statistics.median(costs)


def memory_at_end_and_after_50(_, samples):
    memory = samples["resident"]
    return memory[-1], memory[min(49, len(memory) - 1)]


THOUSAND_ENTRIES = options.inputs / "database"


def compiling_with_jq():
    program_text = (
        'reduce inputs as $entry ({Type: "Database v1", Header: {Version: "1.0"}};'
        ' . + {"Entry\\(length - 1)": ($entry | del(.Type))})')
    return Program(
        ["jq", "--indent", "4", "--null-input", program_text, *sorted(THOUSAND_ENTRIES.glob("*.json"))],
        options.inputs / "database-peer.json")


def compiling():
    return Group(
        sides={
            "ours": program("database", THOUSAND_ENTRIES, options.inputs / "database-ours.json",
                            says_cost=True),
            "`jq`": compiling_with_jq(),
            "`cat`": Program(["cat", *sorted(THOUSAND_ENTRIES.glob("*.json"))],
                             options.inputs / "database-cat.json"),
        },
        lines=[
            Line("compile a database of 1,000 entries", "`jq`", 1 / 2, 1 / 4, limit="`cat`"),
            Line("the same, peak memory", "`jq`", 1, quantity="peak", limit="`cat`"),
        ])


def entries_program(*arguments):
    return Program([options.programs.parent / "korvela-entries", *arguments], good_codes=(0, 1))


def compiling_entries(thousands):
    database = options.inputs / "database-entries.json"
    return entries_program("compile", "--output", database, *[THOUSAND_ENTRIES] * thousands)


def compiling_on_the_console():
    return Group(
        sides={
            "ours": compiling_entries(1),
            "`jq`": compiling_with_jq(),
            "ten times as many": compiling_entries(10),
        },
        lines=[
            Line("`korvela-entries compile`, 1,000 entries", "`jq`", 0.25),
            Line("the same, wall time", "`jq`", quantity="wall"),
            Line("the same, peak memory", "`jq`", 0.45, quantity="peak"),
            Line("10,000 entries, 900 MB", "ours", 12, side="ten times as many"),
            Line("the same, peak memory", "ours", 1.2, side="ten times as many", quantity="peak"),
        ])


def checking():
    return Group(
        rounds=FEW_ROUNDS,
        sides={
            "ours": entries_program("check", THOUSAND_ENTRIES),
            "`schemas/validate`": Program(
                [sys.executable, pathlib.Path(__file__).parent.parent / "schemas" / "validate",
                 *sorted(THOUSAND_ENTRIES.glob("*.json"))], good_codes=(0, 1)),
            "ten times as many": entries_program("check", *[THOUSAND_ENTRIES] * 10),
        },
        lines=[
            Line("`korvela-entries check`, 1,000 entries", "`schemas/validate`", 0.2),
            Line("the same, wall time", "`schemas/validate`", quantity="wall"),
            Line("the same, peak memory", "`schemas/validate`", quantity="peak"),
            Line("10,000 entries, 900 MB", "ours", 12, side="ten times as many"),
            Line("the same, peak memory", "ours", side="ten times as many", quantity="peak"),
        ])


GROUPS = {
    "parse-5000": lambda: parsing(5_000, 1 / 10, 1 / 20),
    "parse-100000": lambda: parsing(100_000, 1 / 3, 1 / 5),
    "parse-1000000": lambda: parsing(1_000_000, 1 / 3, 1 / 5),
    "resample-5000": lambda: resampling(5_000),
    "resample-100000": lambda: resampling(100_000),
    "resample-1000000": lambda: resampling(1_000_000),
    "resample-wide": lambda: resampling(1_000_000, "-wide"),
    "interpolate": lambda: Group(
        sides={"ours": ours("resample", 20_000), "plain scan": ours("resample-by-scan", 20_000)},
        lines=[Line("interpolate 20,000 points over 10 eV", "plain scan", 1 / 100)]),
    "normalize-10000": lambda: command("normalise", "normalize", 10_000),
    "normalize-100000": lambda: command("normalise", "normalize", 100_000),
    "sparse-10000": lambda: command("make sparser", "sparse", 10_000),
    "sparse-100000": lambda: command("make sparser", "sparse", 100_000),
    "start": lambda: Group(
        sides={
            "ours": program("start"),
            "empty window": program("empty"),
            "all libraries and one label": program("label"),
        },
        lines=[
            Line("start to first paint", "empty window", 3.0, 2.2),
            Line("start to first paint", "all libraries and one label"),
        ]),
    "open": lambda: Group(
        sides={
            "ours": ours("open", 5_000),
            "JSON and 20 empty windows": ours("open-empty", 5_000),
            "the same and `setPlainText`": ours("open-texts", 5_000),
            "JSON and its twin without points": ours("open-pointless", 5_000),
            "bare Qt widgets, same data": ours("open-bare", 5_000),
            "parsing the JSON": ours("parse-entry", 5_000),
        },
        lines=[
            Line("open 20 x 5,000 points", "JSON and 20 empty windows", 2.0, 1.5,
                 limit="parsing the JSON"),
            Line("open 20 x 5,000 points", "the same and `setPlainText`"),
            Line("open 20 x 5,000 points", "JSON and its twin without points"),
            Line("open 20 x 5,000 points", "bare Qt widgets, same data"),
        ]),
    "redraw": lambda: Group(
        sides={
            "ours": ours("redraw", 5_000),
            "naive order": ours("redraw-naively", 5_000),
            "painting alone": ours("repaint", 5_000),
        },
        lines=[
            Line("redraw 5,000 points", "naive order", 0.6, 0.4, limit="painting alone"),
        ]),
    "step": lambda: Group(
        rounds=60 if options.quick else 500,
        sides={
            "ours": ours("step", with_memory=True),
            "JSON and 2 empty windows": ours("step-empty", with_memory=True),
            "bare Qt widgets, same data": ours("step-bare", with_memory=True),
        },
        lines=[
            Line("step, 2 x 500 points", "JSON and 2 empty windows", 1.4, 1.1),
            Line("step, 2 x 500 points", "bare Qt widgets, same data"),
            Line("slowest 1 % of the steps", "median step", 2, figures=slowest_and_median),
            Line("resident memory after the last step", "after 50 steps", 1.05,
                 quantity="resident", figures=memory_at_end_and_after_50),
        ]),
    "save": lambda: Group(
        sides={
            "ours": ours("save", 5_000),
            "`toJson` and writing": ours("save-value", 5_000),
            "writing the bytes": ours("save-bytes", 5_000),
        },
        lines=[
            Line("save 20 x 5,000 points", "`toJson` and writing", 1.2, limit="writing the bytes"),
            Line("the same, wall time", "`toJson` and writing", quantity="wall",
                 limit="writing the bytes"),
        ]),
    **{f"{name}-{size}": lambda name=name, size=size, index=index: motion(name, size, index)
       for name in MOTIONS for index, size in enumerate((5_000, 50_000, 100_000))},
    "database": compiling,
    "entries-compile": compiling_on_the_console,
    "entries-check": checking,
    "memory": lambda: Group(
        sides={
            "ours": Resting([options.programs / "korvela-bench-start", "stay"]),
            "empty window": Resting([options.programs / "korvela-bench-empty", "stay"]),
            "all libraries and one label": Resting(
                [options.programs / "korvela-bench-label", "stay"]),
        },
        lines=[
            Line("resident memory at rest", "empty window", 2, 1.5, quantity="resident"),
            Line("resident memory at rest", "all libraries and one label", quantity="resident"),
            Line("the same, shared pages by share", "empty window", quantity="proportional"),
        ]),
}


# ---------------------------------------------------------------------------------------------------
# Measuring


def busy_time():
    """What all processors together have worked since the computer was started, in seconds."""
    fields = pathlib.Path("/proc/stat").read_text().split("\n", 1)[0].split()[1:9]
    user, nice, system, _idle, _waiting, hard, soft, stolen = map(int, fields)
    return (user + nice + system + hard + soft + stolen) / os.sysconf("SC_CLK_TCK")


def own_time(sides):
    times = os.times()
    ended = times.user + times.system + times.children_user + times.children_system
    return ended + sum(side.cpu_so_far() for side in sides)


def measure(group):
    """The samples of each side and quantity, and the load by others meanwhile."""
    sides = group.sides
    for side in sides.values():
        side.start()
    for _ in range(1 if options.quick or group.rounds == FEW_ROUNDS else WARM_UPS):
        for side in sides.values():
            side.sample()

    samples = {name: {} for name in sides}
    start = time.monotonic(), busy_time(), own_time(sides.values())
    for _ in range(group.rounds or (QUICK_ROUNDS if options.quick else ROUNDS)):
        for name, side in sides.items():
            for quantity, value in side.sample().items():
                samples[name].setdefault(quantity, []).append(value)
    end = time.monotonic(), busy_time(), own_time(sides.values())
    for side in sides.values():
        side.stop()

    duration, busy, own = (b - a for a, b in zip(start, end))
    return samples, max(0.0, busy - own) / duration


# ---------------------------------------------------------------------------------------------------
# Reporting


TIMES = ("cpu", "wall")


def shown(value, quantity):
    if quantity in TIMES:
        for unit, size in (("s", 1e9), ("ms", 1e6), ("µs", 1e3)):
            if value >= size:
                return f"{value / size:.3g} {unit}"
        return f"{value:.0f} ns"
    return f"{value / 2**20:.1f} MiB"


def shown_limit(limit):
    return "" if limit is None else f"{limit:.3g}"


def verdict(line, ours, ratios, foreign_load):
    """Whether a ratio, or what ours took in ms, keeps to its limit."""
    limit, values = line.must, ratios
    if line.budget is not None:
        limit, values = line.budget, [value / 1e6 for value in ours]
    if limit is None:
        return ""
    if line.quantity in TIMES and foreign_load > MOST_FOREIGN_LOAD:
        return "too noisy"
    lower, _, upper = statistics.quantiles(values, n=4) if len(values) > 1 else values * 3
    if lower <= limit < upper:
        return "too noisy"
    return "met" if upper <= limit else "missed"


def cells(line, samples, foreign_load):
    if line.figures:
        our_value, peer_value = line.figures(line, samples[line.side])
        our_values = [our_value]
        ratios = [our_value / peer_value]
    else:
        our_values = samples[line.side][line.quantity]
        peer_values = samples[line.peer][line.quantity]
        our_value, peer_value = statistics.median(our_values), statistics.median(peer_values)
        ratios = [a / b for a, b in zip(our_values, peer_values)]
    ratio = f"{statistics.median(ratios):.3g}"
    if len(ratios) > 1:
        ratio += f" [{min(ratios):.3g}, {max(ratios):.3g}]"
    limit = ""
    if line.limit:
        floor = statistics.median(samples[line.limit][line.quantity])
        limit = f"{shown(floor, line.quantity)} ({line.limit})"
    return [
        line.work, shown(our_value, line.quantity), line.peer, shown(peer_value, line.quantity),
        limit, ratio, f"{line.budget:.3g} ms" if line.budget else shown_limit(line.must),
        shown_limit(line.aim), f"{foreign_load:.2f}",
        verdict(line, our_values, ratios, foreign_load),
    ]


HEADINGS = ["work", "ours", "compared with", "theirs", "physical limit", "ratio [min, max]",
            "must", "aim", "foreign load", "verdict"]


def table(rows):
    widths = [max(len(row[column]) for row in [HEADINGS, *rows]) for column in range(len(HEADINGS))]
    rule = ["-" * width for width in widths]
    return "\n".join(
        "| " + " | ".join(cell.ljust(width) for cell, width in zip(row, widths)) + " |"
        for row in [HEADINGS, rule, *rows])


def output_of(*arguments):
    try:
        return subprocess.run(arguments, capture_output=True, text=True, check=True).stdout.strip()
    except (OSError, subprocess.CalledProcessError):
        return "?"


def machine():
    cpu = next((line.split(":")[1].strip() for line in pathlib.Path("/proc/cpuinfo").open()
                if line.startswith("model name")), platform.machine())
    packages = ["qt6-base-dev", "qt6-charts-dev", "g++", "libc6", "python3-numpy", "python3-pandas", "jq",
                "libqcustomplot-dev"]
    versions = (package + " " + output_of("dpkg-query", "--show", "--showformat=${Version}", package)
                for package in packages)
    return (f"{cpu}, {os.cpu_count()} processors, Linux {platform.release()}; " + ", ".join(versions))


def shown_load():
    return " ".join(f"{load:.2f}" for load in os.getloadavg())


def main():
    unknown = set(options.groups) - set(GROUPS)
    if unknown:
        sys.exit(f"unknown: {' '.join(unknown)}; there are {' '.join(GROUPS)}")
    load_before = shown_load()
    rows = []
    for name in options.groups or GROUPS:
        print(f"measuring {name} ...", file=sys.stderr)
        group = GROUPS[name]()
        samples, foreign_load = measure(group)
        rows += [cells(line, samples, foreign_load) for line in group.lines]

    rounds = f"{QUICK_ROUNDS} rounds (quick)" if options.quick else f"{ROUNDS} rounds"
    report = "\n\n".join([
        f"{datetime.date.today().isoformat()}, {machine()}",
        f"Load average {load_before} before and {shown_load()} after; {rounds}.",
        table(rows),
    ]) + "\n"
    print(report, end="")
    options.table.write_text(report, encoding="utf-8")


main()
