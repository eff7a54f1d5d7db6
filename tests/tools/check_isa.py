#!/usr/bin/env python3
"""Fails on any instruction beyond AVX in the built libraries.

The target has AVX (with SSE up to 4.2); the machines we test on have AVX2,
FMA and AVX-512, so nothing else would notice such an instruction. F16C is
allowed: it is used only behind the core library's feature query.
"""
import re
import subprocess
import sys

FMA = re.compile(r"^v(fn?m(add|sub)(sub|add)?\d{3}[ps][sd]|fmaddsub|fmsubadd)")
AVX2_ONLY = re.compile(
    r"^(vpbroadcast[bwdq]|vbroadcasti128|vinserti128|vextracti128|vperm2i128|vpermd|vpermq|vpermps|"
    r"vpermpd|vpblendd|vpsllv[dq]|vpsrlv[dq]|vpsravd|vp?gather\w+|vpmaskmov[dq]|"
    r"andn|bextr|blsi|blsmsk|blsr|bzhi|mulx|pdep|pext|rorx|sarx|shlx|shrx|lzcnt)$")
# Integer operations on ymm registers are AVX2; these few ymm forms are AVX.
AVX1_YMM_P = {"vptest", "vpermilps", "vpermilpd", "vperm2f128"}


def offending(ins):
    parts = ins.split(None, 1)
    op = parts[0]
    args = parts[1] if len(parts) > 1 else ""
    if "%zmm" in args or re.search(r"%k[0-7]", args) or "{" in args:
        return "AVX-512"
    if FMA.match(op):
        return "FMA"
    if AVX2_ONLY.match(op):
        return "AVX2"
    if op.startswith("vp") and "%ymm" in args and op not in AVX1_YMM_P:
        return "AVX2"
    if op in ("vbroadcastss", "vbroadcastsd") and re.match(r"%xmm", args):
        return "AVX2"
    return None


def main(libs):
    bad = []
    count = 0
    for lib in libs:
        out = subprocess.run(["objdump", "-d", "--no-show-raw-insn", lib], check=True,
                             capture_output=True, text=True).stdout
        func = "?"
        for line in out.splitlines():
            m = re.match(r"^[0-9a-f]+ <([^>]+)>:", line)
            if m:
                func = m.group(1)
                continue
            m = re.match(r"^\s+[0-9a-f]+:\s+(.*)$", line)
            if not m:
                continue
            ins = m.group(1).split("#")[0].strip()
            if not ins:
                continue
            count += 1
            why = offending(ins)
            if why:
                bad.append(f"{lib}: {func}: {why}: {ins}")
    for b in bad[:40]:
        print("FAIL:", b)
    print(f"{count} instructions scanned, {len(bad)} beyond AVX")
    print(f"{0 if bad else 1} passed, {1 if bad else 0} failed")
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
