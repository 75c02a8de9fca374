"""The explosions, as flip-books: a burning cloud that bursts out, boils, cools to smoke and is gone.
Each picture is a look through a small volume of fire, front to back. A cloud swells with its own
noise, so that its billows grow with it; a second noise that drifts through the first makes it boil."""
from dataclasses import dataclass

import numpy as np
from PIL import Image

from noise import smoothstep

FRAMES = 101
SIZE = 128
DEPTH = 44   # samples along a line of sight
CELLS = 96   # the edge of the repeating block of noise
LIGHT = np.array((-0.45, 0.75, 0.5)) / np.linalg.norm((-0.45, 0.75, 0.5))  # what shapes the smoke


@dataclass
class Blast:
    seed: int
    heat: tuple     # colours from cold smoke to the white core: (heat, (red, green, blue))
    reach: float    # the radius that the cloud ends with, in halves of the picture
    burst: float    # how fast it gets there
    cooling: float
    ragged: float   # how deep its outline is torn
    sparks: int
    spark: tuple


BLASTS = {
    "explosion": Blast(6, ((0.0, (30, 26, 25)), (0.14, (58, 30, 22)), (0.30, (150, 42, 14)), (0.48, (238, 108, 22)),
                           (0.68, (255, 186, 70)), (0.88, (255, 236, 170)), (1.05, (255, 253, 240))),
                       0.74, 4.8, 1.75, 0.36, 130, (255, 206, 120)),
    "torpedo_explosion_blue": Blast(9, ((0.0, (22, 26, 46)), (0.14, (28, 34, 92)), (0.30, (26, 62, 190)),
                                        (0.48, (40, 136, 246)), (0.68, (112, 206, 255)), (0.88, (206, 242, 255)),
                                        (1.05, (250, 254, 255))),
                                    0.72, 7.0, 2.1, 0.42, 110, (176, 226, 255)),
}


def frames(name):
    """The pictures of a series, one after the other."""
    blast = BLASTS[name]
    rng = np.random.default_rng(blast.seed)
    fire = _Fire(blast, _block(rng), _block(rng))
    sparks = _Sparks(blast, rng)
    for n in range(FRAMES):
        t = n / (FRAMES - 1)
        yield _picture(blast, *_over(fire.look(t), sparks.look(t)), t)


def _block(rng):
    """Noise that repeats in all three directions, coarse and fine at once, with a spread of 1."""
    f = np.fft.fftfreq(CELLS, 1 / CELLS)
    k = np.sqrt(f[:, None, None] ** 2 + f[None, :, None] ** 2 + f[None, None, :] ** 2)
    power = np.where(k < 2.5, 0, np.maximum(k, 1) ** -2.1) * np.exp(-(k / 34) ** 2)
    block = np.fft.ifftn(np.fft.fftn(rng.normal(size=k.shape)) * power).real
    return (block / block.std()).astype(np.float32)


def _sample(block, p):
    """The noise at points (n, 3) given in blocks, smoothly between the cells."""
    p = p * CELLS
    cell = np.floor(p)
    f = (p - cell).astype(np.float32)
    low = cell.astype(np.int32) % CELLS
    high = (low + 1) % CELLS
    flat = block.reshape(-1)
    total = 0
    for i, wx in ((low, 1 - f[:, 0]), (high, f[:, 0])):
        row = i[:, 0] * CELLS
        for j, wy in ((low, 1 - f[:, 1]), (high, f[:, 1])):
            column = (row + j[:, 1]) * CELLS
            w = wx * wy
            total = total + w * (flat[column + low[:, 2]] * (1 - f[:, 2]) + flat[column + high[:, 2]] * f[:, 2])
    return total


class _Fire:
    def __init__(self, blast, still, drifting):
        self.blast, self.still, self.drifting = blast, still, drifting
        edge = (np.arange(SIZE) + 0.5) * 2 / SIZE - 1
        deep = 1 - (np.arange(DEPTH) + 0.5) * 2 / DEPTH  # nearest first
        y, x, z = np.meshgrid(-edge, edge, deep, indexing="ij")
        self.places = np.stack([x, y, z], axis=-1).astype(np.float32)
        self.away = np.linalg.norm(self.places, axis=-1)

    def look(self, t):
        """Colours (times their alpha) and alphas of the cloud at a time from 0 to 1."""
        b = self.blast
        size = 0.10 + (b.reach - 0.10) * (1 - np.exp(-b.burst * t)) / (1 - np.exp(-b.burst))
        inside = self.away < size * 1.5
        q = self.places[inside] / size
        r = self.away[inside] / size
        wild = b.ragged * (0.35 + 0.65 * smoothstep(0, 0.25, t))
        billows = _sample(self.still, q * (0.30, 0.30, 0.30) + (0.2, 0.7 - 0.05 * t, 0.4))
        boil = _sample(self.drifting, q * 0.55 + (0.1 + 0.10 * t, 0.3 - 0.22 * t, 0.5 - 0.14 * t))
        torn = 0.62 * billows + 0.38 * boil
        # How deep below the cloud's skin a place lies; holes open from the thin parts inwards.
        holes = 1.05 * smoothstep(0.28, 1.0, t)
        deep = 1 - r + wild * (0.55 * torn - 0.12) - holes * (0.42 - 0.34 * torn)
        thick = smoothstep(0.0, 0.34, deep)
        warm = 1.32 * np.exp(-b.cooling * t) + 0.10 * (1 - t)
        ember = np.clip(1.15 - r, -0.35, 0.6)  # what flew far has cooled
        heat = warm * (0.42 + 0.30 * np.clip(deep, 0, 1) + 0.55 * ember) + 0.13 * boil * (0.45 + warm)
        heat = (heat - 0.3 * warm * smoothstep(0.9, 1.3, r)) * (0.45 + 0.55 * thick)

        density = np.zeros(self.away.shape, np.float32)
        density[inside] = thick
        warmth = np.zeros_like(density)
        warmth[inside] = np.clip(heat, 0, 1.05)
        return self._march(density, warmth, t)

    def _march(self, density, warmth, t):
        at, colours = zip(*self.blast.heat)
        shape = self._shape(density)
        cool = 1 - smoothstep(0.12, 0.5, warmth)
        shade = 1 + cool * (shape * 1.1 - 0.25)
        opacity = 1 - np.exp(-density * (15 - 9.5 * smoothstep(0.25, 0.95, t)) * 2 / DEPTH)
        clear = np.cumprod(1 - opacity, axis=2)
        seen = opacity * np.concatenate([np.ones_like(clear[:, :, :1]), clear[:, :, :-1]], axis=2)
        out = np.zeros((SIZE, SIZE, 3), np.float32)
        for c in range(3):
            out[..., c] = (seen * np.interp(warmth, at, [rgb[c] / 255 for rgb in colours]) * shade).sum(axis=2)
        return out, 1 - clear[:, :, -1]

    @staticmethod
    def _shape(density):
        """How far the cloud's skin turns to the light, from -1 to 1."""
        dy, dx, dz = np.gradient(density)
        scale = SIZE / DEPTH
        return np.clip(-2.6 * (LIGHT[0] * dx - LIGHT[1] * dy - LIGHT[2] * dz / scale), -1, 1)


class _Sparks:
    """Glowing splinters that outrun the cloud, slow down and go out."""

    def __init__(self, blast, rng):
        self.blast = blast
        n = blast.sparks
        way = rng.normal(size=(n, 3))
        self.way = (way / np.linalg.norm(way * (1, 1, 0.6), axis=1, keepdims=True))[:, :2]
        self.reach = rng.uniform(0.6, 1.0, n)
        self.life = rng.uniform(0.3, 0.95, n)
        self.light = rng.uniform(0.4, 1.0, n)
        self.thick = rng.uniform(0.6, 1.0, n)

    def look(self, t):
        light = np.zeros((SIZE, SIZE), np.float32)
        white = np.zeros_like(light)
        y, x = np.mgrid[0:SIZE, 0:SIZE].astype(np.float32)
        for way, reach, life, power, thick in zip(self.way, self.reach, self.life, self.light, self.thick):
            left = 1 - t / life
            if left <= 0 or t == 0:
                continue
            now = self._place(way, reach, t)
            then = self._place(way, reach, max(0, t - 0.022))
            d = now - then
            along = np.clip(((x - then[0]) * d[0] + (y - then[1]) * d[1]) / max(d @ d, 1e-6), 0, 1)
            away = (x - then[0] - along * d[0]) ** 2 + (y - then[1] - along * d[1]) ** 2
            glow = power * left ** 0.8 * (0.25 + 0.75 * along) * np.exp(-away / (2 * thick * thick))
            light = np.maximum(light, glow)
            white = np.maximum(white, glow * left)
        colour = np.array(self.blast.spark, np.float32) / 255
        hot = colour + (1 - colour) * white[..., None]
        cold = np.array(self.blast.heat[3][1], np.float32) / 255
        return (cold + (hot - cold) * np.clip(2 * white, 0, 1)[..., None]) * light[..., None], light

    @staticmethod
    def _place(way, reach, t):
        p = way * reach * (1 - np.exp(-6.5 * t)) * (SIZE / 2)
        return np.array((SIZE / 2 + p[0], SIZE / 2 - p[1]))


def _over(cloud, light):
    """Sparks in and before the cloud: what they shed is added to it."""
    (colour, alpha), (glow, shine) = cloud, light
    return colour * (1 - 0.6 * shine[..., None]) + glow, 1 - (1 - alpha) * (1 - shine)


def _picture(blast, colour, alpha, t):
    """Adds the flash, fades everything out at the end and towards the picture's edges, and writes
    colours without their alpha, a little beyond the cloud too, so that no dark rim shows."""
    y, x = (np.mgrid[0:SIZE, 0:SIZE] + 0.5) * 2 / SIZE - 1
    r = np.hypot(x, y)
    flash = np.exp(-(t / 0.045) ** 2)
    glare = 2.4 * flash * np.exp(-(r / 0.25) ** 2) + 0.42 * np.exp(-t / 0.2) * np.exp(-(r / (0.3 + 0.35 * t)) ** 2)
    glow = np.array(blast.heat[4][1]) / 255
    glow = glow + (1 - glow) * np.clip(flash * 1.6 * np.exp(-(r / 0.3) ** 2), 0, 1)[..., None]
    glare = 1 - np.exp(-glare)
    rest, blind = (1 - alpha) * glare, (alpha * glare * flash)[..., None]
    colour = colour * (1 - (glare * flash)[..., None]) + blind * glow + rest[..., None] * glow
    alpha = alpha + rest
    fill = 0.01
    plain = (colour + fill * glow) / (alpha + fill)[..., None]
    fade = (1 - smoothstep(0.62, 1.0, t)) * (1 - smoothstep(0.84, 0.985, r))
    levels = np.concatenate([plain, (alpha * fade)[..., None]], axis=-1) * 255
    coarse = np.round(levels / (4, 4, 4, 2)) * (4, 4, 4, 2)  # finer steps are not seen, only stored
    coarse[coarse[..., 3] <= 2] = (*blast.heat[4][1], 0)
    return Image.fromarray(np.clip(coarse, 0, 255).astype(np.uint8), "RGBA")
