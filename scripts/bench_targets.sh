#!/usr/bin/env bash
# Times every benchmark row on both targets of this machine and writes one
# markdown table: the row, its x86-64 and i386 time (best sample), i386 /
# x86-64, and the ratios to the peers on each target; rows above 1.25x marked.
#   scripts/bench_targets.sh [filter...]      (default: every benchmark)
# The two processes take turns row by row (one waits while the other times,
# and which times a row first alternates), so that a swing of the machine's
# load falls on both columns alike. i386 runs natively; where this machine
# cannot run 32-bit programs the second column is the x86-64 build on eight
# vector registers, and the table says so. ZAMS_BENCH_ROUNDS sets the samples
# (31 here); the table goes to stdout and build/bench-targets/table.md, each
# target's own report beside it (x86_64.txt, i386.txt).
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/bench_lib.sh
scripts/setup.sh >&2
p64=$(bench_preset x86_64)
p32=$(bench_preset i386)
bench_build "$p64"
bench_build "$p32"
out=build/bench-targets
mkdir -p "$out"
ZAMS_BENCH_ROUNDS=${ZAMS_BENCH_ROUNDS:-31} exec python3 - "$out" "build/$p64/bench/zams_bench" "build/$p32/bench/zams_bench" "$@" <<'EOF'
import os, subprocess, sys, time
from collections import OrderedDict

out, bin64, bin32, filters = sys.argv[1], sys.argv[2], sys.argv[3], sys.argv[4:] or [""]
names = ("x86_64", "i386")
bins = (bin64, bin32)


def loadavg():
    return float(open("/proc/loadavg").read().split()[0])


def run_pair(flt, lead):
    """Runs both targets on one filter, taking turns row by row; `lead` (0 or 1)
    times the first row first. Returns each target's report and rows."""
    a_r, b_w = os.pipe()  # to the lead
    b_r, a_w = os.pipe()  # to the follower
    ends = {lead: (a_r, a_w, "lead"), 1 - lead: (b_r, b_w, "follow")}
    procs, files = [], []
    for t in (0, 1):
        r, w, role = ends[t]
        env = dict(os.environ, ZAMS_BENCH_BATON=f"{r},{w},{role}", ZAMS_BENCH_TSV=f"{out}/{names[t]}.tsv")
        rep = open(f"{out}/{names[t]}.part", "w")
        procs.append(subprocess.Popen([bins[t], flt], env=env, stdout=rep, pass_fds=(r, w)))
        files.append(rep)
    for fd in (a_r, a_w, b_r, b_w):
        os.close(fd)
    codes = [p.wait() for p in procs]
    for f in files:
        f.close()
    res = []
    for t in (0, 1):
        if codes[t] != 0:
            sys.exit(f"zams_bench ({names[t]}) {flt!r} failed with status {codes[t]}")
        rows = []
        for line in open(f"{out}/{names[t]}.tsv"):
            fam, row, n, who, med, best = line.rstrip("\n").split("\t")
            if rows and rows[-1]["key"] == (fam, row, n) and who != "zams":
                rows[-1]["peers"].append((who, float(best)))
            else:
                rows.append({"key": (fam, row, n), "who": who, "best": float(best), "med": float(med), "peers": []})
        res.append((open(f"{out}/{names[t]}.part").read(), rows))
    return res


def fmt_time(s):
    for unit, f in (("s", 1), ("ms", 1e3), ("us", 1e6), ("ns", 1e9)):
        if s * f >= 1:
            return f"{s * f:.3g} {unit}"
    return f"{s * 1e9:.3g} ns"


def peers(r):
    return ", ".join(f"{who} {r['best'] / b:.2f}" for who, b in r["peers"]) or "-"


def peers_across(a, b):
    """Each peer's own time on the second target over its time on x86-64."""
    mine = dict(a["peers"])
    return ", ".join(f"{who} {t / mine[who]:.2f}" for who, t in b["peers"] if who in mine) or "-"


t0, loads = time.time(), [loadavg()]
start = time.strftime("%Y-%m-%d %H:%M", time.gmtime())
reports, table = ["", ""], []
for k, flt in enumerate(filters):
    (rep64, rows64), (rep32, rows32) = run_pair(flt, k % 2)
    loads.append(loadavg())
    reports[0] += rep64
    reports[1] += rep32
    by32 = OrderedDict()
    for r in rows32:
        by32.setdefault(r["key"], []).append(r)
    for r in rows64:
        other = by32.get(r["key"])
        table.append((r, other.pop(0) if other else None))
    for rest in by32.values():
        table += [(None, r) for r in rest]
end = time.strftime("%H:%M", time.gmtime())
secs = time.time() - t0
for t in (0, 1):
    open(f"{out}/{names[t]}.txt", "w").write(reports[t])
    os.remove(f"{out}/{names[t]}.part")
    os.remove(f"{out}/{names[t]}.tsv")

target32 = next((l[len("target: "):] for l in reports[1].splitlines() if l.startswith("target: ")), "i386")
proxy = "proxy" in target32
col32 = "proxy (8 regs)" if proxy else "i386"
model = "unknown machine"
try:
    for line in open("/proc/cpuinfo"):
        if line.startswith("model name"):
            model = line.split(":", 1)[1].strip()
            break
except OSError:
    pass
rounds = os.environ.get("ZAMS_BENCH_ROUNDS", "15")
commit = subprocess.run(["git", "rev-parse", "--short", "HEAD"], capture_output=True, text=True).stdout.strip()
md = []
md.append(f"Machine: `{model}`, {os.cpu_count()} logical CPUs; {start}-{end} UTC, commit {commit}; "
          f"load average (1 min) {min(loads):.1f} to {max(loads):.1f} over the run, which took {secs / 60:.0f} min. "
          f"x86-64 and {target32} in two processes taking turns row by row; best of {rounds} samples a "
          f"contender; times are of one call; the peers' own ratio across the targets shows what the "
          f"target costs everyone; zams / peer of the best samples (below 1: zams faster). Rows above "
          f"1.25x are marked **>1.25**.")
if proxy:
    md.append("")
    md.append("**This machine cannot run 32-bit programs: the second column is the x86-64 build on eight vector "
              "registers (the proxy), not an i386 figure.**")
md.append("")
md.append(f"| family | row | length | x86-64 | {col32} | {col32} / x86-64 | the peers' own {col32} / x86-64 "
          f"| zams / peer, x86-64 | zams / peer, {col32} |")
md.append("|---|---|---|---|---|---|---|---|---|")
over = []
for a, b in table:
    r = a or b
    fam, row, n = r["key"]
    ratio = b["best"] / a["best"] if a and b else None
    mark = ""
    if ratio is not None and ratio > 1.25:
        mark = " **>1.25**"
        over.append(f"{row} {n}")
    md.append(f"| {fam} | {row} | {n} | {fmt_time(a['best']) if a else '-'} | {fmt_time(b['best']) if b else '-'} | "
              f"{f'{ratio:.2f}' if ratio is not None else '-'}{mark} | {peers_across(a, b) if a and b else '-'} | "
              f"{peers(a) if a else '-'} | {peers(b) if b else '-'} |")
md.append("")
md.append(f"{len(table)} rows, {len(over)} above 1.25x" + (": " + "; ".join(over) if over else "") + ".")
text = "\n".join(md) + "\n"
open(f"{out}/table.md", "w").write(text)
sys.stdout.write(text)
EOF
