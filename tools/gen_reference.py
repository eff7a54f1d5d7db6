#!/usr/bin/env python3
"""The API reference: reads the public headers, where a comment documents the
declarations below it up to the next comment (the file's title comment
documents what comes before the first comment of the body), and writes
Doxygen input in which every export carries its run's comment, grouped by
header. Fails, naming them, when an export has no comment above its run.

usage: gen_reference.py --out DIR include/zams/*.h
"""
import argparse
import os
import re
import sys

DECL = re.compile(r"ZAMSAPI\s+[^;]*?\b(zams\w+)\s*\(")


def read_runs(text):
    """Yields (comment, [declaration text]) for each run of declarations."""
    lines = text.split("\n")
    i, comment, decls, out = 0, None, [], []
    while i < len(lines):
        line = lines[i]
        s = line.strip()
        if s.startswith("/*"):
            block = [line]
            while "*/" not in lines[i]:
                i += 1
                block.append(lines[i])
            if decls:
                out.append((comment, decls))
                decls = []
            comment = "\n".join(block)
        elif s.startswith("ZAMSAPI"):
            block = [line]
            while ";" not in lines[i]:
                i += 1
                block.append(lines[i])
            decls.append("\n".join(block))
        elif s == "":
            pass
        elif not s.startswith("#") and not s.startswith("//"):
            if decls:
                out.append((comment, decls))
                decls = []
        i += 1
    if decls:
        out.append((comment, decls))
    return out


def comment_text(c):
    body = re.sub(r"^\s*/\*+|\*/\s*$", "", c.strip())
    return "\n".join(re.sub(r"^\s*\*? ?", "", l) for l in body.split("\n")).strip()


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--out", required=True)
    ap.add_argument("headers", nargs="+")
    a = ap.parse_args()
    os.makedirs(a.out, exist_ok=True)
    missing, count = [], 0
    for h in sorted(a.headers):
        name = os.path.basename(h)
        text = open(h).read()
        m = re.match(r"\s*/\*(.*?)\*/", text, re.S)
        title = comment_text(m.group(0)) if m else name
        group = "zams_" + name[:-2]
        res = [f"/** @defgroup {group} {name}\n\\verbatim\n{title}\n\\endverbatim\n@{{ */"]
        for comment, decls in read_runs(text):
            names = [DECL.search(d).group(1) for d in decls if DECL.search(d)]
            count += len(names)
            if comment is None:
                missing += [f"{h}: {n}" for n in names]
                continue
            # Verbatim: the headers align formulas and tables in columns.
            doc = comment_text(comment).replace("*/", "* /")
            for d in decls:
                res.append("/** \\verbatim\n" + doc + "\n\\endverbatim */")
                res.append(d.replace("ZAMSAPI ", ""))
        res.append("/** @} */")
        with open(os.path.join(a.out, name), "w") as f:
            f.write("\n".join(res) + "\n")
    if missing:
        print("exports with no comment above them:\n  " + "\n  ".join(missing), file=sys.stderr)
        return 1
    print(f"{count} exports documented in {len(a.headers)} headers")
    return 0


if __name__ == "__main__":
    sys.exit(main())
