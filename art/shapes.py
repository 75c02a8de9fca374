"""The mesh kit: a small set of shapes from which every model is put together.

Axes are the game's: x to the left of the pilot, y up, z forward. Faces run counter-clockwise seen
from outside. A face carries a tag (what it is made of: the painter looks at it) and a group (which
part of the texture sheet it is drawn on).
"""
import math

import numpy as np

WELD = 1e-4  # points nearer than this are one point


class Mesh:
    def __init__(self):
        self.points = []
        self.faces = []  # (tuple of point numbers, tag, group)

    def add(self, other):
        """Takes in a copy of another mesh."""
        base = len(self.points)
        self.points.extend(other.points)
        self.faces.extend((tuple(i + base for i in f), tag, group) for f, tag, group in other.faces)
        return self

    def face(self, points, tag, group):
        base = len(self.points)
        self.points.extend(tuple(p) for p in points)
        self.faces.append((tuple(range(base, base + len(points))), tag, group))

    def moved(self, x=0, y=0, z=0):
        return self._mapped(lambda p: p + (x, y, z))

    def scaled(self, x=1, y=1, z=1):
        return self._mapped(lambda p: p * (x, y, z))

    def turned(self, axis, degrees):
        """Turned about an axis through the origin, "x", "y" or "z"."""
        a = math.radians(degrees)
        i, j = {"x": (1, 2), "y": (2, 0), "z": (0, 1)}[axis]
        m = np.eye(3)
        m[i, i] = m[j, j] = math.cos(a)
        m[i, j], m[j, i] = -math.sin(a), math.sin(a)
        return self._mapped(lambda p: p @ m.T)

    def mirrored(self):
        """The other side of the ship: x changes its sign, and the faces are turned round."""
        m = self._mapped(lambda p: p * (-1, 1, 1))
        m.faces = [(f[::-1], tag, group) for f, tag, group in m.faces]
        return m

    def both_sides(self):
        return Mesh().add(self).add(self.mirrored())

    def tagged(self, tag=None, group=None):
        m = Mesh().add(self)
        m.faces = [(f, tag or t, group or g) for f, t, g in m.faces]
        return m

    def _mapped(self, move):
        m = Mesh()
        m.points = [tuple(p) for p in move(np.array(self.points, float))]
        m.faces = list(self.faces)
        return m

    # The triangles that the writer and the painter work on.

    def triangles(self, smooth=38):
        """Returns (points, triangles, tags, groups). Where two faces meet at more than `smooth`
        degrees the points are doubled, since a corner's normal is the mean of all faces at it."""
        points, index = weld(np.array(self.points, float))
        tris, tags, groups = [], [], []
        for f, tag, group in self.faces:
            ring = [int(index[i]) for i in f]
            ring = [p for n, p in enumerate(ring) if p != ring[n - 1]]
            for n in range(1, len(ring) - 1):
                t = (ring[0], ring[n], ring[n + 1])
                if len(set(t)) == 3 and _area(points, t) > 1e-7:
                    tris.append(t)
                    tags.append(tag)
                    groups.append(group)
        tris = np.array(tris)
        points, tris = split_hard_edges(points, tris, smooth)
        return points, tris, tags, groups


def _area(points, t):
    return np.linalg.norm(np.cross(points[t[1]] - points[t[0]], points[t[2]] - points[t[0]]))


def weld(points):
    """Joins points that lie on one spot. Returns the points left and the new number of each."""
    keys = np.round(points / WELD).astype(np.int64)
    _, first, index = np.unique(keys, axis=0, return_index=True, return_inverse=True)
    return points[first], index.reshape(-1)


def face_normals(points, tris):
    n = np.cross(points[tris[:, 1]] - points[tris[:, 0]], points[tris[:, 2]] - points[tris[:, 0]])
    return n / np.maximum(np.linalg.norm(n, axis=1, keepdims=True), 1e-12)


def edges(tris):
    """For each edge, as a sorted pair of point numbers, the triangles at it."""
    found = {}
    for number, t in enumerate(tris):
        for a, b in ((t[0], t[1]), (t[1], t[2]), (t[2], t[0])):
            found.setdefault((min(a, b), max(a, b)), []).append(number)
    return found


def split_hard_edges(points, tris, degrees):
    normals = face_normals(points, tris)
    limit = math.cos(math.radians(degrees))
    around = {}  # point -> {triangle: neighbours that it is smooth with at this point}
    for number, t in enumerate(tris):
        for p in t:
            around.setdefault(p, {})[number] = set()
    for (a, b), at in edges(tris).items():
        for i in at:
            for j in at:
                if i != j and normals[i] @ normals[j] > limit:
                    around[a][i].add(j)
                    around[b][i].add(j)
    out, new_points = np.array(tris), [tuple(p) for p in points]
    for p in sorted(around):
        left, first = dict(around[p]), True
        while left:
            patch, todo = set(), [min(left)]
            while todo:
                n = todo.pop()
                if n in left:
                    patch.add(n)
                    todo.extend(left.pop(n))
            if not first:
                new_points.append(tuple(points[p]))
                for n in patch:
                    out[n][tris[n] == p] = len(new_points) - 1
            first = False
    return np.array(new_points), out


# Cross-sections: closed rings of (x, y), counter-clockwise seen from ahead of the ship.

def ring(width, height, power=2.4, count=16, x=0.0, y=0.0, belly=1.0, chine=0.0):
    """A rounded section: power 2 is an ellipse, a large one nearly a box. `belly` scales the lower
    half, `chine` pulls the widest points down."""
    out = []
    for n in range(count):
        a = 2 * math.pi * n / count
        c, s = math.cos(a), math.sin(a)
        px = math.copysign(abs(c) ** (2 / power), c) * width / 2
        py = math.copysign(abs(s) ** (2 / power), s) * height / 2
        py = py * (belly if s < 0 else 1) - chine * abs(c) ** 3
        out.append((px + x, py + y))
    return out


def polygon(*corners):
    return [(float(x), float(y)) for x, y in corners]


def chamfered(width, height, cut):
    """A rectangle with its corners cut off."""
    w, h = width / 2, height / 2
    return [(w, -h + cut), (w, h - cut), (w - cut, h), (-w + cut, h),
            (-w, h - cut), (-w, -h + cut), (-w + cut, -h), (w - cut, -h)]


# Solids.

def loft(sections, tag, group, cap_front=True, cap_back=True):
    """A skin over rings of (x, y), given with their z from back to front. A tag that is a list
    names each band; the ends are of the first and the last band's kind."""
    tags = tag if isinstance(tag, list) else [tag] * (len(sections) - 1)
    m = Mesh()
    count = len(sections[0][1])
    for z, section in sections:
        m.points.extend((x, y, z) for x, y in section)
    for s in range(len(sections) - 1):
        a, b = s * count, (s + 1) * count
        for n in range(count):
            o = (n + 1) % count
            m.faces.append(((a + n, a + o, b + o, b + n), tags[s], group))
    if cap_back:
        m.faces.append((tuple(reversed(range(count))), tags[0], group))
    if cap_front:
        last = (len(sections) - 1) * count
        m.faces.append((tuple(range(last, last + count)), tags[-1], group))
    return m


def extrude(outline, depth, tag, group, bevel=0.0, inset=None):
    """A plate: an outline in (x, z), lying in the plane y = 0, `depth` thick, with bevelled rims
    that take `inset` off the outline over a height of `bevel`."""
    inset = bevel if inset is None else inset
    inner = inset_outline(outline, inset) if bevel else outline
    h = depth / 2
    levels = [(-h, inner), (-h + bevel, outline), (h - bevel, outline), (h, inner)] if bevel else \
        [(-h, outline), (h, outline)]
    m = Mesh()
    count = len(outline)
    for y, line in levels:
        m.points.extend((x, y, z) for x, z in line)
    # An outline that runs counter-clockwise in (x, z) runs clockwise seen from above.
    for s in range(len(levels) - 1):
        for n in range(count):
            o = (n + 1) % count
            a, b = s * count, (s + 1) * count
            m.faces.append(((a + n, b + n, b + o, a + o), tag, group))
    m.faces.append((tuple(range(count)), tag, group))
    last = (len(levels) - 1) * count
    m.faces.append((tuple(reversed(range(last, last + count))), tag, group))
    return m


def inset_outline(outline, amount):
    """The outline moved inwards, with mitred corners; it must run counter-clockwise."""
    out = []
    p = np.array(outline, float)
    for n in range(len(p)):
        a, b, c = p[n - 1], p[n], p[(n + 1) % len(p)]
        d1, d2 = (b - a) / np.linalg.norm(b - a), (c - b) / np.linalg.norm(c - b)
        n1, n2 = np.array([-d1[1], d1[0]]), np.array([-d2[1], d2[0]])
        k = n1 + n2
        out.append(tuple(b + k * amount / max(0.35, k @ n1)))
    return out


def lathe(profile, tag, group, count=16):
    """A body of revolution about the z axis over (z, radius) from back to front. A tag that is a
    list names each band of the profile."""
    tags = tag if isinstance(tag, list) else [tag] * (len(profile) - 1)
    m = Mesh()
    for z, r in profile:
        for n in range(count):
            a = 2 * math.pi * (n + 0.5) / count
            m.points.append((math.cos(a) * r, math.sin(a) * r, z))
    for s in range(len(profile) - 1):
        a, b = s * count, (s + 1) * count
        for n in range(count):
            o = (n + 1) % count
            m.faces.append(((a + n, a + o, b + o, b + n), tags[s], group))
    return m


def box(width, height, length, tag, group, bevel=0.0):
    """A block about the origin; with a bevel its long edges are cut off and its ends drawn in."""
    w, h, z = width, height, length / 2
    if not bevel:
        s = polygon((w / 2, -h / 2), (w / 2, h / 2), (-w / 2, h / 2), (-w / 2, -h / 2))
        return loft([(-z, s), (z, s)], tag, group)
    big, small = chamfered(w, h, bevel), chamfered(w - bevel, h - bevel, bevel / 2)
    return loft([(-z, small), (-z + bevel, big), (z - bevel, big), (z, small)], tag, group)


def fin(root, tip, thickness, tag, group):
    """A blade between two chords, each ((x, y), z back, z front): root and tip of a wing or a tail
    fin, sharp in front and behind, thickest at a third of the chord. `thickness` is given for root
    and tip."""
    (rx, ry), rz0, rz1 = root
    (tx, ty), tz0, tz1 = tip
    span = np.array([tx - rx, ty - ry])
    side = np.array([-span[1], span[0]]) / np.linalg.norm(span)
    profile = ((0.0, 0.06), (0.22, 0.62), (0.66, 1.0), (0.88, 0.62), (1.0, 0.05))

    def section(x, y, z0, z1, t):
        up = [(x + side[0] * t / 2 * k, y + side[1] * t / 2 * k, z0 + (z1 - z0) * f) for f, k in profile]
        low = [(x - side[0] * t / 2 * k, y - side[1] * t / 2 * k, z0 + (z1 - z0) * f)
               for f, k in reversed(profile)]
        return up + low
    a, b = section(rx, ry, rz0, rz1, thickness[0]), section(tx, ty, tz0, tz1, thickness[1])
    m, count = Mesh(), len(a)
    m.points = a + b
    for n in range(count):
        o = (n + 1) % count
        m.faces.append(((n, o, count + o, count + n), tag, group))
    m.faces.append((tuple(reversed(range(count))), tag, group))
    m.faces.append((tuple(range(count, 2 * count)), tag, group))
    return outward(m)


def outward(mesh):
    """Turns all faces round if the solid is inside out."""
    p = np.array(mesh.points)
    volume = sum(np.dot(p[f[0]], np.cross(p[f[i]], p[f[i + 1]]))
                 for f, _, _ in mesh.faces for i in range(1, len(f) - 1))
    if volume < 0:
        mesh.faces = [(f[::-1], t, g) for f, t, g in mesh.faces]
    return mesh
