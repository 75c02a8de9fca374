"""The one-bit masks: the shapes of the cockpit's instruments, the plates that they sit in, the lines
drawn on those plates, the crosshairs, and the rings of the shield page. A mask is rows of true and
false, top row first; shapes are laid out in pixels with y up, and a pixel counts by its middle.

A plate and the ink on it have one size and one place. An instrument's place within its plate follows
from the numbers below; the game file says where each goes on the screen."""
import numpy as np

SCOPE = 52           # radius of a scope
ARC = (57, 67)       # inner and outer radius of the bars that bend round a scope
ARC_HALF = 68        # degrees that such a bar reaches up and down from the horizontal
POD = (148, 144)     # a fighter's plate: a disc of radius 72 round (72, 72), and a bridge to its neighbour
PANEL = (180, 153)   # the plate in the middle; the display sits 9 above its lower edge, the throttle 135
DISPLAY = (160, 120)
THROTTLE = (160, 10)
BAY = (120, 120)     # a gunship's plate round a scope
RACK = (34, 153)     # a gunship's plate round a column, which sits 36 above its lower edge
COLUMN = (14, 108)
BALL = 132           # an interceptor's only plate, round a scope of radius SMALL_SCOPE
SMALL_SCOPE = 46
SMALL_ARC = (51, 60)

BOLT = """
.....##
....##.
...##..
..##...
.######
....##.
...##..
..##...
.##....
"""
DROP = """
...#...
...#...
..###..
..###..
.#####.
#######
#######
#######
.#####.
"""
AHEAD = """
....#....
...###...
..##.##..
.##...##.
##.....##
"""


def _plane(width, height):
    """The middles of all pixels, as x and y."""
    y, x = np.mgrid[0:height, 0:width] + 0.5
    return x, height - y


def _polygon(x, y, corners):
    """Inside a convex outline that runs counter-clockwise."""
    inside = np.ones_like(x, bool)
    for (ax, ay), (bx, by) in zip(corners, corners[1:] + corners[:1]):
        inside &= (bx - ax) * (y - ay) - (by - ay) * (x - ax) >= 0
    return inside


def _plate(width, height, cuts):
    """A rectangle whose corners are cut: lower left, lower right, upper right, upper left."""
    a, b, c, d = cuts
    x, y = _plane(width, height)
    return _polygon(x, y, [(0, a), (a, 0), (width - b, 0), (width, b), (width, height - c), (width - c, height),
                           (d, height), (0, height - d)])


def _edge(bits, width=1):
    """The outermost pixels of a shape."""
    core = bits
    for _ in range(width):
        p = np.pad(core, 1)
        core = core & p[2:, 1:-1] & p[:-2, 1:-1] & p[1:-1, 2:] & p[1:-1, :-2]
    return bits & ~core


def _stamp(bits, picture, x, y):
    """Puts a small picture into a mask, its middle at (x, y)."""
    rows = np.array([[c == "#" for c in line] for line in picture.split()])
    h, w = rows.shape
    top, left = bits.shape[0] - int(y + h / 2), int(x - w / 2)
    bits[top:top + h, left:left + w] |= rows


def _cropped(bits):
    rows, columns = np.nonzero(bits.any(1))[0], np.nonzero(bits.any(0))[0]
    return bits[rows[0]:rows[-1] + 1, columns[0]:columns[-1] + 1]


def _polar(x, y, cx, cy):
    """Distance and direction from a point; 0 degrees is to the right, 90 up."""
    return np.hypot(x - cx, y - cy), np.degrees(np.arctan2(y - cy, x - cx))


def crosshair(size=64):
    """Four bars that leave the middle free, a ring broken at each of them, and a dot to aim with."""
    x, y = _plane(size, size)
    r, phi = _polar(x, y, size / 2, size / 2)
    dx, dy = np.abs(x - size / 2), np.abs(y - size / 2)
    off_axis = np.abs((phi + 45) % 90 - 45)
    bars = ((dx < 1) | (dy < 1)) & (r > 11) & (r < 20)
    ring = (np.abs(r - 25) < 0.8) & (off_axis > 17)
    tips = ((dx < 1) | (dy < 1)) & (r > 27) & (r < 31)
    return bars | ring | tips | (r < 1.5)


def crosshair_wide(size=80):
    """A gunner's: brackets to the left and right, a ladder of drop marks below."""
    x, y = _plane(size, size)
    dx, dy = x - size / 2, y - size / 2
    box = _edge((np.abs(dx) < 32) & (np.abs(dy) < 22), 2)
    brackets = box & ((np.abs(dx) > 25) | (np.abs(dy) < 1))
    cross = (((np.abs(dx) < 1) & (np.abs(dy) > 6)) | ((np.abs(dy) < 1) & (np.abs(dx) > 6))) & (np.hypot(dx, dy) < 15)
    ladder = np.zeros_like(brackets)
    for n, half in enumerate((7, 5, 3)):
        ladder |= (np.abs(dy + 20 + 6 * n) < 0.6) & (np.abs(dx) < half)
    return brackets | cross | ladder | (np.hypot(dx, dy) < 1.5)


def crosshair_small(size=40):
    """An interceptor's: a caret and two wings."""
    x, y = _plane(size, size)
    dx, dy = np.abs(x - size / 2), y - size / 2
    caret = (np.abs(dy + dx) < 1.1) & (dx < 8)
    wings = (np.abs(dy) < 1) & (dx > 11) & (dx < 18)
    return caret | wings | ((dx < 1) & (dy > 7) & (dy < 13))


def scope(radius=SCOPE):
    x, y = _plane(2 * radius, 2 * radius)
    return np.hypot(x - radius, y - radius) < radius


def arc(radii, segments):
    """A bar that bends round the left of a scope, cut into cells."""
    inner, outer = radii
    x, y = _plane(2 * outer, 2 * outer)
    r, phi = _polar(x, y, outer, outer)
    along = (np.abs(phi) - (180 - ARC_HALF)) / ARC_HALF * segments / 2
    to_gap = np.abs(along - np.round(along)) * 2 * np.radians(ARC_HALF) / segments * r
    inside = (r > inner) & (r < outer) & (np.abs(phi) > 180 - ARC_HALF)
    return _cropped(inside & ((to_gap > 1.1) | (np.abs(phi) < 180 - ARC_HALF + 1)))


def display():
    return _plate(*DISPLAY, (12, 12, 12, 12))


def throttle(cells=16):
    """A strip of slanted cells."""
    w, h = THROTTLE
    x, y = _plane(w, h)
    return (x - y * 0.6 + h * 0.6) % (w / cells) > 2.2


def column(cells=11):
    """A chamfered column of cells."""
    w, h = COLUMN
    return _plate(w, h, (4, 4, 4, 4)) & (_plane(w, h)[1] % ((h + 2) / cells) < h / cells - 1.8)


def _pod():
    x, y = _plane(*POD)
    bridge = _polygon(x, y, [(72, 0), (148, 0), (148, 103), (104, 136), (72, 144)])
    return (np.hypot(x - 72, y - 72) < 72) | bridge


def _graticule(x, y, cx, cy, radius):
    """A scope's rim, four ticks into it and a dotted ring half-way."""
    r, phi = _polar(x, y, cx, cy)
    axis = (np.abs(x - cx) < 1) | (np.abs(y - cy) < 1)
    dots = (np.abs(r - radius / 2) < 0.6) & (phi % 12 < 5)
    return (np.abs(r - radius - 1) < 0.75) | (axis & (r < radius) & (r > radius - 8)) | dots | (axis & (r < 2))


def _arc_marks(x, y, cx, cy, outer):
    """Empty, half and full on the outside of a bent bar."""
    r, phi = _polar(x, y, cx, cy)
    marks = np.zeros_like(x, bool)
    for at in (180 - ARC_HALF, 180, ARC_HALF - 180):
        marks |= np.abs((phi - at + 180) % 360 - 180) * np.pi / 180 * r < 1
    return marks & (r > outer + 1) & (r < outer + 5)


def pod_ink(right):
    """What is drawn on a fighter's plate: the left one has the scope ahead and the battery, the right
    one the scope back and the tank."""
    x, y = _plane(*POD)
    bits = _edge(_pod()) | _graticule(x, y, 72, 72, SCOPE) | _arc_marks(x, y, 72, 72, ARC[1])
    if not right:
        _stamp(bits, BOLT, 129, 18)
        _stamp(bits, AHEAD, 72, 134)
        return bits
    bits = bits[:, ::-1].copy()
    _stamp(bits, DROP, POD[0] - 129, 18)
    _stamp(bits, "\n".join(AHEAD.split()[::-1]), POD[0] - 72, 134)
    return bits


def _panel():
    return _plate(*PANEL, (0, 0, 14, 14))


def panel_ink():
    """The plate's rim, and a line three pixels outside of the display."""
    bits = _edge(_panel())
    w, h = DISPLAY[0] + 6, DISPLAY[1] + 6
    left, low = (PANEL[0] - w) // 2, PANEL[1] - (9 - 3)
    bits[low - h:low, left:left + w] |= _edge(_plate(w, h, (13, 13, 13, 13)))
    return bits


def _bay():
    return _plate(*BAY, (30, 30, 30, 30))


def bay_ink():
    x, y = _plane(*BAY)
    bits = _edge(_bay(), 2) | _graticule(x, y, 60, 60, SCOPE)
    corners = np.abs(np.abs(x - 60) + np.abs(y - 60) - 82) < 0.8
    bits |= corners & (np.abs(np.abs(x - 60) - np.abs(y - 60)) < 12)
    return bits


def _rack():
    return _plate(*RACK, (0, 0, 10, 10))


def rack_ink(icon):
    x, y = _plane(*RACK)
    bits = _edge(_rack(), 2)
    for part in (0, 0.25, 0.5, 0.75, 1):
        bits |= (np.abs(y - 36 - part * COLUMN[1]) < 1) & (np.abs(x - 17) > 9) & (np.abs(x - 17) < 13)
    _stamp(bits, icon, 17, 20)
    return bits


def _ball():
    x, y = _plane(BALL, BALL)
    c = BALL / 2
    return (np.hypot(x - c, y - c) < c) | _polygon(x, y, [(c - 44, 0), (c + 44, 0), (c + 30, 30), (c - 30, 30)])


def ball_ink(right):
    """One half of what is drawn on an interceptor's plate: each is of another kind than the bar that
    it stands beside."""
    x, y = _plane(BALL, BALL)
    c = BALL / 2
    bits = _edge(_ball()) | _graticule(x, y, c, c, SMALL_SCOPE) | _arc_marks(x, y, c, c, SMALL_ARC[1])
    bits |= _arc_marks(BALL - x, y, c, c, SMALL_ARC[1])
    return (bits & (x > c))[:, BALL // 2:] if right else (bits & (x < c))[:, :BALL // 2]


def shield(size=256):
    """Rings round a ship seen from above. The display is wider than high by a third, so what is to be
    round on it is narrow here; it also shrinks to half, so nothing is thinner than three pixels."""
    x, y = _plane(size, size)
    r, phi = _polar((x - size / 2) * 4 / 3 + size / 2, y, size / 2, size / 2)
    outer = (np.abs(r - 115) < 6) & (np.abs((phi + 45) % 90 - 45) > 4)
    inner = (np.abs(r - 101) < 2.2) & (np.abs(phi % 45 - 22.5) < 17)
    teeth = (r > 88) & (r < 97) & (np.abs((phi + 22.5) % 45 - 22.5) * r < 115)
    return outer | inner | teeth


MASKS = {
    "crosshair": crosshair, "crosshair_small": crosshair_small, "crosshair_wide": crosshair_wide,
    "scope": scope, "scope_small": lambda: scope(SMALL_SCOPE),
    "display": display, "throttle": throttle, "column": column,
    "arc_left": lambda: arc(ARC, 14), "arc_right": lambda: arc(ARC, 14)[:, ::-1],
    "arc_small_left": lambda: arc(SMALL_ARC, 12), "arc_small_right": lambda: arc(SMALL_ARC, 12)[:, ::-1],
    "plate_pod_left": _pod, "plate_pod_right": lambda: _pod()[:, ::-1],
    "plate_panel": _panel, "plate_bay": _bay, "plate_rack": _rack, "plate_ball": _ball,
    "ink_pod_left": lambda: pod_ink(False), "ink_pod_right": lambda: pod_ink(True),
    "ink_panel": panel_ink, "ink_bay": bay_ink,
    "ink_rack_battery": lambda: rack_ink(BOLT), "ink_rack_tank": lambda: rack_ink(DROP),
    "ink_ball_left": lambda: ball_ink(False), "ink_ball_right": lambda: ball_ink(True),
    "shield_mask": shield,
}


def write(path, bits):
    """Its size as text, then its rows from the bottom up, each in whole bytes."""
    rows = np.packbits(bits[::-1], axis=1)
    with open(path, "wb") as f:
        f.write(f"{bits.shape[1]} {bits.shape[0]}\n".encode("ascii"))
        f.write(rows.tobytes())
