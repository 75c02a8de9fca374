"""The menu's pictures: its buttons in their four states, and the table on which the ship turns."""
import numpy as np
from PIL import Image, ImageDraw, ImageFilter

from noise import fractal, ridged, smoothstep

TABLE = 100  # units along an edge of the table
STONE = ((10, 48, 62), (24, 98, 120), (66, 150, 168))  # dark, plain and light; the game dims blue most
AMBER = (214, 176, 130)


def table(size=1024):
    """Green stone, polished: cloudy, veined, with fine grains, and an inlay of amber round the middle
    and along the edges. The game colours it brown by its lamp, so it is brighter and bluer here."""
    y, x = (np.mgrid[0:size, 0:size] + 0.5) / size
    at = np.stack([x * 5, y * 5, np.zeros_like(x)], axis=-1)
    warp = np.stack([fractal(at * 0.7 + k, 40 + k, 4) for k in (3, 11, 23)], axis=-1)
    cloud = fractal(at + warp * 1.6, 51, 7)
    vein = ridged(at * 0.8 + warp * 1.1, 61, 4)
    hair = ridged(at * 2.1 + warp * 1.7, 67, 3)
    grain = fractal(at * 26, 71, 3)
    shade = np.clip(0.5 + cloud * 1.1 + grain * 0.22, 0, 1)[..., None]
    dark, plain, light = (np.array(c, np.float32) for c in STONE)
    stone = np.where(shade < 0.5, dark + (plain - dark) * shade * 2, plain + (light - plain) * (shade * 2 - 1) * 0.7)
    stone *= 1 - 0.5 * smoothstep(0.62, 0.9, hair)[..., None]
    stone += (light - stone) * 0.8 * smoothstep(0.74, 0.97, vein)[..., None]
    flecks = smoothstep(0.42, 0.6, fractal(at * 40, 83, 2))[..., None]
    stone += (np.array((230, 255, 215)) - stone) * flecks * 0.3

    inlay = _inlay((x - 0.5) * TABLE, (y - 0.5) * TABLE, TABLE / size)[..., None]
    amber = np.array(AMBER) * (0.85 + 0.25 * grain[..., None] + 0.2 * cloud[..., None])
    picture = stone + (amber - stone) * inlay * 0.7
    return Image.fromarray(np.clip(picture, 0, 255).astype(np.uint8), "RGB")


def _inlay(x, y, texel):
    """How much of each texel is inlaid, 0 to 1: two rings with a scale between them, a slender star
    of eight points, and a double frame. Lengths are units of the table."""
    r, phi = np.hypot(x, y), np.arctan2(y, x)

    def line(distance, half):
        return np.clip((half - np.abs(distance)) / texel + 0.5, 0, 1)

    def spokes(count, turn=0.0):
        return np.abs((phi + turn + np.pi / count) % (2 * np.pi / count) - np.pi / count) * r

    rings = np.maximum(line(r - 16, 0.16), line(r - 19, 0.10))
    scale = line(spokes(72), 0.07) * (np.abs(r - 17.5) < 0.75) + line(spokes(8), 0.16) * (np.abs(r - 17.5) < 1.5)
    star = np.maximum(np.clip(((16 - r) * 0.03 - spokes(8)) / texel + 0.5, 0, 1) * (r > 11),
                      np.clip(((36 - r) * 0.018 - spokes(4)) / texel + 0.5, 0, 1) * (r > 19))
    edge = TABLE / 2 - np.maximum(np.abs(x), np.abs(y))
    frame = np.maximum(line(edge - 2.4, 0.25), line(edge - 3.3, 0.10))
    return np.clip(np.maximum.reduce([rings, scale, star, frame]), 0, 1)


# state -> (plate, rim, lamp, how opaque)
BUTTONS = {"idle": ((22, 42, 44), (76, 132, 122), (70, 128, 116), 215),
           "highlighted": ((32, 84, 80), (150, 240, 212), (255, 176, 74), 240),
           "pressed": ((150, 84, 20), (255, 214, 140), (255, 246, 214), 250),
           "deactivated": ((30, 32, 34), (66, 70, 72), (46, 48, 50), 120)}
BUTTON = (192, 34)  # as the menu shows it; the picture has sides that are powers of two


def button(state, width=256, height=64):
    """A plate with two cut corners, lit from above, with a rim and a lamp at its left. It is drawn
    large in the shape that the menu gives it, and then brought to the picture's."""
    plate, rim, lamp, opaque = BUTTONS[state]
    big = 8
    w, h = BUTTON[0] * big, BUTTON[1] * big
    cut, margin = 10 * big, big
    low, right = h - margin, w - margin
    outline = [(cut, margin), (right, margin), (right, low - cut), (right - cut, low), (margin, low), (margin, cut)]
    mask = Image.new("L", (w, h), 0)
    ImageDraw.Draw(mask).polygon(outline, fill=255)
    down = np.linspace(0, 1, h, dtype=np.float32)[:, None, None]
    fall = 1.35 - 0.7 * down + (0.25 if state == "highlighted" else 0) * np.exp(-((down - 0.06) / 0.12) ** 2)
    if state == "pressed":
        fall = fall[::-1]
    body = np.clip(np.ones((h, w, 1), np.float32) * fall * np.array(plate, np.float32), 0, 255)
    picture = Image.fromarray(body.astype(np.uint8), "RGB")
    pen = ImageDraw.Draw(picture)
    bar = [6 * big, 10 * big, 9 * big, h - 7 * big]
    if state in ("highlighted", "pressed"):
        glow = Image.new("L", (w, h), 0)
        ImageDraw.Draw(glow).rectangle([bar[0] - big, bar[1] - big, bar[2] + big, bar[3] + big], fill=190)
        picture.paste(Image.new("RGB", (w, h), lamp), mask=glow.filter(ImageFilter.GaussianBlur(5 * big)))
    pen.line(outline + outline[:2], fill=rim, width=3 * big, joint="curve")
    pen.rectangle(bar, fill=lamp)
    for n in range(3):
        x = right - (9 + 5 * n) * big
        faint = tuple(int(c * 0.7) for c in rim)
        pen.line([(x, margin + 5 * big), (x - 4 * big, margin + 11 * big)], fill=faint, width=big)
    # The rim is the last thing before the transparent margin, which takes its colour, so that no
    # dark seam shows where the game filters the picture.
    picture.putalpha(mask.point(lambda v: v * opaque // 255))
    return picture.resize((width, height), Image.LANCZOS)
