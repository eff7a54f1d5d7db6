#!/usr/bin/env python3
"""Writes the examples' test file: 1 s of 16-bit mono at 16 kHz holding tones
at 440 Hz and 5 kHz (amplitude 0.3 each) and a little seeded noise."""
import math
import random
import struct
import sys
import wave

rate, n = 16000, 16000
rng = random.Random(11)
frames = bytearray()
for i in range(n):
    v = 0.3 * math.sin(2 * math.pi * 440 * i / rate) + 0.3 * math.sin(2 * math.pi * 5000 * i / rate)
    v += rng.gauss(0, 0.003)
    frames += struct.pack("<h", max(-32768, min(32767, round(v * 32768))))
with wave.open(sys.argv[1] if len(sys.argv) > 1 else "tones.wav", "wb") as w:
    w.setnchannels(1)
    w.setsampwidth(2)
    w.setframerate(rate)
    w.writeframes(bytes(frames))
