"""The skies, one round each galaxy: one picture of three columns and two rows, a face of a box in each cell.
What a texel shows depends on its direction alone, so that the edges of the box do not show. Cells
that lie side by side in the picture are no neighbours in the sky, and a texture's filter mixes them
where they meet: so all that glows keeps to the faces, the edges of the box run through open sky of one
tone, and no star stands right on an edge. Only between z = 1 and y = -1 do the cells meet as the faces
do; there the galaxy's arm crosses."""
from dataclasses import dataclass

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


GRID = 320  # a face's haze is worked out on so many squares, its edges included

# The arm of each galaxy is an arc about the middle of the edge that may be crossed.
ARM = np.array((0.10, -0.70, 0.70)) / np.linalg.norm((0.10, -0.70, 0.70))
POLE = np.cross(ARM, (0.22, 0.60, 0.60)) / np.linalg.norm(np.cross(ARM, (0.22, 0.60, 0.60)))


@dataclass
class Spiral:
    """A galaxy seen from outside: where, its radius (radians), how flat it lies, how far it is turned."""
    centre: tuple
    reach: float
    tilt: float
    turn: float
    core: tuple = (255, 226, 178)
    arms: tuple = (126, 152, 232)


@dataclass
class Sky:
    seed: int
    dark: tuple       # the open sky
    arm: float        # how bright the arm of the own galaxy is
    stars: int
    grains: int       # stars too faint to be told apart
    giants: int       # stars with a halo
    nebulae: tuple    # where, how far they reach (radians), their colour, a seed
    clusters: tuple = ()   # where, how far they reach, how many stars
    spirals: tuple = ()


SKIES = {
    "rose_band": Sky(3, (8, 9, 17), 1.0, 12000, 26000, 9,
                     (((-0.34, 0.22, 1.0), 0.34, (176, 52, 112), 31), ((0.42, 0.10, 1.0), 0.20, (26, 104, 146), 47),
                      ((1.0, 0.16, -0.12), 0.38, (58, 76, 176), 59), ((1.0, -0.42, 0.40), 0.17, (140, 64, 40), 61),
                      ((-1.0, -0.10, 0.16), 0.33, (156, 94, 36), 67), ((-1.0, 0.42, -0.42), 0.17, (110, 44, 130), 71),
                      ((0.12, -0.14, -1.0), 0.40, (70, 58, 164), 73), ((0.2, 1.0, -0.1), 0.30, (20, 96, 112), 79),
                      ((-0.35, -1.0, -0.35), 0.22, (150, 60, 70), 83))),
    # Few stars and embers: a place where something may lie in wait.
    "ember_veil": Sky(101, (10, 8, 11), 0.35, 5200, 9000, 6,
                      (((0.10, 0.16, 1.0), 0.46, (168, 62, 22), 103), ((-0.46, -0.30, 1.0), 0.22, (120, 28, 30), 107),
                       ((0.44, -0.38, 1.0), 0.16, (150, 116, 44), 109), ((1.0, 0.05, 0.05), 0.36, (112, 36, 26), 113),
                       ((-1.0, 0.22, -0.10), 0.38, (128, 74, 30), 127), ((0.0, 0.10, -1.0), 0.40, (86, 24, 46), 131),
                       ((0.1, 1.0, 0.2), 0.26, (110, 52, 24), 137), ((0.3, -1.0, -0.3), 0.24, (64, 30, 70), 139))),
    # A cradle of young stars: clusters in a green and golden fog.
    "jade_cradle": Sky(211, (6, 11, 14), 0.7, 15000, 34000, 16,
                       (((0.30, 0.26, 1.0), 0.40, (22, 132, 108), 223), ((-0.40, 0.02, 1.0), 0.24, (156, 132, 52), 227),
                        ((-0.10, -0.42, 1.0), 0.18, (24, 92, 140), 229), ((1.0, 0.12, 0.10), 0.36, (28, 116, 96), 233),
                        ((-1.0, 0.10, 0.05), 0.38, (40, 84, 150), 239), ((0.10, 0.20, -1.0), 0.36, (120, 110, 44), 241),
                        ((-0.2, 1.0, 0.1), 0.30, (26, 110, 130), 251), ((0.2, -1.0, -0.36), 0.22, (20, 100, 80), 257)),
                       (((0.34, 0.30, 1.0), 0.09, 420), ((-0.46, 0.44, 1.0), 0.05, 160), ((1.0, 0.2, -0.3), 0.08, 240),
                        ((-1.0, -0.3, 0.2), 0.07, 200), ((0.2, 1.0, 0.2), 0.08, 220), ((0.1, 0.2, -1.0), 0.08, 260))),
    # The rim: hardly a nebula, and another galaxy hangs in the dark.
    "far_shore": Sky(307, (7, 7, 15), 0.55, 9000, 20000, 10,
                     (((0.52, -0.34, 1.0), 0.22, (96, 44, 150), 311), ((-0.50, -0.44, 1.0), 0.15, (30, 70, 140), 313),
                      ((1.0, 0.10, -0.14), 0.34, (110, 40, 120), 317), ((-1.0, 0.20, 0.22), 0.30, (52, 52, 150), 331),
                      ((0.05, -0.20, -1.0), 0.36, (130, 58, 96), 337), ((0.1, 1.0, -0.25), 0.26, (40, 60, 150), 347),
                      ((0.3, -1.0, -0.3), 0.22, (90, 50, 140), 349)),
                     (((-1.0, -0.34, -0.2), 0.06, 160),),
                     (Spiral((-0.16, 0.30, 1.0), 0.46, 0.42, 24), Spiral((1.0, 0.42, 0.36), 0.09, 0.7, -40),
                      Spiral((-0.36, -0.20, -1.0), 0.12, 0.3, 70, (255, 210, 160), (200, 150, 190)))),
}


def sky(name, size=2048):
    look = SKIES[name]
    v, u = np.mgrid[0:size, 0:size].astype(np.float32)
    u, v = (u + 0.5) / size, 1 - (v + 0.5) / size
    column = (u >= COLUMNS[1]).astype(int) + (u >= COLUMNS[2])
    row = (v >= 0.5).astype(int)
    image = np.zeros((size, size, 3), np.float32)
    for (c, r), (corner, across, up) in CELLS.items():
        t, s = np.mgrid[0:GRID + 1, 0:GRID + 1].astype(np.float32) * (2 / GRID)
        d = np.array(corner, np.float32) + s[..., None] * np.array(across) + t[..., None] * np.array(up)
        faint = haze((d / np.linalg.norm(d, axis=-1, keepdims=True)).astype(np.float32), look)
        here = (column == c) & (row == r)
        image[here] = _between(faint, (v[here] - 0.5 * r) * 2 * GRID,
                               (u[here] - COLUMNS[c]) / (COLUMNS[c + 1] - COLUMNS[c]) * GRID)
    _grains(image, look)
    _stars(image, column + 3 * row, look)
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


def haze(d, look):
    """The arm with its dust lanes, the nebulae, and the galaxies beyond."""
    seed = look.seed
    warp = np.stack([noise.fractal(d * 2.2, seed + k, 5) for k in range(3)], axis=-1)
    bent = d + 0.22 * warp
    bent = bent / np.linalg.norm(bent, axis=-1, keepdims=True)
    image = np.zeros(d.shape, np.float32)
    if _arm(bent).max() > 0.01:
        lanes = smoothstep(-0.05, 0.45, noise.fractal(d * 4.2 + 0.5 * warp, seed + 10, 7, 0.58))
        mottle = 0.65 + 0.6 * noise.fractal(d * 9, seed + 20, 6, 0.6)
        across = bent @ POLE
        dust = _arm(bent) * np.clip(1 - 0.85 * lanes * np.exp(-(across / 0.08) ** 2), 0, 1) * mottle
        image += look.arm * dust[..., None] * np.array((72, 68, 78), np.float32)
        heart = _arm(bent) * np.exp(-(across / 0.06) ** 2) * mottle * (1 - lanes)
        image += look.arm * heart[..., None] * np.array((60, 46, 28), np.float32)
    for centre, reach, colour, n in look.nebulae:
        near = np.exp(-(_angle(bent, _unit(centre)) / reach) ** 2)
        if near.max() < 0.01:
            continue
        folds = noise.fractal(d * 3.4 + 0.9 * warp, n + 1, 7, 0.56)
        veil = near * smoothstep(-0.25, 0.7, folds) ** 1.3
        core = veil * near * smoothstep(0.15, 0.8, noise.ridged(d * 2.8 + 0.4 * folds[..., None], n + 2, 6))
        image += veil[..., None] * np.array(colour, np.float32) * 1.3
        image += core[..., None] * np.array((150, 140, 150), np.float32) * 0.7
    for spiral in look.spirals:
        image += _spiral(d, spiral, seed)
    return np.array(look.dark, np.float32) + image * _open(d)[..., None]


def _unit(v):
    return np.array(v) / np.linalg.norm(v)


def _spiral(d, spiral, seed):
    """Two arms that wind out of a bright core, with dust on their inner sides."""
    centre = _unit(spiral.centre)
    if (d @ centre).max() < np.cos(spiral.reach * 1.5):
        return np.zeros(d.shape, np.float32)
    side = _unit(np.cross(centre, (0.05, 0.1, 0.02) if abs(centre[1]) > 0.9 else (0.0, 1.0, 0.0)))
    up = np.cross(side, centre)
    a = np.radians(spiral.turn)
    x, y = d @ side / spiral.reach, d @ up / spiral.reach
    x, y = np.cos(a) * x + np.sin(a) * y, (np.cos(a) * y - np.sin(a) * x) / spiral.tilt
    x, y = np.where(d @ centre > 0, x, 9), np.where(d @ centre > 0, y, 9)
    r = np.hypot(x, y)
    disc = np.stack([x, y, np.zeros_like(x)], -1).astype(np.float32)
    ragged = noise.fractal(disc * 5, seed + 400, 6, 0.6)
    wind = np.arctan2(y, x) * 2 - 5.2 * np.log(np.maximum(r, 0.03)) + 1.0 * ragged
    arms = (0.5 + 0.5 * np.cos(wind)) ** 1.6
    lanes = smoothstep(0.3, 0.95, 0.5 + 0.5 * np.cos(wind - 1.5)) * smoothstep(-0.1, 0.4, ragged + 0.15)
    fade = np.exp(-(r / 0.44) ** 1.5) * smoothstep(1.35, 0.75, r)
    glow = fade * (0.22 + 0.9 * arms) * (0.8 + 0.7 * ragged) * (1 - 0.6 * lanes)
    knots = fade * arms * smoothstep(0.25, 0.6, noise.fractal(disc * 13, seed + 410, 4, 0.6))
    core = np.exp(-(r / 0.10) ** 1.2) + 0.5 * np.exp(-(r / 0.22) ** 2)
    return (np.clip(glow, 0, 2)[..., None] * np.array(spiral.arms, np.float32) * 0.75
            + knots[..., None] * np.array((255, 150, 190), np.float32) * 0.8
            + core[..., None] * np.array(spiral.core, np.float32) * 0.8).astype(np.float32)


def _open(d):
    """0 along the edges of the box, all but the one that the arm crosses, and 1 within the faces."""
    x, y, z = (np.abs(d[..., k]) for k in range(3))
    crossed = (d[..., 1] < 0) & (d[..., 2] > 0) & (x < np.minimum(y, z))
    second = np.where(crossed, x, np.sort(np.abs(d), axis=-1)[..., 1])
    away = 1 - second / np.abs(d).max(axis=-1)
    return smoothstep(0.008, 0.22, away)


def _sown(rng, count):
    v = rng.normal(size=(count, 3))
    return v / np.linalg.norm(v, axis=1, keepdims=True)


def _clear(v):
    """How far directions keep from the edges of the box, as a share of a face."""
    away = np.sort(np.abs(v), axis=-1)
    return 1 - away[..., 1] / away[..., 2]


def _grains(image, look):
    """Star dust: single texels, thicker in the arm, which no eye tells apart."""
    rng = np.random.default_rng(look.seed + 1)
    size = image.shape[0]
    v = _sown(rng, look.grains)
    light = rng.random(look.grains)
    v, light = (a[(_clear(v) > 0.01) & (light < 0.45 + 0.55 * np.clip(_arm(v) * 1.6, 0, 1))] for a in (v, light))
    tint = np.where(rng.random(len(v))[:, None] < 0.5, (1.0, 0.94, 0.86), (0.84, 0.92, 1.0))
    for direction, power, colour in zip(v, rng.random(len(v)) ** 2, tint):
        _, col, row = _texel(direction, size)
        image[int(row), int(col)] += (16 + 46 * power) * colour


def _stars(image, cell, look):
    """Stars are sown by direction, so that their density does not show the box, and are drawn over the
    texels within a small angle of them, so that they are round however the box stretches them."""
    rng = np.random.default_rng(look.seed)
    v = _sown(rng, look.stars)
    light = rng.random(look.stars) ** 9
    warmth = rng.random(look.stars)
    for direction, power, warm in zip(v, light, warmth):
        if _arm(direction) < 0.2 and rng.random() < 0.3:
            continue  # they stand closer in the arm
        _star(image, cell, direction, 0.0010 + 0.0016 * power, 34 + 239 * power, warm)
    for centre, reach, count in look.clusters:
        for _ in range(count):
            power = rng.random() ** 5
            _star(image, cell, _unit(_unit(centre) + reach * rng.normal(size=3) * rng.random() ** 0.8),
                  0.0009 + 0.0015 * power, 40 + 215 * power, 0.5 + 0.5 * rng.random())
    for direction, warm in zip(_sown(rng, 4 * look.giants)[:look.giants], rng.random(look.giants)):
        if _clear(direction) > 0.12:
            _star(image, cell, direction, 0.0030, 270, warm)
            _star(image, cell, direction, 0.0085, 46, warm)
            _star(image, cell, direction, 0.0220, 13, warm)


def _star(image, cell, direction, spread, light, warm):
    """A round spot of light; none right on an edge of the box."""
    size = image.shape[0]
    if _clear(direction) < 3.5 * spread + 0.004:
        return
    tint = np.array((255, 244, 226)) if warm < 0.5 else np.array((214, 228, 255)) if warm < 0.9 else np.array((255, 206, 160))
    key, col, row = _texel(direction, size)
    reach = 4 + int(3 * spread * size)
    r0, c0 = max(0, int(row) - reach), max(0, int(col) - reach)
    rows, cols = np.mgrid[r0:min(size, int(row) + reach + 1), c0:min(size, int(col) + reach + 1)]
    off = _direction(key, cols + 0.5, rows + 0.5, size) - direction
    spot = light * np.exp(-(off * off).sum(axis=-1) / (2 * spread * spread))
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
