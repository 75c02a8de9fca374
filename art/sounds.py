"""The sounds, synthesised: one channel, 22050 samples a second, 16 bits. Every sound begins and ends
in silence; the engine's is a loop whose end runs into its beginning."""
import wave

import numpy as np

RATE = 22050


def _time(seconds):
    return np.arange(int(seconds * RATE)) / RATE


def _sweep(frequency):
    """A sine over a course of frequencies."""
    return np.sin(2 * np.pi * np.cumsum(frequency) / RATE)


def _hiss(count, seed, low, high):
    """Noise between two frequencies; its end runs into its beginning."""
    rng = np.random.default_rng(seed)
    f = np.fft.rfftfreq(count, 1 / RATE)
    shape = np.exp(-(np.log2(np.maximum(f, 1) / np.sqrt(low * high)) / (0.5 * np.log2(high / low))) ** 2)
    shape[f > 0.45 * RATE] = 0
    n = np.fft.irfft(shape * np.exp(2j * np.pi * rng.random(len(f))), count)
    return n / np.abs(n).max()


def _shaped(signal, attack, peak):
    """Brings a sound to a level and lets it start and end softly."""
    s = signal * np.minimum(1, _time(len(signal) / RATE)[:len(signal)] / attack)
    fade = min(len(s), int(0.012 * RATE))
    s[-fade:] *= np.linspace(1, 0, fade)
    return s / np.abs(s).max() * peak


def light_laser():
    """A quick bright chirp."""
    t = _time(0.34)
    f = 320 + 2500 * np.exp(-t * 17)
    body = _sweep(f) + 0.45 * _sweep(f * 2.01) + 0.22 * _sweep(f * 3.02)
    body = np.tanh(1.5 * body) * np.exp(-t * 11)
    snap = _hiss(len(t), 3, 2500, 7000) * np.exp(-t * 60) * 0.8
    return _shaped(body + snap, 0.002, 0.72)


def needle_laser():
    """Thinner and higher, with a flutter."""
    t = _time(0.26)
    f = 700 + 3100 * np.exp(-t * 24)
    body = _sweep(f) * (0.75 + 0.25 * np.sin(2 * np.pi * 62 * t)) + 0.3 * _sweep(f * 1.5)
    return _shaped(body * np.exp(-t * 15) + _hiss(len(t), 5, 3000, 8000) * np.exp(-t * 70) * 0.5, 0.002, 0.62)


def heavy_laser():
    """A low thud under a torn, falling tone."""
    t = _time(0.62)
    f = 90 + 900 * np.exp(-t * 9)
    tone = np.tanh(2.6 * (_sweep(f) + 0.5 * _sweep(f * 1.51))) * np.exp(-t * 6.5)
    thud = _sweep(46 + 90 * np.exp(-t * 22)) * np.exp(-t * 8) * 1.2
    tear = _hiss(len(t), 9, 500, 3500) * np.exp(-t * 14) * 0.9
    return _shaped(tone + thud + tear, 0.003, 0.85)


def engine(base=55, seconds=2.0, seed=11):
    """A turbine: partials that fit the loop a whole number of times, over a steady rush of air."""
    t = _time(seconds)
    rng = np.random.default_rng(seed)
    tone = np.zeros_like(t)
    for k in range(1, 19):
        turns = round(base * k * seconds) + (1 if k % 3 == 0 else 0)
        slow = 1 + 0.25 * np.sin(2 * np.pi * rng.integers(1, 4) * t / seconds + rng.random() * 6.28)
        tone += slow * np.sin(2 * np.pi * turns * t / seconds + rng.random() * 6.28) / k ** 0.95
    whine = 0.05 * np.sin(2 * np.pi * round(1460 * seconds) * t / seconds)
    rush = _hiss(len(t), seed + 1, 60, 900)
    loop = tone / np.abs(tone).max() * 0.62 + whine + 0.55 * rush
    loop -= loop.mean()
    rising = np.nonzero((loop[:-1] <= 0) & (loop[1:] > 0))[0]
    loop = np.roll(loop, -rising[np.argmin(np.abs(loop[rising]))])
    return loop / np.abs(loop).max() * 0.7


def _rumble(t, seed, start, end, decay):
    """Noise whose band sinks from `start` to `end`: the roar of something that burns out."""
    lows, highs = _hiss(len(t), seed, end * 0.3, end * 3), _hiss(len(t), seed + 1, start * 0.4, start * 2.5)
    sink = np.exp(-t * decay)
    return highs * sink + lows * (1 - 0.55 * sink)


def explosion():
    """A ship: a crack, a deep thump, a long burning roar with bursts in it, debris raining out."""
    t = _time(2.6)
    rng = np.random.default_rng(71)
    crack = _hiss(len(t), 73, 900, 7000) * np.exp(-t * 26) * 1.3
    thump = _sweep(28 + 95 * np.exp(-t * 9)) * np.exp(-t * 4.2) * 1.2
    roar = np.tanh(2.2 * _rumble(t, 79, 900, 110, 2.6)) * np.exp(-t * 1.5) * (1 - np.exp(-t * 90)) * 1.7
    bursts = np.zeros_like(t)
    for at, power in zip(rng.uniform(0.12, 1.3, 7), rng.uniform(0.25, 0.6, 7)):
        since = np.maximum(t - at, 0)
        bursts += power * np.exp(-since * 13) * (1 - np.exp(-since * 300)) * _sweep(55 + 130 * np.exp(-since * 20))
    debris = _hiss(len(t), 83, 2200, 6500) * np.exp(-t * 2.4) * 0.22 * (rng.random(len(t)) < 0.05).astype(float)
    return _shaped(np.tanh(1.3 * (crack + thump + roar + bursts)) + debris, 0.002, 0.92)


def torpedo_blast():
    """Sharper and higher than a ship's end: a discharge that collapses, ringing, into a short roar."""
    t = _time(1.7)
    zap = np.tanh(3 * _sweep(140 + 2600 * np.exp(-t * 13))) * np.exp(-t * 9)
    ring = sum(_sweep(f * (1 + 0.3 * np.exp(-t * 6))) * np.exp(-t * d) for f, d in ((311, 4.5), (467, 6), (703, 8))) * 0.3
    thump = _sweep(38 + 120 * np.exp(-t * 14)) * np.exp(-t * 4.5) * 1.3
    roar = _rumble(t, 91, 1700, 220, 4) * np.exp(-t * 3) * 1.1
    return _shaped(np.tanh(1.2 * (zap + ring + thump + 1.5 * roar)), 0.002, 0.88)


def torpedo_launch():
    """A clank of the tube, then the motor: a rush that climbs and draws away. Saturated, so that the
    motor holds its own against the clank."""
    t = _time(1.25)
    clank = sum(np.sin(2 * np.pi * f * t) * np.exp(-t * d) for f, d in ((183, 30), (412, 38), (977, 55))) * 0.5
    lit = 1 - np.exp(-np.maximum(t - 0.05, 0) * 28)
    rush = _hiss(len(t), 97, 500, 4200) * lit * np.exp(-t * 2.6) * 1.3
    whine = _sweep(240 + 620 * (1 - np.exp(-t * 3.2))) * lit * np.exp(-t * 3.4) * 0.4
    push = _sweep(52 + 40 * np.exp(-t * 12)) * np.exp(-t * 5)
    return _shaped(np.tanh(1.7 * (clank + rush + whine + push)) * np.exp(-np.maximum(t - 0.9, 0) * 9), 0.002, 0.8)


def click():
    """An empty tube: a dry double tick, with a little grit in it."""
    t = _time(0.12)
    out = np.zeros_like(t)
    grit = _hiss(len(t), 101, 1800, 6000)
    for at, power, f in ((0.0, 1.0, 1900), (0.045, 0.7, 1450)):
        since = np.maximum(t - at, 0)
        ring = np.sin(2 * np.pi * f * since) + 0.6 * np.sin(2 * np.pi * 2.7 * f * since)
        knock = np.sin(2 * np.pi * 0.16 * f * since) * np.exp(-since * 40)
        out += power * (t >= at) * np.exp(-since * 170) * (ring + 0.8 * knock + 0.5 * grit) * (1 - np.exp(-since * 4000))
    return _shaped(out, 0.0008, 0.6)


# By file, as seen from data/. The three in data/ itself are known to the game by name.
SOUNDS = {"sounds/laser_light": light_laser, "sounds/laser_needle": needle_laser, "sounds/laser_heavy": heavy_laser,
          "sounds/engine_fighter": engine, "sounds/engine_heavy": lambda: engine(33, 2.4, 29),
          "sounds/torpedo_launch": torpedo_launch,
          "explosion": explosion, "torpedo_explode": torpedo_blast, "click": click}


def write(path, samples):
    with wave.open(str(path), "wb") as f:
        f.setnchannels(1)
        f.setsampwidth(2)
        f.setframerate(RATE)
        f.writeframes(np.clip(samples * 32767, -32768, 32767).astype("<i2").tobytes())
