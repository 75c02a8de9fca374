"""The flat pictures: the menu's buttons in their four states, and the crosshair mask."""
import numpy as np
from PIL import Image, ImageDraw, ImageFilter

# state -> (plate, rim, lamp)
BUTTONS = {"idle": ((22, 34, 50), (86, 118, 146), (58, 96, 124)),
           "highlighted": ((34, 58, 82), (150, 204, 236), (255, 158, 66)),
           "pressed": ((120, 62, 18), (255, 196, 120), (255, 236, 200)),
           "deactivated": ((24, 26, 30), (56, 60, 66), (40, 42, 46))}


def button(state, width=256, height=64):
    """A plate with two cut corners, a rim and a lamp at its left."""
    plate, rim, lamp = BUTTONS[state]
    big = 4
    w, h, cut = width * big, height * big, 20 * big
    outline = [(cut, 3), (w - 4, 3), (w - 4, h - cut), (w - cut, h - 4), (3, h - 4), (3, cut)]
    mask = Image.new("L", (w, h), 0)
    ImageDraw.Draw(mask).polygon(outline, fill=255)
    fall = np.linspace(1.45, 0.7, h, dtype=np.float32)[:, None, None]
    body = np.clip(np.ones((h, w, 1), np.float32) * fall * np.array(plate, np.float32), 0, 255)
    picture = Image.fromarray(body.astype(np.uint8), "RGB")
    pen = ImageDraw.Draw(picture)
    pen.line(outline + outline[:2], fill=rim, width=3 * big, joint="curve")
    inner = [(cut + 20, 24), (w - 26, 24), (w - 26, h - cut - 12)]
    pen.line(inner, fill=tuple(int(c * 0.6) for c in rim), width=big)
    pen.rectangle([6 * big, cut + 2 * big, 10 * big, h - 9 * big], fill=lamp)
    glow = Image.new("L", (w, h), 0)
    ImageDraw.Draw(glow).rectangle([5 * big, cut, 11 * big, h - 8 * big], fill=150)
    picture.paste(Image.new("RGB", (w, h), lamp), mask=glow.filter(ImageFilter.GaussianBlur(9 * big)))
    opaque = 225 if state != "deactivated" else 150
    picture.putalpha(mask.point(lambda v: v * opaque // 255))
    return picture.resize((width, height), Image.LANCZOS)


def crosshair(size=41):
    """A ring with four bars that leave the middle free, as rows of true and false."""
    y, x = np.mgrid[0:size, 0:size] - size // 2
    r = np.hypot(x, y)
    ring = (np.abs(r - size * 0.30) < 0.75) & (np.abs(np.abs(x) - np.abs(y)) < size * 0.26)
    bars = ((x == 0) | (y == 0)) & (r > size * 0.20) & (r < size * 0.49)
    return ring | bars | ((x == 0) & (y == 0))


def write_mask(path, bits):
    """A one-bit mask: its size as text, then its rows from the bottom up, each in whole bytes."""
    rows = np.packbits(bits[::-1], axis=1)
    with open(path, "wb") as f:
        f.write(f"{bits.shape[1]} {bits.shape[0]}\n".encode("ascii"))
        f.write(rows.tobytes())
