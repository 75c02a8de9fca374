"""What all ships have on them: engine bells, vents, gun barrels, masts."""
from shapes import Mesh, box, lathe


def nozzle(z, radius, length, group="engine", count=12, tag="metal"):
    """An engine's end: a glowing plate in a flared bell, with two collars ahead of it."""
    r = radius
    return lathe([(z + length * 0.45, 0), (z + length * 0.45, r * 0.74), (z, r * 0.93), (z - 0.02 * r, r),
                  (z + length * 0.42, r * 1.12), (z + length * 0.42, r * 1.24), (z + length * 0.58, r * 1.24),
                  (z + length * 0.58, r * 1.12), (z + length, r * 1.16)],
                 ["glow", "dark", "metal", tag, tag, "dark", tag, tag], group, count)


def vents(count, width, length, gap, tag="dark", group="detail", height=0.16):
    m = Mesh()
    for n in range(count):
        m.add(box(width, height, length, tag, group).moved(0, 0, n * gap))
    return m


def barrel(length, radius, group="gun", count=6):
    """A gun barrel from z = 0 forward: sleeve, collar and a muzzle brake with a bore."""
    r, z = radius, length
    return lathe([(0, r * 1.5), (z * 0.18, r * 1.5), (z * 0.24, r * 1.0), (z * 0.42, r * 1.0), (z * 0.43, r * 1.4),
                  (z * 0.52, r * 1.4), (z * 0.53, r * 0.8), (z * 0.82, r * 0.8), (z * 0.84, r * 1.3), (z, r * 1.2),
                  (z, r * 0.55), (z * 0.94, 0)],
                 ["metal", "metal", "metal", "dark", "dark", "dark", "metal", "dark", "metal", "dark", "dark"], group, count)


def mast(height, radius, group="detail"):
    """A thin pole that stands on its origin."""
    return lathe([(0, radius), (height, radius * 0.4)], "metal", group, 6).turned("x", -90)


def dish(radius, group="detail", tag="metal"):
    """A shallow bowl on a stub; it looks ahead."""
    r = radius
    return lathe([(-0.5 * r, 0.02), (-0.5 * r, 0.16 * r), (-0.1 * r, 0.2 * r), (0.0, 0.55 * r), (0.28 * r, r),
                  (0.32 * r, 0.96 * r), (0.06 * r, 0.4 * r), (0.04 * r, 0.05 * r), (0.4 * r, 0.04 * r), (0.42 * r, 0.0)],
                 [tag, tag, tag, tag, tag, "dark", "dark", "metal", "metal"], group, 8)
