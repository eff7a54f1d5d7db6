#!/usr/bin/env python3
"""Writes the map from each export to the source file that implements it.

Implementations are hidden functions g9_<name>, many of them defined through
token-pasting macros, so the sources are not searched: the defined g9_*
symbols of each object file of libzams are read with nm, and an object's
source is its path below the target's object folder less the ".o".

Output (exports-sources.txt): one line an export, "<name> <source>", in byte
order of the names; <source> is relative to the source tree. Every export of
exports.txt has exactly one implementing object, or the script fails.

    gen_export_map.py --nm nm --exports gen/exports.txt --out gen/exports-sources.txt OBJ...
"""
import argparse
import os
import re
import subprocess
import sys

PREFIX = "g9_"
IMPL = re.compile(PREFIX + r"(zams\w+)$")
OBJDIR = re.compile(r"^(.*/)?CMakeFiles/[^/]+\.dir/")


def source_of(obj):
    rel = OBJDIR.sub("", obj.replace(os.sep, "/"))
    return rel[:-2] if rel.endswith(".o") else rel


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--nm", default="nm")
    ap.add_argument("--exports", required=True)
    ap.add_argument("--out", required=True)
    ap.add_argument("objects", nargs="+")
    a = ap.parse_args()

    with open(a.exports) as f:
        exports = [l.strip() for l in f if l.strip()]
    where = {}
    errors = []
    for obj in a.objects:
        out = subprocess.run([a.nm, "--defined-only", obj], check=True, capture_output=True, text=True).stdout
        for line in out.splitlines():
            parts = line.split()
            # global definitions only: the compiler's local pieces (.cold, .part.0) are not
            m = IMPL.match(parts[2]) if len(parts) == 3 and parts[1] in "TW" else None
            if m:
                name = m.group(1)
                src = source_of(obj)
                if name in where and where[name] != src:
                    errors.append(f"{name} defined in {where[name]} and {src}")
                where[name] = src
    for name in exports:
        if name not in where:
            errors.append(f"{name}: no object defines {PREFIX}{name}")
    for name in sorted(set(where) - set(exports)):
        errors.append(f"{PREFIX}{name} is defined but {name} is not an export")
    if errors:
        sys.exit("\n".join(errors))

    text = "".join(f"{n} {where[n]}\n" for n in exports)
    try:
        with open(a.out) as f:
            if f.read() == text:
                return
    except FileNotFoundError:
        pass
    with open(a.out, "w") as f:
        f.write(text)


if __name__ == "__main__":
    main()
