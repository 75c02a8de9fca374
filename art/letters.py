"""The 3D typeface: every letter is a handful of strokes on a small grid, their corners rounded, swept
with a chiselled profile so that light from above finds an upper facet on each of them. Letters are
drawn with capitals one unit high and then brought to their size and place; x runs to the right of
the reader and z towards him."""
import numpy as np

from shapes import Mesh

SIZE = 0.5          # height of a capital in the game; the menu's title has to fit below its panel
STROKE = 0.095      # half the width of a stroke
DEPTH = 0.12        # half the depth of a letter
# Where a letter stands, off its origin: the menu writes its title from the middle of the window to the
# right, across its buttons; so it comes to stand in the middle, below them.
STAND = (-1.44, -2.42)
LEAN = 0.38         # how far a letter leans back, so that its front, too, faces the light above
SIDE = 0.05         # free space on either side of a letter
CORNER = 0.17       # radius of a rounded corner
# The profile across a stroke: (across, towards the reader), both as shares of the sizes above.
PROFILE = ((-1.0, -1.0), (-1.0, 0.15), (-0.62, 0.55), (-0.12, 1.0), (0.12, 1.0), (0.62, 0.55), (1.0, 0.15), (1.0, -1.0))

# A stroke is a chain of points "x,y"; x and y count in sixths: a capital stands from 0 to 6, a small
# letter from 0 to 4, tails reach down to -2. A "!" behind a point keeps its corner sharp, "@" at the
# end closes the chain.
GLYPHS = {
    "A": ["0,0 0,4 1,6 3,6 4,4 4,0", "0,2.2 4,2.2"],
    "B": ["0,0! 0,6! 3.4,6 3.4,3.2! 0,3.2!", "0,0! 4,0 4,3.2 0,3.2!"],
    "C": ["4,6 0,6 0,0 4,0"],
    "D": ["0,0! 0,6! 2.6,6 4,4.4 4,1.6 2.6,0 @"],
    "E": ["3.8,6 0,6! 0,0! 3.8,0", "0,3.1 3.2,3.1"],
    "F": ["3.8,6 0,6! 0,0", "0,3.1 3.2,3.1"],
    "G": ["4,6 0,6 0,0 4,0 4,3 2.2,3"],
    "H": ["0,0 0,6", "4,0 4,6", "0,3.1 4,3.1"],
    "I": ["1,0 1,6"],
    "J": ["3.4,6 3.4,0 0,0 0,1.8"],
    "K": ["0,0 0,6", "4,6 0.6,3.05 4,0"],
    "L": ["0,6 0,0! 3.6,0"],
    "M": ["0,0 0,6! 2.5,2.6! 5,6! 5,0"],
    "N": ["0,0 0,6! 4,0! 4,6"],
    "O": ["0,6 4,6 4,0 0,0 @"],
    "P": ["0,0 0,6! 4,6 4,2.8 0,2.8"],
    "Q": ["0,6 4,6 4,0 0,0 @", "2.4,1.8 4.5,-0.7"],
    "R": ["0,0 0,6! 4,6 4,2.8 0,2.8", "1.8,2.8 4,0"],
    "S": ["4,6 0,6 0,3.1 4,3.1 4,0 0,0"],
    "T": ["0,6 4.4,6", "2.2,6 2.2,0"],
    "U": ["0,6 0,0 4,0 4,6"],
    "V": ["0,6 2.2,0! 4.4,6"],
    "W": ["0,6 1.4,0! 3,4.4! 4.6,0! 6,6"],
    "X": ["0,0 4.2,6", "0,6 4.2,0"],
    "Y": ["0,6 2.2,3! 4.4,6", "2.2,3 2.2,0"],
    "Z": ["0,6 4,6! 0,0! 4,0"],
    "a": ["0.4,4 3.4,4 3.4,0", "3.4,2.2 0,2.2 0,0 3.4,0"],
    "b": ["0,6 0,0! 3.4,0 3.4,4 0,4"],
    "c": ["3.2,4 0,4 0,0 3.2,0"],
    "d": ["3.4,6 3.4,0! 0,0 0,4 3.4,4"],
    "e": ["0,2.1 3.4,2.1! 3.4,4 0,4 0,0 3.2,0"],
    "f": ["0.9,0 0.9,6 2.8,6", "0,3.9 2.5,3.9"],
    "g": ["3.4,0 0,0 0,4 3.4,4! 3.4,-2 0.3,-2"],
    "h": ["0,0 0,6", "0,4 3.4,4 3.4,0"],
    "i": ["1,0 1,4", "1,5.55 1,6.2"],
    "j": ["1.7,4 1.7,-2 0,-2", "1.7,5.55 1.7,6.2"],
    "k": ["0,0 0,6", "3.2,4 0.5,2.1 3.2,0"],
    "l": ["0.4,6 0.4,0 1.8,0"],
    "m": ["0,0 0,4! 2.6,4 2.6,0", "2.6,4 5.2,4 5.2,0"],
    "n": ["0,0 0,4! 3.4,4 3.4,0"],
    "o": ["0,4 3.4,4 3.4,0 0,0 @"],
    "p": ["0,-2 0,4! 3.4,4 3.4,0 0,0"],
    "q": ["3.4,-2 3.4,4! 0,4 0,0 3.4,0"],
    "r": ["0,0 0,4! 2.4,4"],
    "s": ["3.2,4 0,4 0,2.05 3.2,2.05 3.2,0 0,0"],
    "t": ["0.9,5.6 0.9,0 2.7,0", "0,4 2.5,4"],
    "u": ["0,4 0,0 3.4,0", "3.4,4 3.4,0"],
    "v": ["0,4 1.7,0! 3.4,4"],
    "w": ["0,4 1.2,0! 2.4,3! 3.6,0! 4.8,4"],
    "x": ["0,0 3.2,4", "0,4 3.2,0"],
    "y": ["0,4 0,0 3.4,0", "3.4,4 3.4,-2 0.3,-2"],
    "z": ["0,4 3.2,4! 0,0! 3.2,0"],
    "0": ["0,6 4,6 4,0 0,0 @", "1.3,1.9 2.7,4.1"],
    "1": ["0,4.6 1.8,6! 1.8,0", "0.3,0 3.3,0"],
    "2": ["0,6 4,6 4,3.4 0,2.6 0,0! 4,0"],
    "3": ["0,6 3.8,6 3.8,3.1! 0.9,3.1", "3.8,3.1 3.8,0 0,0"],
    "4": ["3,0 3,6! 0,2! 4.2,2"],
    "5": ["4,6 0,6! 0,3.4! 4,3.4 4,0 0,0"],
    "6": ["3.8,6 0,6 0,0 4,0 4,3.3 0,3.3"],
    "7": ["0,6 4,6! 1.4,0"],
    "8": ["0,6 4,6 4,3.1 0,3.1 @", "0,3.1 4,3.1 4,0 0,0 @"],
    "9": ["0.2,0 4,0 4,6 0,6 0,2.7 4,2.7"],
}


def chains(letter):
    """A letter's strokes as ([(x, y)], closed), in units."""
    for text in GLYPHS[letter]:
        words = text.split()
        closed = words[-1] == "@"
        words = words[:-1] if closed else words
        points = [tuple(float(v) / 6 for v in w.rstrip("!").split(",")) for w in words]
        sharp = [w.endswith("!") for w in words]
        points = [_seated(points, n, sharp[n] and 0 < n < len(points) - 1) for n in range(len(points))]
        yield _rounded(points, sharp, closed), closed


def _seated(points, n, corner):
    """A narrow corner's mitre reaches far out: the corner moves up or down by as much, so that its
    tip keeps to the line that the other letters stand on."""
    if not corner:
        return points[n]
    b = np.array(points[n])
    d1, d2 = (np.array(points[k]) - b for k in (n - 1, n + 1))
    d1, d2 = d1 / np.linalg.norm(d1), d2 / np.linalg.norm(d2)
    if d1 @ d2 < 0.66:
        return points[n]
    reach = 1 / np.sqrt((1 - d1 @ d2) / 2)
    return b + (0, np.sign((d1 + d2)[1]) * (reach - 1) * STROKE)


def _rounded(points, sharp, closed, steps=2):
    p = np.array(points)
    out = []
    for n in range(len(p)):
        if sharp[n] or (not closed and n in (0, len(p) - 1)):
            out.append(p[n])
            continue
        a, b = p[n - 1] - p[n], p[(n + 1) % len(p)] - p[n]
        la, lb = np.linalg.norm(a), np.linalg.norm(b)
        r = min(CORNER, 0.45 * la, 0.45 * lb)
        start, end = p[n] + a / la * r, p[n] + b / lb * r
        for k in range(steps + 1):
            t = k / steps
            out.append((1 - t) ** 2 * start + 2 * t * (1 - t) * p[n] + t * t * end)
    return np.array(out)


def stroke(points, closed):
    """A chain swept with the profile: mitred at its corners, its ends chiselled too."""
    m = Mesh()
    n = len(points)
    rings = []
    for i in range(n):
        before = points[i] - points[i - 1] if i or closed else points[1] - points[0]
        after = points[(i + 1) % n] - points[i] if i < n - 1 or closed else before
        before, after = before / np.linalg.norm(before), after / np.linalg.norm(after)
        n1, n2 = np.array([-before[1], before[0]]), np.array([-after[1], after[0]])
        across = (n1 + n2) / max(0.1, (n1 + n2) @ n1)
        rings.append([(points[i] + across * u * STROKE, w * DEPTH) for u, w in PROFILE])
    if not closed:
        rings[0] = _hipped(rings[0], points[0] - points[1])
        rings[-1] = _hipped(rings[-1], points[-1] - points[-2])
    count = len(PROFILE)
    for ring in rings:
        m.points.extend((x, y, z) for (x, y), z in ring)
    for s in range(len(rings) if closed else len(rings) - 1):
        a, b = s * count, (s + 1) % len(rings) * count
        for k in range(count):
            o = (k + 1) % count
            m.faces.append(((a + k, b + k, b + o, a + o), "hull", "letter"))
    if not closed:
        last = (len(rings) - 1) * count
        for k in range(count // 2 - 1):
            ends = (k, k + 1, count - 2 - k, count - 1 - k)
            m.faces.append((ends, "hull", "letter"))
            m.faces.append((tuple(last + e for e in ends[::-1]), "hull", "letter"))
    return m


def _hipped(ring, outward):
    """The end of a stroke slopes like its sides: the rim reaches out, the ridge stays behind."""
    d = outward / np.linalg.norm(outward) * STROKE
    return [(p + d * abs(u), z) for (p, z), (u, _) in zip(ring, PROFILE)]


def letter(character):
    """Points and triangles of a letter. Two points that belong to no face stand at its
    sides: the game takes a letter's width from all its points."""
    m = Mesh()
    for points, closed in chains(character):
        m.add(stroke(points, closed))
    points, tris, _, _ = m.triangles(smooth=28)
    low, high = points[:, 0].min() - SIDE, points[:, 0].max() + SIDE
    points = np.concatenate([points, [(low, 0, 0), (high, 0, 0)]])
    points -= ((low + high) / 2, 0.5, 0)
    points[:, 2] -= LEAN * points[:, 1]
    return points * SIZE + (*STAND, 0), tris


def file_name(character):
    """Small and capital letters need names that also differ on file systems that mix them up."""
    kind = "digit" if character.isdigit() else "capital" if character.isupper() else "small"
    return f"{kind}_{character.lower()}.ase"
