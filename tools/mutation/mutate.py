#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Puts random single-line faults into the core, one at a time, and tells which of them the tests catch."""

import argparse
import atexit
import json
import os
import random
import re
import resource
import shlex
import shutil
import signal
import subprocess
import sys
import time
from pathlib import Path

from faults import Fault, faults_of

ROOT = Path(__file__).resolve().parents[2]

# Nearly every source reads these. They are compiled once, for the kinds of code that the programs are made of.
HEADERS = """algorithm array charconv chrono filesystem fstream functional iostream map memory optional random
ranges set span sstream string string_view thread tuple unordered_map unordered_set variant vector""".split()

QUICK_PROGRAMS = ["tavrel_core_tests", "Tavrel_Files"]
OTHER_PROGRAMS = ["tavrel_cli_tests", "tavrel_window_tests", "tavrel-cli"]  # and those of the tests of faults
STARTED_BY_TESTS = "tavrel_*_once"

# What runs under Wine tries the batch file for the level editor's tool, not the core.
LEFT_OUT = ["*Faults*", "SfxGenerationRun.*"]
REST = [
    ["tavrel_cli_tests", "--gtest_filter=-*UnderWine.*:*Faults*"],
    ["tavrel_core_tests", "--gtest_filter=*Faults*"],
    ["tavrel_window_tests", "--gtest_filter=-Screens.*:MainWindowGenerationRun.*"],
    ["tavrel_cli_tests", "--gtest_filter=*Faults*"],
]

# Seconds. Other work on the machine must not look like a fault: what goes round in circles ends by its processor time.
LONGEST_WAIT = 1200


class Laboratory:
    """A copy of one commit with its programs, in a folder of its own."""

    def __init__(self, folder, commit, jobs, without):
        self.folder = folder
        self.tree = folder / "tree"
        self.build = folder / "build"
        self.object = folder / "fault.o"
        self.limits = {}
        self.left_out = ":".join(LEFT_OUT + without)
        self.environment = self._environment()
        self._prepare(commit, jobs)
        self.compile_commands = {
            Path(each["file"]).relative_to(self.tree).as_posix(): shlex.split(each["command"])
            for each in json.loads((self.build / "compile_commands.json").read_text())
            if "/tavrel_core.dir/" in each["command"]
        }
        others = OTHER_PROGRAMS + sorted(path.name for path in (self.build / "bin").glob(STARTED_BY_TESTS))
        self.quick_links = [self._link_command(program) for program in QUICK_PROGRAMS]
        self.other_links = [self._link_command(program) for program in others]

    def _environment(self):
        environment = {name: value for name, value in os.environ.items() if name not in ("DISPLAY", "WAYLAND_DISPLAY")}
        # The tests write to the disk and wait for it, so a disk in the memory is ten times as fast.
        memory = Path("/dev/shm")
        disk = memory / f"tavrel-mutation-{os.getpid()}" if os.access(memory, os.W_OK) else self.folder
        atexit.register(shutil.rmtree, disk if disk != self.folder else disk / "scratch", ignore_errors=True)
        scratch = disk / "scratch" / "of" / "the" / "tests"  # some way below what a fault might delete
        (scratch / "home").mkdir(parents=True, exist_ok=True)
        environment.update(TMPDIR=str(scratch), HOME=str(scratch / "home"), QT_QPA_PLATFORM="offscreen",
                           CCACHE_DISABLE="1")
        self.scratch = scratch
        return environment

    def _prepare(self, commit, jobs):
        stamp = self.folder / "commit"
        if stamp.exists() and stamp.read_text() != commit:
            sys.exit(f"{self.folder} holds another commit: delete it, or name another folder")
        if not self.tree.exists():
            self.tree.mkdir(parents=True)
            archive = subprocess.Popen(["git", "-C", ROOT, "archive", commit], stdout=subprocess.PIPE)
            subprocess.run(["tar", "-x", "-C", self.tree], stdin=archive.stdout, check=True)
            if archive.wait() != 0:
                sys.exit(f"There is no commit {commit}")
        stamp.write_text(commit)
        if not (self.build / "build.ninja").exists():
            self._configure()
        subprocess.run(["cmake", "--build", self.build, f"-j{jobs}"], env=self.environment, check=True)

    def _configure(self):
        header = self.folder / "headers.h"
        header.write_text("".join(f"#include <{name}>\n" for name in HEADERS))
        compiled = self.folder / "headers.h.gch"
        compiled.mkdir(exist_ok=True)
        for name, flags in (("program", []), ("library", ["-fPIC"])):
            subprocess.run(["g++", "-std=c++20", "-w", "-O0", *flags, "-x", "c++-header", header, "-o", compiled / name],
                           check=True)
        subprocess.run(["cmake", "-S", self.tree, "-B", self.build, "-G", "Ninja", "-D", "CMAKE_BUILD_TYPE=Debug",
                        "-D", f"CMAKE_CXX_FLAGS=-w -include {header}", "-D", "CMAKE_CXX_FLAGS_DEBUG=-O0",
                        "-D", "CMAKE_EXE_LINKER_FLAGS=-fuse-ld=gold"], env=self.environment, check=True)

    def _link_command(self, program):
        told = subprocess.run(["ninja", "-t", "commands", f"bin/{program}"], cwd=self.build, capture_output=True,
                              text=True, check=True).stdout
        steps = told.splitlines()[-1].split(" && ")
        words = shlex.split(next(step for step in steps if f" -o bin/{program}" in step))
        # An object before the library takes the place of the one with the same names inside it.
        library = next(i for i, word in enumerate(words) if word.endswith("libtavrel_core.a"))
        return words[:library] + [str(self.object)] + words[library:]

    def compiles(self, fault):
        source = self.folder / "fault.cpp"
        lines = (self.tree / fault.file).read_text().split("\n")
        lines[fault.line - 1] = fault.after
        source.write_text("\n".join(lines))
        words = list(self.compile_commands[fault.file])
        words[words.index("-o") + 1] = str(self.object)
        words[words.index("-c") + 1] = str(source)
        done = subprocess.run(words, cwd=self.build, env=self.environment, capture_output=True)
        return done.returncode == 0

    def link(self, commands):
        for command in commands:
            subprocess.run(command, cwd=self.build, env=self.environment, check=True)

    def all_core_tests(self):
        return ["tavrel_core_tests", f"--gtest_filter=-{self.left_out}"]

    def core_tests(self, file):
        """Those of the folder of a source, and the others."""
        suites = set()
        for path in (self.tree / "tests" / Path(file).parts[1]).glob("*_test.cpp"):
            suites.update(re.findall(r"^TEST(?:_F|_P)?\((\w+)", path.read_text(), re.MULTILINE))
        if not suites:
            return [self.all_core_tests()]
        near = ":".join(f"{suite}.*:*/{suite}.*" for suite in sorted(suites))
        return [["tavrel_core_tests", f"--gtest_filter={near}-{self.left_out}"],
                ["tavrel_core_tests", f"--gtest_filter=-{near}:{self.left_out}"]]

    def why_caught(self, tests, processor_time):
        """The name of the test that fails, another reason, or None when all pass."""

        def limit():
            resource.setrlimit(resource.RLIMIT_CPU, (processor_time, processor_time + 5))
            resource.setrlimit(resource.RLIMIT_AS, (4 << 30, 4 << 30))
            resource.setrlimit(resource.RLIMIT_FSIZE, (8 << 30, 8 << 30))  # most of them are holes
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))

        log = self.folder / "tests.log"
        with log.open("w") as output:
            running = subprocess.Popen(
                [self.build / "bin" / tests[0], *tests[1:], "--gtest_fail_fast", "--gtest_brief=1"], cwd=self.scratch,
                env=self.environment, stdin=subprocess.DEVNULL, stdout=output, stderr=output, preexec_fn=limit,
                start_new_session=True)
            try:
                status = running.wait(LONGEST_WAIT)
            except subprocess.TimeoutExpired:
                status = -signal.SIGXCPU
            self._end(running)
        if status == 0:
            return None
        if status == -signal.SIGXCPU:
            return "time limit"
        failed = [line.split("]")[1].split(",")[0].split("(")[0].strip()
                  for line in log.read_text(errors="replace").splitlines() if line.startswith("[  FAILED  ] ")]
        return failed[0] if failed else f"ends with {status}"

    @staticmethod
    def _end(running):
        """Ends the tests and what they have started and left behind."""
        try:
            os.killpg(running.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass
        running.wait()

    def measure(self, suites, links):
        """Without a fault every test passes, and takes a time from which the limits follow."""
        record = self.folder / "limits.json"
        self.limits = json.loads(record.read_text()) if record.exists() else {}
        missing = [tests for tests in suites if " ".join(tests) not in self.limits]
        if missing:
            self._link_without_fault(links)
        for tests in missing:
            before = resource.getrusage(resource.RUSAGE_CHILDREN)
            reason = self.why_caught(tests, 600)
            if reason:
                sys.exit(f"Without a fault: {reason} in {' '.join(tests)}, see {self.folder}/tests.log")
            after = resource.getrusage(resource.RUSAGE_CHILDREN)
            spent = after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime
            print(f"{' '.join(tests)}: {spent:.1f} s of processor time", flush=True)
            self.limits[" ".join(tests)] = int(2 * spent) + 5
            record.write_text(json.dumps(self.limits))

    def _link_without_fault(self, links):
        file = next(iter(self.compile_commands))
        first_line = (self.tree / file).read_text().split("\n")[0]
        if not self.compiles(Fault(file, 1, "none", first_line, first_line)):
            sys.exit(f"{file} does not compile")
        self.link(links)


def chosen_faults(laboratory, seed):
    """One fault for each line that has any, in the order of the seed."""
    by_line = []
    for file in sorted(laboratory.compile_commands):
        found = faults_of(file, (laboratory.tree / file).read_text())
        by_line += [found[line] for line in sorted(found)]
    chance = random.Random(seed)
    chance.shuffle(by_line)
    return [chance.choice(candidates) for candidates in by_line]


def tried(laboratory, fault):
    """With the core tests."""
    began = time.monotonic()
    result = {"file": fault.file, "line": fault.line, "kind": fault.kind, "before": fault.before, "after": fault.after,
              "compiles": laboratory.compiles(fault), "caught": None, "suites": 1}
    if result["compiles"]:
        laboratory.link(laboratory.quick_links)
        limit = laboratory.limits[" ".join(laboratory.all_core_tests())]
        tests = laboratory.core_tests(fault.file)
        result["caught"] = next(filter(None, (laboratory.why_caught(each, limit) for each in tests)), None)
    result["seconds"] = round(time.monotonic() - began, 1)
    return result


def try_more(laboratory, result, tests):
    """With those that take longer."""
    began = time.monotonic()
    fault = Fault(*(result[field] for field in ("file", "line", "kind", "before", "after")))
    laboratory.compiles(fault)
    laboratory.link(laboratory.quick_links + laboratory.other_links)
    result["caught"] = laboratory.why_caught(tests, laboratory.limits[" ".join(tests)])
    result["suites"] += 1
    result["seconds"] += round(time.monotonic() - began, 1)


def report(results, commit, seed):
    counted = [each for each in results if each["compiles"]]
    caught = [each for each in counted if each["caught"]]
    waiting = [each for each in counted if not each["caught"] and each["suites"] <= len(REST)]
    seconds = sum(each["seconds"] for each in results) / max(1, len(counted))
    text = [f"# Faults in the core at {commit[:12]}, seed {seed}", "",
            f"{len(caught)} of {len(counted)} faults caught: {100 * len(caught) / max(1, len(counted)):.1f} %. "
            f"{len(results) - len(counted)} more did not compile. {seconds:.1f} s a fault.", ""]
    if waiting:
        text += [f"{len(waiting)} have not met all tests yet.", ""]
    text += ["## Survivors", ""]
    for each in sorted(counted, key=lambda each: (each["file"], each["line"])):
        if not each["caught"]:
            text += [f"{each['file']}:{each['line']}: {each['kind']}" + f" (passed {each['suites']} of {len(REST) + 1})", "",
                     f"    {each['before'].strip()}", f"    {each['after'].strip()}", ""]
    return "\n".join(text)


def arguments():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--faults", type=int, default=300, help="how many that compile (default: 300)")
    parser.add_argument("--seed", type=int, default=1, help="the same seed on the same commit gives the same faults")
    parser.add_argument("--commit", default="HEAD", help="what is tried (default: HEAD, without what is not committed)")
    parser.add_argument("--folder", type=Path, default=ROOT / "build" / "mutation",
                        help="for the copy of the tree, its build and the report (default: build/mutation)")
    parser.add_argument("--jobs", type=int, default=os.cpu_count(), help="for building the programs without a fault")
    parser.add_argument("--without", action="append", default=[], metavar="TEST",
                        help="a core test that is left out, because it fails without a fault on this machine")
    parser.add_argument("--list", action="store_true", help="show the faults and try none")
    return parser.parse_args()


def main():
    options = arguments()
    commit = subprocess.run(["git", "-C", ROOT, "rev-parse", "--verify", options.commit + "^{commit}"],
                            capture_output=True, text=True, check=True).stdout.strip()
    laboratory = Laboratory(options.folder.resolve(), commit, options.jobs, options.without)
    faults = chosen_faults(laboratory, options.seed)
    if options.list:
        for fault in faults[:options.faults]:
            print(f"{fault.file}:{fault.line}: {fault.kind}\n    {fault.before.strip()}\n    {fault.after.strip()}")
        return
    # What was tried before is not tried again, so that a run can be stopped and go on.
    record = laboratory.folder / f"results-{options.seed}.jsonl"
    results = [json.loads(line) for line in record.read_text().splitlines()] if record.exists() else []

    def keep(result):
        record.write_text("".join(json.dumps(each) + "\n" for each in results))
        (laboratory.folder / f"report-{options.seed}.md").write_text(report(results, commit, options.seed))
        state = (result["caught"] or "passes") if result["compiles"] else "does not compile"
        compiled = sum(each["compiles"] for each in results)
        print(f"{compiled}/{options.faults} {result['file']}:{result['line']} {result['kind']}: {state} "
              f"({result['seconds']} s)", flush=True)

    laboratory.measure([laboratory.all_core_tests()], laboratory.quick_links)
    for fault in faults[len(results):]:
        if sum(each["compiles"] for each in results) >= options.faults:
            break
        results.append(tried(laboratory, fault))
        keep(results[-1])
    for number, tests in enumerate(REST, 1):
        laboratory.measure([tests], laboratory.quick_links + laboratory.other_links)
        for result in results:
            if result["compiles"] and not result["caught"] and result["suites"] == number:
                try_more(laboratory, result, tests)
                keep(result)
    print(report(results, commit, options.seed))


if __name__ == "__main__":
    main()
