#!/usr/bin/env python3
"""trust/mutants.py [alone] [N [SEED]] | planted | again FILE: does the suite notice?

Makes one small change after the other to a copy of the library and runs the tests that reach it: N changes drawn from
all rooms (100 if not told), those of trust/planted.txt, or those that survived an earlier run, whose output is FILE.  A
change that nothing notices is a survivor, unless trust/equivalent.txt says why it makes no difference.  Fails where
more than one in a hundred survives.

Tests run until one fails.  With "alone" all of them run, and the end tells how many changes each notices, and how many
of them nothing else does; the C++ face's tests then see what those of the C face do not notice.
"""
import collections
import concurrent.futures
import functools
import os
import pathlib
import random
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile

root = pathlib.Path(__file__).resolve().parent.parent
jobs = int(os.environ.get("OVANT_JOBS", os.cpu_count() or 1))
compiler = os.environ.get("CXX", "c++")
c_tests = ["range", "removal", "insert", "navigate", "frame", "keyed", "compare", "diagnostics", "damage", "idioms",
           "platform"]
# A test and OVANT_CHECKS.  With checks the model has half as many kinds of trees, and notices most in half the time.
typed_tests = [("model", 1), *sorted((p.stem.removesuffix("_test"), int(p.stem == "wrong_use_test"))
                                     for p in root.glob("tests/typed/*_test.cpp"))]

# ---- What is changed -------------------------------------------------------------------------------------------------

pairs = [("<=", "<"), (">=", ">"), ("<", "<="), (">", ">="), ("==", "!="), ("!=", "=="), ("&&", "||"), ("||", "&&"),
         ("+", "-"), ("-", "+"), ("++", "--"), ("--", "++"), ("+=", "-="), ("-=", "+="), ("|=", "&="), ("*", "/"),
         ("Side::left", "Side::right"), ("Side::right", "Side::left"), ("DIR_LEFT", "DIR_RIGHT"),
         ("DIR_RIGHT", "DIR_LEFT"), ("DIR_HERE", "DIR_NEW"), ("dir_here", "dir_new"), ("Edge::front", "Edge::back"),
         ("Edge::back", "Edge::front"), ("rule::first", "rule::last"), ("rule::front", "rule::back"),
         ("rule::back", "rule::front"), ("rule::pred", "rule::succ"), ("Match::stop", "Match::left"),
         ("Match::left", "Match::right"), ("Match::right", "Match::left"), ("left_turn", "right_turn"),
         ("right_turn", "left_turn"), ("Action::left", "Action::right"), ("Action::visit", "Action::leave"),
         ("smallest_first", "largest_first"), ("largest_first", "smallest_first"), ("true", "false"),
         ("false", "true"), ("<S>", "<!S>"), ("<!S>", "<S>"), ("<H>", "<!H>"), ("<!H>", "<H>"), (".left", ".right"),
         (".right", ".left"), (".before", ".after"), (".after", ".before"), ("before(", "after("),
         ("after(", "before("), ("nullptr", "reinterpret_cast<void *>(8)"), ("continue;", "break;"),
         ("break;", ""), ("return true;", "return false;"), ("return false;", "return true;")]
swaps = dict(pairs)
token = re.compile(
    r"Side::\w+|Edge::\w+|rule::\w+|Match::\w+|Action::\w+|\b(?:left|right)_turn\b|\bDIR_\w+|\bdir_here\b"
    r"|\b(?:smallest|largest)_first\b|<!?[SH]>|\.(?:left|right|before|after)\b|\b(?:before|after)\(|\bnullptr\b"
    r"|\breturn (?:true|false);|\b(?:true|false)\b|\bcontinue;|\bbreak;"
    r"|(?<= )(?:<=|>=|==|!=|&&|\|\||\+=|-=|\|=|<|>|\+|-|\*)(?= )|\+\+|--|(?<![\w.\"'])\d+(?![\w.\"'])")
statement = re.compile(r"^\s+(?:\*|\+\+|--)?[a-z_][\w.:<>!*\->\[\] ]*(?:\(.*\)|(?: [-+|]?= .*)|\+\+|--);\s*(?://.*)?$")
condition = re.compile(r"\b(?:if|while) (?:constexpr )?\((?!const|constexpr)([^;]*)\)(?= |$)")
arguments = re.compile(r"(\w[\w>.]*\()([\w.\->*&]+), ([\w.\->*&]+)\)")


def code_of(line):
    """The line with strings and comments blanked, so that places stay."""
    line = re.sub(r'"(?:\\.|[^"\\])*"', lambda m: " " * len(m.group()), line)
    return re.sub(r"//.*|/\*.*?\*/", lambda m: " " * len(m.group()), line)


def changes(text):
    """All (line number, new line) of a file."""
    inside = False
    for number, line in enumerate(text.splitlines()):
        inside = inside or line.lstrip().startswith("/*")
        code = code_of(line)
        if inside or not code.strip() or "prefetch" in code or re.match(r"\s*(#|using |namespace|template|static_assert|\[\[)", code):
            inside = inside and "*/" not in line
            continue
        for found in token.finditer(code):
            word = found.group()
            news = [swaps[word]] if word in swaps else []
            if word.isdigit():
                news = [str(int(word) + 1)] + (["0"] if word == "1" else [])
            for new in news:
                yield number, line[:found.start()] + new + line[found.end():]
        for found in condition.finditer(code):
            yield number, line[:found.start(1)] + "!(" + line[found.start(1):found.end(1)] + ")" + line[found.end(1):]
        for found in arguments.finditer(code):
            if found.group(2) != found.group(3):
                yield number, line[:found.start(2)] + found.group(3) + ", " + found.group(2) + line[found.end(3):]
        for found in re.finditer(r" \? ([^?:]+) : ([^?:;]+)(?=[;,)])", code):
            yield number, (line[:found.start(1)] + found.group(2) + " : " + found.group(1) + line[found.end(2):])
        if statement.match(line) and not re.match(r"\s*(return|const|auto|typedef|case|void|int)\b", line):
            yield number, re.match(r"\s*", line).group() + ";"


# As in the archive, which is no module that is loaded.
library_sources = [s for s in sorted(root.glob("c/*/*.cpp"))
                   if s.stem != "posix_load" and not s.stem.startswith("windows")]
Mutant = collections.namedtuple("Mutant", "file line old new text change")


class Stillborn(Exception):
    """A change that does not compile."""


def all_mutants():
    files = [*library_sources, *root.glob("c/*/*.hpp"), *root.glob("include/ovant/*/*.hpp"), root / "include/ovant_idioms.h"]
    for path in sorted(files):
        lines = path.read_text(encoding="utf-8").splitlines()
        name = str(path.relative_to(root))
        lines_of = collections.defaultdict(list)
        for number, new in changes("\n".join(lines)):
            if new != lines[number]:
                text = "\n".join(lines[:number] + [new] + lines[number + 1:]) + "\n"
                change = f"{name}: {lines[number].strip()} => {new.strip()}".strip()
                same = lines_of[change]
                same += [number] * (number not in same)
                nth = f" [{same.index(number) + 1}]" if number != same[0] else ""
                yield Mutant(name, number + 1, lines[number].strip(), new.strip(), text, change + nth)


def planted():
    for line in root.joinpath("trust/planted.txt").read_text(encoding="utf-8").splitlines():
        if not line or line.startswith("#"):
            continue
        name, expression = line.split(None, 1)
        old = root.joinpath(name).read_text(encoding="utf-8")
        new = subprocess.run(["sed", expression], input=old, stdout=subprocess.PIPE, text=True, check=True).stdout
        if new == old:
            sys.exit(f"planted.txt changes nothing: {line}")
        number = next(i for i, (a, b) in enumerate(zip(old.splitlines(), new.splitlines())) if a != b)
        yield Mutant(name, number + 1, old.splitlines()[number].strip(), new.splitlines()[number].strip(), new, line)


# ---- What notices ----------------------------------------------------------------------------------------------------

work = pathlib.Path(tempfile.mkdtemp(prefix="mutants-"))
alone = "alone" in sys.argv[1:2]
wraps = "-Wl," + ",".join(f"--wrap={name}" for name in ("malloc", "realloc", "strdup", "free"))
library_flags = ["-fno-exceptions", "-fno-rtti", "-DOVANT_NO_SPLIT_PATHS"]


def run(command, seconds=60):
    """Exit status and output; "timeout" after this time, or a third of it on the processor."""
    def limits():
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
        resource.setrlimit(resource.RLIMIT_AS, (8 << 30, 8 << 30))
        resource.setrlimit(resource.RLIMIT_CPU, (seconds // 3, seconds // 3 + 1))

    try:
        done = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              text=True, errors="replace", timeout=seconds, preexec_fn=limits, check=False)
        return "timeout" if done.returncode == -signal.SIGXCPU else done.returncode, done.stdout
    except subprocess.TimeoutExpired as late:
        return "timeout", (late.stdout or b"").decode(errors="replace")


def compile_one(tree, source, target, *flags):
    """Whether it compiles."""
    return run([compiler, "-std=c++20", "-O1", "-w", *flags, f"-I{tree}/c", f"-I{tree}/include", f"-I{root}/tests",
                "-c", str(source), "-o", str(target)], seconds=600)[0] == 0


def compile_test(tree, source, target, *flags):
    """With what tests include from elsewhere compiled in advance, and no time spent on making them fast."""
    return compile_one(tree, source, target, "-O0", "-include", str(work / "foreign.hpp"), *flags)


@functools.cache
def needs(source):
    return run([compiler, "-std=c++20", f"-I{root}/c", f"-I{root}/include", "-MM", str(source)])[1].split()


def users_of(name):
    """The sources of the C face that a change to this file reaches."""
    return [str(s.relative_to(root)) for s in library_sources
            if str(root / name) in [os.path.normpath(n) for n in needs(s)]]


def object_name(source):
    return source.parent.name + "-" + source.stem + ".o"


whole = "c-whole.o"


seam_rooms = ("platform", "frame") # which a second program tests, that plays the platform


def units(tree, sources, room):
    """The sources, or, where a change reaches many, one that includes the whole library: that compiles sooner."""
    if len(sources) < 5 or room in seam_rooms:
        return [tree / source for source in sources]
    one = tree / "c/whole.cpp"
    one.write_text("".join(f'#include "{s.relative_to(root / "c")}"\n' for s in library_sources), encoding="utf-8")
    return [one]


foreign = ["gtest/gtest.h", "algorithm", "cmath", "deque", "map", "memory", "numeric", "random", "ranges", "set",
           "sstream", "string", "vector"]


def build_sound():
    (work / "sound").mkdir()
    (work / "foreign.hpp").write_text("".join(f"#include <{name}>\n" for name in foreign), encoding="utf-8")
    tasks = [(root / f"tests/{t}_test.cpp", f"{t}.o") for t in c_tests]
    tasks += [(root / f"fuzz/{name}.cpp", f"{name}.o") for name in ("operations", "driver")]
    tasks += [(root / "tests/support/memory.cpp", "memory.o"), (root / "tests/seam/module_entry_test.cpp", "seam.o",
                                                                '-DOVANT_SHARED_LIBRARY="none"')]
    tasks += [(s, object_name(s), *library_flags) for s in library_sources]
    tasks += [(work / "foreign.hpp", "../foreign.hpp.gch", "-O0", "-x", "c++-header")]
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        done = pool.map(lambda t: compile_one(root, t[0], work / "sound" / t[1], *t[2:]), tasks)
        if not all(done):
            sys.exit("mutants: the sound library does not build")


def of_gtest(program):
    """The tests of a program that fail, the first one or all."""
    found, ran = set(), ["LoadedLibrary*"] # the library itself is not there to be loaded
    for _ in range(5): # a crash or a hang ends the program: the rest once more
        code, said = run([program, "--gtest_filter=-" + ":".join(ran), *["--gtest_fail_fast"][alone:]],
                         seconds=36 if alone else 60)
        found.update(re.findall(r"\[  FAILED  \] (\w+(?:/\w+)?\.[\w/]+)", said))
        ran += re.findall(r"\[ RUN      \] ([\w./]+)", said)
        if code not in (0, 1) or code and not found: # died in the last one that began
            found.add(ran[-1] if ran[1:] else "a crash before the first test")
        if code in (0, 1) or not alone:
            break
    return {re.sub(r"/\d+", "", name) for name in found}


def of_harness(program):
    return {"operations"} if run([program, "1", "1"])[0] else set()


def attempt(tree, tests, changed, *flags, without=(), runs=of_gtest):
    """Links tests with the changed objects and the sound rest, and runs them: the names of those that notice."""
    names = {p.name for p in changed} | set(without)
    if whole in names:
        names.update(object_name(s) for s in library_sources)
    rest = [p for p in sorted((work / "sound").glob("*-*.o")) if p.name not in names]
    program = tree / "ovant_tests"
    code, said = run([compiler, *map(str, [*changed, *tests, *rest]), "-lgtest", "-lgtest_main", "-lpthread", "-ldl",
                      *flags, "-o", str(program)])
    if code:
        raise Stillborn("does not link: " + said[-200:])
    return runs(str(program))


def c_suite(tree, objects, file):
    """The tests of the room come first."""
    room = pathlib.Path(file).parent.name
    first = {"update": "removal", "engine": "range"}.get(room, room)
    tests = [work / f"sound/{t}.o" for t in sorted(c_tests, key=lambda t: t != first)]
    memory = work / "sound/memory.o"
    yield attempt(tree, [*tests, memory], objects, wraps + ",--wrap=write")
    if room in seam_rooms:
        posix = "platform-posix.o"
        yield attempt(tree, [work / "sound/seam.o"], [o for o in objects if o.name != posix], without=[posix])
    if room not in seam_rooms or alone:
        yield attempt(tree, [*(work / f"sound/{name}.o" for name in ("operations", "driver")), memory], objects, wraps,
                      runs=of_harness)


def of_recipes(tree, suffix, *more):
    """The programs of recipes/ that print something else than they say."""
    found, program, prints = set(), str(tree / "recipe"), str(root / "tests/recipes/prints.sh")
    for source in sorted(root.glob(f"recipes/*{suffix}")):
        if run([compiler, "-w", f"-I{tree}/include", *more, str(source), "-o", program], seconds=600)[0]:
            raise Stillborn("does not compile")
        if run(["bash", prints, program, str(source)])[0]:
            found.add(f"recipe.{source.name}")
    return found


def idioms_suite(tree):
    test = tree / "idioms.o"
    if not compile_test(tree, root / "tests/idioms_test.cpp", test):
        raise Stillborn("does not compile")
    yield attempt(tree, [test], [])
    library = [str(p) for p in (work / "sound").glob("*-*.o")]
    yield of_recipes(tree, ".c", *library, "-x", "c", "-std=c99")


def typed_suite(tree):
    def compile_or_not(source, target, *flags):
        if not compile_test(tree, root / source, target, *flags):
            raise Stillborn("does not compile")

    for name, checks in typed_tests:
        test = tree / f"{name}.o"
        compile_or_not(f"tests/typed/{name}_test.cpp", test, f"-DOVANT_CHECKS={checks}")
        yield attempt(tree, [test], [], *(["-Wl,--wrap=malloc"] if name == "model" else []))
    yield of_recipes(tree, ".cpp", "-std=c++20")
    wrong_uses = ["bash", str(root / "tests/header/errors.sh"), str(tree), compiler]
    yield {"header.errors"} if run(wrong_uses, seconds=600)[0] else set()
    compile_or_not("trust/everything.cpp", tree / "everything.o")


def noticed(suite):
    """By which tests: the first ones, or all."""
    found = set()
    for names in suite:
        found |= names
        if found and not alone:
            break
    return sorted(found)


def copy_of_library():
    tree = pathlib.Path(tempfile.mkdtemp(dir=work))
    for part in ("c", "include"):
        shutil.copytree(root / part, tree / part)
    return tree


def judge(mutant):
    tree = copy_of_library()
    try:
        (tree / mutant.file).write_text(mutant.text, encoding="utf-8")
        if mutant.file.endswith("idioms.h"):
            return noticed(idioms_suite(tree))
        objects = []
        for source in units(tree, users_of(mutant.file), pathlib.Path(mutant.file).parent.name):
            objects.append(tree / object_name(source))
            if not compile_one(tree, source, objects[-1], *library_flags):
                raise Stillborn("does not compile")
        found = objects and noticed(c_suite(tree, objects, mutant.file))
        if not found and mutant.file.startswith("include/"):
            found = noticed(typed_suite(tree))
        return found
    finally:
        shutil.rmtree(tree)


def require_sound(pool, futures):
    """A test that the library fails as it stands would hide survivors."""
    for future in futures:
        if found := future.result():
            pool.shutdown(wait=False, cancel_futures=True)
            sys.exit(f"mutants: the sound library fails in {', '.join(found)}")


def equivalents():
    """FILE: LINE => LINE  # REASON, as the list of survivors shows it."""
    for line in root.joinpath("trust/equivalent.txt").read_text(encoding="utf-8").splitlines():
        if line.strip() and not line.startswith("#"):
            change, _, reason = line.rpartition("  # ")
            if not reason or not change:
                sys.exit(f"equivalent.txt gives no reason: {line}")
            yield change.strip()


def told(name):
    try:
        said = pathlib.Path(name).read_text(encoding="utf-8").splitlines()
    except OSError as error:
        sys.exit(f"mutants: {name}: {error.strerror}")
    changes_told = {line.removeprefix("survivor: ").strip() for line in said if line.startswith("survivor: ")}
    drawn = [mutant for mutant in all_mutants() if mutant.change in changes_told]
    for gone in sorted(changes_told - {mutant.change for mutant in drawn}):
        print(f"{'not to be had any more':44} {gone}", flush=True)
    return drawn


def main():
    words = sys.argv[1:]
    count = None
    if words == ["planted"]:
        drawn = list(planted())
    elif words[:1] == ["again"] and len(words) == 2:
        drawn = told(words[1])
    else:
        words = words[alone:]
        numbers = [int(w) for w in words] if all(w.isdigit() for w in words) and len(words) < 3 else None
        if numbers is None or numbers[:1] == [0]:
            sys.exit("usage: mutants [alone] [N [SEED]] | mutants planted | mutants again FILE")
        count, seed = (numbers + [100, 1][len(numbers):])
        everything = list(all_mutants())
        random.Random(seed).shuffle(everything)
        drawn = everything
        print(f"{count} out of {len(everything)} by the seed {seed}", flush=True)
    harmless = set(equivalents())
    build_sound()
    tallies = collections.Counter()
    survivors, notices, only = [], collections.Counter(), collections.Counter()
    wanted = count or len(drawn)
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        suites = typed_suite, lambda tree: c_suite(tree, [], "c/frame/"), idioms_suite
        sound = [pool.submit(lambda suite=suite: noticed(suite(copy_of_library()))) for suite in suites]
        queue = iter(drawn)
        running = {}
        while tallies["noticed"] + tallies["survived"] + tallies["equivalent"] < wanted:
            while len(running) < jobs and (mutant := next(queue, None)):
                running[pool.submit(judge, mutant)] = mutant
            if not running:
                break
            require_sound(pool, [future for future in sound if future.done()])
            for future in concurrent.futures.wait(running, return_when="FIRST_COMPLETED").done:
                mutant = running.pop(future)
                try:
                    found = future.result()
                except Stillborn as reason:
                    if words != ["planted"]:
                        tallies["stillborn"] += 1
                        continue
                    found = [str(reason)]
                kind = "noticed" if found else "equivalent" if mutant.change in harmless else "survived"
                tallies[kind] += 1
                if kind == "survived":
                    survivors.append(mutant.change)
                notices.update(found)
                only.update(found if len(found) == 1 else [])
                by = "noticed by " + ", ".join(found) if found else kind.upper()
                print(f"{by:44} {mutant.file}:{mutant.line}: {mutant.old} => {mutant.new}", flush=True)
        for future in running:
            future.cancel()
        require_sound(pool, sound)
    real = tallies["noticed"] + tallies["survived"]
    print(f"\n{real + tallies['equivalent']} mutants: {tallies['noticed']} noticed, "
          f"{tallies['equivalent']} equivalent, {tallies['survived']} survived "
          f"({100 * tallies['noticed'] / max(real, 1):.1f} % of the real ones noticed); "
          f"{tallies['stillborn']} more did not compile")
    print("".join(f"survivor: {change}\n" for change in survivors), end="")
    if alone:
        print("notices alone")
        print("".join(f"{notices[name]:7} {only[name]:5} {name}\n" for name in sorted(notices, key=lambda n: only[n])))
    return tallies["survived"] * 100 > real


try:
    sys.exit(main())
finally:
    shutil.rmtree(work)
