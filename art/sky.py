"""The sky round a galaxy: one picture of three columns and two rows, a face of a box in each cell.
What a texel shows depends on its direction alone, so that the edges of the box do not show."""
import numpy as np
from PIL import Image

import noise
from noise import smoothstep

# For each cell (column, row from the bottom): the place on the box of its lower left corner, and
# where its columns and its rows lead, in halves of the box.
CELLS = {
    (1, 1): ((-1, -1, -1), (0, 1, 0), (1, 0, 0)),   # z = -1
    (2, 0): ((-1, -1, 1), (0, 1, 0), (1, 0, 0)),    # z = 1
    (2, 1): ((1, -1, -1), (0, 1, 0), (0, 0, 1)),    # x = 1
    (0, 1): ((-1, -1, -1), (0, 1, 0), (0, 0, 1)),   # x = -1
    (0, 0): ((-1, 1, -1), (0, 0, 1), (1, 0, 0)),    # y = 1
    (1, 0): ((-1, -1, -1), (0, 0, 1), (1, 0, 0)),   # y = -1
}
COLUMNS = (0.0, 0.33, 0.66, 1.0)  # where the cells begin; the last one is a little wider


POLE = np.array((0.35, 0.82, -0.45)) / np.linalg.norm((0.35, 0.82, -0.45))  # of the galactic band
GRID = 320  # a face's haze is worked out on so many squares, its edges included


def sky(size=2048, seed=3):
    v, u = np.mgrid[0:size, 0:size].astype(np.float32)
    u, v = (u + 0.5) / size, 1 - (v + 0.5) / size
    column = (u >= COLUMNS[1]).astype(int) + (u >= COLUMNS[2])
    row = (v >= 0.5).astype(int)
    image = np.zeros((size, size, 3), np.float32)
    for (c, r), (corner, across, up) in CELLS.items():
        t, s = np.mgrid[0:GRID + 1, 0:GRID + 1].astype(np.float32) * (2 / GRID)
        d = np.array(corner, np.float32) + s[..., None] * np.array(across) + t[..., None] * np.array(up)
        faint = haze((d / np.linalg.norm(d, axis=-1, keepdims=True)).astype(np.float32), seed)
        here = (column == c) & (row == r)
        image[here] = _between(faint, (v[here] - 0.5 * r) * 2 * GRID,
                               (u[here] - COLUMNS[c]) / (COLUMNS[c + 1] - COLUMNS[c]) * GRID)
    _stars(image, column + 3 * row, seed)
    return Image.fromarray(np.clip(image, 0, 255).astype(np.uint8), "RGB")


def _between(grid, rows, cols):
    """Values between the points of a grid."""
    r, c = np.clip(rows.astype(int), 0, GRID - 1), np.clip(cols.astype(int), 0, GRID - 1)
    fr, fc = (rows - r)[:, None], (cols - c)[:, None]
    return (grid[r, c] * (1 - fc) + grid[r, c + 1] * fc) * (1 - fr) + \
        (grid[r + 1, c] * (1 - fc) + grid[r + 1, c + 1] * fc) * fr


def _band(d):
    return np.exp(-((d @ POLE) / 0.20) ** 2)


def haze(d, seed):
    """The band with its dust lanes, and a few nebulae."""
    warp = noise.fractal(d * 2.2, seed, 5)
    latitude = d @ POLE + 0.10 * warp
    lanes = smoothstep(-0.05, 0.45, noise.fractal(d * 4.2 + 0.5 * warp[..., None], seed + 10, 7, 0.58))
    dust = np.clip(np.exp(-(latitude / 0.20) ** 2) * (1 - 0.85 * lanes * np.exp(-(latitude / 0.09) ** 2)), 0, 1)
    mottle = 0.65 + 0.6 * noise.fractal(d * 9, seed + 20, 6, 0.6)
    image = (dust * mottle)[..., None] * np.array((46, 44, 52), np.float32)
    image += (np.exp(-(latitude / 0.07) ** 2) * mottle * (1 - lanes))[..., None] * np.array((26, 20, 12), np.float32)
    for centre, reach, colour, n in (((-0.45, 0.10, 0.88), 0.50, (88, 26, 58), 31), ((0.55, -0.05, 0.83), 0.46, (16, 58, 84), 47),
                                     ((0.8, 0.3, -0.5), 0.55, (28, 40, 92), 59), ((-0.7, -0.4, -0.6), 0.5, (84, 50, 20), 67)):
        c = np.array(centre) / np.linalg.norm(centre)
        near = np.exp(-(np.maximum(1 - d @ c, 0) / (reach * reach)) ** 1.3)
        folds = noise.fractal(d * 3.0 + 0.9 * noise.fractal(d * 2.1, n, 4)[..., None], n + 1, 7, 0.56)
        veil = near * smoothstep(-0.25, 0.7, folds) ** 1.4
        core = near * smoothstep(0.15, 0.8, noise.ridged(d * 2.6 + 0.4 * folds[..., None], n + 2, 6)) * veil
        image += veil[..., None] * np.array(colour, np.float32) * 1.25
        image += core[..., None] * np.array((150, 140, 150), np.float32) * 0.5
    return image + np.array((3, 4, 9), np.float32)


def _stars(image, cell, seed):
    """Stars are sown by direction, so that their density does not show the box, and are drawn as
    round spots in the texels around it."""
    rng = np.random.default_rng(seed)
    size = image.shape[0]
    count = 9000
    v = rng.normal(size=(count, 3))
    v /= np.linalg.norm(v, axis=1, keepdims=True)
    light = rng.random(count) ** 7
    warmth = rng.random(count)
    for direction, power, warm in zip(v, light, warmth):
        if _band(direction) < 0.3 and rng.random() < 0.45:
            continue  # most stars stand in the band
        col, row = _texel(direction, size)
        tint = np.array((255, 244, 226)) if warm < 0.5 else np.array((214, 228, 255)) if warm < 0.9 else np.array((255, 206, 160))
        spread = 0.55 + 0.75 * power
        reach = 2 + int(4 * power)
        r0, c0 = int(row), int(col)
        for r in range(max(0, r0 - reach), min(size, r0 + reach + 1)):
            for c in range(max(0, c0 - reach), min(size, c0 + reach + 1)):
                if cell[r, c] == cell[r0, c0]:
                    e = ((r + 0.5 - row) ** 2 + (c + 0.5 - col) ** 2) / (2 * spread * spread)
                    image[r, c] += tint / 255 * (42 + 231 * power) * np.exp(-e)


def _texel(v, size):
    """Where on the picture a direction lies: column and row from the upper left corner."""
    axis = int(np.argmax(np.abs(v)))
    p = v / abs(v[axis])
    for (c, r), (corner, across, up) in CELLS.items():
        corner, across, up = np.array(corner), np.array(across), np.array(up)
        if across[axis] or up[axis] or corner[axis] != round(p[axis]):
            continue
        s, t = (p - corner) @ across / 2, (p - corner) @ up / 2
        u = COLUMNS[c] + s * (COLUMNS[c + 1] - COLUMNS[c])
        return min(u * size, size - 1), min((1 - (0.5 * r + 0.5 * t)) * size, size - 1)
    raise ValueError(f"no face for {v}")
