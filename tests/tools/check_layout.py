#!/usr/bin/env python3
"""Folders match headers: each public header has one src/ folder and one
tests/ folder (the table below, the one place this mapping is written), and
every export the header declares is implemented by a source file in that
src/ folder, as the export-to-source map (gen/exports-sources.txt) shows.
A header missing from the table fails too.

    check_layout.py --root <source tree> --map gen/exports-sources.txt
"""
import argparse
import glob
import os
import sys

from verdict import verdict

# header under include/zams/ -> (src folder, tests folder)
LAYOUT = {
    "core.h": ("src/core", "tests/core"),
    "move.h": ("src/vector", "tests/vector"),
    "convert.h": ("src/vector", "tests/vector"),
    "threshold.h": ("src/vector", "tests/vector"),
    "arith.h": ("src/arith", "tests/arith"),
    "math.h": ("src/math", "tests/math"),
    "stats.h": ("src/stats", "tests/stats"),
    "window.h": ("src/window", "tests/window"),
    "fft.h": ("src/transform", "tests/transform"),
    "dft.h": ("src/transform", "tests/transform"),
    "conv.h": ("src/conv", "tests/conv"),
    "gen.h": ("src/gen", "tests/gen"),
    "filter.h": ("src/filter", "tests/filter"),
    "fir.h": ("src/filter", "tests/filter"),
    "design.h": ("src/design", "tests/design"),
    "dct.h": ("src/transform", "tests/transform"),
    "sort.h": ("src/sort", "tests/sort"),
    "lms.h": ("src/filter", "tests/filter"),
    "wavelet.h": ("src/wavelet", "tests/wavelet"),
    "speech.h": ("src/speech", "tests/speech"),
    "resample.h": ("src/resample", "tests/resample"),
}


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--root", required=True)
    ap.add_argument("--map", required=True)
    a = ap.parse_args()
    sys.path.insert(0, os.path.join(a.root, "tools"))
    from gen_entry import parse  # the generator's own reading of the headers

    with open(a.map) as f:
        where = dict(line.split() for line in f if line.strip())
    bad = []
    headers = sorted(glob.glob(os.path.join(a.root, "include", "zams", "*.h")))
    for h in headers:
        name = os.path.basename(h)
        if name not in LAYOUT:
            bad.append(f"include/zams/{name} has no folders in the layout table")
            continue
        src_dir, test_dir = LAYOUT[name]
        for d in (src_dir, test_dir):
            if not os.path.isdir(os.path.join(a.root, d)):
                bad.append(f"include/zams/{name}: {d} does not exist")
        for export in sorted(parse([h])):
            src = where.get(export)
            if src is None:
                bad.append(f"{export} ({name}) is not in the map")
            elif os.path.dirname(src) != src_dir:
                bad.append(f"{export} ({name}) is implemented in {src}, not in {src_dir}/")
    for name in sorted(set(LAYOUT) - {os.path.basename(h) for h in headers}):
        bad.append(f"the layout table names include/zams/{name}, which does not exist")
    verdict(bad, f"{len(bad)} layout faults",
            f"layout: the exports of {len(headers)} headers live in their folders")


if __name__ == "__main__":
    main()
