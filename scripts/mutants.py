#!/usr/bin/python3
"""Changes the portable sources in one place at a time, and counts how many of these mutants the
native tests notice.

Usage: mutants.py [COUNT [SEED]]
Needs the programs of the preset `mutants`. The places are a random sample that depends on the seed.
Editing a source changes only its own part of the sample. A mutant is noticed if a test fails,
crashes or runs far longer than usual. A mutant that does not compile, or whose optimised code
equals that of the source, is replaced by the next of the sample. The mutants that no test notices
are listed in build/mutants/survivors.txt. Exits with 1 if fewer are noticed than the goal. No
source is changed: each mutant is a copy, whose object file is linked before the library of the
others.
"""
import collections
import itertools
import json
import multiprocessing.pool
import os
import pathlib
import random
import re
import resource
import shlex
import shutil
import subprocess
import sys

GOAL = 95.0
JOBS = 2
FOLDERS = ["objects", "objects/ber", "appearance", "engine", "actions", "textual", "dump"]
# The tests link a substitute for the allocator instead.
SUBSTITUTED = ["memory.cpp"]
# The tests of the other tools execute no code of the portable folders.
PROGRAMS = ["objects", "appearance", "engine", "actions", "textual", "dump", "demos", "mheg",
            "reference"]
# The tests of this tool also run its program.
TOOL = "mheg"
MOST_MEMORY = 2 << 30
# A test that takes longer than this many seconds runs after all the others.
LONG = 0.3
ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build/mutants"

# The kind of change, the pattern to find, and its replacement. Sources are formatted by
# clang-format, so an operator has spaces around it and a bracket of a template does not.
RULES = [(kind, re.compile(pattern), replacement) for kind, pattern, replacement in [
    ("bound", r"(?<= )<=(?= )", "<"),
    ("bound", r"(?<= )>=(?= )", ">"),
    ("bound", r"(?<= )<(?= )", "<="),
    ("bound", r"(?<= )>(?= )", ">="),
    ("comparison", r"(?<= )==(?= )", "!="),
    ("comparison", r"(?<= )!=(?= )", "=="),
    ("condition", r"(?<= )&&(?= |$)", "||"),
    ("condition", r"(?<= )\|\|(?= |$)", "&&"),
    ("condition", r"(?<=[ (])!(?=\w)", ""),
    ("condition", r"\btrue\b", "false"),
    ("condition", r"\bfalse\b", "true"),
    ("sign", r"(?<= )\+(?==? )", "-"),
    ("sign", r"(?<= )-(?==? )", "+"),
    ("sign", r"(?<=[ (])-(?=\w)", ""),
    ("sign", r"\+\+(?=\w)", "--"),
    ("sign", r"(?<= )\*(?==? )", "/"),
    ("sign", r"(?<= )[/%](?==? )", "*"),
    ("bound", r"\bstd::min\b", "std::max"),
    ("bound", r"\bstd::max\b", "std::min"),
    # A list of actions continues after Done and Refused alike, so neither is replaced by the other.
    ("status", r"\bStatus::(Done|Refused)\b", "Status::Failure"),
    ("status", r"\bStatus::(Failure|Replaced)\b", "Status::Done"),
    ("message", r"\bMessage::(?!NoMemoryForEvent\b)\w+", "Message::NoMemoryForEvent"),
    ("text", r'"([^"%\\]+)"', r'"\1x"'),
    ("removed call", r"(?:(?<=^)|(?<=\) ))(\s*)(\(void\))?[\w.:]+(->\w+)*\([^;{}]*\);$", r"\1;"),
    ("removed assignment", r"(?:(?<=^)|(?<=\) ))(\s*)[\w.\[\]>-]+ [-+*|&]?= [^;{}]*;$", r"\1;"),
    ("removed jump", r"\b(continue|break);", ";"),
    ("swapped arguments", r"(?<=\w)\(([\w.*&]+), ([\w.*&]+)\)", r"(\2, \1)"),
    ("constant", r"(?<![\w.'])(\d+)(?=U?\b(?!['.x]))", lambda found: str(int(found[1]) + 1)),
]]
NOT_CODE = re.compile(r'"(?:\\.|[^"\\])*"|\'(?:\\.|[^\'\\])*\'|//.*|^#.*')

Mutant = collections.namedtuple("Mutant", "path line kind old new")


def mutants_of(path):
    for number, line in enumerate(path.read_text().splitlines()):
        hidden = [found.span() for found in NOT_CODE.finditer(line)]
        for kind, pattern, replacement in RULES:
            for found in pattern.finditer(line):
                begin, end = found.span()
                is_text = kind == "text" and not line.startswith(("#", "static_assert"))
                inside = [span for span in hidden if span[0] <= begin < span[1]]
                if inside != ([(begin, end)] if is_text else []):
                    continue
                new = line[:begin] + found.expand(replacement) + line[end:] if isinstance(
                    replacement, str) else line[:begin] + replacement(found) + line[end:]
                if new != line:
                    yield Mutant(path, number, kind, line, new)


def sample(seed):
    """All mutants in a random order. A mutant's position in it depends only on its lines."""
    sources = [path for folder in FOLDERS for path in sorted((ROOT / "src" / folder).glob("*.cpp"))
               if path.name not in SUBSTITUTED]
    found = [mutant for path in sources for mutant in mutants_of(path)]
    return sorted(found, key=lambda mutant: random.Random(
        f"{seed} {mutant.path.name} {mutant.old} {mutant.new}").random())


def location(mutant):
    return f"{mutant.path.relative_to(ROOT)}:{mutant.line + 1}: {mutant.kind}"


def limit_memory():
    resource.setrlimit(resource.RLIMIT_AS, (MOST_MEMORY, MOST_MEMORY))


def passes(program, limit, *options, tool=BUILD / "bin" / "mheg"):
    """Whether the tests of a program pass within a number of seconds. They may call the tool."""
    try:
        return subprocess.run([program, *options, "--gtest_fail_fast"], cwd=program.parent,
                              timeout=limit, preexec_fn=limit_memory, stdin=subprocess.DEVNULL,
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                              env={**os.environ, "KORVEL_TOOL": str(tool)}).returncode == 0
    except subprocess.TimeoutExpired:
        return False


class Laboratory:
    """Compiles, links and tests mutants, each in a folder of its own."""

    def __init__(self):
        commands = json.loads((BUILD / "compile_commands.json").read_text())
        self.compile = {command["file"]: shlex.split(command["command"]) for command in commands}
        self.link = {name: self.link_command(name)
                     for name in [TOOL, *(f"unit_{name}" for name in PROGRAMS)]}
        self.tests = {name: self.tests_of(name) for name in PROGRAMS}

    @staticmethod
    def link_command(name):
        commands = subprocess.run(["ninja", "-C", BUILD, "-t", "commands", name],
                                  check=True, text=True, stdout=subprocess.PIPE).stdout
        return shlex.split(commands.splitlines()[-1].split(" && ")[1])

    @staticmethod
    def tests_of(name):
        """Two filters, of the quick tests and of the long ones, each with its time limit."""
        report = BUILD / f"{name}.json"
        if not passes(BUILD / "tests" / f"unit_{name}", 600, f"--gtest_output=json:{report}"):
            raise SystemExit(f"unit_{name} fails without any change")
        times = {f"{suite['name']}.{test['name']}": float(test["time"].rstrip("s"))
                 for suite in json.loads(report.read_text())["testsuites"]
                 for test in suite["testsuite"]}
        long = [test for test, seconds in times.items() if seconds > LONG]
        limit = 20 + 5 * sum(times.values())
        patterns = ":".join(long)
        return [(f"--gtest_filter=-{patterns}", limit), (f"--gtest_filter={patterns}", limit)]

    def runs_for(self, path):
        """(program, filter, limit) in order: the tests of the source's folder first, long ones
        last."""
        own = path.relative_to(ROOT / "src").parts[0]
        names = sorted(PROGRAMS, key=lambda name: (name != own, self.tests[name][0][1]))
        return [(name, *self.tests[name][part]) for part in (0, 1) for name in names]

    def build_object(self, mutant, line, folder, *options):
        """The object file of the source with that line instead; None if it does not compile."""
        source, built = folder / mutant.path.name, folder / "mutant.o"
        lines = mutant.path.read_text().splitlines()
        lines[mutant.line] = line
        source.write_text("\n".join(lines) + "\n")
        command = list(self.compile[str(mutant.path)])
        command[command.index("-o") + 1] = str(built)
        command[command.index("-c") + 1] = str(source)
        finished = subprocess.run([*command, "-w", *options], cwd=BUILD, stdout=subprocess.DEVNULL,
                                  stderr=subprocess.DEVNULL)
        return built if finished.returncode == 0 else None

    def is_same_code(self, mutant, folder):
        """Whether the optimiser generates the same code for the mutant as for the source."""
        old, new = [self.build_object(mutant, line, folder, "-O2", "-g0").read_bytes()
                    for line in (mutant.old, mutant.new)]
        return old == new

    def link_program(self, name, built, folder):
        program = folder / name
        if not program.exists():
            command = list(self.link[name])
            output = command.index("-o")
            command[output:output + 2] = ["-o", str(program), str(built)]
            subprocess.run([*command, "-fuse-ld=gold"], cwd=BUILD, check=True)
        return program

    def is_noticed(self, built, folder, run):
        name, tests, limit = run
        program = self.link_program(f"unit_{name}", built, folder)
        tool = {"tool": self.link_program(TOOL, built, folder)} if name == TOOL else {}
        return not passes(program, limit, tests, **tool)

    def outcome(self, numbered):
        """Whether a test notices the mutant; None if it does not compile or is no change."""
        number, mutant = numbered
        folder = BUILD / "work" / str(number)
        folder.mkdir(parents=True, exist_ok=True)
        built = self.build_object(mutant, mutant.new, folder)
        result = None if built is None else any(
            self.is_noticed(built, folder, run) for run in self.runs_for(mutant.path))
        if result is False and self.is_same_code(mutant, folder):
            result = None
        shutil.rmtree(folder)
        return result


def main():
    count = int(sys.argv[1]) if len(sys.argv) > 1 else 300
    laboratory = Laboratory()
    os.nice(3)
    rest = enumerate(sample(sys.argv[2] if len(sys.argv) > 2 else "1"))
    results = []
    with multiprocessing.pool.ThreadPool(JOBS) as pool:
        while batch := list(itertools.islice(rest, count - len(results))):
            for (_, mutant), outcome in zip(batch, pool.imap(laboratory.outcome, batch)):
                if outcome is not None:
                    results.append((mutant, outcome))
                if outcome is False:
                    print(f"No test notices {location(mutant)}", flush=True)
                if outcome is not None and len(results) % 20 == 0:
                    print(f"{len(results)} of {count} mutants are tested", flush=True)
    survivors = [f"{location(mutant)}\n  - {mutant.old.strip()}\n  + {mutant.new.strip()}\n"
                 for mutant, outcome in results if not outcome]
    (BUILD / "survivors.txt").write_text("".join(sorted(survivors)))
    noticed = len(results) - len(survivors)
    for kind in sorted({mutant.kind for mutant, _ in results}):
        of_kind = [outcome for mutant, outcome in results if mutant.kind == kind]
        print(f"{kind:<18} {sum(of_kind):>4} of {len(of_kind):>4} noticed")
    share = 100 * noticed / len(results)
    print(f"{'all':<18} {noticed:>4} of {len(results):>4} noticed, {share:.1f} %\n"
          f"Survivors: {BUILD / 'survivors.txt'}")
    return 0 if share >= GOAL else 1


if __name__ == "__main__":
    sys.exit(main())
