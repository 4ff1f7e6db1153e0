#!/usr/bin/env python3
"""Makes the six sounds of the program, 16-bit mono at 22.05 kHz, beside this file. The same files come out every time."""

import math
import pathlib
import struct
import wave

RATE = 22050
HERE = pathlib.Path(__file__).parent


def silence(seconds):
    return [0.0] * int(RATE * seconds)


def tone(track, start, pitch, seconds, loud, partials=((1, 1.0),), decay=4.0, attack=0.006):
    """Adds a struck tone: each partial is (multiple of the pitch, strength), higher ones fade sooner."""
    first = int(start * RATE)
    for i in range(min(int(seconds * RATE), len(track) - first)):
        t = i / RATE
        rise = min(1.0, t / attack)
        fall = min(1.0, (seconds - t) / 0.02)
        for multiple, strength in partials:
            fade = math.exp(-decay * t * math.sqrt(multiple))
            track[first + i] += loud * strength * rise * fall * fade * math.sin(2 * math.pi * pitch * multiple * t)


def beep():
    track = silence(0.28)
    tone(track, 0, 880, 0.26, 0.5, ((1, 1.0), (2, 0.2)), decay=7)
    return track


def woosh():
    track = silence(0.7)
    seed, low, band = 12345, 0.0, 0.0
    for i in range(len(track)):
        seed = (seed * 1103515245 + 12345) % 2**31
        t = i / len(track)
        sweep = math.sin(math.pi * t)
        cut = 2 * math.sin(math.pi * (250 + 2600 * sweep) / RATE)
        band += cut * (seed / 2**30 - 1 - low - 0.9 * band)
        low += cut * band
        track[i] = 0.6 * sweep ** 2 * band
    return track


def doorbell():
    track = silence(1.3)
    soft = ((1, 1.0), (2, 0.35), (3, 0.12))
    tone(track, 0.00, 659.26, 0.7, 0.42, soft, decay=3.5)
    tone(track, 0.42, 523.25, 0.88, 0.42, soft, decay=3.5)
    return track


def message():
    track = silence(0.6)
    for step, pitch in enumerate((587.33, 783.99, 1174.66)):
        tone(track, step * 0.09, pitch, 0.4, 0.3, ((1, 1.0), (2, 0.15)), decay=9)
    return track


def clang():
    track = silence(1.2)
    tone(track, 0, 392, 1.2, 0.26, ((1, 1.0), (1.49, 0.7), (2.01, 0.6), (2.74, 0.5), (3.76, 0.3), (5.1, 0.2)), decay=3.2,
         attack=0.002)
    return track


def wish():
    track = silence(1.3)
    for step, pitch in enumerate((523.25, 659.26, 783.99, 1046.5, 1318.51)):
        tone(track, step * 0.11, pitch, 0.8, 0.24, ((1, 1.0), (2, 0.2), (3, 0.06)), decay=4.5)
    return track


def write(name, track):
    top = max(1.0, max(abs(value) for value in track) / 0.9)
    with wave.open(str(HERE / name), "wb") as out:
        out.setnchannels(1)
        out.setsampwidth(2)
        out.setframerate(RATE)
        out.writeframes(b"".join(struct.pack("<h", round(32767 * value / top)) for value in track))


if __name__ == "__main__":
    for file, make in (("beep.wav", beep), ("woosh.wav", woosh), ("doorbell.wav", doorbell), ("message.wav", message),
                       ("clang.wav", clang), ("WISH.wav", wish)):
        write(file, make())
