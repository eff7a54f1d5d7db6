#!/usr/bin/env python3
"""Coefficients of the single-precision exponential's polynomial.

e^r on |r| <= R (R a little above ln2 / 2, to allow for the rounding of the
reduction) by a degree-6 polynomial: interpolation at the Chebyshev nodes of
the relative error weight, refined by a few exchange steps of the Remez
algorithm on a dense grid, in exact rationals from Python's own e^r in double
(far more accurate than the 2^-29 the fit reaches). Prints the coefficients
as C hex floats and the largest relative error on the grid.

Run: python3 tools/fit_exp32.py
"""
import math
from fractions import Fraction as Q

R = 0.35
DEG = 6
GRID = [R * math.cos(math.pi * (i + 0.5) / 4000) for i in range(4000)]


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


def relerr(c, r):
    p = 0.0
    for k in reversed(c):
        p = p * r + k
    return p / math.exp(r) - 1


# start from the Chebyshev extrema, then exchange
pts = [R * math.cos(math.pi * i / (DEG + 1)) for i in range(DEG + 2)]
for it in range(8):
    # p(x_i) + (-1)^i E e^{x_i} = e^{x_i}
    a = [[Q(x) ** j for j in range(DEG + 1)] + [Q((-1) ** i) * Q(math.exp(x))] for i, x in enumerate(pts)]
    b = [Q(math.exp(x)) for x in pts]
    sol = solve(a, b)
    c = [float(v) for v in sol[:-1]]
    errs = [(relerr(c, r), r) for r in GRID]
    # new reference: the extremum in each sign run
    errs.sort(key=lambda t: t[1])
    runs = []
    for e, r in errs:
        if runs and (runs[-1][0] > 0) == (e > 0):
            if abs(e) > abs(runs[-1][0]):
                runs[-1] = (e, r)
        else:
            runs.append((e, r))
    while len(runs) > DEG + 2:
        i = min(range(len(runs)), key=lambda j: abs(runs[j][0]))
        runs.pop(i)
    if len(runs) == DEG + 2:
        pts = [r for e, r in runs]

worst = max(abs(relerr(c, r)) for r in GRID + [R, -R])
print("max relative error %.3g (2^%.2f)" % (worst, math.log2(worst)))
print(", ".join(float.hex(v) for v in c))
