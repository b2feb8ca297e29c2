"""Tries one mutant: compiles it, links it into the suites that see it, and runs them."""

import json
import shutil
from dataclasses import dataclass

from tests.mutate import suites
from tests.mutate.suites import PRODUCT

NOT_COMPILED, SAME_CODE, KILLED, SURVIVED = "not compiled", "same code", "killed", "survived"


@dataclass
class Outcome:
    mutant: object
    result: str
    suite: str = ""
    is_late: bool = False


class Bench:
    """What all trials share."""

    def __init__(self, compiler, linker, found, work):
        self.compiler = compiler
        self.linker = linker
        self.suites = found
        self.work = work

    def base(self, name):
        """The object without a fault, compiled in the same way as those with one."""
        output = self.work / "base" / name
        if not output.exists():
            fresh = output.with_suffix(f".{id(output)}")
            assert self.compiler.compile(name, self.work / "nothing", fresh), name
            fresh.replace(output)
        return output

    def in_order(self, file, objects):
        """The suites that reach one of the objects; those that killed most of the file first."""
        def rank(suite):
            near = suite.folder.endswith("/tests/" + file.rsplit("/", 1)[0])
            return -suite.kills.get(file, 0), not near, suite.cpu_s
        return sorted((suite for suite in self.suites if suite.objects & objects), key=rank)

    def prepare(self, folder):
        """An empty folder for programs."""
        shutil.rmtree(folder, ignore_errors=True)
        (folder / "bin").mkdir(parents=True)
        (folder / "lib").symlink_to(self.compiler.build / "lib")  # the tool looks there

    def measure(self):
        """Links and runs each suite as for a fault, but without one; the names of those that fail.

        A suite that is one program is not run again as long as that is the same.
        """
        kept_file = self.work / "times.json"
        kept = json.loads(kept_file.read_text(encoding="utf-8")) if kept_file.exists() else {}
        folder = self.work / "measured"
        self.prepare(folder)
        failed = []
        for suite in self.suites:
            version = (self.compiler.build / "bin" / suite.program).stat().st_mtime
            if suite.name != suite.program or kept.get(suite.name, [0])[0] != version:
                suite.cpu_s = 60
                program = folder / "bin" / suite.program
                is_linked = self.linker.link(suite.program, {}, program)
                passed, cpu_s, _ = suites.run(suite, program, self.compiler.build)
                if not is_linked or not passed:
                    failed.append(suite.name)
                    continue
                kept[suite.name] = [version, cpu_s]
                kept_file.write_text(json.dumps(kept), encoding="utf-8")
            suite.cpu_s = kept[suite.name][1]
        return failed

    def try_mutant(self, mutant, folder):
        """The outcome; folder is the worker's own and is emptied first."""
        self.prepare(folder)
        path = folder / "source" / mutant.file
        path.parent.mkdir(parents=True)
        path.write_text(mutant.mutated, encoding="utf-8")

        names = self.compiler.objects_of(mutant.file)
        changed, is_good = self.compile(folder, [n for n in names if PRODUCT.match(n)])
        if not is_good:
            return Outcome(mutant, NOT_COMPILED)
        if not changed:
            return Outcome(mutant, SAME_CODE)
        outcome = self.run_suites(mutant, folder, changed, set(changed))
        if outcome.result != SURVIVED:
            return outcome
        # A header's functions are also called by tests that include it.
        tests = [n for n in names if n.startswith("tests/")]
        if not tests:
            return outcome
        changed_tests, is_good = self.compile(folder, tests)
        if not is_good:
            return Outcome(mutant, KILLED, "compiler")
        return self.run_suites(mutant, folder, {**changed, **changed_tests}, set(changed_tests))

    def compile(self, folder, names):
        """({object: the faulty one} of those that differ, whether all compiled)."""
        changed = {}
        for name in names:
            output = folder / name
            if not self.compiler.compile(name, folder / "source", output):
                return changed, False
            if output.read_bytes() != self.base(name).read_bytes():
                changed[name] = output
        return changed, True

    def run_suites(self, mutant, folder, replaced, objects):
        for suite in self.in_order(mutant.file, objects):
            program = folder / "bin" / suite.program
            if not self.linker.link(suite.program, replaced, program):
                return Outcome(mutant, NOT_COMPILED)
            passed, _, is_late = suites.run(suite, program, self.compiler.build)
            program.unlink()
            if not passed:
                suite.kills[mutant.file] = suite.kills.get(mutant.file, 0) + 1
                return Outcome(mutant, KILLED, suite.name, is_late)
        return Outcome(mutant, SURVIVED)
