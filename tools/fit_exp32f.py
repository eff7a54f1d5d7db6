#!/usr/bin/env python3
"""Coefficients of the single-precision exponential's correction polynomial.

e^r = 1 + r + r^2 (1/2 + r P(r)) on |r| <= R, with P of degree 4 fitted by
the Remez exchange (relative error of e^r, the r^2 coefficient held at 1/2)
in exact rationals from Python's e^r in double, then rounded to single
precision. Prints the coefficients as C hex floats and the largest relative
error of e^r on the grid with the rounded coefficients.

Run: python3 tools/fit_exp32f.py
"""
import math
import struct
from fractions import Fraction as Q

R = 0.35
POWERS = [3, 4, 5, 6, 7]
GRID = [R * math.cos(math.pi * (i + 0.5) / 4000) for i in range(4000)]


def f32(v):
    return struct.unpack("f", struct.pack("f", v))[0]


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


def approx(c, r):
    return 1 + r + r * r * 0.5 + sum(k * r ** p for k, p in zip(c, POWERS))


def relerr(c, r):
    return approx(c, r) / math.exp(r) - 1


n = len(POWERS)
pts = [R * math.cos(math.pi * i / n) for i in range(n + 1)]
for it in range(10):
    # sum c_j x^p_j + (-1)^i E e^x = e^x - 1 - x - x^2/2
    a = [[Q(x) ** p for p in POWERS] + [Q((-1) ** i) * Q(math.exp(x))] for i, x in enumerate(pts)]
    b = [Q(math.exp(x)) - 1 - Q(x) - Q(x) ** 2 / 2 for x in pts]
    c = [float(v) for v in solve(a, b)[:-1]]
    errs = sorted(((relerr(c, r), r) for r in GRID), key=lambda t: t[1])
    runs = []
    for e, r in errs:
        if runs and (runs[-1][0] > 0) == (e > 0):
            if abs(e) > abs(runs[-1][0]):
                runs[-1] = (e, r)
        else:
            runs.append((e, r))
    while len(runs) > n + 1:
        runs.pop(min(range(len(runs)), key=lambda j: abs(runs[j][0])))
    if len(runs) == n + 1:
        pts = [r for e, r in runs]

c = [f32(v) for v in c]
worst = max(abs(relerr(c, r)) for r in GRID + [R, -R])
print("max relative error with single-precision coefficients %.3g (2^%.2f)" % (worst, math.log2(worst)))
print(", ".join(float.hex(v) for v in c))
