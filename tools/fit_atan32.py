#!/usr/bin/env python3
"""Coefficients of the single-precision arctangent's polynomial.

atan v = v + v^3 P(v^2) on 0 < v <= tan(pi/8) (plus a little for the
rounding of the reduction), P of degree DEG, fitted by the Remez exchange on
the relative error in exact rationals from Python's atan in double. Prints
the coefficients as C hex floats and the largest relative error on the grid.

Run: python3 tools/fit_atan32.py
"""
import math
from fractions import Fraction as Q

R = 0.4143
DEG = 4
POWERS = [2 * j + 3 for j in range(DEG + 1)]
GRID = [R * (i + 0.5) / 6000 for i in range(6000)]


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


def relerr(c, v):
    return (v + sum(k * v ** p for k, p in zip(c, POWERS))) / math.atan(v) - 1


n = len(POWERS)
pts = [R * (1 - math.cos(math.pi * i / n)) / 2 + 1e-9 for i in range(n + 1)]
pts[-1] = R
for it in range(12):
    a = [[Q(x) ** p for p in POWERS] + [Q((-1) ** i) * Q(math.atan(x))] for i, x in enumerate(pts)]
    b = [Q(math.atan(x)) - Q(x) for x in pts]
    c = [float(v) for v in solve(a, b)[:-1]]
    errs = [(relerr(c, v), v) for v in GRID + [R]]
    runs = []
    for e, v in errs:
        if runs and (runs[-1][0] > 0) == (e > 0):
            if abs(e) > abs(runs[-1][0]):
                runs[-1] = (e, v)
        else:
            runs.append((e, v))
    while len(runs) > n + 1:
        runs.pop(min(range(len(runs)), key=lambda j: abs(runs[j][0])))
    if len(runs) == n + 1:
        pts = [v for e, v in runs]

worst = max(abs(relerr(c, v)) for v in GRID + [R])
print("max relative error %.3g (2^%.2f)" % (worst, math.log2(worst)))
print(", ".join(float.hex(v) for v in c))
