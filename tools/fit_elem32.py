#!/usr/bin/env python3
"""Coefficients of the single-precision elementary kernels (elem_float32.h).

Each is a Remez exchange on the relative error of f over a grid, solved in
exact rationals from Python's own f in double (far more accurate than the
fits reach), with fixed leading terms:

  exp:  e^r = 1 + r + r^2/2 + sum c_j r^j, j = 3..7, |r| <= 0.35; the
        coefficients are then rounded to single precision (the kernel
        evaluates them in single precision) and the error re-measured.
  atan: atan v = v + sum c_j v^j, j = 3, 5, ..., 11, 0 < v <= 0.4143
        (just above tan(pi/8)); evaluated in double.

Prints each set as C hex floats with its largest relative error.
Run: python3 tools/fit_elem32.py
"""
import math
import struct
from fractions import Fraction as Q


def solve(a, b):
    n = len(b)
    m = [row[:] + [b[i]] for i, row in enumerate(a)]
    for c in range(n):
        p = max(range(c, n), key=lambda r: abs(m[r][c]))
        m[c], m[p] = m[p], m[c]
        for r in range(n):
            if r != c and m[r][c] != 0:
                f = m[r][c] / m[c][c]
                m[r] = [x - f * y for x, y in zip(m[r], m[c])]
    return [m[i][n] / m[i][i] for i in range(n)]


def remez(f, fixed, powers, grid, start, steps=12):
    """Coefficients c of fixed(x) + sum c_j x^p_j minimising max |approx / f - 1|."""
    n = len(powers)

    def rel(c, x):
        return (fixed(x) + sum(k * x ** p for k, p in zip(c, powers))) / f(x) - 1

    pts = start
    for _ in range(steps):
        a = [[Q(x) ** p for p in powers] + [Q((-1) ** i) * Q(f(x))] for i, x in enumerate(pts)]
        b = [Q(f(x)) - Q(fixed(x)) for x in pts]
        c = [float(v) for v in solve(a, b)[:-1]]
        runs = []
        for e, x in sorted(((rel(c, x), x) for x in grid), key=lambda t: t[1]):
            if runs and (runs[-1][0] > 0) == (e > 0):
                if abs(e) > abs(runs[-1][0]):
                    runs[-1] = (e, x)
            else:
                runs.append((e, x))
        while len(runs) > n + 1:
            runs.pop(min(range(len(runs)), key=lambda j: abs(runs[j][0])))
        if len(runs) == n + 1:
            pts = [x for e, x in runs]
    return c, rel


def f32(v):
    return struct.unpack("f", struct.pack("f", v))[0]


def report(name, c, rel, grid):
    worst = max(abs(rel(c, x)) for x in grid)
    print("%s: max relative error %.3g (2^%.2f)" % (name, worst, math.log2(worst)))
    print("  " + ", ".join(float.hex(v) for v in c))


R = 0.35
grid = [R * math.cos(math.pi * (i + 0.5) / 4000) for i in range(4000)] + [R, -R]
c, rel = remez(math.exp, lambda x: 1 + x + x * x / 2,
               [3, 4, 5, 6, 7], grid, [R * math.cos(math.pi * i / 5) for i in range(6)])
report("exp (single-precision coefficients)", [f32(v) for v in c], rel, grid)

R = 0.4143
grid = [R * (i + 0.5) / 6000 for i in range(6000)] + [R]
c, rel = remez(math.atan, lambda x: x, [3, 5, 7, 9, 11], grid,
               [R * (1 - math.cos(math.pi * i / 5)) / 2 + 1e-9 for i in range(6)])
report("atan", c, rel, grid)
