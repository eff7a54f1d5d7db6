#!/usr/bin/env python3
"""Every export is called by a test: each name of exports.txt is imported
(an undefined symbol, `nm -u`) by at least one of the given test programs.

    check_tested.py --exports gen/exports.txt PROGRAM...
"""
import argparse
import subprocess

from verdict import verdict


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--nm", default="nm")
    ap.add_argument("--exports", required=True)
    ap.add_argument("programs", nargs="+")
    a = ap.parse_args()
    with open(a.exports) as f:
        exports = [l.strip() for l in f if l.strip()]
    imported = set()
    for prog in a.programs:
        out = subprocess.run([a.nm, "-u", prog], check=True, capture_output=True, text=True).stdout
        imported.update(line.split()[-1].split("@")[0] for line in out.splitlines() if line.strip())
    missing = [n for n in exports if n not in imported]
    verdict(missing, f"{len(missing)} of {len(exports)} exports are called by no test program",
            f"tested: all {len(exports)} exports are called by the {len(a.programs)} test programs")


if __name__ == "__main__":
    main()
