"""Paints a model's texture sheet: plating with panel lines and rivets, livery, glass, glow, soot,
shade and worn edges. What a livery wants is a record below; what a ship wants (stripes, soot,
windows) comes from the ship as functions of the place on the hull."""
from dataclasses import dataclass

import numpy as np
from PIL import Image, ImageDraw, ImageFilter

import noise
from atlas import MARGIN, VIEWS


@dataclass
class Livery:
    hull: tuple       # the plating
    second: tuple     # large fields set off from the plating
    accent: tuple     # stripes and markings
    metal: tuple      # bare machinery, guns, nozzles
    glass: tuple
    glow: tuple       # engines and lit windows
    wear: float       # 0 fresh from the yard, 1 a wreck


LIVERIES = {
    "player": Livery((212, 216, 220), (62, 84, 106), (236, 122, 32), (92, 96, 104), (20, 44, 66),
                     (120, 214, 255), 0.40),
    "enemy": Livery((150, 142, 138), (76, 62, 66), (204, 34, 28), (84, 80, 82), (70, 14, 18),
                    (255, 120, 60), 0.70),
    "raider": Livery((118, 128, 112), (74, 70, 88), (226, 190, 40), (86, 86, 84), (60, 44, 10),
                     (170, 255, 130), 0.75),
    "civilian": Livery((206, 172, 92), (110, 112, 112), (38, 96, 122), (98, 94, 88), (24, 48, 48),
                       (255, 214, 140), 0.85),
}


def paint(atlas, livery, seed, second=None, stripes=None, soot=None, windows=None, plate=2.2):
    """Returns the sheet as a picture. `second`, `stripes` and `soot` take places (n, 3) and return
    amounts from 0 to 1; `windows` likewise returns how brightly a window is lit there. `plate` is
    the usual size of a panel in world units."""
    tone, lines, lights = panels(atlas, seed, plate)
    at, here = atlas.pos, atlas.covered
    grain = noise.fractal(at * 3.1, seed, 4)
    blotch = noise.fractal(at * 0.55, seed + 5, 4)
    streak = noise.fractal(at * (2.6, 2.6, 0.35), seed + 9, 4)

    sheet = np.zeros(at.shape, np.float32)
    for number, tag in enumerate(atlas.tag_names):
        on = atlas.tag_at == number
        sheet[on] = _coat(tag, livery)[None]
    plated = _is(atlas, "hull", "second", "accent")
    if second is not None:
        _mix(sheet, livery.second, second(at) * _is(atlas, "hull"))
    if stripes is not None:
        chipped = noise.smoothstep(-0.75, -0.55, streak * 0.9 + grain * 0.5 + (1 - livery.wear) * 0.35)
        _mix(sheet, livery.accent, stripes(at) * chipped * _is(atlas, "hull", "second"))

    machinery = _is(atlas, "metal", "dark")
    sheet *= 1 + (tone * (0.9 * plated + 0.7 * machinery))[..., None]
    sheet *= 1 + (0.06 * grain + 0.10 * livery.wear * blotch)[..., None]
    sheet *= 1 - (lines * (0.50 * plated + 0.40 * machinery))[..., None]
    sheet *= 1 + (lights * 0.16 * plated)[..., None]
    # Dirt is drawn out along the flight direction, and gathers in the panel lines.
    dirt = noise.smoothstep(0.05, 0.75, streak + 0.35 * blotch) * livery.wear
    _mix(sheet, (44, 38, 34), dirt * 0.38 * plated)
    if soot is not None:
        _mix(sheet, (26, 23, 22), np.clip(soot(at) * (0.75 + 0.5 * streak), 0, 0.9) * (plated | machinery))
    bare = noise.smoothstep(0.15, 0.5, atlas.wear * (0.55 + 0.8 * livery.wear) + 0.45 * grain - 0.12)
    worn = bare * atlas.wear * 0.6 * plated
    sheet += (np.clip(sheet * 1.25 + 30, 0, 225) - sheet) * worn[..., None]

    shade = np.clip(0.30 + 0.78 * atlas.shade, 0, 1.04)
    lit = _is(atlas, "glow")
    sheet *= np.where(lit, 1, shade)[..., None]
    _glass(atlas, sheet, livery)
    _glow(atlas, sheet, livery)
    _sails(atlas, sheet)
    if windows is not None:
        _mix(sheet, tuple(min(255, c * 1.05) for c in livery.glow), windows(at) * _is(atlas, "hull", "second", "dark"))
    sheet[~here] = 0
    return Image.fromarray(np.clip(atlas.spread(sheet), 0, 255).astype(np.uint8), "RGB")


def _coat(tag, livery):
    coats = {"hull": livery.hull, "second": livery.second, "accent": livery.accent,
             "metal": livery.metal, "dark": tuple(c * 0.55 for c in livery.metal),
             "glass": livery.glass, "glow": livery.glow, "sail": (22, 30, 66)}
    return np.array(coats[tag], np.float32)


def _is(atlas, *tags):
    return np.isin(atlas.tag_at, [atlas.tag_names.index(t) for t in tags if t in atlas.tag_names])


def _mix(sheet, colour, amount):
    amount = np.asarray(amount, np.float32)[..., None]
    sheet += (np.array(colour, np.float32) - sheet) * amount


def _glass(atlas, sheet, livery):
    """A canopy mirrors a dark ground below and a bright sky above, with frame bars across it."""
    on = _is(atlas, "glass")
    if not on.any():
        return
    up = atlas.nrm[..., 1]
    low, high = np.array(livery.glass, np.float32), np.array((196, 222, 240), np.float32)
    t = 0.12 + 0.5 * noise.smoothstep(0.25, 0.55, up) * (1 - 0.75 * noise.smoothstep(0.62, 0.8, up))
    colour = low + (high - low) * t[..., None] * (0.8 + 0.2 * atlas.shade[..., None])
    z = atlas.pos[..., 2]
    z0, z1 = z[on].min(), z[on].max()
    along = (z - z0) / max(z1 - z0, 1e-3)
    bars = np.zeros_like(z)
    for bar in (0.06, 0.42, 0.74):
        bars = np.maximum(bars, 1 - noise.smoothstep(0.016, 0.026, np.abs(along - bar)))
    bars = np.maximum(bars, 1 - noise.smoothstep(0.03, 0.06, np.abs(atlas.pos[..., 0])))
    colour += (np.array(livery.metal, np.float32) * 0.8 - colour) * bars[..., None]
    sheet[on] = colour[on]


def _glow(atlas, sheet, livery):
    """White-hot in the middle of each engine, fading to the livery's glow at its rim."""
    on = _is(atlas, "glow")
    if not on.any():
        return
    points = atlas.points[np.unique(atlas.tris[[i for i, t in enumerate(atlas.tags) if t == "glow"]])]
    centres = []
    for p in points[:, :2]:
        near = [c for c in centres if np.hypot(*(np.mean(c, axis=0) - p)) < 2.2]
        (near[0] if near else centres.append([]) or centres[-1]).append(p)
    away = np.full(on.shape, 1e9, np.float32)
    for c in centres:
        mid, reach = np.mean(c, axis=0), max(0.1, np.ptp(np.array(c), axis=0).max() / 2)
        away = np.minimum(away, np.hypot(atlas.pos[..., 0] - mid[0], atlas.pos[..., 1] - mid[1]) / reach)
    core = (1 - noise.smoothstep(0.15, 0.75, away))[..., None]
    rim = noise.smoothstep(0.7, 1.05, away)[..., None]
    glow = np.array(livery.glow, np.float32)
    colour = glow + (255 - glow) * core
    sheet[on] = (colour * (1 - 0.55 * rim))[on]


def _sails(atlas, sheet):
    """Cells that drink light: dark blue squares that shimmer, in a bright grid."""
    on = _is(atlas, "sail")
    if not on.any():
        return
    x, y = atlas.pos[..., 0], atlas.pos[..., 1]
    cell = 0.85
    line = np.minimum(np.abs((x / cell) % 1 - 0.5), np.abs((y / cell) % 1 - 0.5))
    grid = noise.smoothstep(0.09, 0.04, line)
    shimmer = 1 + 0.35 * np.sin(np.floor(x / cell + 0.5) * 12.9 + np.floor(y / cell + 0.5) * 78.2) + 0.25 * (x + y) % 0.3
    colour = np.array((34, 48, 104), np.float32) * shimmer[..., None]
    colour += (np.array((150, 164, 190), np.float32) - colour) * (0.6 * grid)[..., None]
    sheet[on] = colour[on]


# Plating.

def panels(atlas, seed, plate):
    """For each texel: the tone of its panel (about -0.1 to 0.1), the dark of seams and rivets, and
    the light rim beside a seam. Panels are cut out of each chart by repeated halving."""
    s = atlas.size
    tone = np.zeros((s, s), np.float32)
    seams = Image.new("L", (s, s), 0)
    rims = Image.new("L", (s, s), 0)
    pen, rim = ImageDraw.Draw(seams), ImageDraw.Draw(rims)
    frames = _frames(atlas, seed, plate)
    for number, c in enumerate(atlas.charts):
        rng = np.random.default_rng([seed, number])
        fine = max(5, plate * c.scale)
        across = VIEWS[c.view][0]
        cuts = [0] + [round((f - c.low[0]) * c.scale) + MARGIN for f in frames if across == 2] + [c.w]
        cuts = [x for x in cuts if 0 <= x <= c.w]
        for x0, x1 in zip(cuts, cuts[1:]):
            _cut(rng, c, x0, 0, x1, c.h, fine, tone, pen, rim)
    seams = np.asarray(seams.filter(ImageFilter.GaussianBlur(0.55)), np.float32) / 255
    rims = np.asarray(rims.filter(ImageFilter.GaussianBlur(0.6)), np.float32) / 255
    return tone, np.clip(seams * 1.35, 0, 1), rims


def _frames(atlas, seed, plate):
    """The ship's frames: seams that run all around the hull at the same z in every chart."""
    rng = np.random.default_rng(seed)
    z, out = atlas.points[:, 2].min() + plate * 0.8, []
    while z < atlas.points[:, 2].max():
        out.append(z)
        z += plate * rng.uniform(0.8, 2.1)
    return out


def _cut(rng, c, x0, y0, x1, y1, fine, tone, pen, rim):
    w, h = x1 - x0, y1 - y0
    if w < 2 or h < 2:
        return
    if (w > fine * 1.5 or h > fine * 1.1) and rng.random() < 0.93:
        if w > h * rng.uniform(0.8, 1.9):
            m = x0 + int(w * rng.choice((0.35, 0.5, 0.62)))
            _cut(rng, c, x0, y0, m, y1, fine, tone, pen, rim)
            _cut(rng, c, m, y0, x1, y1, fine, tone, pen, rim)
        else:
            m = y0 + int(h * rng.choice((0.38, 0.5, 0.64)))
            _cut(rng, c, x0, y0, x1, m, fine, tone, pen, rim)
            _cut(rng, c, x0, m, x1, y1, fine, tone, pen, rim)
        return
    X, Y = c.x + x0, c.y + y0
    pick = rng.random()
    tone[Y:Y + h, X:X + w] = rng.normal(0, 0.045) - (0.17 if pick > 0.93 else 0)
    pen.line([(X, Y), (X + w, Y)], fill=235)
    pen.line([(X, Y), (X, Y + h)], fill=235)
    rim.line([(X + 1, Y + 1), (X + w - 1, Y + 1)], fill=190)
    rim.line([(X + 1, Y + 1), (X + 1, Y + h - 1)], fill=190)
    if w < 10 or h < 10:
        return
    if pick < 0.34:  # rivets along the seam
        for x in range(X + 4, X + w - 2, 5):
            pen.point([(x, Y + 3), (x, Y + h - 3)], fill=120)
    elif pick < 0.42:  # a grille
        for y in range(Y + 4, Y + h - 3, 3):
            pen.line([(X + 4, y), (X + w - 4, y)], fill=150)
    elif pick < 0.54:  # a hatch
        pen.rectangle([X + 4, Y + 4, X + w - 4, Y + h - 4], outline=130)


def stripe(value, low, high, soft=0.05):
    """1 where a value lies between two bounds."""
    return noise.smoothstep(low - soft, low + soft, value) * (1 - noise.smoothstep(high - soft, high + soft, value))
