#!/usr/bin/env python3
"""Runs each example program on the committed test file (tones at 440 Hz and
5 kHz) and checks what it made against the property it is for.

usage: check_examples.py --bin DIR --wav tones.wav
"""
import argparse
import math
import os
import subprocess
import sys
import tempfile
import wave


def read(path):
    with wave.open(path) as w:
        assert w.getsampwidth() == 2, path
        ch, raw = w.getnchannels(), w.readframes(w.getnframes())
        s = [int.from_bytes(raw[i:i + 2], "little", signed=True) / 32768 for i in range(0, len(raw), 2)]
        return s[::ch], w.getframerate()


def level_db(x, f, rate):
    """Amplitude (dB) of the tone at f, by a Goertzel sum over x."""
    w = 2 * math.pi * f / rate
    c = 2 * math.cos(w)
    s1 = s2 = 0.0
    for v in x:
        s1, s2 = v + c * s1 - s2, s1
    power = s1 * s1 + s2 * s2 - c * s1 * s2
    return 10 * math.log10(max(power, 1e-30)) - 20 * math.log10(len(x) / 2)


failures = []


def expect(cond, what):
    print(("ok   " if cond else "FAIL ") + what)
    if not cond:
        failures.append(what)


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--bin", required=True)
    ap.add_argument("--wav", required=True)
    a = ap.parse_args()
    x, rate = read(a.wav)
    steady = slice(len(x) // 2, len(x) // 2 + 8000)  # past every filter's start-up
    base = {f: level_db(x[steady], f, rate) for f in (440, 5000)}
    tmp = tempfile.mkdtemp()

    def run(*args):
        out = subprocess.run([os.path.join(a.bin, args[0])] + [str(v) for v in args[1:]], capture_output=True,
                             text=True)
        if out.returncode != 0:
            failures.append(f"{args[0]} exited with {out.returncode}: {out.stderr.strip()}")
        return out.stdout

    for prog, floor in (("lowpass_wav", 60), ("fixed_point", 50)):
        out = os.path.join(tmp, prog + ".wav")
        run(prog, a.wav, out, 2000)
        y, r = read(out)
        d440 = level_db(y[steady], 440, r) - base[440]
        d5k = level_db(y[steady], 5000, r) - base[5000]
        expect(len(y) == len(x), f"{prog}: as many samples out as in ({len(y)})")
        expect(abs(d440) < 0.2, f"{prog}: 440 Hz passes ({d440:+.2f} dB)")
        expect(d5k < -floor, f"{prog}: 5 kHz stopped by more than {floor} dB ({d5k:+.1f} dB)")

    text = run("spectrum_wav", a.wav, 2)
    peaks = [float(l.split(",")[1].split()[0]) for l in text.splitlines() if l.startswith("peak")]
    width = rate / 4096
    expect(len(peaks) == 2 and abs(peaks[0] - 440) <= width and abs(peaks[1] - 5000) <= width
           or len(peaks) == 2 and abs(peaks[1] - 440) <= width and abs(peaks[0] - 5000) <= width,
           f"spectrum_wav: peaks at 440 Hz and 5 kHz within a bin ({peaks})")

    out = os.path.join(tmp, "eq.wav")
    run("biquad_eq", a.wav, out, 0, 0, -12)
    y, r = read(out)
    d440 = level_db(y[steady], 440, r) - base[440]
    d5k = level_db(y[steady], 5000, r) - base[5000]
    expect(abs(d440) < 1.0, f"biquad_eq: 440 Hz about unchanged ({d440:+.2f} dB)")
    expect(abs(d5k + 12) < 2.0, f"biquad_eq: 5 kHz cut by about 12 dB ({d5k:+.2f} dB)")

    out = os.path.join(tmp, "conv.wav")
    run("convolve_ir", a.wav, out)
    y, r = read(out)
    expect(len(y) == len(x) + rate // 2 - 1, f"convolve_ir: input + impulse response - 1 samples ({len(y)})")
    ex = sum(v * v for v in x)
    ey = sum(v * v for v in y)
    expect(abs(10 * math.log10(ey / ex)) < 3, f"convolve_ir: about as loud as the input ({10 * math.log10(ey / ex):+.1f} dB)")

    if os.path.exists(os.path.join(a.bin, "resample_wav")):
        out = os.path.join(tmp, "resampled.wav")
        run("resample_wav", a.wav, out, 48000)
        y, r = read(out)
        expect(r == 48000, f"resample_wav: 48 kHz ({r})")
        expect(abs(len(y) - 3 * len(x)) <= 64, f"resample_wav: three times as many samples, within 64 ({len(y)})")
        mid = slice(len(y) // 2, len(y) // 2 + 24000)
        d440 = level_db(y[mid], 440, r) - base[440]
        expect(abs(d440) < 0.2, f"resample_wav: 440 Hz kept ({d440:+.2f} dB)")

    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
