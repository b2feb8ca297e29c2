"""Runs the benchmark programs: times beside peers, and instructions on ARM."""

import json
import re
import subprocess
import sys
import tempfile

REPETITIONS = 7
TIME_S = 0.05  # of each repetition
PEERS = "build/bench/bin/peers"
COUNTER = "build/bench/lib/libcount.so"
ROUNDS = ["build/bench-arm/bin/rounds"]
EMULATOR = ["qemu-arm", "-L", "/usr/arm-linux-gnueabi"]


def row_of(rows, name):
    """The row of that name; what is measured must have an entry in rows.ini."""
    if name not in rows:
        sys.exit(f"bench: rows.ini has no row {name}")
    return rows[name]


def times(rows, pattern=""):
    """Adds to the rows the least time of each way, of repetitions that took turns."""
    with tempfile.NamedTemporaryFile(suffix=".json") as out:
        result = subprocess.run(
            [PEERS, f"--benchmark_min_time={TIME_S}", f"--benchmark_repetitions={REPETITIONS}",
             "--benchmark_enable_random_interleaving=true", f"--benchmark_out={out.name}",
             "--benchmark_out_format=json", pattern],
            text=True, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, check=False)
        print("".join(line for line in result.stderr.splitlines(True) if "peers:" in line), end="")
        if result.returncode != 0:
            sys.exit("bench: nothing was measured")
        runs = json.load(out)["benchmarks"]
    least = {}
    for run in runs:
        if run["run_type"] == "iteration":
            name = run["run_name"].removesuffix("/real_time")
            time_ns = 1e9 / run["items_per_second"]
            least[name] = min(time_ns, least.get(name, time_ns))
    for name, time_ns in least.items():
        row, _, way = name.partition("/")
        row_of(rows, row).add_time(way, time_ns)


def instructions(row, way, rounds):
    """How many instructions the ARM program executes, from its start to its end."""
    result = subprocess.run([*EMULATOR, "-plugin", COUNTER, *ROUNDS, row, way, str(rounds)],
                            text=True, stderr=subprocess.PIPE, check=True)
    return int(re.search(r"^instructions: (\d+)$", result.stderr, re.MULTILINE)[1])


def per_call(row, way, calls):
    """Instructions per call: two rounds more, divided by their calls; start and end cancel out."""
    return (instructions(row, way, 4) - instructions(row, way, 2)) / (2 * calls)


def counts(rows, pattern=""):
    """Adds to the rows the instructions of one call, less those of an empty one."""
    listed = subprocess.run([*EMULATOR, *ROUNDS], text=True, stdout=subprocess.PIPE, check=True)
    for line in listed.stdout.splitlines():
        name, calls, *ways = line.split()
        if not re.search(pattern, name):
            continue
        row = row_of(rows, name)
        empty = per_call(name, "empty", int(calls))
        row.arm = per_call(name, "ours", int(calls)) - empty
        if "peer" in ways:
            row.arm_peer = per_call(name, "peer", int(calls)) - empty
