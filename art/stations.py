"""What does not fight first: the freighter and its pods, the outpost and its arms, buoys and mines.
The same rules hold as for the ships."""
import numpy as np

from fittings import dish, mast, nozzle, vents
from noise import smoothstep
from paint import stripe
from shapes import Mesh, box, chamfered, extrude, fin, lathe, loft, polygon, ring


def lifted(sections):
    """Rings given as (z, width, height, cut, y)."""
    return [(z, [(px, py + y) for px, py in chamfered(w, h, cut)]) for z, w, h, cut, y in sections]


def truss(length, side, thick, bays, group="truss", tag="metal"):
    """An open girder of four beams along z with frames and diagonals, from z = 0 forward."""
    m = Mesh()
    half, step = side / 2, length / bays
    for x in (-half, half):
        for y in (-half, half):
            m.add(box(thick, thick, length, tag, group).moved(x, y, length / 2))
    for n in range(bays + 1):
        for across, up, x, y in ((side, thick, 0, half), (side, thick, 0, -half), (thick, side, half, 0), (thick, side, -half, 0)):
            m.add(box(across, up, thick, tag, group).moved(x, y, n * step))
    for n in range(bays):
        tilt = np.degrees(np.arctan2(side, step)) * (1 if n % 2 else -1)
        brace = box(thick * 0.7, thick * 0.7, np.hypot(side, step), tag, group).turned("x", tilt)
        m.add(brace.moved(half if n % 2 else -half, 0, (n + 0.5) * step))
    return m


# The freighter: a bridge ahead, drives astern, and between them a spine that carries the pods.

def ox_hull():
    m = Mesh()
    # The bridge: a wedge of three decks with a visor.
    m.add(loft(lifted([(1.0, 5.0, 4.6, 1.0, 0.3), (2.4, 6.4, 6.0, 1.2, 0.5), (6.6, 6.4, 6.0, 1.2, 0.5), (9.4, 5.2, 4.4, 1.0, 0.0),
                       (12.2, 3.6, 2.2, .6, -0.9), (13.2, 2.6, 1.2, .4, -1.2)]), "hull", "bridge"))
    m.add(loft(lifted([(1.6, 3.0, 1.2, .3, 4.0), (2.4, 4.2, 1.8, .4, 4.1), (6.0, 4.2, 1.8, .4, 4.1), (7.2, 3.2, 0.8, .25, 3.7)]),
               "second", "bridge"))
    m.add(box(4.34, 0.6, 1.8, "glass", "canopy", 0.16).moved(0, 4.4, 5.3))
    m.add(box(3.9, 0.8, 0.9, "glass", "canopy", 0.2).turned("x", 34).moved(0, 2.1, 9.2))
    m.add(mast(2.4, 0.12).moved(-1.3, 5.0, 3.2))
    m.add(mast(1.6, 0.1).moved(1.5, 5.0, 2.6))
    m.add(dish(1.1).turned("x", -38).moved(0, 5.8, 3.0))
    # The spine.
    m.add(truss(24.0, 2.6, 0.36, 4).moved(0, 0, -22.6))
    m.add(loft(lifted([(-23.4, 1.2, 1.2, .3, 0), (1.6, 1.2, 1.2, .3, 0)]), "dark", "truss"))
    for z in (-21.4, -10.6, 0.2):
        m.add(loft(lifted([(z - 0.4, 4.8, 4.8, 1.1, 0), (z + 0.4, 4.8, 4.8, 1.1, 0)]), "second", "collar"))
    # Fuel above and below it.
    for y, z in ((2.5, -16.0), (2.5, -5.2), (-2.5, -16.0), (-2.5, -5.2)):
        m.add(lathe([(-4.0, 0.05), (-3.8, 0.7), (-3.0, 1.25), (3.0, 1.25), (3.8, 0.7), (4.0, 0.05)],
                    ["metal", "hull", "hull", "hull", "metal"], "detail", 8).moved(0, y, z))
    # The drives.
    m.add(loft(lifted([(-29.6, 6.2, 5.4, 1.2, 0), (-28.8, 8.2, 7.2, 1.6, 0), (-25.0, 8.2, 7.2, 1.6, 0), (-23.2, 5.0, 4.4, 1.0, 0)]),
               ["second", "hull", "hull"], "drive"))
    m.add(vents(4, 4.0, 0.4, 0.8).moved(0, 3.6, -28.2))
    m.add(box(1.2, 1.4, 3.4, "second", "drive").moved(0, 4.0, -25.4))
    m.add(nozzle(-33.0, 1.7, 3.9, count=8).moved(0, 1.0, 0))
    side = Mesh()
    side.add(nozzle(-32.4, 1.35, 3.4, count=8).moved(2.5, -1.5, 0))
    side.add(loft(lifted([(-28.6, 0.6, 4.2, .2, 0), (-28.0, 1.2, 5.0, .3, 0), (-26.0, 1.2, 5.0, .3, 0), (-25.4, 0.6, 4.2, .2, 0)]),
                  "hull", "slab").moved(4.3, 0, 0))
    side.add(fin(((4.4, 1.6), -29.0, -25.0), ((6.2, 4.6), -31.0, -28.6), (0.6, 0.2), "hull", "fin"))
    # The bridge's flanks: hatches, pipes, thrusters.
    side.add(box(0.5, 2.0, 1.6, "second", "bridge").moved(3.25, 0.2, 4.4))
    side.add(box(0.4, 0.6, 1.2, "dark", "detail").moved(2.6, -0.8, 10.0))
    side.add(lathe([(0, 0.16), (5.4, 0.16)], "metal", "detail", 6).moved(2.9, -2.3, 1.6))
    side.add(box(0.6, 0.5, 1.0, "metal", "detail").moved(2.2, 3.4, 7.6))
    m.add(side.both_sides())
    m.add(box(3.0, 0.7, 5.0, "dark", "detail").moved(0, -2.7, 4.6))
    return m


def ox_pod():
    """A left cargo pod: a rack of four containers, one of them missing its neighbour's colour. Its
    origin is at the clamp, on its inner side."""
    m = Mesh()
    m.add(box(1.4, 1.6, 2.0, "metal", "root").moved(0.3, 0, 0))
    m.add(box(0.5, 6.6, 0.6, "second", "rack").moved(1.1, 0, -3.0))
    m.add(box(0.5, 6.6, 0.6, "second", "rack").moved(1.1, 0, 3.0))
    for n, (y, z, tag) in enumerate(((1.75, -2.35, "hull"), (1.75, 2.35, "second"), (-1.75, -2.35, "accent"), (-1.75, 2.35, "hull"))):
        m.add(loft([(-2.2, chamfered(3.5, 3.4, 0.22)), (2.2, chamfered(3.5, 3.4, 0.22))], tag, f"box{n}").moved(3.1, y, z))
        m.add(box(3.66, 3.56, 0.5, tag, f"box{n}").moved(3.1, y, z))
    m.add(box(0.3, 0.3, 9.4, "metal", "rack").moved(4.9, 0, 0))
    for z in (-4.6, 4.6):
        m.add(box(0.34, 7.2, 0.3, "metal", "rack").moved(4.9, 0, z))
    return m


def ox_sponson():
    """A left gun deck beside the bridge; the turret stands on it."""
    m = Mesh()
    m.add(fin(((0, 0), -1.8, 2.2), ((3.0, -0.3), -1.4, 2.4), (1.5, 1.1), "second", "blade"))
    m.add(loft([(-2.8, chamfered(1.6, 1.0, .25)), (-2.2, chamfered(2.8, 1.5, .4)), (3.2, chamfered(2.8, 1.5, .4)),
                (4.4, chamfered(1.8, 0.8, .25))], "hull", "pod").moved(4.0, -0.3, 1.0))
    m.add(lathe([(0, 1.25), (0.4, 1.25), (0.4, 0.9)], ["metal", "dark"], "detail", 10).turned("x", -90).moved(4.0, 0.4, 1.8))
    m.add(box(0.5, 0.5, 2.6, "metal", "detail").moved(5.5, -0.4, 0.6))
    m.add(vents(3, 1.4, 0.3, 0.5).moved(4.0, 0.5, -0.9))
    return m


def point_turret():
    """A domed turret with one long barrel; it stands on its origin."""
    m = Mesh()
    m.add(lathe([(0, 1.0), (0.3, 1.0), (0.8, 0.92), (1.25, 0.55), (1.4, 0.02)], ["metal", "second", "hull", "hull"], "gun", 10)
          .turned("x", -90))
    m.add(loft([(0.2, chamfered(0.9, 0.7, .2)), (1.2, chamfered(0.8, 0.6, .18))], "second", "gun").moved(0, 0.75, 0))
    m.add(lathe([(0, 0.3), (0.5, 0.3), (0.6, 0.2), (2.4, 0.18), (2.5, 0.28), (3.0, 0.26), (3.0, 0.14), (2.8, 0)],
                ["metal", "dark", "metal", "dark", "metal", "dark", "dark"], "gun", 6).moved(0, 0.75, 1.0))
    m.add(box(0.3, 0.24, 0.5, "glass", "gun").moved(0.4, 1.15, 0.5))
    m.add(box(0.7, 0.5, 0.7, "dark", "gun").moved(0, 0.8, -0.9))
    return m


# The outpost: a spindle with a wheel about it, and arms with sails for the sun.

def outpost_hull():
    up = Mesh()  # shaped along z, then set upright
    up.add(lathe([(-24.0, 0.1), (-23.0, 1.0), (-19.0, 1.4), (-18.0, 2.6), (-13.0, 3.4), (-12.0, 4.6), (-7.6, 4.8), (-7.0, 3.4),
                  (-3.4, 3.4), (-2.8, 4.4), (2.8, 4.4), (3.4, 3.4), (6.6, 3.2), (7.4, 5.6), (8.4, 6.4), (11.6, 6.4), (12.4, 5.6),
                  (13.2, 3.6), (15.6, 3.0), (17.2, 1.6), (17.8, 0.1)],
                 ["metal", "metal", "dark", "second", "second", "hull", "hull", "dark", "metal", "second", "hull", "second", "dark",
                  "second", "hull", "hull", "hull", "second", "hull", "glass"], "spindle", 16))
    # The wheel, and its spokes.
    wheel = [(-1.5, 10.9), (-1.1, 11.6), (-0.9, 13.2), (0.9, 13.2), (1.1, 11.6), (1.5, 10.9), (1.1, 10.1), (-1.1, 10.1), (-1.5, 10.9)]
    up.add(lathe(wheel, ["second", "hull", "hull", "hull", "second", "second", "dark", "second"], "wheel", 32))
    for n in range(6):
        up.add(box(7.0, 0.9, 0.9, "metal", "spoke").moved(7.2, 0, 0).turned("z", 30 + n * 60))
    for n in range(3):
        up.add(lathe([(-0.8, 0.9), (1.4, 0.9), (1.6, 0.7), (2.2, 0.7), (2.2, 0.5), (1.8, 0.0)],
                     ["second", "metal", "metal", "dark", "dark"], "detail", 8).turned("y", 90).moved(4.4, 0, -9.8)
               .turned("z", 90 + n * 120))
    for n in range(10):
        up.add(box(0.5, 1.0, 1.6, "metal", "detail").moved(4.75, 0, -1.2).turned("z", 18 + n * 36))
    m = up.turned("x", -90)
    m.add(mast(6.4, 0.2).moved(0, 17.0, 0))
    m.add(mast(3.6, 0.12).moved(1.6, 15.0, 0.4))
    m.add(dish(2.3).turned("x", -30).moved(-1.9, 15.8, 1.4))
    m.add(dish(1.6).turned("y", 160).turned("x", 20).moved(2.2, -15.2, -2.6))
    # The hangar: a mouth in the upper drum, lit from within.
    m.add(loft(lifted([(4.6, 4.6, 2.6, .4, 10.0), (6.9, 4.6, 2.6, .4, 10.0), (7.1, 4.2, 2.2, .35, 10.0), (7.1, 3.7, 1.8, .3, 10.0),
                       (6.2, 3.7, 1.8, .3, 10.0)]), ["second", "accent", "accent", "dark"], "hangar"))
    # The shoes of the arms.
    side = Mesh()
    side.add(box(2.4, 2.6, 2.6, "second", "shoe", 0.5).moved(4.8, 0, 0))
    m.add(side.both_sides())
    return m


def outpost_arm():
    """The left arm: a girder and four sails."""
    m = Mesh()
    m.add(truss(30.0, 1.6, 0.26, 8).turned("y", 90))
    for x in (12.0, 23.5):
        m.add(box(0.6, 14.4, 0.6, "metal", "boom").moved(x, 0, 0))
        for y in (4.4, -4.4):
            m.add(extrude(polygon((-4.6, -3.4), (4.6, -3.4), (4.6, 3.4), (-4.6, 3.4)), 0.3, "sail", "sail", 0.08)
                  .turned("x", 90).moved(x, y, 0.3))
    m.add(lathe([(-1.4, 0.1), (-1.2, 1.0), (1.2, 1.0), (1.6, 0.4), (1.6, 0.02)], ["dark", "hull", "metal", "accent"], "detail", 12)
          .turned("y", 90).moved(30.4, 0, 0))
    m.add(box(2.0, 2.2, 2.2, "second", "root", 0.4).moved(17.8, 0, 0))
    return m


# A buoy: a lantern on a spindle, between two sails.

def buoy_hull():
    up = Mesh()
    up.add(lathe([(-6.0, 0.05), (-5.8, 0.4), (-4.0, 0.5), (-3.6, 1.1), (-2.4, 1.9), (-1.2, 2.2), (1.2, 2.2), (2.2, 1.8), (2.6, 1.1),
                  (3.2, 1.0), (3.3, 1.45), (3.6, 1.45), (3.7, 1.1), (5.0, 1.1), (5.1, 1.5), (5.4, 1.5), (6.0, 0.7), (6.3, 0.05)],
                 ["metal", "metal", "dark", "second", "hull", "accent", "hull", "second", "dark", "metal", "metal", "metal",
                  "glow", "metal", "metal", "second", "metal"], "body", 20))
    up.add(lathe([(-0.5, 3.0), (0.5, 3.0), (0.5, 2.6), (-0.5, 2.6), (-0.5, 3.0)], ["accent", "second", "dark", "second"], "ring", 24))
    for n in range(4):
        up.add(box(1.0, 0.4, 0.4, "metal", "detail").moved(2.4, 0, 0).turned("z", 45 + n * 90))
        up.add(box(0.3, 0.3, 1.5, "metal", "detail").moved(1.3, 0, 4.35).turned("z", 45 + n * 90))
        up.add(box(0.5, 0.7, 1.2, "dark", "detail").moved(1.9, 0, -1.8).turned("z", n * 90))
    m = up.turned("x", -90)
    m.add(mast(2.2, 0.08).moved(0, 6.0, 0))
    m.add(dish(0.8).turned("x", -20).moved(0, -2.6, 2.0))
    return m.scaled(1.5, 1.5, 1.5)


def buoy_vane():
    """The left sail."""
    m = Mesh()
    m.add(lathe([(0, 0.2), (2.0, 0.2)], "metal", "boom", 8).turned("y", 90))
    m.add(extrude(polygon((1.6, -1.7), (6.6, -1.7), (6.6, 1.7), (1.6, 1.7)), 0.24, "sail", "sail", 0.07).turned("x", 90))
    m.add(box(0.3, 3.8, 0.4, "hull", "boom").moved(4.1, 0, 0))
    m.add(box(0.24, 3.8, 0.36, "metal", "boom").moved(1.5, 0, 0))
    m.add(box(0.4, 1.0, 0.6, "accent", "boom", 0.1).moved(6.8, 0, 0))
    return m.scaled(1.5, 1.5, 1.5)


# A mine: a ball in a cage, all horns.

def mine_hull():
    m = Mesh()
    steps = [(np.sin(a), np.cos(a)) for a in np.linspace(-np.pi / 2, np.pi / 2, 13)]
    m.add(lathe([(3.0 * s, max(0.02, 3.0 * c)) for s, c in steps],
                ["dark", "second", "hull", "hull", "hull", "accent", "accent", "hull", "hull", "hull", "second", "dark"], "body", 22))
    for axis in ("x", "y"):
        m.add(lathe([(-0.3, 3.35), (0.3, 3.35), (0.3, 2.9), (-0.3, 2.9), (-0.3, 3.35)], ["second", "metal", "dark", "metal"],
                    "cage", 24).turned(axis, 90))
    horn = lathe([(2.7, 0.55), (3.3, 0.5), (3.5, 0.3), (5.2, 0.12), (5.4, 0.02)], ["metal", "accent", "metal", "metal"], "detail", 8)
    for turn in (0, 90, 180, 270):
        m.add(horn.turned("x", turn))
        for lean in (-45, 45):
            m.add(horn.turned("x", 45).turned("z", lean).turned("y", turn))
            m.add(horn.turned("x", -45).turned("z", lean).turned("y", turn))
    return m


def mine_horn():
    """The left cluster of horns, which is torn off first."""
    m = Mesh()
    m.add(lathe([(-0.6, 1.4), (0.4, 1.2), (0.8, 0.6), (0.8, 0.02)], ["second", "second", "metal"], "root", 14).turned("y", 90))
    horn = lathe([(0.2, 0.4), (0.9, 0.34), (1.1, 0.2), (2.6, 0.08), (2.7, 0.02)], ["metal", "accent", "metal", "metal"], "detail", 8)
    m.add(horn.turned("y", 90).moved(0.3, 0, 0))
    for turn in (0, 90, 180, 270):
        m.add(horn.turned("y", 55).turned("x", turn).moved(0, 0, 0))
    return m


# What is painted on them.

def _abs_x(p):
    return np.abs(p[..., 0])


def ox_stripes(p):
    z, y, x = p[..., 2], p[..., 1], _abs_x(p)
    chevron = stripe((z + 1.0 * np.abs(y)) % 2.0, 0.0, 1.0, 0.05) * stripe(z, -29.4, -25.8) * smoothstep(4.4, 4.6, x)
    band = stripe(y, 0.0, 0.7) * stripe(z, 1.4, 9.4) * smoothstep(2.4, 2.6, x)
    return np.clip(chevron + band + stripe(z, 10.2, 10.9) + stripe(y, 3.6, 4.4) * smoothstep(5.2, 5.4, x), 0, 1)


def ox_second(p):
    z, y = p[..., 2], p[..., 1]
    return np.clip(smoothstep(-1.2, -1.5, y) * stripe(z, 0, 20) + stripe(z, -28.0, -26.6) * smoothstep(3.2, 3.4, y), 0, 1)


def rows_of_windows(levels, along, pitch, low, high, reach, gone=0.35):
    """Cabin lights: rows at the heights `levels`, `pitch` apart along an axis, some of them dark."""
    def lit(p):
        y, at = p[..., 1], along(p)
        row = sum(stripe(y, at_y - 0.13, at_y + 0.13, 0.03) for at_y in levels)
        dark = ((np.floor(at / pitch) * 7.13 + np.floor(y) * 3.7) % 1.0) < gone
        return np.clip(row * stripe(at % pitch, 0.22 * pitch, 0.72 * pitch, 0.03) * ~dark * stripe(at, low, high) * reach(p), 0, 1)
    return lit


def _around(p):
    """The way round the outpost's axis, in units on the wheel's rim."""
    return np.arctan2(p[..., 0], p[..., 2]) * 13.0 + 60


ox_windows = rows_of_windows((1.7, 0.95, -0.4), lambda p: p[..., 2], 0.62, 2.0, 8.6, lambda p: smoothstep(3.05, 3.12, _abs_x(p)))


def outpost_stripes(p):
    y = p[..., 1]
    r = np.hypot(p[..., 0], p[..., 2])
    hazard = stripe((_around(p) * 1.0) % 3.0, 0.0, 1.5, 0.05) * stripe(y, -12.4, -11.8)
    return np.clip(hazard + stripe(y, 8.5, 8.8) * (r < 7) + stripe(y, 11.2, 11.5) * (r < 7), 0, 1)


def outpost_second(p):
    y = p[..., 1]
    r = np.hypot(p[..., 0], p[..., 2])
    sector = stripe(_around(p) % 13.6, 0.0, 4.2, 0.06)
    return np.clip(sector * (r > 9.5) + stripe(y, -9.0, -7.4), 0, 1)


_rim = rows_of_windows((0.42, -0.42), _around, 0.85, -1000, 1000, lambda p: np.hypot(p[..., 0], p[..., 2]) > 12.4, 0.3)
_drum = rows_of_windows((10.6, 9.8, 9.0, -8.6, -9.4, -10.4, -11.0, 1.0, 0.2, -0.6, 4.0), _around, 1.9, -1000, 1000,
                        lambda p: np.hypot(p[..., 0], p[..., 2]) < 7.2, 0.45)


def outpost_windows(p):
    return np.clip(_rim(p) + _drum(p), 0, 1)


def buoy_stripes(p):
    """Broad bands that say from afar: this marks something."""
    y = p[..., 1]
    return np.clip(stripe(y, -3.6, -2.0) + stripe(y, 2.0, 3.3), 0, 1)


def mine_stripes(p):
    r = np.linalg.norm(p, axis=-1)
    return stripe((np.arctan2(p[..., 1], p[..., 0]) * 4 / np.pi) % 1.0, 0.0, 0.5, 0.03) * (r < 3.2) * stripe(np.abs(p[..., 2]), 1.9, 2.3)


# name -> shape, side of the sheet, livery, what is painted (arguments of paint)
MODELS = {
    "ox_hull": (ox_hull, 1024, "civilian",
                dict(seed=211, second=ox_second, stripes=ox_stripes, windows=ox_windows, plate=2.4,
                     soot=lambda p: 0.8 * smoothstep(-29.5, -35.0, p[..., 2]))),
    "ox_pod": (ox_pod, 512, "civilian", dict(seed=223, plate=2.0)),
    "ox_sponson": (ox_sponson, 256, "civilian", dict(seed=227, plate=1.4)),
    "point_turret": (point_turret, 128, "civilian", dict(seed=229, plate=0.9)),
    "outpost_hull": (outpost_hull, 1024, "player",
                     dict(seed=233, second=outpost_second, stripes=outpost_stripes, windows=outpost_windows, plate=2.6)),
    "outpost_arm": (outpost_arm, 512, "player", dict(seed=239, plate=2.2)),
    "buoy_hull": (buoy_hull, 512, "player", dict(seed=241, stripes=buoy_stripes, plate=1.2)),
    "buoy_vane": (buoy_vane, 256, "player", dict(seed=251, plate=1.2)),
    "mine_hull": (mine_hull, 512, "enemy", dict(seed=257, stripes=mine_stripes, plate=1.1)),
    "mine_horn": (mine_horn, 128, "enemy", dict(seed=263, plate=0.8)),
}
MIRRORED = ("ox_pod", "ox_sponson", "outpost_arm", "buoy_vane", "mine_horn")  # left ones; the right ones are mirrored
