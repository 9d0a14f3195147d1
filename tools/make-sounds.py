#!/usr/bin/env python3
"""make-sounds.py FOLDER

Writes the program's three sounds, each a sum of decaying tones, as mono waves of 16 bits
at 44.1 kHz. The same files come out on every run.

  Over.wav      the mouse is over a button: a faint drop of 45 ms
  click.wav     a button is pressed: a short wooden knock of 70 ms
  Complete.wav  a conversion is done: three rising notes of a bell, 1.4 s
"""
import array
import math
import os
import sys
import wave

RATE = 44100


def tone(samples, start, pitch, loudness, half_life, attack=0.002):
    """Adds a tone from start on (seconds); its loudness (0 to 1) halves every half_life."""
    first = round(start * RATE)
    for i in range(first, len(samples)):
        t = (i - first) / RATE
        swell = min(1.0, t / attack)
        samples[i] += loudness * swell * 0.5 ** (t / half_life) * math.sin(2 * math.pi * pitch * t)


def bell(samples, start, pitch, loudness):
    """A struck note: its partials die away the sooner the higher they are."""
    for ratio, share, half_life in ((1, 1.0, 0.16), (2, 0.45, 0.09), (3.01, 0.18, 0.05), (5.4, 0.06, 0.02)):
        tone(samples, start, pitch * ratio, loudness * share, half_life, attack=0.004)


def over():
    samples = [0.0] * round(0.045 * RATE)
    tone(samples, 0, 1320, 0.070, 0.007)
    tone(samples, 0, 2640, 0.018, 0.004)
    return samples


def click():
    samples = [0.0] * round(0.070 * RATE)
    tone(samples, 0, 420, 0.20, 0.009, attack=0.001)
    tone(samples, 0, 1130, 0.11, 0.005, attack=0.001)
    tone(samples, 0, 2790, 0.05, 0.002, attack=0.0005)
    return samples


def complete():
    samples = [0.0] * round(1.4 * RATE)
    for start, pitch in ((0.0, 523.25), (0.14, 659.26), (0.28, 783.99)):  # C, E, G
        bell(samples, start, pitch, 0.17)
    return samples


def write(path, samples):
    fade = round(0.01 * RATE)  # the last hundredth of a second ends in silence
    for i in range(fade):
        samples[-1 - i] *= i / fade
    units = array.array("h", (round(32767 * s) for s in samples))
    if sys.byteorder == "big":
        units.byteswap()
    with wave.open(path, "wb") as out:
        out.setnchannels(1)
        out.setsampwidth(2)
        out.setframerate(RATE)
        out.writeframes(units.tobytes())


def main():
    folder = sys.argv[1]
    os.makedirs(folder, exist_ok=True)
    for name, make in (("Over", over), ("click", click), ("Complete", complete)):
        write(os.path.join(folder, name + ".wav"), make())


main()
