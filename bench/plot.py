#!/usr/bin/env python3
"""Draws the ratio tables of a benchmark run as pictures, one per family:
ratio zams time / peer time against length, a line per (row, peer), log
scales, the parity line at 1 (below it zams is faster). Writes
bench/plots/<family>.png with gnuplot and rewrites the list of pictures
between the plot markers of bench/README.md.

usage: zams_bench > run.txt; python3 bench/plot.py run.txt [--out bench/plots]
"""
import argparse
import os
import re
import subprocess
import sys
from collections import OrderedDict

PEER = re.compile(r"/(\S+)\s+([\d.]+) \(best")


def parse(path):
    """{family: {(row, peer): [(length, ratio), ...]}} and the target line."""
    fams, fam, target = OrderedDict(), None, ""
    for line in open(path):
        line = line.rstrip("\n")
        if line.startswith("target:"):
            target = line[len("target:"):].strip()
        elif line.startswith("# "):
            fam = line[2:].strip()
            fams.setdefault(fam, OrderedDict())
        elif fam and len(line) > 30 and " zams " in line:
            name, rest = line[:28].strip(), line[28:].split()
            try:
                length = int(rest[0])
            except ValueError:
                continue
            for peer, ratio in PEER.findall(line):
                if float(ratio) > 0:
                    fams[fam].setdefault((name, peer), []).append((length, float(ratio)))
    return fams, target


def plot(fam, series, target, out):
    data = os.path.join(out, fam + ".dat")
    with open(data, "w") as f:
        for (name, peer), pts in series.items():
            f.write(f"# {name} / {peer}\n")
            for x, y in sorted(pts):
                f.write(f"{x} {y}\n")
            f.write("\n\n")
    titles = [f"{n} / {p}".replace("_", "\\\\_") for n, p in series]
    plots = ", ".join(f"'{data}' index {i} using 1:2 with linespoints title \"{t}\"" for i, t in enumerate(titles))
    script = f"""set terminal pngcairo size 1000,{420 + 14 * len(series)} font ',9'
set output '{os.path.join(out, fam + ".png")}'
set title "{fam.replace("_", "\\\\_")}: zams time / peer time ({target}); below 1 zams is faster"
set logscale xy
set xlabel 'length'
set ylabel 'ratio'
set key outside below
set grid
plot {plots}, 1 with lines lc rgb 'black' dt 2 notitle
"""
    subprocess.run(["gnuplot"], input=script, text=True, check=True)
    os.remove(data)


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("run")
    here = os.path.dirname(os.path.abspath(__file__))
    ap.add_argument("--out", default=os.path.join(here, "plots"))
    a = ap.parse_args()
    fams, target = parse(a.run)
    os.makedirs(a.out, exist_ok=True)
    drawn = []
    for fam, series in fams.items():
        if series:
            plot(fam, series, target, a.out)
            drawn.append(fam)
    readme = os.path.join(here, "README.md")
    text = open(readme).read()
    start, end = "<!-- plots -->", "<!-- /plots -->"
    if start in text and end in text:
        rel = os.path.relpath(a.out, here)
        body = "\n".join(f"![{f}]({rel}/{f}.png)" for f in drawn)
        text = text[: text.index(start) + len(start)] + "\n" + body + "\n" + text[text.index(end):]
        open(readme, "w").write(text)
    print(f"{len(drawn)} pictures in {a.out}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
