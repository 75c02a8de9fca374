"""The ships: hulls, wings and weapons, each a model of its own with its own texture sheet. A part's
origin is where its slot holds it; the game file says where on the hull the slots are. Hulls reach no
further than z = 14, since the front camera looks out from z = 15."""
import numpy as np

from fittings import barrel, nozzle, vents
from noise import smoothstep
from paint import stripe
from shapes import Mesh, box, chamfered, extrude, fin, lathe, loft, polygon, ring


# The player's fighter.

def kestrel_hull():
    m = Mesh()
    body = [(-10.2, 3.4, 1.9, 3.2, 0.05, 0), (-9.2, 4.4, 2.5, 3.2, 0.05, 0), (-6.0, 5.0, 3.1, 3.0, 0.1, 0.1),
            (-2.0, 4.7, 3.2, 2.8, 0.1, 0.2), (1.5, 4.0, 2.9, 2.6, 0.0, 0.3), (5.0, 3.0, 2.25, 2.3, -0.15, 0.3),
            (8.5, 2.1, 1.55, 2.1, -0.3, 0.25), (11.2, 1.25, 0.95, 2.0, -0.42, 0.12), (12.9, 0.5, 0.42, 2.0, -0.5, 0)]
    m.add(loft([(z, ring(w, h, p, 18, 0, y, 0.8, c)) for z, w, h, p, y, c in body],
               ["second"] + ["hull"] * 7, "body"))
    m.add(box(2.4, 0.3, 0.5, "dark", "detail").moved(0, 0.42, -10.25))
    m.add(box(2.4, 0.3, 0.5, "dark", "detail").moved(0, -0.22, -10.25))
    m.add(lathe([(12.8, 0.17), (13.4, 0.1), (13.95, 0.03)], "metal", "detail", 8).moved(0, -0.5, 0))

    # The canopy sits in a collar.
    bubble = [(-0.4, 0.5, 0.3, 1.32), (0.6, 1.3, 1.0, 1.28), (1.8, 1.66, 1.5, 1.2), (3.2, 1.66, 1.62, 1.02),
              (4.8, 1.4, 1.35, 0.78), (6.2, 0.95, 0.85, 0.5), (7.2, 0.3, 0.3, 0.22)]
    m.add(loft([(z, ring(w, h, 2.1, 14, 0, y)) for z, w, h, y in bubble], "glass", "canopy"))
    collar = [(x * 1.0, z) for x, z in ((0.28, 7.6), (-0.28, 7.6), (-0.92, 5.2), (-1.04, 2.4), (-0.86, -0.6),
                                        (0.86, -0.6), (1.04, 2.4), (0.92, 5.2))][::-1]
    m.add(extrude(collar, 0.5, "second", "body", 0.12).turned("x", 8.4).moved(0, 1.12, 0.1))

    # Spine with vents behind the canopy.
    spine = [(-9.6, 0.8, 0.7, 1.25), (-8.0, 1.2, 1.0, 1.5), (-3.0, 1.4, 1.1, 1.6), (0.2, 1.2, 0.9, 1.42)]
    m.add(loft([(z, [(x, y + at) for x, y in chamfered(w, h, 0.28)]) for z, w, h, at in spine], "hull", "body"))
    m.add(vents(4, 0.8, 0.26, 0.7).moved(0, 2.12, -5.6))
    m.add(box(0.5, 0.3, 1.1, "metal", "detail").moved(0, 2.05, -7.5))
    m.add(lathe([(0, 0.02), (1.1, 0.035)], "metal", "detail", 6).turned("x", -90).moved(0, 2.0, -1.4))

    side = Mesh()
    # Intake and engine nacelle.
    duct = [(-9.2, 2.3, 2.3, .66), (-7.0, 2.5, 2.5, .55), (-2.5, 2.3, 2.35, .5), (0.6, 1.9, 2.1, .42), (2.4, 1.62, 1.85, .36),
            (2.75, 1.45, 1.68, .33), (2.55, 1.2, 1.42, .3), (0.9, 1.0, 1.2, .25)]
    side.add(loft([(z, chamfered(w, h, c)) for z, w, h, c in duct],
                  ["hull"] * 4 + ["second", "metal", "dark"], "nacelle", True, True).moved(2.75, -0.1, 0))
    side.add(nozzle(-11.7, 0.98, 2.9, count=10).moved(2.75, -0.1, 0))
    side.add(extrude(polygon((0, 1.6), (-0.34, 1.3), (-0.34, -4.4), (0.34, -4.4), (0.34, 1.3)), 0.3, "second", "nacelle", 0.1)
             .moved(2.75, 1.1, -2.4))
    side.add(vents(4, 0.16, 0.3, 0.6).turned("z", 90).moved(3.98, 0.1, -7.6))
    side.add(box(0.34, 0.5, 1.2, "metal", "detail").moved(3.98, -0.3, -3.3))
    side.add(box(0.5, 0.3, 0.9, "dark", "detail").moved(2.75, 1.28, -8.0))
    # Tail fins, canted outwards, and strakes below.
    side.add(fin(((2.9, 0.8), -10.6, -5.6), ((4.3, 4.7), -12.0, -9.2), (0.42, 0.14), "hull", "fin"))
    side.add(lathe([(-1.5, 0.05), (-1.3, 0.16), (0.9, 0.16), (1.6, 0.03)], "metal", "detail", 6).moved(4.33, 4.72, -10.4))
    side.add(fin(((2.6, -1.1), -9.8, -6.6), ((3.5, -2.7), -10.7, -9.0), (0.3, 0.1), "second", "fin"))
    # Chine strake from nose to intake.
    side.add(fin(((1.2, -0.35), -0.6, 8.8), ((2.5, -0.42), -0.6, 3.2), (0.4, 0.1), "hull", "body"))
    # Thruster blocks at the nose, sensor blister below.
    side.add(box(0.36, 0.3, 0.8, "dark", "detail").moved(0.86, -0.15, 8.6))
    side.add(box(0.3, 0.24, 0.5, "metal", "detail").moved(1.32, 0.55, 4.0))
    m.add(side.both_sides())
    m.add(lathe([(-1.6, 0.05), (-1.2, 0.5), (0.4, 0.55), (1.3, 0.3), (1.6, 0.02)], "dark", "detail", 8)
          .scaled(1, 0.7, 1).moved(0, -1.05, 5.2))
    m.add(box(1.5, 0.5, 3.6, "second", "body", 0.16).moved(0, -1.36, -3.5))
    m.add(vents(3, 1.0, 0.3, 0.7).moved(0, -1.62, -4.2))
    return m


def kestrel_wing():
    """The left wing, from the root outwards."""
    m = Mesh()
    m.add(box(0.9, 1.0, 7.6, "second", "root", 0.24).moved(0.1, 0, 0.2))
    m.add(fin(((0.2, 0), -3.6, 4.4), ((3.4, -0.15), -4.0, 1.8), (0.8, 0.52), "hull", "blade"))
    m.add(fin(((3.4, -0.15), -4.0, 1.8), ((9.0, -0.55), -5.4, -2.0), (0.52, 0.22), "hull", "blade"))
    # Root extension, fence, flap actuators.
    m.add(fin(((0.3, 0.05), 3.6, 6.4), ((1.5, 0.02), 3.0, 3.9), (0.4, 0.12), "second", "root"))
    m.add(fin(((3.5, -0.1), -3.9, 2.4), ((3.5, 0.55), -3.2, 0.6), (0.14, 0.08), "second", "root"))
    for x in (1.9, 6.4):
        m.add(box(0.3, 0.34, 1.9, "metal", "detail").moved(x, -0.32, -3.7 - x * 0.12))
    # Tip pod with winglet.
    pod = [(-3.2, 0.02), (-3.2, 0.2), (-2.9, 0.34), (-1.0, 0.4), (0.6, 0.36), (1.7, 0.2), (2.2, 0.03)]
    m.add(lathe(pod, ["dark", "dark", "metal", "hull", "accent", "accent"], "detail", 12).moved(9.05, -0.57, -3.1))
    m.add(fin(((9.1, -0.4), -5.7, -2.6), ((9.75, 1.35), -6.5, -4.9), (0.26, 0.1), "second", "root"))
    m.add(fin(((9.1, -0.7), -5.5, -3.4), ((9.4, -1.7), -6.0, -4.9), (0.2, 0.08), "second", "root"))
    return m


def light_cannon():
    """A twin-cell laser cannon; it hangs from its origin, under the lip of an intake."""
    m = Mesh()
    m.add(loft([(-1.9, chamfered(0.5, 0.5, 0.14)), (-1.5, chamfered(0.84, 0.86, 0.22)), (1.0, chamfered(0.84, 0.86, 0.22)),
                (1.7, chamfered(0.56, 0.6, 0.18))], "second", "gun"))
    m.add(barrel(4.6, 0.2).moved(0, 0, 1.5))
    m.add(lathe([(-1.2, 0.02), (-1.2, 0.26), (1.2, 0.26), (1.2, 0.02)], "metal", "gun", 6)
          .moved(0.5, -0.08, -0.3).both_sides())
    m.add(box(0.3, 0.22, 2.2, "dark", "gun", 0.07).moved(0, 0.48, -0.2))
    m.add(vents(2, 0.5, 0.2, 0.6, "dark", "gun").moved(0, -0.46, -0.9))
    m.add(lathe([(-2.3, 0.02), (-2.3, 0.18), (-1.8, 0.24)], "dark", "gun", 6))
    return m


# The interceptor: a needle with forward-swept wings and one great engine.

def sting_hull():
    m = Mesh()
    body = [(-6.4, 2.6, 2.6, 2.0, 0.1), (-4.0, 3.0, 2.8, 2.2, 0.1), (-1.0, 2.6, 2.3, 2.4, 0.05), (2.5, 1.9, 1.7, 2.4, -0.05),
            (6.0, 1.35, 1.15, 2.2, -0.2), (9.0, 0.8, 0.7, 2.0, -0.34), (11.6, 0.16, 0.16, 2.0, -0.45)]
    m.add(loft([(z, ring(w, h, p, 16, 0, y, 0.85, 0.12)) for z, w, h, p, y in body], "hull", "body"))
    m.add(nozzle(-9.6, 1.35, 3.4, count=16))
    m.add(lathe([(-6.7, 1.62), (-6.5, 1.78), (-5.4, 1.78), (-5.1, 1.5)], "second", "engine", 16))
    for n in range(6):
        m.add(box(0.3, 0.34, 1.6, "dark", "detail").moved(0, 1.72, -6.0).turned("z", 30 + n * 60))
    glass = [(1.2, 0.3, 0.2, 0.86), (2.2, 0.95, 0.8, 0.8), (3.4, 1.02, 0.92, 0.62), (4.8, 0.78, 0.7, 0.38), (6.0, 0.2, 0.2, 0.2)]
    m.add(loft([(z, ring(w, h, 2.2, 12, 0, y)) for z, w, h, y in glass], "glass", "canopy"))
    m.add(fin(((0, 1.1), -6.6, 1.0), ((0, 3.9), -9.6, -6.8), (0.5, 0.14), "hull", "fin"))
    m.add(fin(((0, -1.0), -6.2, -1.0), ((0, -2.9), -8.0, -6.2), (0.4, 0.12), "second", "fin"))
    side = Mesh()
    # Cheek intakes stand off the hull on a splitter.
    cheek = [(-5.4, 0.9, 1.3, .2), (-3.0, 1.3, 1.7, .3), (0.4, 1.1, 1.5, .26), (1.2, 0.95, 1.34, .24), (1.0, 0.76, 1.14, .2), (-0.4, 0.6, 0.9, .16)]
    side.add(loft([(z, chamfered(w, h, c)) for z, w, h, c in cheek], ["hull", "hull", "second", "metal", "dark"], "cheek")
             .moved(1.62, -0.1, 0))
    side.add(vents(4, 0.12, 0.34, 0.62).turned("z", 90).moved(2.28, 0.1, -4.6))
    # Prongs beside the nose.
    side.add(fin(((0.6, -0.3), 2.6, 8.4), ((1.5, -0.75), 6.4, 10.6), (0.5, 0.12), "accent", "fin"))
    side.add(box(0.26, 0.26, 0.9, "metal", "detail").moved(0.72, 0.35, 3.2))
    side.add(lathe([(0, 0.03), (0, 0.1), (2.4, 0.07), (2.4, 0.02)], "metal", "detail", 8).moved(0.5, -0.62, 6.2))
    m.add(side.both_sides())
    m.add(vents(4, 0.5, 0.22, 0.5).moved(0, 1.36, -1.2))
    return m


def sting_wing():
    """The left wing: swept forward and bent down, with the cannon's mount at its tip."""
    m = Mesh()
    m.add(box(0.7, 0.8, 4.6, "second", "root", 0.2).moved(0.05, 0, -0.2))
    m.add(fin(((0.1, 0), -2.6, 2.2), ((3.0, 0.5), -1.4, 1.6), (0.55, 0.36), "hull", "blade"))
    m.add(fin(((3.0, 0.5), -1.4, 1.6), ((6.6, -1.1), 1.2, 3.2), (0.36, 0.2), "hull", "blade"))
    m.add(lathe([(-1.5, 0.05), (-1.5, 0.3), (-1.1, 0.42), (1.2, 0.42), (2.0, 0.2), (2.0, 0.02)],
                ["dark", "metal", "second", "accent", "dark"], "detail", 10).moved(6.7, -1.15, 2.2))
    m.add(fin(((6.8, -1.4), 0.6, 2.8), ((7.3, -3.0), -0.9, 0.4), (0.24, 0.08), "accent", "root"))
    m.add(box(0.34, 0.4, 1.4, "metal", "detail").moved(3.0, 0.46, -1.2))
    m.add(lathe([(-0.7, 0.02), (-0.6, 0.2), (0.5, 0.24), (0.9, 0.03)], "dark", "detail", 8).moved(3.0, 0.55, 1.3))
    return m


def needle_cannon():
    m = Mesh()
    m.add(lathe([(-1.5, 0.03), (-1.5, 0.2), (-1.2, 0.32), (0.7, 0.32), (1.2, 0.22)], ["dark", "metal", "second", "metal"], "gun", 8))
    m.add(barrel(4.4, 0.14).moved(0, 0, 1.0))
    m.add(box(0.16, 0.5, 1.6, "dark", "gun", 0.05).moved(0, 0.2, -0.2))
    m.add(box(0.14, 0.14, 2.6, "metal", "gun", 0.04).moved(0, -0.24, 1.5))
    return m


# The raider: a flat shell with its wings bent down and forward like a mantis's claws.

def raider_hull():
    m = Mesh()
    # A shell, broad behind and blunt ahead, its edge drawn down.
    shell = [(-8.6, 4.6, 1.7, 2.6, 0.25, 0.2), (-7.6, 7.0, 2.5, 2.8, 0.25, 0.5), (-4.4, 8.6, 3.0, 2.6, 0.3, 0.8),
             (-1.0, 8.2, 3.0, 2.5, 0.3, 0.8), (2.6, 6.6, 2.6, 2.4, 0.2, 0.6), (6.0, 4.6, 2.0, 2.2, 0.0, 0.4),
             (8.8, 2.8, 1.3, 2.1, -0.25, 0.2), (10.4, 1.2, 0.6, 2.0, -0.45, 0)]
    m.add(loft([(z, ring(w, h, p, 20, 0, y, 0.6, c)) for z, w, h, p, y, c in shell], ["second"] + ["hull"] * 6, "body"))
    # The beak: two tusks below the nose and a sensor between them.
    m.add(lathe([(8.6, 0.5), (10.2, 0.42), (11.6, 0.2), (12.2, 0.03)], ["metal", "dark", "glass"], "detail", 10).moved(0, -0.55, 0))
    # A low canopy far back, behind a brow.
    bubble = [(-0.6, 0.4, 0.2, 1.62), (0.6, 1.5, 0.9, 1.58), (2.0, 1.9, 1.2, 1.42), (3.6, 1.7, 1.05, 1.12), (5.0, 0.5, 0.3, 0.86)]
    m.add(loft([(z, ring(w, h, 2.2, 14, 0, y)) for z, w, h, y in bubble], "glass", "canopy"))
    m.add(loft([(-7.8, [(x, y + 1.7) for x, y in chamfered(1.6, 1.1, 0.3)]), (-6.4, [(x, y + 1.95) for x, y in chamfered(2.4, 1.3, 0.4)]),
                (-1.6, [(x, y + 1.9) for x, y in chamfered(2.0, 1.0, 0.35)]), (-0.4, [(x, y + 1.66) for x, y in chamfered(1.5, 0.5, 0.2)])],
               "second", "body"))
    m.add(vents(5, 1.1, 0.3, 0.8).moved(0, 2.58, -5.8))
    # One broad engine slot of three bells.
    m.add(nozzle(-10.4, 1.15, 3.2, count=12).moved(0, 0.15, 0))
    side = Mesh()
    side.add(nozzle(-9.9, 0.85, 2.8, count=10).moved(2.1, 0.05, 0))
    side.add(fin(((2.2, 1.2), -8.6, -3.0), ((3.5, 4.4), -10.6, -8.0), (0.44, 0.14), "hull", "fin"))
    # Shoulders that the claws turn in.
    side.add(loft([(-5.6, chamfered(1.0, 1.2, 0.3)), (-4.8, chamfered(1.8, 2.0, 0.5)), (0.4, chamfered(1.8, 2.0, 0.5)),
                   (1.4, chamfered(0.9, 1.1, 0.3))], "second", "slab").moved(3.9, -0.2, 0))
    side.add(fin(((0.9, -0.6), 3.4, 8.6), ((1.9, -1.3), 7.6, 12.4), (0.7, 0.16), "accent", "fin"))
    side.add(vents(4, 0.9, 0.34, 0.7).moved(2.5, 1.52, -3.6))
    side.add(box(0.5, 0.3, 1.2, "metal", "detail").moved(1.7, 1.12, 4.4))
    side.add(box(0.8, 0.3, 1.6, "dark", "detail").moved(1.6, -0.95, -2.0))
    m.add(side.both_sides())
    m.add(box(1.6, 0.6, 5.0, "second", "body", 0.2).moved(0, -0.9, -1.0))
    return m


def raider_wing():
    """The left claw: out, then down and forward, with the cannon's mount inside its elbow."""
    m = Mesh()
    m.add(box(1.0, 1.4, 5.0, "second", "root", 0.3).moved(0.1, 0, 0))
    m.add(fin(((0.2, 0.1), -2.6, 2.4), ((3.4, 0.9), -2.2, 2.4), (1.0, 0.7), "hull", "blade"))
    m.add(fin(((3.4, 0.9), -2.2, 2.4), ((6.4, -0.8), 0.2, 4.6), (0.7, 0.6), "hull", "blade"))
    m.add(fin(((6.4, -0.8), 0.2, 4.6), ((6.9, -3.8), 4.8, 8.6), (0.6, 0.3), "hull", "claw"))
    m.add(fin(((6.9, -3.8), 4.8, 8.6), ((5.6, -5.6), 10.2, 12.0), (0.3, 0.1), "accent", "claw"))
    # Elbow and mount.
    m.add(lathe([(-1.6, 0.05), (-1.6, 0.5), (-0.9, 0.74), (1.4, 0.74), (2.0, 0.5), (2.0, 0.05)],
                ["dark", "metal", "second", "second", "dark"], "detail", 12).moved(6.5, -0.9, 2.4))
    m.add(box(0.5, 0.9, 2.2, "metal", "root", 0.15).moved(5.3, -0.5, 2.6))
    m.add(box(0.34, 0.36, 2.4, "metal", "detail").moved(2.0, -0.3, -1.6))
    m.add(fin(((3.4, 1.0), -2.0, 0.6), ((3.9, 2.5), -3.2, -1.8), (0.26, 0.1), "second", "root"))
    return m


# The bomber: two long booms with the torpedoes, and the crew in a glazed nose between them.

def mace_hull():
    m = Mesh()
    middle = [(-9.0, 5.6, 1.6, .5), (-8.0, 6.6, 2.4, .7), (-1.0, 6.6, 2.8, .8), (3.0, 4.4, 2.8, .8), (6.4, 3.2, 2.4, .7)]
    m.add(loft([(z, chamfered(w, h, c)) for z, w, h, c in middle], "hull", "body"))
    nose = [(6.2, 3.2, 2.4, 2.6, 0.0), (7.4, 3.2, 2.5, 2.4, -0.05), (9.6, 2.7, 2.1, 2.2, -0.15), (11.4, 1.7, 1.3, 2.0, -0.3),
            (12.4, 0.6, 0.5, 2.0, -0.42)]
    m.add(loft([(z, ring(w, h, p, 16, 0, y)) for z, w, h, p, y in nose], ["second", "glass", "glass", "glass"], "canopy"))
    # Turret blister and spine.
    m.add(lathe([(-0.2, 1.2), (0.3, 1.2), (0.7, 0.95), (1.0, 0.5), (1.1, 0.02)], ["second", "glass", "glass", "glass"], "canopy", 14)
          .turned("x", -90).moved(0, 1.35, -1.2))
    m.add(loft([(-8.6, [(x, y + 1.4) for x, y in chamfered(1.0, .8, .2)]), (-7.4, [(x, y + 1.6) for x, y in chamfered(1.8, 1.2, .35)]),
                (-3.6, [(x, y + 1.5) for x, y in chamfered(1.6, 1.0, .3)])], "second", "body"))
    m.add(fin(((0, 1.7), -9.0, -5.4), ((0, 5.0), -11.0, -8.2), (0.5, 0.16), "hull", "fin"))
    m.add(vents(3, 1.0, 0.3, 0.8).moved(0, 2.0, -6.0))
    side = Mesh()
    boom = [(-12.0, 1.9, 1.9, .5), (-11.0, 2.6, 2.6, .7), (-4.0, 2.9, 3.0, .8), (3.0, 2.7, 2.8, .75), (7.4, 2.3, 2.3, .6),
            (8.6, 1.7, 1.7, .5)]
    side.add(loft([(z, chamfered(w, h, c)) for z, w, h, c in boom], ["second", "hull", "hull", "hull", "second"], "boom")
             .moved(4.5, -0.2, 0))
    side.add(nozzle(-14.4, 1.15, 3.6, count=12).moved(4.5, -0.2, 0))
    # Armour collars, the mouths of two tubes, and a rib of machinery along the flank.
    side.add(loft([(-1.4, chamfered(3.1, 3.2, .85)), (-1.0, chamfered(3.4, 3.5, .95)), (1.6, chamfered(3.4, 3.5, .95)),
                   (2.0, chamfered(3.1, 3.2, .85))], "second", "slab").moved(4.5, -0.2, 0))
    for y in (0.25, -0.65):
        side.add(lathe([(8.2, 0.42), (9.2, 0.42), (9.2, 0.3), (8.5, 0)], ["metal", "accent", "dark"], "detail", 10).moved(4.5, y, 0))
    side.add(fin(((4.6, 1.0), -11.2, -8.0), ((5.6, 3.4), -12.8, -10.6), (0.36, 0.12), "hull", "fin"))
    side.add(box(0.6, 0.5, 3.4, "metal", "detail").moved(4.5, 1.34, -5.0))
    side.add(vents(4, 0.8, 0.3, 0.7).moved(4.5, 1.3, 3.6))
    side.add(box(0.4, 0.6, 2.0, "dark", "detail").moved(5.86, -0.2, -7.6))
    side.add(box(0.4, 0.5, 1.0, "metal", "detail").moved(3.2, 1.3, 1.0))
    m.add(side.both_sides())
    m.add(box(2.2, 0.5, 5.0, "dark", "detail", 0.15).moved(0, -1.4, -1.4))
    return m


def mace_wing():
    """The left wing: short, thick and drooping, with a rail below it and a pod at its end."""
    m = Mesh()
    m.add(box(0.9, 1.2, 6.4, "second", "root", 0.28).moved(0, 0, 0))
    m.add(fin(((0.2, 0), -3.4, 3.4), ((5.6, -1.2), -4.2, 0.6), (1.1, 0.6), "hull", "blade"))
    m.add(fin(((0.4, 0.3), -3.6, -1.6), ((4.6, -0.6), -5.4, -4.0), (0.4, 0.2), "second", "blade"))
    tip = [(-5.0, 0.05), (-5.0, 0.4), (-4.4, 0.66), (0.6, 0.66), (1.8, 0.4), (2.3, 0.03)]
    m.add(lathe(tip, ["dark", "metal", "hull", "accent", "accent"], "detail", 12).moved(5.7, -1.25, -0.4))
    m.add(box(0.4, 0.7, 3.6, "metal", "root", 0.12).moved(2.9, -0.9, 0.2))
    m.add(fin(((5.8, -1.6), -4.6, -1.8), ((6.3, -3.2), -5.6, -3.8), (0.24, 0.1), "second", "root"))
    return m


# The gunship: a slab of armour with a bridge, four engines and outriggers.

def anvil_hull():
    m = Mesh()
    def deck(z, w, h, cut, y=0.0):
        return z, [(px, py + y) for px, py in chamfered(w, h, cut)]
    m.add(loft([deck(-22.0, 8.0, 5.0, 1.2), deck(-21.0, 9.4, 6.2, 1.5), deck(-8.0, 9.8, 6.6, 1.6), deck(-4.0, 8.6, 5.6, 1.4),
                deck(4.0, 7.6, 4.6, 1.2, -0.2), deck(9.0, 6.2, 3.4, 1.0, -0.5), deck(12.4, 3.6, 2.0, 0.6, -0.8),
                deck(13.2, 2.6, 1.2, 0.4, -0.9)], "hull", "body"))
    # Bow: a split ram with a slot between.
    m.add(box(1.6, 0.8, 7.0, "second", "body", 0.25).moved(0, 1.5, 8.0).turned("x", 6))
    # Superstructure in three steps and the bridge.
    m.add(loft([deck(-20.0, 4.6, 2.0, .5), deck(-18.6, 5.4, 2.6, .6), deck(-9.0, 5.4, 2.6, .6), deck(-6.4, 3.8, 1.2, .4, -0.5)],
               "hull", "tower").moved(0, 4.2, 0))
    m.add(loft([deck(-17.6, 2.8, 1.6, .4), deck(-16.8, 3.6, 2.0, .5), deck(-12.2, 3.6, 2.0, .5), deck(-11.0, 2.6, 1.1, .3, -0.3)],
               "second", "tower").moved(0, 6.2, 0))
    m.add(box(3.72, 0.5, 2.2, "glass", "canopy", 0.14).moved(0, 6.55, -12.6))
    m.add(lathe([(0, 0.14), (2.6, 0.06)], "metal", "detail", 6).turned("x", -90).moved(0.9, 7.0, -15.6))
    m.add(lathe([(0, 0.1), (1.8, 0.04)], "metal", "detail", 6).turned("x", -90).moved(-0.9, 7.0, -16.2))
    m.add(lathe([(-0.25, 0.02), (-0.25, 1.0), (0.0, 1.15), (0.2, 0.5), (0.2, 0.02)], "metal", "detail", 10)
          .turned("x", -30).moved(0, 7.8, -15.4))
    # Keel.
    m.add(loft([deck(-19.0, 2.6, 1.8, .5), deck(-16.0, 3.4, 2.4, .6), deck(0.0, 2.8, 2.0, .5), deck(4.0, 1.2, 0.8, .2, 0.6)],
               "second", "body").moved(0, -3.6, 0))
    side = Mesh()
    # Armour slabs stand off the flanks.
    for z0, z1, w in ((-20.4, -14.6, 4.4), (-13.8, -8.4, 4.6), (-3.2, 3.4, 3.0)):
        slab = loft([(z0, chamfered(0.5, w - 0.8, 0.2)), (z0 + 0.5, chamfered(0.9, w, 0.3)),
                     (z1 - 0.5, chamfered(0.9, w, 0.3)), (z1, chamfered(0.5, w - 0.8, 0.2))], "hull", "slab")
        side.add(slab.moved(5.1 if z0 < -5 else 4.25, 0.1 if z0 < -5 else -0.1, 0))
    # Engines two by two.
    for y in (1.5, -1.5):
        side.add(nozzle(-25.8, 1.25, 4.4, count=8).moved(2.2, y, 0))
    side.add(box(0.9, 5.4, 1.4, "second", "body").moved(4.0, 0, -22.3))
    # Machinery between the slabs, pipes, hatches and thrusters.
    side.add(vents(4, 0.5, 0.4, 1.0).moved(2.6, 2.78, -2.6))
    side.add(lathe([(0, 0.16), (11.0, 0.16)], "metal", "detail", 6).moved(4.72, 2.2, -19.4))
    for z in (-18.0, -11.0, -6.0, 5.4):
        side.add(box(0.8, 0.5, 1.1, "metal", "detail").moved(3.2 if z < 2 else 2.3, 3.2 if z < -8 else (2.7 if z < 2 else 1.75), z))
    side.add(box(0.5, 0.6, 1.2, "dark", "detail").moved(3.0, -0.6, 9.4))
    side.add(box(1.1, 0.6, 2.6, "metal", "detail").moved(2.4, -2.6, 3.6))
    # The shoes that the outriggers are fixed to.
    side.add(box(1.2, 2.4, 3.6, "second", "slab", 0.3).moved(4.4, -0.1, 1.7))
    m.add(side.both_sides())
    return m


def anvil_wing():
    """The left outrigger: a strut and a long weapons nacelle."""
    m = Mesh()
    m.add(fin(((0, 0), -1.6, 1.7), ((3.6, -0.7), -2.2, 1.5), (1.3, 0.9), "second", "blade"))
    m.add(fin(((0.4, 0.9), -1.0, 0.2), ((3.4, 0.35), -1.8, -0.6), (0.3, 0.3), "metal", "detail"))
    pod = [(-7.6, 0.9, 1.2, .2), (-7.0, 1.7, 2.2, .45), (-2.4, 2.1, 2.7, .6), (3.0, 2.1, 2.6, .6), (6.4, 1.5, 1.8, .45), (7.4, 0.8, 0.9, .2)]
    m.add(loft([(z, chamfered(w, h, c)) for z, w, h, c in pod], ["dark", "hull", "hull", "hull", "accent"], "pod").moved(4.4, -0.8, 0))
    m.add(box(0.8, 0.5, 8.0, "second", "pod", 0.18).moved(4.4, 0.6, -1.0))
    m.add(box(0.5, 0.8, 6.0, "second", "pod", 0.16).moved(5.5, -0.8, -1.4))
    m.add(vents(5, 0.9, 0.34, 0.6).moved(4.4, 0.86, -4.4))
    m.add(nozzle(-9.0, 0.55, 1.9, "detail", 5).moved(4.4, -0.8, 0))
    m.add(box(0.8, 0.6, 2.0, "metal", "detail").moved(4.4, -2.2, 1.0))
    return m


def heavy_turret():
    """A flat turret with two barrels; it stands on its origin."""
    m = Mesh()
    m.add(lathe([(-0.1, 1.35), (0.35, 1.35), (0.35, 1.1)], "metal", "gun", 8).turned("x", -90))
    m.add(loft([(-1.5, [(x, y + 0.75) for x, y in chamfered(1.5, 0.7, 0.2)]), (-1.1, [(x, y + 0.8) for x, y in chamfered(2.1, 1.0, 0.28)]),
                (0.6, [(x, y + 0.8) for x, y in chamfered(2.1, 1.0, 0.28)]), (1.5, [(x, y + 0.65) for x, y in chamfered(1.6, 0.5, 0.16)])],
               "hull", "gun"))
    m.add(lathe([(0, 0.28), (1.35, 0.28), (1.4, 0.18), (3.15, 0.18), (3.2, 0.26), (3.8, 0.24), (3.6, 0)],
                ["metal", "dark", "metal", "dark", "metal", "dark"], "gun", 5).moved(0.48, 0.72, 1.0).both_sides())
    m.add(box(0.5, 0.3, 0.7, "glass", "gun").moved(0, 1.36, 0.2))
    return m


# Torpedoes: the launcher hangs under a rack, which is mounted like a wing.

def torpedo_rack():
    """A pylon with two clamps. Its origin lies on its underside's middle; it reaches up into the hull."""
    m = Mesh()
    m.add(loft([(-2.0, [(x, y + 0.3) for x, y in chamfered(0.3, 0.9, 0.1)]), (-1.2, [(x, y + 0.3) for x, y in chamfered(0.8, 1.2, 0.2)]),
                (1.0, [(x, y + 0.3) for x, y in chamfered(0.8, 1.2, 0.2)]), (2.2, [(x, y + 0.4) for x, y in chamfered(0.24, 0.7, 0.08)])],
               "second", "root"))
    for z in (-0.9, 0.8):
        m.add(box(1.5, 0.24, 0.4, "metal", "detail").moved(0, -0.3, z))
    return m


def torpedo_launcher():
    """A magazine with four tubes, two above two."""
    m = Mesh()
    body = [(-2.6, 1.0, 0.8, .2), (-2.2, 1.7, 1.3, .3), (1.2, 1.7, 1.3, .3), (1.5, 1.5, 1.1, .25)]
    m.add(loft([(z, chamfered(w, h, c)) for z, w, h, c in body], ["dark", "hull", "accent"], "gun").moved(0, -0.65, 0))
    tube = lathe([(1.3, 0.3), (2.1, 0.3), (2.1, 0.2), (1.4, 0)], ["metal", "metal", "dark"], "gun", 6)
    for y in (-0.36, -0.94):
        m.add(tube.moved(0.4, y, 0).both_sides())
    m.add(box(0.16, 0.7, 2.4, "metal", "gun").moved(0.92, -0.65, -0.6).both_sides())
    return m


def engine_block():
    """The engine as a part of its own; no slot shows it."""
    return nozzle(-1.5, 1.0, 3.0)


# What is painted on them.

def _abs_x(p):
    return np.abs(p[..., 0])


def kestrel_second(p):
    nose = stripe(p[..., 2], 10.6, 20) * 1.0
    back = stripe(p[..., 2], -5.0, -1.6) * smoothstep(0.9, 1.2, p[..., 1])
    belly = smoothstep(-0.55, -0.75, p[..., 1])
    return np.clip(nose + back + belly, 0, 1)


def kestrel_stripes(p):
    z, y, x = p[..., 2], p[..., 1], _abs_x(p)
    band = stripe(z + 0.35 * x, -6.9, -6.0) + stripe(z + 0.35 * x, -5.75, -5.5)
    cheat = stripe(y + 0.03 * z, 0.12, 0.42) * stripe(z, 2.9, 9.8)
    tail = stripe(y, 3.3, 4.2) * smoothstep(2.6, 2.8, x)
    return np.clip(band + cheat + tail, 0, 1)


def kestrel_wing_second(p):
    return stripe(p[..., 2] + 0.45 * _abs_x(p), -4.5, -1.6) * smoothstep(0.9, 1.0, _abs_x(p))


def kestrel_wing_stripes(p):
    x = _abs_x(p)
    return np.clip(stripe(x, 6.9, 8.0) + stripe(x, 6.35, 6.6), 0, 1)


def raider_stripes(p):
    """A jaw of teeth along the shell's edge, and two bars across its back."""
    z, y, x = p[..., 2], p[..., 1], _abs_x(p)
    teeth = stripe(y - 0.45 * np.abs((z / 0.9) % 2 - 1), -0.75, -0.3) * stripe(z, 1.0, 9.0) * smoothstep(0.5, 0.7, x)
    bars = (stripe(z - 0.5 * x, -6.6, -5.7) + stripe(z - 0.5 * x, -5.3, -5.0)) * smoothstep(0.6, 0.9, y)
    return np.clip(teeth + bars + stripe(y, 3.2, 3.9) * smoothstep(2.6, 2.8, x), 0, 1)


def raider_second(p):
    return np.clip(stripe(p[..., 2], -4.2, 1.2) * stripe(_abs_x(p), 1.5, 3.2) * smoothstep(0.7, 1.0, p[..., 1])
                   + smoothstep(-0.55, -0.75, p[..., 1]), 0, 1)


def raider_wing_stripes(p):
    x, y = _abs_x(p), p[..., 1]
    return np.clip(stripe(x, 4.4, 5.1) * smoothstep(-0.6, -0.2, y) + stripe(y, -2.4, -1.9) + stripe(y, -3.1, -2.9), 0, 1)


def mace_second(p):
    z, y = p[..., 2], p[..., 1]
    return np.clip(stripe(z, -7.6, -4.4) + smoothstep(-1.0, -1.2, y), 0, 1)


def mace_stripes(p):
    """Hazard bars behind the tubes and a broad band round each boom."""
    z, y, x = p[..., 2], p[..., 1], _abs_x(p)
    hazard = stripe((z + y) % 1.1, 0.0, 0.55, 0.04) * stripe(z, 6.2, 7.2) * smoothstep(2.9, 3.1, x)
    return np.clip(hazard + stripe(z, -9.6, -8.6) * smoothstep(2.9, 3.1, x) + stripe(y, 3.6, 4.3) * smoothstep(1.6, 1.4, x)
                   + stripe(z, 3.6, 4.0) * smoothstep(2.6, 2.4, x), 0, 1)


def mace_wing_stripes(p):
    x = _abs_x(p)
    return np.clip(stripe(x, 3.4, 4.3) + stripe(x, 2.9, 3.1), 0, 1)


def sting_stripes(p):
    z, x = p[..., 2], _abs_x(p)
    claws = sum(stripe(z + 0.9 * x + 0.4 * p[..., 1], s, s + 0.42) for s in (3.4, 4.3, 5.2))
    return np.clip(claws + stripe(p[..., 1], 2.7, 3.3) * smoothstep(-4, -5, z) + stripe(z, 9.0, 20), 0, 1)


def sting_second(p):
    return np.clip(stripe(p[..., 2], -3.6, 0.6) * smoothstep(0.5, 0.8, np.abs(p[..., 1])), 0, 1)


def sting_wing_stripes(p):
    x = _abs_x(p)
    return np.clip(stripe(x - 0.45 * p[..., 2], 3.6, 4.1) + stripe(x - 0.45 * p[..., 2], 4.4, 4.65), 0, 1)


def anvil_stripes(p):
    z, y = p[..., 2], p[..., 1]
    hazard = stripe((z + y) % 1.6, 0.0, 0.8, 0.04) * stripe(z, 11.0, 12.0)
    return np.clip(hazard + stripe(z, -8.0, -7.2) + stripe(y, 4.9, 5.2) * stripe(z, -19.0, -9.0) + stripe(z, -1.2, -0.8), 0, 1)


def anvil_second(p):
    z, y = p[..., 2], p[..., 1]
    return np.clip(stripe(z, -13.6, -8.6) * smoothstep(2.9, 3.1, y) + stripe(z, 2.0, 8.0) * smoothstep(0.9, 1.2, y)
                   + smoothstep(-2.4, -2.7, y), 0, 1)


def anvil_windows(p):
    """Rows of cabin lights along the superstructure."""
    z, y = p[..., 2], p[..., 1]
    row = stripe(y, 4.05, 4.3, 0.03) + stripe(y, 6.05, 6.28, 0.03)
    gone = ((np.floor(z / 0.7) * 7.13) % 1.0) < 0.3
    return np.clip(row * stripe(z % 0.7, 0.1, 0.5, 0.03) * smoothstep(1.7, 1.75, _abs_x(p)) * ~gone, 0, 1)


def soot_behind(start, end):
    """Soot that thickens towards the stern."""
    return lambda p: 0.8 * smoothstep(start, end, p[..., 2])


def gun_soot(p):
    return 0.7 * smoothstep(3.6, 6.0, p[..., 2])


# name -> shape, side of the sheet, livery, what is painted (arguments of paint)
MODELS = {
    "kestrel_hull": (kestrel_hull, 1024, "player",
                     dict(seed=11, second=kestrel_second, stripes=kestrel_stripes, soot=soot_behind(-8.2, -11.5), plate=2.0)),
    "kestrel_wing": (kestrel_wing, 512, "player",
                     dict(seed=23, second=kestrel_wing_second, stripes=kestrel_wing_stripes, plate=1.8)),
    "raider_hull": (raider_hull, 1024, "enemy",
                    dict(seed=13, second=raider_second, stripes=raider_stripes, soot=soot_behind(-6.6, -9.6), plate=1.8)),
    "raider_wing": (raider_wing, 512, "enemy", dict(seed=29, stripes=raider_wing_stripes, plate=1.6)),
    "mace_hull": (mace_hull, 1024, "enemy",
                  dict(seed=131, second=mace_second, stripes=mace_stripes, soot=soot_behind(-10.5, -14.0), plate=2.1)),
    "mace_wing": (mace_wing, 512, "enemy", dict(seed=137, stripes=mace_wing_stripes, plate=1.8)),
    "light_cannon": (light_cannon, 256, "player", dict(seed=31, soot=gun_soot, plate=0.9)),
    "claw_cannon": (light_cannon, 256, "enemy", dict(seed=37, soot=gun_soot, plate=0.9)),
    "sting_hull": (sting_hull, 1024, "enemy",
                   dict(seed=41, second=sting_second, stripes=sting_stripes, soot=soot_behind(-5.0, -9.0), plate=1.7)),
    "sting_wing": (sting_wing, 512, "enemy", dict(seed=53, stripes=sting_wing_stripes, plate=1.4)),
    "needle_cannon": (needle_cannon, 256, "enemy", dict(seed=61, soot=gun_soot, plate=0.8)),
    "anvil_hull": (anvil_hull, 1024, "enemy",
                   dict(seed=71, second=anvil_second, stripes=anvil_stripes, windows=anvil_windows,
                        soot=soot_behind(-20.5, -25.0), plate=2.8)),
    "anvil_wing": (anvil_wing, 512, "enemy", dict(seed=83, plate=2.0)),
    "heavy_turret": (heavy_turret, 256, "enemy", dict(seed=97, soot=gun_soot, plate=1.0)),
    "torpedo_rack": (torpedo_rack, 128, "player", dict(seed=107, plate=0.8)),
    "torpedo_launcher": (torpedo_launcher, 256, "player", dict(seed=109, plate=0.9)),
    "maul_launcher": (torpedo_launcher, 256, "enemy", dict(seed=113, plate=0.9)),
    "engine": (engine_block, 128, "player", dict(seed=101, plate=1.0)),
}
MIRRORED = ("kestrel_wing", "raider_wing", "sting_wing", "mace_wing", "anvil_wing")  # modelled as left ones; the right ones are mirrored
