"""The icon on the player's desktop: the Kestrel climbs away from the blue world."""
import numpy as np
from PIL import Image, ImageFilter

import planets
import ships
from atlas import Atlas
from noise import smoothstep
from paint import LIVERIES, paint
from shapes import face_normals

SIZES = (16, 22, 24, 32, 48, 64, 128, 256)
SMALL = 32            # up to here the ship is larger and lighter on a plain ground, or it would drown
LARGE = 1024          # drawn at this size and shrunk
WING_ROOT = (3.9, -0.15, -3.6)
BANK, RAISE, HEADING = 24, 30, 42  # degrees: wings, nose away from the viewer, clockwise from straight up
LAMP = np.array((-0.50, 0.35, 0.79))  # in the picture's axes: right, up, to the viewer
NIGHT = ((8, 12, 30), (34, 52, 100))  # at the rim and in the middle


def icons():
    """Yields each size with its picture."""
    triangles = _triangles()
    looks = {small: Image.alpha_composite(_badge(small), _ship(triangles, *ship))
             for small, ship in ((True, (1.04, 1.6)), (False, (0.94, 1.15)))}
    for size in SIZES:
        yield size, looks[size <= SMALL].resize((size, size), Image.LANCZOS)


def _badge(small):
    """A round window on the night, stars and the planet's limb in it where there is room for them."""
    x, y = _axes()
    r = np.hypot(x, y)
    rim, middle = (np.array(c, float) for c in NIGHT)
    colour = rim + (middle - rim) * np.exp(-2.2 * ((x - 0.25) ** 2 + (y - 0.35) ** 2))[..., None]
    if not small:
        rng = np.random.default_rng(3)
        for cx, cy, power in rng.uniform((-1, -1, 0.3), (1, 1, 1), (60, 3)):
            spot = np.exp(-((x - cx) ** 2 + (y - cy) ** 2) / (2 * (0.009 * power) ** 2))
            colour += 220 * power * spot[..., None]
        ball, cover = _planet(x, y, (-0.42, -0.86), 0.98)
        colour += (ball - colour) * cover[..., None]
    colour += (np.array((96, 126, 150)) - colour) * (smoothstep(0.925, 0.95, r) * 0.8)[..., None]
    opaque = 255 * (1 - smoothstep(0.970, 0.976, r))
    return _picture(colour, opaque)


def _planet(x, y, centre, radius):
    """The blue world under its clouds in the lamp's light, its air glowing past the limb."""
    px, py = (x - centre[0]) / radius, (y - centre[1]) / radius
    r = np.hypot(px, py)
    depth = np.sqrt(np.clip(1 - r * r, 0, 1))
    rows = np.arcsin(np.clip(py, -1, 1)) / np.pi + 0.5
    columns = (np.arctan2(px, depth) / (2 * np.pi) + 0.36) % 1
    surface, clouds = (_at(p, columns, rows) for p in (planets.blue_world(), planets.clouds()))
    colour = surface[..., :3] * 1.25
    colour += (np.array((238, 244, 255)) - colour) * (clouds[..., 3:] / 255 * 0.8)
    light = np.clip(np.stack([px, py, depth], -1) @ LAMP, 0, 1)
    colour *= (0.12 + 1.15 * light)[..., None]
    air = smoothstep(0.80, 1.0, r) * (r < 1) + np.exp(-np.clip(r - 1, 0, 1) * 26) * (r >= 1)
    colour += (np.array((110, 190, 255)) - colour) * (0.75 * air * (r < 1))[..., None]
    colour[r >= 1] = (110, 190, 255)
    return colour, np.where(r < 1, 1, 0.75 * air)


def _at(picture, columns, rows):
    """Texels of a picture at places from 0 to 1, rows from the bottom."""
    texels = np.asarray(picture, float)
    h, w = texels.shape[:2]
    return texels[((1 - rows) * (h - 1)).astype(int), (columns * (w - 1)).astype(int)]


def _triangles():
    """The ship as triangles in the picture's axes: corners, their places on a sheet, and the sheet."""
    turn = _turned(2, -HEADING) @ _turned(0, -RAISE) @ _turned(1, BANK)
    found = []
    for name, sides in (("kestrel_hull", (0,)), ("kestrel_wing", (1, -1))):
        shape, size, livery, coat = ships.MODELS[name]
        atlas = Atlas(shape(), size)
        sheet = np.asarray(paint(atlas, LIVERIES[livery], **coat), float)
        for side in sides:
            points = atlas.points * (side or 1, 1, 1) + np.array(WING_ROOT) * (side, abs(side), abs(side))
            seen = np.stack([-points[:, 0], points[:, 2], points[:, 1]], -1) @ turn.T  # from above, nose up
            found.append((seen[atlas.tris[:, ::side or 1]], np.array(atlas.uvs)[atlas.uv_tris[:, ::side or 1]], sheet))
    return found


def _turned(axis, degrees):
    a, m = np.radians(degrees), np.eye(3)
    i, j = [(1, 2), (2, 0), (0, 1)][axis]
    m[i, i] = m[j, j] = np.cos(a)
    m[i, j], m[j, i] = -np.sin(a), np.sin(a)
    return m


def _ship(triangles, fill, light):
    """The ship alone, `fill` of the picture long, with a dark seam that sets it off."""
    every = np.concatenate([t.reshape(-1, 3) for t, _, _ in triangles])
    low, high = every.min(axis=0), every.max(axis=0)
    scale = fill * LARGE / (high - low)[:2].max()
    middle = (low + high) / 2
    colour, depth = np.zeros((LARGE, LARGE, 3)), np.full((LARGE, LARGE), -np.inf)
    for corners, uvs, sheet in triangles:
        flat = corners.reshape(-1, 3)
        normals = face_normals(flat, np.arange(len(flat)).reshape(-1, 3))
        at = (corners - middle) * (scale, -scale, scale) + (LARGE / 2, LARGE / 2, 0)
        for t, uv, n in zip(at, uvs, normals):
            if n[2] > 0:
                _fill(colour, depth, t, uv, sheet, light * (0.35 + 0.75 * max(0.0, n @ LAMP)))
    opaque = np.isfinite(depth) * 255.0
    ship = _picture(colour, opaque)
    seam = ship.getchannel("A").filter(ImageFilter.MaxFilter(13)).filter(ImageFilter.GaussianBlur(5))
    ground = Image.new("RGBA", ship.size, (4, 6, 16, 0))
    ground.putalpha(seam.point(lambda v: v * 0.8))
    return Image.alpha_composite(ground, ship)


def _fill(colour, depth, t, uv, sheet, light):
    """One triangle, nearer ones in front."""
    low, high = (np.clip(edge, 0, LARGE - 1).astype(int) for edge in (t.min(axis=0), t.max(axis=0) + 1))
    rows, cols = np.mgrid[low[1]:high[1] + 1, low[0]:high[0] + 1]
    (ax, ay), (bx, by), (cx, cy) = t[:, :2]
    area = (bx - ax) * (cy - ay) - (by - ay) * (cx - ax)
    if not area:
        return
    b = ((cols - ax) * (cy - ay) - (rows - ay) * (cx - ax)) / area
    c = ((bx - ax) * (rows - ay) - (by - ay) * (cols - ax)) / area
    a = 1 - b - c
    z = a * t[0, 2] + b * t[1, 2] + c * t[2, 2]
    inside = (a >= 0) & (b >= 0) & (c >= 0) & (z > depth[rows, cols])
    rows, cols = rows[inside], cols[inside]
    depth[rows, cols] = z[inside]
    weights = np.stack([a, b, c], -1)[inside]
    u, v = (weights @ uv).T
    colour[rows, cols] = _at(sheet, u.clip(0, 1), v.clip(0, 1)) * light


def _axes():
    """x to the right and y upwards, from -1 to 1."""
    y, x = (np.mgrid[0:LARGE, 0:LARGE] + 0.5) / LARGE * 2 - 1
    return x, -y


def _picture(colour, opaque):
    return Image.fromarray(np.clip(np.dstack([colour, opaque]), 0, 255).astype(np.uint8), "RGBA")
