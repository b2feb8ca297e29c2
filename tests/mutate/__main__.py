"""Plants faults one at a time and runs the suites that can see them; see script/mutate.

Called in tests/mutate/enter, with the folders of the sources and of the build, the number of
faults, a seed, and another list of known ones if any. A fault that changes no code is not counted
in that number.
MUTATE_WORKERS sets how many are tried at a time, MUTATE_VERBOSE shows all outcomes.
"""

import os
import resource
import signal
import sys
import threading
import time
from pathlib import Path

from tests.mutate import known, suites
from tests.mutate.compiling import Compiler
from tests.mutate.mutants import drawn, mutants_of
from tests.mutate.product import product_files
from tests.mutate.trial import KILLED, NOT_COMPILED, SAME_CODE, SURVIVED, Bench


class Run:
    """The trials of one seed, by as many workers as there are processors."""

    def __init__(self, bench, mutants, count):
        self.bench = bench
        self.mutants = mutants
        self.places = threading.Semaphore(count)  # for mutants that change the code
        self.lock = threading.Lock()
        self.outcomes = []
        self.failure = None

    def next(self):
        with self.lock:
            return None if self.failure else next(self.mutants, None)

    def work(self, folder):
        try:
            while self.places.acquire(blocking=False):
                if (mutant := self.next()) is None:
                    return
                outcome = self.bench.try_mutant(mutant, folder)
                if outcome.result in (NOT_COMPILED, SAME_CODE):
                    self.places.release()
                with self.lock:
                    self.outcomes.append(outcome)
                    show(len(self.outcomes), outcome)
        except BaseException as error:  # the other workers end, and the command fails
            self.failure = error

    def all(self, workers):
        threads = [threading.Thread(target=self.work, args=(self.bench.work / f"worker{index}",))
                   for index in range(workers)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        if self.failure:
            raise self.failure
        return self.outcomes


def show(number, outcome):
    mutant = outcome.mutant
    if os.environ.get("MUTATE_VERBOSE") or outcome.result == SURVIVED:
        late = ", out of time" if outcome.is_late else ""
        print(f"{number} {mutant.file}:{mutant.line}: {outcome.result} {outcome.suite}{late}"
              f" ({mutant.category})\n- {mutant.before}\n+ {mutant.after}", flush=True)
    elif number % 50 == 0:
        print(f"{number} tried", flush=True)


def figures(outcomes, reasons, start):
    """The table that is printed and kept."""
    count = {result: sum(1 for outcome in outcomes if outcome.result == result)
             for result in (NOT_COMPILED, SAME_CODE, KILLED, SURVIVED)}
    listed = sum(1 for outcome in outcomes
                 if outcome.result == SURVIVED and outcome.mutant.key in reasons)
    survivors = count[SURVIVED] - listed
    late = sum(1 for outcome in outcomes if outcome.is_late)
    usages = [resource.getrusage(who) for who in (resource.RUSAGE_SELF, resource.RUSAGE_CHILDREN)]
    cpu_s = sum(usage.ru_utime + usage.ru_stime for usage in usages)
    judged = count[KILLED] + survivors
    return {
        "faults planted that change the code": count[KILLED] + count[SURVIVED],
        "same code": count[SAME_CODE],
        "not compiled": count[NOT_COMPILED],
        "killed": count[KILLED],
        "killed by their time": late,
        "equivalent, listed": listed,
        "survivors": survivors,
        "killed, of those not equivalent": f"{100 * count[KILLED] / max(judged, 1):.1f} %",
        "wall time": f"{time.monotonic() - start:.0f} s",
        "processor time": f"{cpu_s:.0f} s",
    }


def main(root, build, count, seed, listed=known.LIST):
    start = time.monotonic()
    # A shell's background jobs ignore these, and what they start would do so too.
    signal.signal(signal.SIGINT, signal.default_int_handler)
    signal.signal(signal.SIGQUIT, signal.SIG_DFL)
    root, build = Path(root), Path(build)
    files = product_files(root)
    reasons = known.read(Path(listed).read_text(encoding="utf-8"))
    wrong = known.unknown(reasons, [mutant for file in files for mutant in
                                    mutants_of(file, (root / file).read_text(encoding="utf-8"))])
    for file, before, after in wrong:
        print(f"{listed}: no fault of {file}:\n- {before}\n+ {after}", file=sys.stderr)
    if wrong:
        return 1
    linker = suites.Linker(build)
    found = suites.suites_of(build, linker)
    bench = Bench(Compiler(root, build), linker, found, build / "mutants")
    if failed := bench.measure():
        print(f"fail without a fault: {', '.join(failed)}", file=sys.stderr)
        return 1
    run = Run(bench, drawn(root, files, seed), count)
    outcomes = run.all(int(os.environ.get("MUTATE_WORKERS", len(os.sched_getaffinity(0)))))

    table = {"seed": seed, **figures(outcomes, reasons, start)}
    print("\n".join(f"{label}: {figure}" for label, figure in table.items()))
    (build / "figures.tsv").write_text("".join(f"{label}\t{figure}\n"
                                               for label, figure in table.items()),
                                       encoding="utf-8")
    return 1 if table["survivors"] else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:3], int(sys.argv[3]), int(sys.argv[4]), *sys.argv[5:]))
