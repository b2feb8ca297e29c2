"""The suites of the build folder: what each can see, and how it is linked and run."""

import json
import os
import re
import shlex
import signal
import subprocess
import time
from dataclasses import dataclass, field
from pathlib import Path

HERE = Path(__file__).parent
PRODUCT = re.compile(r"CMakeFiles/orva(util|tool)_(objects|main)\.dir/")
TOOL = "orvatool"
# For a suite that sleeps: one that works is stopped by its processor time, whatever the load.
LIMIT_S = 90
LIMIT_PER_CPU_S = 60


@dataclass
class Suite:
    name: str
    program: str            # what is linked: the suite itself, or the tool that it runs
    command: list
    environment: dict
    folder: str             # where it runs
    objects: set = field(default_factory=set)  # its own, and those of the product it reaches
    cpu_s: float = 0.0      # without a fault
    kills: dict = field(default_factory=dict)  # for each file the number of its mutants


class Linker:
    def __init__(self, build):
        self.build = Path(build)
        self.words = {}

    def command(self, program):
        if program not in self.words:
            printed = subprocess.run(["ninja", "-C", self.build, "-t", "commands",
                                      f"bin/{program}"], check=True, capture_output=True,
                                     text=True).stdout
            line = printed.splitlines()[-1].replace("\\$", "$")  # the shell's, within quotes
            self.words[program] = [word for word in shlex.split(line) if word not in (":", "&&")]
        return self.words[program]

    def objects(self, program):
        return [word for word in self.command(program) if word.endswith(".o")]

    def link(self, program, replaced, output):
        """Links with some objects replaced; False when it fails."""
        words = [str(replaced.get(word, word)) for word in self.command(program)]
        words[words.index("-o") + 1] = str(output)
        return subprocess.run(words, cwd=self.build, capture_output=True, check=False,
                              timeout=300).returncode == 0


def symbols(build, objects):
    """For each object (defined, undefined) names."""
    printed = subprocess.run(["nm", "-A", *objects], cwd=build, check=True, capture_output=True,
                             text=True).stdout
    found = {name: (set(), set()) for name in objects}
    for line in printed.splitlines():
        place, name = line.rsplit(" ", 1)
        if place[-1] in "TDBRVWu":
            found[place.split(":")[0]][0].add(name)
        elif place[-1] == "U":
            found[place.split(":")[0]][1].add(name.removeprefix("__real_"))
    return found


def reached(build, linker, program):
    """The program's own objects, and those of the product that they call, directly or not."""
    objects = linker.objects(program)
    table = symbols(build, objects)
    home = {name: item for item in objects for name in table[item][0] if PRODUCT.match(item)}
    start = [item for item in objects if not PRODUCT.match(item) or "orvatool_main" in item]
    found, waiting = set(start), list(start)
    while waiting:
        for name in table[waiting.pop()][1]:
            if name in home and home[name] not in found:
                found.add(home[name])
                waiting.append(home[name])
    return found


def suites_of(build, linker):
    """All that run code of the product."""
    printed = subprocess.run(["ctest", "--test-dir", build, "--show-only=json-v1"], check=True,
                             capture_output=True, text=True).stdout
    found = []
    for test in json.loads(printed)["tests"]:
        properties = {item["name"]: item["value"] for item in test["properties"]}
        environment = dict(item.split("=", 1) for item in properties.get("ENVIRONMENT", []))
        command = test["command"]
        is_unit = command == [f"{build}/bin/{test['name']}"]
        if not is_unit and test["name"] != "process_test":
            continue
        program = test["name"] if is_unit else TOOL
        suite = Suite(test["name"], program, command + ([] if is_unit else ["--failfast"]),
                      environment, properties["WORKING_DIRECTORY"])
        suite.objects = reached(build, linker, program)
        found.append(suite)
    return found


def run(suite, program, build):
    """(whether it passed, processor seconds, whether it ran out of time)."""
    command = [str(program) if word.endswith(f"/bin/{suite.program}") else word
               for word in suite.command]
    environment = {**os.environ, **suite.environment, "GTEST_FAIL_FAST": "1", "GTEST_BRIEF": "1"}
    if suite.program == TOOL:
        environment["TOOL"] = str(program)
    limit_s = int(4 + 5 * suite.cpu_s)
    wall_limit_s = LIMIT_S + LIMIT_PER_CPU_S * suite.cpu_s
    start = time.monotonic()
    with subprocess.Popen([HERE / "run_suite", str(limit_s), build, *command], cwd=suite.folder,
                          env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                          stderr=subprocess.DEVNULL) as process:
        timer_ran_out = False
        while True:
            pid, status, usage = os.wait4(process.pid, os.WNOHANG)
            if pid != 0:
                break
            if time.monotonic() - start > wall_limit_s and not timer_ran_out:
                process.send_signal(signal.SIGKILL)
                timer_ran_out = True
            time.sleep(0.01)
        process.returncode = os.waitstatus_to_exitcode(status)
    cpu_s = usage.ru_utime + usage.ru_stime
    is_late = timer_ran_out or cpu_s >= limit_s
    return process.returncode == 0 and not timer_ran_out, cpu_s, is_late
