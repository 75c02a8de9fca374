"""The sky round a galaxy: one picture of three columns and two rows, a face of a box in each cell.
What a texel shows depends on its direction alone, so that the edges of the box do not show. Cells
that lie side by side in the picture are no neighbours in the sky, and a texture's filter mixes them
where they meet: so all that glows keeps to the faces, the edges of the box run through open sky of one
tone, and no star stands right on an edge. Only between z = 1 and y = -1 do the cells meet as the faces
do; there the galaxy's arm crosses."""
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


DARK = np.array((8, 9, 17), np.float32)  # the open sky
GRID = 320  # a face's haze is worked out on so many squares, its edges included

# The galaxy's arm: an arc about the middle of the edge that may be crossed.
ARM = np.array((0.10, -0.70, 0.70)) / np.linalg.norm((0.10, -0.70, 0.70))
POLE = np.cross(ARM, (0.22, 0.60, 0.60)) / np.linalg.norm(np.cross(ARM, (0.22, 0.60, 0.60)))

# Nebulae: where, how far they reach (radians), their colour, a seed.
NEBULAE = (((-0.34, 0.22, 1.0), 0.34, (176, 52, 112), 31), ((0.42, 0.10, 1.0), 0.20, (26, 104, 146), 47),
           ((1.0, 0.16, -0.12), 0.38, (58, 76, 176), 59), ((1.0, -0.42, 0.40), 0.17, (140, 64, 40), 61),
           ((-1.0, -0.10, 0.16), 0.33, (156, 94, 36), 67), ((-1.0, 0.42, -0.42), 0.17, (110, 44, 130), 71),
           ((0.12, -0.14, -1.0), 0.40, (70, 58, 164), 73), ((0.2, 1.0, -0.1), 0.30, (20, 96, 112), 79),
           ((-0.35, -1.0, -0.35), 0.22, (150, 60, 70), 83))


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


def _angle(d, centre):
    return np.arccos(np.clip(d @ centre, -1, 1))


def _arm(d):
    """The arm's light: narrow across, long along, without detail."""
    return np.exp(-((d @ POLE) / 0.17) ** 2) * (1 - smoothstep(0.55, 1.15, _angle(d, ARM)))


def haze(d, seed):
    """The arm with its dust lanes, and the nebulae."""
    warp = np.stack([noise.fractal(d * 2.2, seed + k, 5) for k in range(3)], axis=-1)
    bent = d + 0.22 * warp
    bent = bent / np.linalg.norm(bent, axis=-1, keepdims=True)
    lanes = smoothstep(-0.05, 0.45, noise.fractal(d * 4.2 + 0.5 * warp, seed + 10, 7, 0.58))
    mottle = 0.65 + 0.6 * noise.fractal(d * 9, seed + 20, 6, 0.6)
    across = bent @ POLE
    dust = _arm(bent) * np.clip(1 - 0.85 * lanes * np.exp(-(across / 0.08) ** 2), 0, 1) * mottle
    image = dust[..., None] * np.array((72, 68, 78), np.float32)
    image += (_arm(bent) * np.exp(-(across / 0.06) ** 2) * mottle * (1 - lanes))[..., None] * np.array((60, 46, 28), np.float32)
    for centre, reach, colour, n in NEBULAE:
        near = np.exp(-(_angle(bent, np.array(centre) / np.linalg.norm(centre)) / reach) ** 2)
        if near.max() < 0.01:
            continue
        folds = noise.fractal(d * 3.4 + 0.9 * warp, n + 1, 7, 0.56)
        veil = near * smoothstep(-0.25, 0.7, folds) ** 1.3
        core = veil * near * smoothstep(0.15, 0.8, noise.ridged(d * 2.8 + 0.4 * folds[..., None], n + 2, 6))
        image += veil[..., None] * np.array(colour, np.float32) * 1.3
        image += core[..., None] * np.array((150, 140, 150), np.float32) * 0.7
    return DARK + image * _open(d)[..., None]


def _open(d):
    """0 along the edges of the box, all but the one that the arm crosses, and 1 within the faces."""
    x, y, z = (np.abs(d[..., k]) for k in range(3))
    crossed = (d[..., 1] < 0) & (d[..., 2] > 0) & (x < np.minimum(y, z))
    second = np.where(crossed, x, np.sort(np.abs(d), axis=-1)[..., 1])
    away = 1 - second / np.abs(d).max(axis=-1)
    return smoothstep(0.008, 0.22, away)


def _stars(image, cell, seed):
    """Stars are sown by direction, so that their density does not show the box, and are drawn over the
    texels within a small angle of them, so that they are round however the box stretches them."""
    rng = np.random.default_rng(seed)
    size = image.shape[0]
    count = 13000
    v = rng.normal(size=(count, 3))
    v /= np.linalg.norm(v, axis=1, keepdims=True)
    light = rng.random(count) ** 7
    warmth = rng.random(count)
    for direction, power, warm in zip(v, light, warmth):
        if _arm(direction) < 0.2 and rng.random() < 0.3:
            continue  # they stand closer in the arm
        spread = 0.0013 + 0.0013 * power
        away = np.sort(np.abs(direction))
        if 1 - away[1] / away[2] < 3.5 * spread + 0.004:
            continue
        tint = np.array((255, 244, 226)) if warm < 0.5 else np.array((214, 228, 255)) if warm < 0.9 else np.array((255, 206, 160))
        key, col, row = _texel(direction, size)
        reach = 4 + int(3 * spread * size)
        r0, c0 = max(0, int(row) - reach), max(0, int(col) - reach)
        rows, cols = np.mgrid[r0:min(size, int(row) + reach + 1), c0:min(size, int(col) + reach + 1)]
        off = _direction(key, cols + 0.5, rows + 0.5, size) - direction
        spot = (34 + 239 * power) * np.exp(-(off * off).sum(axis=-1) / (2 * spread * spread))
        image[rows, cols] += tint / 255 * (spot * (cell[rows, cols] == cell[int(row), int(col)]))[..., None]


def _texel(v, size):
    """Where on the picture a direction lies: its cell, column and row from the upper left corner."""
    axis = int(np.argmax(np.abs(v)))
    p = v / abs(v[axis])
    for (c, r), (corner, across, up) in CELLS.items():
        corner, across, up = np.array(corner), np.array(across), np.array(up)
        if across[axis] or up[axis] or corner[axis] != round(p[axis]):
            continue
        s, t = (p - corner) @ across / 2, (p - corner) @ up / 2
        u = COLUMNS[c] + s * (COLUMNS[c + 1] - COLUMNS[c])
        return (c, r), min(u * size, size - 1), min((1 - (0.5 * r + 0.5 * t)) * size, size - 1)
    raise ValueError(f"no face for {v}")


def _direction(key, cols, rows, size):
    """The other way round: the directions of places on the picture that belong to a cell."""
    c, r = key
    corner, across, up = (np.array(a) for a in CELLS[key])
    s = 2 * (cols / size - COLUMNS[c]) / (COLUMNS[c + 1] - COLUMNS[c])
    t = 2 * ((1 - rows / size) - 0.5 * r) * 2
    p = corner + s[..., None] * across + t[..., None] * up
    return p / np.linalg.norm(p, axis=-1, keepdims=True)
