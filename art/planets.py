"""The planets: spheres, and the pictures wound round them. Everything on a surface is a function of
the place in space, so that neither the seam nor the poles show; clouds drift over their planet, so
their picture repeats in both directions and is laid on as a sea chart, which keeps their shapes."""
from collections.abc import Callable
from dataclasses import dataclass

import numpy as np
from PIL import Image

import noise
from noise import smoothstep

WIDTH, HEIGHT = 1024, 512  # texels of clouds and of a moon
FINE = 2  # times as many each way on the ground of a planet that fills the view of who lands on it


def sphere(radius, slices=60, stacks=30):
    """Points from pole to pole, triangles, and for each corner of a triangle (longitude, latitude)
    with the longitude from 0 to 1; at a pole it is that of the middle of its triangle."""
    points = [(0, -radius, 0)]
    for s in range(1, stacks):
        lat = np.pi * (s / stacks - 0.5)
        for n in range(slices):
            points.append(radius * _direction(n / slices, lat))
    points.append((0, radius, 0))
    last = len(points) - 1
    tris, corners = [], []

    def at(s, n):
        return 0 if s == 0 else last if s == stacks else 1 + (s - 1) * slices + n % slices
    for s in range(stacks):
        low, high = np.pi * (s / stacks - 0.5), np.pi * ((s + 1) / stacks - 0.5)
        for n in range(slices):
            u0, u1 = n / slices, (n + 1) / slices
            if s < stacks - 1:
                tris.append((at(s, n), at(s + 1, n + 1), at(s + 1, n)))
                corners.append([((u0 + u1) / 2 if s == 0 else u0, low), (u1, high), (u0, high)])
            if s > 0:
                tris.append((at(s, n), at(s, n + 1), at(s + 1, n + 1)))
                corners.append([(u0, low), (u1, low), ((u0 + u1) / 2 if s == stacks - 1 else u1, high)])
    return np.array(points), np.array(tris), corners


def _direction(u, lat):
    """Longitudes run eastwards, that is to the right when one looks at the planet with north up."""
    a = 2 * np.pi * u
    return np.stack([np.cos(lat) * np.sin(a), np.sin(lat), np.cos(lat) * np.cos(a)], axis=-1)


def surface_chart(corners):
    """Texture points for a picture whose rows are latitudes."""
    half = 0.5 / HEIGHT
    return _chart(corners, lambda lat: float(np.clip(lat / np.pi + 0.5, half, 1 - half)))


def cloud_chart(corners):
    """Texture points for a picture that keeps shapes, a sea chart; it is cut off near the poles,
    where it would have no end."""
    limit = np.radians(84)

    def rows(lat):
        lat = np.clip(lat, -limit, limit)
        return float(np.log(np.tan(np.pi / 4 + lat / 2)) / np.pi + 0.5)
    return _chart(corners, rows)


def _chart(corners, row):
    uvs, seen, tris = [], {}, []
    for triangle in corners:
        at = []
        for u, lat in triangle:
            key = (round(u, 6), round(row(lat), 6))
            if key not in seen:
                seen[key] = len(uvs)
                uvs.append(key)
            at.append(seen[key])
        tris.append(at)
    return np.array(uvs), np.array(tris)


def globe(fine=1):
    """Unit directions and latitudes of a picture's texels, north at the top."""
    width, height = fine * WIDTH, fine * HEIGHT
    u = (np.arange(width) + 0.5) / width
    lat = np.pi * (0.5 - (np.arange(height) + 0.5) / height)
    lat, u = np.meshgrid(lat, u, indexing="ij")
    return _direction(u, lat), lat


def relief(height, lat, strength):
    """Slopes as seen under a sun in the north-west: about 1 on the flat."""
    strength = strength * len(height) / HEIGHT
    east = (np.roll(height, -1, axis=1) - np.roll(height, 1, axis=1)) / np.maximum(np.cos(lat), 0.12)
    north = np.gradient(height, axis=0) * -2
    return np.clip(1 + strength * (east * 0.7 - north * 0.7), 0.45, 1.5)


def ramp(value, stops):
    """Colours along a scale: stops of (value, (red, green, blue))."""
    at = [s[0] for s in stops]
    return np.stack([np.interp(value, at, [s[1][k] for s in stops]) for k in range(3)], axis=-1).astype(np.float32)


def blend(below, above, amount):
    return below + (np.asarray(above, np.float32) - below) * amount[..., None]


def picture(colours):
    return Image.fromarray(np.clip(colours, 0, 255).astype(np.uint8), "RGB")


def blue_world(seed=5):
    """Seas, shelves, continents with mountain chains, deserts in the dry belts, ice at the poles."""
    p, lat = globe(FINE)
    warp = np.stack([noise.fractal(p * 1.7 + 31 * k, seed + k, 4) for k in range(3)], axis=-1)
    q = p + 0.42 * warp
    base = noise.fractal(q * 1.25, seed + 10, 9, 0.53)
    chains = noise.ridged(q * 2.1, seed + 40, 7)
    land = base + 0.045
    coast = smoothstep(-0.004, 0.006, land)
    high = np.clip(land, 0, 1) * 1.7 + np.clip(land * 5, 0, 1) * np.clip(chains - 0.52, 0, 1) * 0.75
    rain = noise.fractal(p * 2.3 + 9, seed + 70, 5) + 0.55 * np.cos(lat * 6.0) - 0.1
    warmth = np.cos(lat) - high * 0.9 + 0.08 * noise.fractal(p * 4, seed + 80, 4)

    deep = np.clip(-land * 3.2, 0, 1)
    sea = ramp(deep, [(0, (58, 138, 150)), (0.07, (34, 98, 134)), (0.25, (18, 62, 108)), (1, (8, 30, 68))])
    sea *= (1 + 0.05 * noise.fractal(p * 9, seed + 90, 4))[..., None]
    green = ramp(rain, [(-0.55, (184, 162, 122)), (-0.2, (160, 144, 100)), (0.1, (92, 110, 52)), (0.6, (40, 78, 38))])
    cold = ramp(rain, [(-0.5, (134, 124, 100)), (0.3, (86, 98, 72))])
    ground = blend(cold, green, smoothstep(0.42, 0.72, warmth))
    rock = np.array((122, 104, 88), np.float32) * (1 + 0.14 * noise.fractal(p * 14, seed + 95, 4))[..., None]
    ground = blend(ground, rock, smoothstep(0.24, 0.46, high))
    ground *= (1 + 0.13 * noise.fractal(p * 11, seed + 99, 5))[..., None]
    snow = np.array((236, 240, 246), np.float32)
    ground = blend(ground, snow, smoothstep(0.58, 0.74, high + 0.28 * (1 - np.cos(lat))))
    out = blend(sea, ground * relief(high + 0.02 * base, lat, 6.0)[..., None], coast)
    edge = np.abs(lat) + 0.34 * noise.fractal(p * 3.2, seed + 110, 7, 0.55) + 0.05 * coast
    ice = smoothstep(1.20, 1.25, edge)
    shaded = snow * np.clip(relief(chains * 0.25, lat, 2.0), 0.82, 1.05)[..., None]
    return picture(blend(out, shaded, ice))


def clouds(seed=7, colour=(-4, 0, 5), cover_low=-0.06, thick=232):
    """Weather as a picture with alpha: banks, open sky, broken fields and slow swirls, of one grain
    everywhere and without a direction, since every part of it drifts over every latitude. `colour` is
    what sets it off from white; the lower `cover_low`, the more sky is covered."""
    y, x = np.mgrid[0:HEIGHT, 0:WIDTH].astype(np.float32)
    x, y = (x + 0.5) / WIDTH, (y + 0.5) / HEIGHT
    wx, wy = noise.tiled(x, y, seed, (8, 4), 4), noise.tiled(x, y, seed + 3, (8, 4), 4)
    x, y = _swirl(x + 0.028 * wx, y + 0.056 * wy, seed)
    fields = noise.tiled(x, y, seed + 11, (4, 2), 3)
    banks = noise.tiled(x, y, seed + 20, (12, 6), 6, 0.56)
    tufts = noise.tiled(x + 0.012 * wy, y + 0.024 * wx, seed + 50, (32, 16), 5, 0.62)
    cover = 0.75 * fields + 1.0 * banks + 0.34 * tufts
    alpha = smoothstep(cover_low, cover_low + 0.58, cover) ** 1.25
    tone = 206 + 44 * smoothstep(0.0, 0.6, cover) + 16 * tufts
    rgba = np.stack([*(tone + c for c in colour), alpha * thick], axis=-1)
    return Image.fromarray(np.clip(rgba, 0, 255).astype(np.uint8), "RGBA")


def _swirl(x, y, seed):
    """Turns the weather gently about a few storm centres; more than a quarter turn would draw it out
    into streaks."""
    rng = np.random.default_rng(seed)
    for _ in range(7):
        cx, cy, reach, turn = rng.random(), rng.random(), rng.uniform(0.02, 0.045), rng.uniform(-1.7, 1.7)
        dx, dy = (x - cx + 0.5) % 1 - 0.5, ((y - cy + 0.5) % 1 - 0.5) / 2
        a = turn * np.exp(-(dx * dx + dy * dy) / (reach * reach))
        x = x + (np.cos(a) - 1) * dx - np.sin(a) * dy
        y = y + 2 * (np.sin(a) * dx + (np.cos(a) - 1) * dy)
    return x, y


def dust_world(seed=151):
    """Deserts of iron and salt: dark lava plains, canyons that run out of the highlands, bright pans
    where seas dried up, dunes, and small frosty caps."""
    p, lat = globe(FINE)
    warp = np.stack([noise.fractal(p * 1.5 + 17 * k, seed + k, 4) for k in range(3)], axis=-1)
    q = p + 0.36 * warp
    base = noise.fractal(q * 1.4, seed + 10, 8, 0.54)
    ridges = noise.ridged(q * 2.6, seed + 20, 6)
    cuts = noise.ridged(p * 1.7 + 0.5 * warp, seed + 30, 5, 0.45)
    canyon = smoothstep(0.80, 0.93, cuts) * smoothstep(-0.08, 0.12, base)
    lava = smoothstep(0.05, 0.30, noise.fractal(q * 1.1 + 5, seed + 40, 6)) * smoothstep(0.15, -0.05, base)
    pans = smoothstep(-0.16, -0.24, base) * smoothstep(0.2, -0.1, lava)
    height = 0.9 * base + 0.32 * ridges * smoothstep(-0.1, 0.25, base) - 0.42 * canyon
    dunes = np.sin((q[..., 1] * 46 + 9 * noise.fractal(p * 5, seed + 50, 4))) * smoothstep(0.05, -0.1, np.abs(base))

    ground = ramp(height, [(-0.45, (138, 98, 74)), (-0.1, (166, 116, 80)), (0.15, (190, 144, 102)), (0.4, (142, 96, 74)),
                           (0.75, (206, 178, 146))])
    ground = blend(ground, (70, 54, 50), 0.8 * lava)
    ground = blend(ground, (226, 206, 172), 0.75 * pans)
    ground = blend(ground, (96, 50, 38), 0.75 * canyon)
    ground *= (1 + 0.16 * noise.fractal(p * 12, seed + 60, 5) + 0.05 * dunes)[..., None]
    ground *= relief(height + 0.012 * dunes, lat, 5.0)[..., None]
    edge = np.abs(lat) + 0.20 * noise.fractal(p * 4.0, seed + 70, 6, 0.55)
    frost = smoothstep(1.27, 1.34, edge)
    return picture(blend(ground, (232, 226, 222), 0.92 * frost))


def banded_giant(seed=211):
    """Belts and zones of cloud, torn where they rub on each other, with one great storm and a string of
    small ones."""
    p, lat = globe(FINE)
    north = np.array((0, 1, 0), np.float32)
    storms = [(_direction(0.47, -0.37), 0.26, 2.6, (196, 92, 58)), (_direction(0.62, 0.30), 0.10, -2.2, (238, 226, 206)),
              (_direction(0.80, -0.62), 0.09, 2.2, (240, 232, 214)), (_direction(0.90, -0.62), 0.07, 2.0, (240, 232, 214)),
              (_direction(0.99, -0.61), 0.08, 2.1, (236, 226, 206)), (_direction(0.14, 0.62), 0.08, -1.9, (150, 100, 76))]
    turned, spots = p, []
    for centre, reach, twist, colour in storms:
        east = np.cross(north, centre)
        east /= np.linalg.norm(east)
        up = np.cross(centre, east)
        x, y = turned @ east, turned @ up * 1.7  # storms are drawn out along their belt
        away = np.where(turned @ centre > 0, np.hypot(x, y), 9)
        a = twist * np.exp(-(away / reach) ** 2)
        nx, ny = np.cos(a) * x - np.sin(a) * y, np.sin(a) * x + np.cos(a) * y
        turned = turned + (nx - x)[..., None] * east + ((ny - y) / 1.7)[..., None] * up
        spots.append((away / reach, colour))
    q = turned / np.linalg.norm(turned, axis=-1, keepdims=True)
    at = np.arcsin(np.clip(q[..., 1], -1, 1))
    curl = noise.fractal(q * (3.0, 7.0, 3.0), seed, 5, 0.55)
    fine = noise.fractal(q * (6.0, 30.0, 6.0) + 0.6 * curl[..., None], seed + 5, 5, 0.55)
    streak = noise.fractal(q * (2.0, 60.0, 2.0) + 0.25 * curl[..., None], seed + 9, 4, 0.6)
    along = at + 0.020 * curl + 0.010 * fine
    flat = np.stack([np.full_like(along, 0.3), along * 5.2, np.full_like(along, 0.7)], axis=-1)
    belt = noise.fractal(flat, seed + 20, 4, 0.62) * 2.1
    edges = np.clip(1 - np.abs(belt) * 2.2, 0, 1)
    tone = belt + 0.28 * edges * fine + 0.16 * streak
    colour = ramp(tone, [(-0.75, (112, 70, 54)), (-0.38, (160, 104, 72)), (-0.12, (198, 150, 108)), (0.08, (222, 194, 154)),
                         (0.34, (238, 222, 192)), (0.7, (206, 180, 150))])
    colour *= (1 + 0.07 * streak + 0.06 * fine)[..., None]
    for away, tint in spots:
        eye = np.exp(-(away / 0.62) ** 4)
        rim = np.exp(-((away - 0.92) / 0.16) ** 2)
        colour = blend(colour, np.array(tint, np.float32) * (1 + 0.30 * fine)[..., None], 0.78 * eye)
        colour *= (1 + 0.16 * rim)[..., None]
    polar = smoothstep(0.95, 1.35, np.abs(lat) + 0.05 * curl)
    return picture(blend(colour, (128, 118, 122), 0.7 * polar) * (0.92 + 0.08 * np.cos(lat))[..., None])


def cratered_moon(seed=17):
    """Grey highlands, dark plains, and craters of all sizes with rims, floors and a few rays."""
    p, lat = globe()
    rough = noise.fractal(p * 5, seed, 8, 0.6)
    height = 0.075 * rough + 0.16 * noise.fractal(p * 1.5, seed + 5, 4)
    tone = 0.10 * rough + 0.07 * noise.fractal(p * 16, seed + 8, 5, 0.6)
    seas = noise.fractal(p * 1.05 + 0.25 * rough[..., None] + 3, seed + 30, 6, 0.55)
    plains = smoothstep(0.02, 0.22, seas)
    rng = np.random.default_rng(seed)
    sizes = np.concatenate([rng.uniform(0.15, 0.27, 4), 0.010 + 0.105 * rng.random(620) ** 4.5])
    for n, size in enumerate(sizes):
        c = rng.normal(size=3)
        c /= np.linalg.norm(c)
        young, age = rng.random() < 0.035 and 0.02 < size < 0.09, rng.uniform(0.25, 1.0)
        away = np.arccos(np.clip(p @ c, -1, 1)) / size
        near = away < (11 if young else 3)
        if not near.any():
            continue
        d = away[near] * (1 + 0.14 * noise.gradient(p[near] * 1.3 / size, seed + n))
        bowl = np.where(d < 1, 0.55 * (d ** 3 - 1) + 0.16 * np.exp(-(d / 0.17) ** 2) * (size > 0.05), 0)
        rim = 0.34 * np.exp(-((d - 1.0) / 0.16) ** 2) + 0.10 * np.exp(-np.clip(d - 1, 0, 9) * 2.2) * smoothstep(0.8, 1.1, d)
        height[near] += (bowl + rim) * min(1, (0.05 / size) ** 0.5) * size * (2.4 if young else 1.9 * age)
        tone[near] += age * (-0.07 * (1 - smoothstep(0.7, 0.95, d)) + 0.06 * np.exp(-((d - 1.0) / 0.2) ** 2))
        if young:
            tone[near] += _rays(p[near], c, d, n)
    grey = 0.64 + tone - 0.22 * plains
    colour = np.stack([grey * 226, grey * 220, grey * 212], axis=-1) * relief(height, lat, 10.0)[..., None]
    return picture(colour)


def _rays(p, centre, d, seed):
    """The bright splash around a young crater: a halo, and streaks of uneven length."""
    side = np.cross(centre, (0.3, 0.9, 0.2))
    side /= np.linalg.norm(side)
    other = np.cross(centre, side)
    x, y = p @ other, p @ side
    ring = np.stack([x, y, np.zeros_like(x)], -1) / np.maximum(np.hypot(x, y), 1e-6)[:, None]
    streaks = np.clip(noise.fractal(ring * 5.5 + seed, seed + 3, 3, 0.7) * 2.4 - 0.1, 0, 1)
    patchy = 0.6 + 0.8 * noise.fractal(p * 30, seed + 4, 3)
    return 0.36 * streaks * patchy * np.exp(-d * 0.32) * (d > 0.9) + 0.20 * np.exp(-d * 0.9)


@dataclass
class Planet:
    radius: float
    slices: int
    files: tuple       # the model, as seen from data/; with weather, that of the clouds too
    surface: Callable
    weather: Callable = None


PLANETS = {
    "blue_world": Planet(1150, 80, ("earth_main.ASE", "earth_clouds.ASE"), blue_world, clouds),
    "dust_world": Planet(520, 60, ("planets/dust_world.ase", "planets/dust_world_clouds.ase"), dust_world,
                         lambda: clouds(163, (-10, -34, -66), 0.06, 190)),
    "banded_giant": Planet(1400, 84, ("planets/banded_giant.ase",), banded_giant),
    "cratered_moon": Planet(110, 60, ("planets/cratered_moon.ase",), cratered_moon),
}
