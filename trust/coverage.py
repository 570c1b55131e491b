#!/usr/bin/env python3
"""trust/coverage.py BUILD_FOLDER LLVM_PROFDATA LLVM_COV: what the tests and the recipes reach of the library, by room.

Runs the test programs of a build with -fprofile-instr-generate -fcoverage-mapping -fcoverage-mcdc and adds up, over all
instances of a template: lines, sides of branches and, where the compiler counts them, conditions that decide alone
(MC/DC).  Fails where one is missing that trust/coverage.txt does not excuse, and where it excuses what is not missing.
"""
import collections
import json
import os
import pathlib
import shutil
import subprocess
import sys

build, profdata, cov = sys.argv[1:]
root = pathlib.Path(__file__).resolve().parent.parent
programs = ["ovant_tests", "ovant_seam_tests", "ovant_typed_tests", "ovant_typed_checked_tests"]
programs += sorted(str(p.relative_to(f"{build}/tests")) for p in pathlib.Path(build).glob("tests/recipes/recipe_*.c*"))


def room_of(name):
    parts = pathlib.Path(name).parts
    return "/".join(parts[:3] if parts[0] == "include" and len(parts) > 3 else parts[:2])


def run_tests():
    """Every file's entries, one of each program: two builds of one template may differ, as with OVANT_CHECKS."""
    files = collections.defaultdict(list)
    for program in programs:
        folder = pathlib.Path(build, "profiles", program)
        shutil.rmtree(folder, ignore_errors=True)
        # %m: one file for each module, to which the program's children add theirs.
        done = subprocess.run([f"{build}/tests/{program}"], text=True, check=False,
                              env=dict(os.environ, LLVM_PROFILE_FILE=f"{folder}/%m.profraw", GTEST_BRIEF="1"),
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        if done.returncode:
            sys.exit(f"{done.stdout}coverage: {program} fails")
        merged = f"{folder}/all.profdata"
        subprocess.run([profdata, "merge", "-sparse", "-o", merged, *map(str, folder.iterdir())], check=True)
        loaded = ["-object", f"{build}/libovant.so"] if program == "ovant_seam_tests" else []
        exported = subprocess.run([cov, "export", "--instr-profile", merged, f"{build}/tests/{program}", *loaded],
                                  stdout=subprocess.PIPE, check=True)
        for entry in json.loads(exported.stdout)["data"][0]["files"]:
            files[os.path.relpath(entry["filename"], root)].append(entry)
    return files


class Source:
    """What is known of one file: sums, and for each line the gaps in it."""

    def __init__(self, name, entries):
        self.text = root.joinpath(name).read_text(encoding="utf-8").splitlines()
        self.entries = entries
        self.gaps = collections.defaultdict(set)
        self.counts = {"lines": self.lines(), "branch sides": self.branches(), "MC/DC": self.decisions()}

    def lines(self):
        """A line has run if any region that begins on it or reaches into it has."""
        held = collections.defaultdict(bool)
        for entry in self.entries:
            segments = collections.defaultdict(list)
            for segment in entry["segments"]:
                segments[segment[0]].append(segment)
            reaching_in = None
            for line in range(1, len(self.text) + 1):
                seen = [] if reaching_in is None else [reaching_in]
                for _, _, count, has_count, is_entry, is_gap in segments[line]:
                    reaching_in = count if has_count else None
                    if has_count and is_entry and not is_gap:
                        seen.append(count)
                if seen:
                    held[line] |= max(seen) > 0
        for line, good in held.items():
            if not good:
                self.gaps[line].add("never runs")
        return sum(held.values()), len(held)

    def has_run(self, place):
        def count(segments):
            found = 0
            for segment in segments:
                if tuple(segment[:2]) > place[:2]:
                    break
                found = segment[2] if segment[3] else 0
            return found
        return any(count(entry["segments"]) for entry in self.entries)

    def branches(self):
        sides = collections.defaultdict(lambda: [0, 0])
        for record in (record for entry in self.entries for record in entry["branches"]):
            taken = sides[tuple(record[:4])]
            taken[0] += record[4]
            taken[1] += record[5]
        # A condition that the compiler knows has no counts, though it stands where code has run.
        self.conditions = {place for place, taken in sides.items() if any(taken) or not self.has_run(place)}
        self.known = set(sides) - self.conditions
        good = 0
        for place in self.conditions:
            for side, count in zip(("true", "false"), sides[place]):
                good += count > 0
                if not count:
                    self.gaps[place[0]].add(f"never {side}: {self.piece(place)}")
        return good, 2 * len(self.conditions)

    def piece(self, place):
        return self.text[place[0] - 1][place[1] - 1:place[3] - 1 if place[0] == place[2] else None]

    def decisions(self):
        held = {}
        for record in (record for entry in self.entries for record in entry.get("mcdc_records", [])):
            place, pairs = tuple(record[:4]), record[-1]
            held[place] = [a or b for a, b in zip(held.get(place, pairs), pairs)]
        good = total = 0
        for place, pairs in held.items():
            inside = sorted(c for c in self.conditions | self.known if place[:2] <= c[:2] and c[2:] <= place[2:])
            for i, pair in enumerate(pairs):
                condition = inside[i] if len(inside) == len(pairs) else place
                if condition not in self.known:
                    total += 1
                    good += pair
                    if not pair:
                        self.gaps[condition[0]].add(f"never decides: {self.piece(condition)}")
        return good, total

    def excuse(self, text):
        """Takes the gaps of a line out, and of the block that it opens; whether there were any."""
        found = False
        for start in [i for i, line in enumerate(self.text, 1) if line.strip() == text]:
            end = start
            indent = len(self.text[start - 1]) - len(text)
            if text.endswith("{"):
                end = next(i for i in range(start + 1, len(self.text) + 1) if self.text[i - 1] == " " * indent + "}")
            for line in range(start, end + 1):
                found |= bool(self.gaps.pop(line, None))
        return found


def excuses():
    """FILE: TEXT OF THE LINE  # REASON.  A line that ends in a brace stands for its block."""
    for line in root.joinpath("trust/coverage.txt").read_text(encoding="utf-8").splitlines():
        if line.strip() and not line.startswith("#"):
            place, _, reason = line.rpartition("  # ")
            if not place or not reason:
                sys.exit(f"coverage.txt gives no reason: {line}")
            yield tuple(place.split(": ", 1))


def main():
    rooms = collections.defaultdict(lambda: collections.defaultdict(lambda: [0, 0]))
    sources = {name: Source(name, entries) for name, entries in run_tests().items()
               if name.startswith(("c/", "include/"))}
    complaints = [f"coverage.txt excuses what is not missing: {name}: {text}" for name, text in excuses()
                  if name not in sources or not sources[name].excuse(text.strip())]
    for name, source in sorted(sources.items()):
        for kind, (good, total) in source.counts.items():
            for room in (room_of(name), "all"):
                rooms[room][kind][0] += good
                rooms[room][kind][1] += total
        complaints += [f"{name}:{line}: {'; '.join(sorted(gaps))}\n    {source.text[line - 1].strip()}"
                       for line, gaps in sorted(source.gaps.items())]
    print("\n".join(complaints))
    print(f"\n{'room':24}" + "".join(f"{kind:>24}" for kind in rooms["all"]))
    for room in sorted(rooms, key=lambda r: (r == "all", r)):
        print(f"{room:24}" + "".join(f"{good:>9} of {total:5} {100 * good / total if total else 100:5.1f}%"
                                     for good, total in rooms[room].values()))
    print(f"\n{len(complaints)} gaps, besides {len(list(excuses()))} that trust/coverage.txt explains")
    sys.exit(bool(complaints))


main()
