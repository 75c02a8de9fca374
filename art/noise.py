"""Noise in space: the same everywhere it is asked for, without a seam on any surface through it."""
import numpy as np


def _table(seed):
    rng = np.random.default_rng(seed)
    g = rng.normal(size=(256, 3))
    return rng.permutation(256), (g / np.linalg.norm(g, axis=1, keepdims=True)).astype(np.float32)


def gradient(points, seed, period=None):
    """Gradient noise of about -1 to 1 at points of shape (..., 3). With `period` (three whole
    numbers) it repeats after so many cells."""
    perm, grads = _table(seed)
    p = np.asarray(points, np.float32)
    cell = np.floor(p).astype(np.int64)
    f = p - cell
    w = f * f * f * (f * (f * 6 - 15) + 10)
    total = np.zeros(p.shape[:-1], np.float32)
    for corner in range(8):
        d = np.array([corner & 1, corner >> 1 & 1, corner >> 2 & 1])
        c = cell + d
        if period is not None:
            c = c % np.array(period)
        h = perm[(perm[(perm[c[..., 0] & 255] + c[..., 1]) & 255] + c[..., 2]) & 255]
        dot = np.einsum("...i,...i->...", grads[h], f - d.astype(np.float32))
        weight = np.prod(np.where(d, w, 1 - w), axis=-1)
        total += weight * dot
    return total * 1.6


def fractal(points, seed, octaves=6, gain=0.5, lacunarity=2.03):
    p = np.asarray(points, np.float32)
    total, amount, size = 0, 1.0, 0
    for o in range(octaves):
        total = total + amount * gradient(p, seed + o * 17)
        size += amount
        amount *= gain
        p = p * lacunarity + 19.7
    return total / size


def ridged(points, seed, octaves=6, gain=0.52):
    """Mountain chains: sharp crests between soft valleys, 0 to 1."""
    p = np.asarray(points, np.float32)
    total, amount, size, keep = 0, 1.0, 0, 1.0
    for o in range(octaves):
        n = (1 - np.abs(gradient(p, seed + o * 31))) ** 2
        total = total + amount * n * keep
        keep = np.clip(n * 1.6, 0, 1)
        size += amount
        amount *= gain
        p = p * 2.07 + 7.3
    return total / size


def tiled(x, y, seed, cells, octaves=5, gain=0.5):
    """Noise on a flat picture that repeats in both directions; x and y run from 0 to 1."""
    total, amount, size = 0, 1.0, 0
    cx, cy = cells
    for o in range(octaves):
        p = np.stack([x * cx, y * cy, np.full_like(x, 0.37 + o)], axis=-1)
        total = total + amount * gradient(p, seed + o * 13, (cx, cy, 64))
        size += amount
        amount *= gain
        cx, cy = cx * 2, cy * 2
    return total / size


def smoothstep(low, high, v):
    t = np.clip((v - low) / (high - low), 0, 1)
    return t * t * (3 - 2 * t)
