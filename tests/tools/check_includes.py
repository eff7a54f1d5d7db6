#!/usr/bin/env python3
"""Folders include only what they may: a file under src/<X>/ includes files of
its own folder, of src/common/ (subfolders included) and of src/core/ (the
frame: parallel.h, allocation); public and generated headers are free.
Anything else, or an include that does not resolve, fails.

    check_includes.py --root <source tree>
"""
import argparse
import os
import re

from verdict import verdict

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include\s*([<"])([^>"]+)[>"]', re.M)
SHARED = ("common", "core")
GENERATED = {"zams_impl.h"}


def resolve(root, here, quote, name):
    """The include's file: beside the includer first (quoted only), then
    below src/ and include/, as the build's include paths have it."""
    dirs = ([here] if quote == '"' else []) + [os.path.join(root, "src"), os.path.join(root, "include")]
    for d in dirs:
        p = os.path.normpath(os.path.join(d, name))
        if os.path.isfile(p):
            return p
    return None


def folder(src, path):
    rel = os.path.relpath(path, src)
    return None if rel.startswith("..") else rel.split(os.sep)[0]


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--root", required=True)
    a = ap.parse_args()
    src = os.path.join(a.root, "src")
    bad = []
    for dirpath, _, files in os.walk(src):
        for fn in sorted(files):
            if not fn.endswith((".h", ".cpp")):
                continue
            path = os.path.join(dirpath, fn)
            own = folder(src, path)
            with open(path, encoding="utf-8") as f:
                text = f.read()
            for m in INCLUDE.finditer(text):
                quote, name = m.group(1), m.group(2)
                line = text.count("\n", 0, m.start()) + 1
                where = f"{os.path.relpath(path, a.root)}:{line}"
                target = resolve(a.root, dirpath, quote, name)
                if target is None:
                    if quote == '"' and os.path.basename(name) not in GENERATED:
                        bad.append(f"{where}: {name} does not resolve")
                    continue  # a system header
                to = folder(src, target)
                if to is not None and to != own and to not in SHARED:
                    bad.append(f"{where}: src/{own} includes {os.path.relpath(target, a.root)}")
    verdict(bad, f"{len(bad)} includes across folders; share the code through src/common instead",
            "includes: every folder includes only itself, src/common and src/core")


if __name__ == "__main__":
    main()
