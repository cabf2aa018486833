# SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Does measurements with pandas and numpy, one for each line of the standard input, as korvela-bench
does: a number asks to do the work that often, the answer is the wall and the CPU time of one in
nanoseconds.

Usage: peers.py <folder with the inputs> <measurement> <number of points>
"""

import io
import pathlib
import sys
import time

import numpy
import pandas


def read_csv(text):
    # Bytes are read a little faster than characters: pandas would encode these first.
    source = io.BytesIO(text.encode())
    return lambda: pandas.read_csv(source, sep=" ", header=None, engine="c"), source


def loadtxt(text):
    source = io.StringIO(text)
    return lambda: numpy.loadtxt(source), source


def interp(text, width_factor=1):
    points = pandas.read_csv(io.StringIO(text), sep=" ", header=None).to_numpy()
    energies = points[:, 0] * width_factor
    intensities = numpy.ascontiguousarray(points[:, 1])
    step = 0.001
    start = energies[0] + step
    grid = start + step * numpy.arange(int((energies[-1] - step - start) / step) + 1)
    return lambda: numpy.interp(grid, energies, intensities), None


def cost_of(work):
    wall, cpu = time.perf_counter_ns(), time.process_time_ns()
    work()
    return time.perf_counter_ns() - wall, time.process_time_ns() - cpu


def main():
    folder, measurement, size = sys.argv[1:]
    text = pathlib.Path(folder, f"points-{size}.txt").read_text(encoding="ascii")
    prepare = {
        "read-csv": read_csv,
        "loadtxt": loadtxt,
        "interp": interp,
        "interp-wide": lambda text: interp(text, 100),
    }[measurement]
    work, source = prepare(text)
    for line in sys.stdin:
        times = int(line)
        wall = cpu = 0
        for _ in range(times):
            if source:
                source.seek(0)
            cost = cost_of(work)
            wall += cost[0]
            cpu += cost[1]
        print(wall // times, cpu // times, flush=True)


main()
