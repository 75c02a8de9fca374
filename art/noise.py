"""Noise in space: the same everywhere it is asked for, without a seam on any surface through it."""
import numpy as np


CHUNK = 8192  # points worked on at a time: what they need fits into the processor's cache


def _table(seed):
    rng = np.random.default_rng(seed)
    g = rng.normal(size=(256, 3))
    g = (g / np.linalg.norm(g, axis=1, keepdims=True)).astype(np.float32)
    return rng.permutation(256), tuple(np.ascontiguousarray(g[:, k]) for k in range(3))


def gradient(points, seed, period=None):
    """Gradient noise of about -1 to 1 at points of shape (..., 3). With `period` (three whole
    numbers) it repeats after so many cells."""
    table = _table(seed)
    p = np.asarray(points, np.float32)
    flat = p.reshape(-1, 3)
    out = np.empty(len(flat), np.float32)
    for n in range(0, len(flat), CHUNK):
        out[n:n + CHUNK] = _gradient(flat[n:n + CHUNK].T, table, period)
    return out.reshape(p.shape[:-1])


def _gradient(points, table, period):
    perm, (gx, gy, gz) = table
    place, ends = [], []  # along each axis: how far into the cell, and the numbers of its two ends
    for axis, v in enumerate(points):
        cell = np.floor(v)
        place.append(v - cell)
        low = cell.astype(np.int64)
        wrap = 256 if period is None else period[axis]
        ends.append((low % wrap & 255, (low + 1) % wrap & 255))
    (fx, fy, fz), (xs, ys, zs) = place, ends
    wx, wy, wz = (f * f * f * (f * (f * 6 - 15) + 10) for f in place)
    planes = []
    for i in (0, 1):
        column, lines = perm[xs[i]], []
        for j in (0, 1):
            row, corners = perm[column + ys[j] & 255], []
            for k in (0, 1):
                h = perm[row + zs[k] & 255]
                corners.append(gx[h] * (fx - i) + gy[h] * (fy - j) + gz[h] * (fz - k))
            lines.append(corners[0] + wz * (corners[1] - corners[0]))
        planes.append(lines[0] + wy * (lines[1] - lines[0]))
    return (planes[0] + wx * (planes[1] - planes[0])) * 1.6


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
