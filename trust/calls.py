#!/usr/bin/env python3
"""trust/calls.py: what the compiler's own call graph says of both faces.

No function calls itself, directly or round a corner.  Memory is taken by those named below alone.  No frame is larger
than 256 bytes but for those that trust/frames.txt names, with what they need.  Needs g++.
"""
import concurrent.futures
import os
import pathlib
import re
import subprocess
import sys
import tempfile

root = pathlib.Path(__file__).resolve().parent.parent
usual_frame = 256
allocators = {"malloc", "calloc", "realloc", "aligned_alloc", "strdup", "_Znwm", "_Znam", "_ZnwmSt11align_val_t"}
# Makers and texts; AVL_TreeWrite calls AVL_GetString with a buffer of its own.
may_allocate = {"AVL_Konstruktor", "AVL_Copy", "malloc_Stack_Deepth", "malloc_Stack_Nodes", "realloc_Stack_Deepth",
                "realloc_Stack_Nodes", "Error_GetErrorText", "Error_GetFuncText", "AVL_GetString", "AVL_TreeWrite",
                "AVL_Malloc_Key4", "AVL_Malloc_Key8", "AVL_Malloc_KeyString", "AVL_Malloc_CountKey4",
                "AVL_Malloc_CountKey8", "AVL_Malloc_CountKeyString"}


def compile_all(pool, folder, sources, *flags):
    """What the compiler tells of each source, as it comes."""
    def told(source):
        out = pathlib.Path(folder, "".join(flags) + source.parent.name + "-" + source.stem)
        subprocess.run(["g++", "-std=c++20", *flags, "-DNDEBUG", "-fno-exceptions", "-fno-rtti", "-fcallgraph-info=su",
                        f"-I{root}/c", f"-I{root}/include", "-c", str(source), "-o", f"{out}.o"], check=True)
        return out.with_suffix(".ci").read_text(encoding="utf-8")
    return pool.map(told, sources)


def graph(texts):
    """The functions with the bytes of their frames, and who calls whom."""
    frames, calls = {}, {}
    for text in texts:
        for name, label in re.findall(r'^node: \{ title: "([^"]*)" label: "([^"]*)"', text, re.M):
            size = re.search(r"(\d+) bytes", label)
            if size:
                frames[name.split(":")[-1]] = max(frames.get(name.split(":")[-1], 0), int(size.group(1)))
        for caller, callee in re.findall(r'^edge: \{ sourcename: "([^"]*)" targetname: "([^"]*)"', text, re.M):
            calls.setdefault(caller.split(":")[-1], set()).add(callee.split(":")[-1])
    return frames, calls


def reached_from(calls, start):
    """All functions that a call of this one may run, itself only if it is called again."""
    found, waiting = set(), list(calls.get(start, ()))
    while waiting:
        name = waiting.pop()
        if name not in found:
            found.add(name)
            waiting.extend(calls.get(name, ()))
    return found


def is_ours(name):
    """Of the C++ face or the engine, and not merely made for one of their types."""
    return re.match(r"_ZZ?N[KV]*5ovant", name)


def readable(names):
    said = subprocess.run(["c++filt"], input="\n".join(names), stdout=subprocess.PIPE, text=True, check=True).stdout
    return dict(zip(names, said.splitlines()))


def main():
    library = sorted(set(root.glob("c/*/*.cpp")) - set(root.glob("c/platform/windows*")))
    everything = root / "trust/everything.cpp" # each name of the C++ face once
    complaints = []
    with tempfile.TemporaryDirectory() as folder, concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        # Not optimised: every call of the source is in it.
        plain = compile_all(pool, folder, [everything, *library], "-O0")
        # The library as it is built, where what is inlined counts with its caller; the headers function by function.
        of_headers = compile_all(pool, folder, [everything], "-O1", "-fno-inline")
        of_library = compile_all(pool, folder, library, "-O2", "-DOVANT_NO_SPLIT_PATHS")

        frames, calls = graph(plain)
        reached = {name: reached_from(calls, name) for name in frames}
        complaints += [f"calls itself: {name}" for name in reached if name in reached[name]]
        allocate = {name for name in reached if reached[name] & allocators and name[:2] != "_Z"}
        # What a disposer or a cloner of the host does is the host's.
        allocate |= {name for name in calls if calls[name] & allocators and is_ours(name) and "ovant1c" not in name}
        complaints += [f"takes memory: {name}" for name in sorted(allocate - may_allocate)]
        complaints += [f"named in calls.py and takes no memory: {name}" for name in sorted(may_allocate - allocate)]
        count = len([name for name in frames if is_ours(name) or name[:2] != "_Z"])

        frames = {name: size for name, size in graph(of_headers)[0].items() if is_ours(name)}
        frames |= graph(of_library)[0]
        limits = [line.split("  # ")[0].split(None, 1) for line in
                  root.joinpath("trust/frames.txt").read_text(encoding="utf-8").splitlines() if line[:1].isdigit()]
        met = set()
        for mangled, name in readable(list(frames)).items():
            size = frames[mangled]
            name = f"C++: {name}" if is_ours(mangled) and "ovant1c" not in mangled else name
            limit, word = next(((int(n), w) for n, w in limits if w in name), (usual_frame, ""))
            if size > limit:
                complaints.append(f"has a frame of {size} bytes: {name}")
            elif size > usual_frame:
                met.add(word)
        complaints += [f"named in frames.txt and smaller: {word}" for _, word in limits if word not in met]
    named = readable(re.findall(r"_Z\w+", " ".join(complaints)))
    print(re.sub(r"_Z\w+", lambda found: named[found.group()], "\n".join(complaints)) or
          f"{count} functions: none calls itself, {len(may_allocate)} take memory, "
          f"{len(limits)} kinds have a frame above {usual_frame} bytes, each with its reason")
    return bool(complaints)


sys.exit(main())
