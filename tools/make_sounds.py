#!/usr/bin/env python3
"""make_sounds.py [FOLDER]: makes the four sound effects, 44.1 kHz, 16 bit, mono, into resources/sounds."""
import math
import pathlib
import random
import struct
import sys
import wave

RATE = 44100


def envelope(t, length, attack, decay):
    """Rises softly, falls off exponentially, and reaches silence at the end, so that nothing clicks."""
    rise = min(1.0, t / attack)
    tail = min(1.0, (length - t) / 0.02)
    return math.sin(rise * math.pi / 2) * math.exp(-t / decay) * max(0.0, tail)


def render(length, voice):
    return [voice(i / RATE) for i in range(int(length * RATE))]


def bell(t, pitch):
    """A struck tone: the overtones are weaker and die sooner."""
    partials = ((1.0, 1.0, 1.0), (2.0, 0.35, 0.55), (3.01, 0.12, 0.35))
    return sum(gain * math.exp(-t * 6 / life) * math.sin(2 * math.pi * pitch * ratio * t)
               for ratio, gain, life in partials)


def move_item():
    """Two notes upwards: something has arrived."""
    length = 0.42

    def voice(t):
        first = bell(t, 659.26) * envelope(t, length, 0.004, 0.16)
        later = t - 0.09
        second = bell(later, 987.77) * envelope(later, length - 0.09, 0.004, 0.18) if later > 0 else 0.0
        return 0.6 * first + 0.7 * second

    return render(length, voice)


def delete_item():
    """A low tone that falls away."""
    length = 0.36

    def voice(t):
        # The phase of a pitch that glides from 330 Hz down towards 110 Hz.
        phase = 2 * math.pi * (110 * t + 220 * 0.09 * (1 - math.exp(-t / 0.09)))
        return (math.sin(phase) + 0.25 * math.sin(2 * phase)) * envelope(t, length, 0.006, 0.13)

    return render(length, voice)


def remove_tags():
    """A short soft pluck."""
    length = 0.2

    def voice(t):
        return bell(t, 523.25) * envelope(t, length, 0.003, 0.06)

    return render(length, voice)


def snap():
    """Two muffled clicks, as of a shutter."""
    length = 0.24
    noise = random.Random(1)
    smooth = 0.0
    samples = []
    for i in range(int(length * RATE)):
        t = i / RATE
        smooth += 0.28 * (noise.uniform(-1, 1) - smooth)
        later = t - 0.085
        value = smooth * envelope(t, length, 0.001, 0.012)
        if later > 0:
            value += 0.8 * smooth * envelope(later, length - 0.085, 0.001, 0.02)
        samples.append(value)
    return samples


def write(path, samples, peak=0.5):
    loudest = max(abs(s) for s in samples)
    frames = b"".join(struct.pack("<h", round(s / loudest * peak * 32767)) for s in samples)
    with wave.open(str(path), "wb") as out:
        out.setnchannels(1)
        out.setsampwidth(2)
        out.setframerate(RATE)
        out.writeframes(frames)


folder = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else
                      pathlib.Path(__file__).resolve().parent.parent / "resources/sounds")
for name, make in (("MoveItem", move_item), ("DeleteItem", delete_item), ("RemoveTags", remove_tags),
                   ("Snap", snap)):
    write(folder / f"{name}.wav", make())
