#!/usr/bin/env python3
"""Structure of the built libraries: exports, cells and entry points agree.

- libzams exports only zams* functions, exactly the generated list, and the
  list is the library's designed set of 2,106 functions;
- one 16-byte <name>_arraddr cell per export, contiguous, in byte order of
  the names, each holding a nonzero address (a relocation) in word 0 and
  zeros in the rest;
- every entry point is the indirect jump through its own cell, with no push
  and no frame;
- libzamcore exports only its own zam*/own* names.
"""
import argparse
import re
import subprocess
import sys

failures = []

# The library's designed set (docs/named-families.md closes it): a new export
# comes with a decision to change this number.
EXPORT_COUNT = 2106


def fail(msg):
    failures.append(msg)


def run(*cmd):
    return subprocess.run(cmd, check=True, capture_output=True, text=True).stdout


def dynamic_defined(lib):
    names = {}
    for line in run("nm", "-D", "--defined-only", lib).splitlines():
        parts = line.split()
        if len(parts) == 3:
            names[parts[2].split("@")[0]] = parts[1]
    return names


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--arch", required=True)
    ap.add_argument("--lib", required=True)
    ap.add_argument("--core", required=True)
    ap.add_argument("--exports", required=True)
    a = ap.parse_args()

    with open(a.exports) as f:
        exports = [l.strip() for l in f if l.strip()]
    if len(exports) != EXPORT_COUNT:
        fail(f"{len(exports)} exports, not the designed {EXPORT_COUNT}")
    if exports != sorted(exports, key=lambda s: s.encode()):
        fail("generated export list is not in byte order")

    dyn = dynamic_defined(a.lib)
    for n, t in dyn.items():
        if not n.startswith("zams"):
            fail(f"libzams exports {n}")
        elif t != "T":
            fail(f"libzams exports {n} as {t}, not a function")
    if set(dyn) != set(exports):
        fail(f"exports differ from the list: extra {sorted(set(dyn) - set(exports))[:5]}, "
             f"missing {sorted(set(exports) - set(dyn))[:5]}")

    # Cells from the full symbol table.
    cells = {}
    for line in run("nm", "-S", a.lib).splitlines():
        parts = line.split()
        if len(parts) == 4 and parts[3].endswith("_arraddr"):
            cells[parts[3][: -len("_arraddr")]] = (int(parts[0], 16), int(parts[1], 16))
    if len(cells) != len(exports):
        fail(f"{len(cells)} cells for {len(exports)} exports")
    addrs = [cells.get(n, (None, None)) for n in exports]
    for n, (addr, size) in zip(exports, addrs):
        if addr is None:
            fail(f"no cell for {n}")
        elif size != 16 or addr % 16:
            fail(f"cell of {n}: size {size}, address {addr:#x}")
    known = [x[0] for x in addrs if x[0] is not None]
    if known and known != list(range(known[0], known[0] + 16 * len(known), 16)):
        fail("cells are not contiguous in byte order of the names")

    # Word 0 of every cell is filled by a relocation; the rest of the cell is zero.
    relocs = set()
    for line in run("readelf", "-rW", a.lib).splitlines():
        m = re.match(r"\s*([0-9a-f]+)\s+[0-9a-f]+\s+(R_\S+)", line)
        if m:
            relocs.add(int(m.group(1), 16))
    for n, (addr, _) in zip(exports, addrs):
        if addr is not None and addr not in relocs:
            fail(f"cell of {n} is empty (no address relocation)")

    # Entry points: disassemble each and match the shape.
    dis = run("objdump", "-d", "--no-show-raw-insn", "-j", ".text", a.lib)
    bodies, cur = {}, None
    for line in dis.splitlines():
        m = re.match(r"^[0-9a-f]+ <([^>]+)>:", line)
        if m:
            cur = m.group(1)
            bodies[cur] = []
        elif cur and re.match(r"^\s+[0-9a-f]+:\s", line):
            ins = line.split(":", 1)[1].split("#")[0].strip()
            if ins and not ins.startswith(("nop", "xchg   %ax,%ax", "cs nopw", "data16")):
                bodies[cur].append(" ".join(ins.split()))
    for n in exports:
        body = bodies.get(n)
        if body is None:
            fail(f"no entry point {n} in .text")
            continue
        # What follows the jump is alignment padding up to the next entry.
        jumps = [i for i, ins in enumerate(body) if ins.startswith("jmp")]
        body = body[: jumps[0] + 1] if jumps else body
        if a.arch == "x86_64":
            ok = len(body) == 1 and re.fullmatch(r"jmp \*0x[0-9a-f]+\(%rip\)", body[0])
        else:
            ok = (len(body) == 3 and body[0].startswith("call ") and
                  re.fullmatch(r"add \$0x[0-9a-f]+,%ecx", body[1]) and
                  re.fullmatch(r"jmp \*-?0x[0-9a-f]+\(%ecx\)", body[2]))
        if not ok:
            fail(f"entry point {n} has the wrong shape: {body}")
        if any(i.startswith(("push", "mov %esp", "mov %rsp", "enter", "sub $")) for i in body):
            fail(f"entry point {n} pushes or builds a frame")

    for n in dynamic_defined(a.core):
        if not (n.startswith("zam") or n.startswith("own")):
            fail(f"libzamcore exports {n}")

    for f in failures[:40]:
        print("FAIL:", f)
    print(f"{len(exports)} exports, {len(cells)} cells: " + ("ok" if not failures else f"{len(failures)} problems"))
    print(f"{0 if failures else 1} passed, {1 if failures else 0} failed")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
