"""Runs pairs of programs in turn, and says what they took."""

import dataclasses
import os
import statistics
import subprocess
import time

OURS, THEIRS = 0, 1


@dataclasses.dataclass
class Pair:
    """A row of the table: what is compared, the two commands, and the ratio to reach."""

    figure: str
    ours: list
    theirs: list
    target: float


@dataclasses.dataclass
class Run:
    seconds: float
    processor: float
    peak: float  # MB


def run(command):
    started = time.monotonic()
    process = subprocess.Popen([str(word) for word in command], stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
    messages = process.stderr.read()
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        lines = messages.decode(errors="replace").strip().splitlines() or [f"status {process.returncode}"]
        raise RuntimeError(f"{command[0]} failed: {lines[-1]}")
    return Run(time.monotonic() - started, usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024)


def measure(pair, repeats):
    """The runs of both sides, taken in turn after one of each that does not count."""
    runs = [[], []]
    for i in range(repeats + 1):
        for side, command in ((OURS, pair.ours), (THEIRS, pair.theirs)):
            result = run(command)
            if i > 0:
                runs[side].append(result)
    return runs


def spread(values, digits=2):
    return " / ".join(f"{value:.{digits}f}" for value in (min(values), statistics.median(values), max(values)))


def print_head():
    print("| figure | ratio | target | ours, s | theirs, s | peak, MB |")
    print("|---|---|---|---|---|---|", flush=True)


def print_row(pair, runs, of):
    """Each ratio is of two runs that followed one another."""
    ours, theirs = ([getattr(each, of) for each in side] for side in runs)
    ratios = [a / b for a, b in zip(ours, theirs)]
    peaks = " and ".join(f"{max(each.peak for each in side):.0f}" for side in runs)
    print(
        f"| {pair.figure} | {spread(ratios)} | {pair.target} | {spread(ours)} | {spread(theirs)} | {peaks} |",
        flush=True,
    )
