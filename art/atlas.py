"""Lays the skin of a mesh out on one texture sheet and tells the painter, texel by texel, what lies
there: place, normal, material, shade. Each group of faces is seen from up to five directions; each
such view is one chart on the sheet, all in one scale. Left and right share a chart wherever no face
crosses the middle, and the small things of the group "detail" share one where they are alike."""
import numpy as np
from PIL import Image, ImageDraw, ImageFilter

from shapes import edges, face_normals

# direction -> (axis across, axis up, axis of depth, sign of depth)
VIEWS = {"top": (2, 0, 1, 1), "bottom": (2, 0, 1, -1), "side": (2, 1, 0, 0),
         "front": (0, 1, 2, 1), "back": (0, 1, 2, -1)}
MARGIN = 5  # free texels around a chart, filled with its rim colour


class Chart:
    """One view of one group. `shift` moves each of its triangles to the first of its like."""

    def __init__(self, group, view, tris, shift, folded):
        self.group, self.view, self.tris, self.shift, self.folded = group, view, tris, shift, folded


class Atlas:
    def __init__(self, mesh, size, smooth=38, zoom=None):
        """`size` is the side of the square sheet, `zoom` maps a group to its own factor of scale."""
        self.size, self.zoom = size, zoom or {}
        self.points, self.tris, self.tags, self.groups = mesh.triangles(smooth)
        self.flat = face_normals(self.points, self.tris)
        self.smooth = self._point_normals()
        self.tag_names = sorted(set(self.tags))
        self._charts()
        self._pack()
        self._place()
        self._raster()
        self._shade()

    def _point_normals(self):
        n = np.zeros_like(self.points)
        for k in range(3):
            np.add.at(n, self.tris[:, k], self.flat)
        return n / np.maximum(np.linalg.norm(n, axis=1, keepdims=True), 1e-9)

    def _charts(self):
        alike, shift = self._pieces()
        x = self.points[self.tris][..., 0]
        crossing = (x.min(axis=1) < -1e-3) & (x.max(axis=1) > 1e-3)
        found = {}
        for i, (n, group) in enumerate(zip(self.flat, self.groups)):
            lean = {"top": n[1], "bottom": -n[1], "side": abs(n[0]), "front": n[2] * .8, "back": -n[2] * .8}
            found.setdefault((group, alike[i], max(lean, key=lean.get)), []).append(i)
        self.charts = []
        for (group, _, view), tris in sorted(found.items()):
            tris = np.array(tris)
            c = Chart(group, view, tris, dict(zip(tris, shift[tris])), not crossing[tris].any())
            p = np.concatenate([self._plane(c, self.points[self.tris[i]], i) for i in tris])
            c.low, c.extent = p.min(axis=0), np.ptp(p, axis=0)
            self.charts.append(c)

    def _pieces(self):
        """For each triangle: which piece of detail it belongs to, like pieces under one number (0
        for all that is no detail), and how far its piece is from the first of its like."""
        alike, shift = np.zeros(len(self.tris), int), np.zeros((len(self.tris), 3))
        canon, home = {}, {}
        at = np.array([canon.setdefault(tuple(np.round(p, 3)), len(canon)) for p in self.points])
        parent = list(range(len(canon)))

        def root(n):
            while parent[n] != n:
                n = parent[n]
            return n
        loose = [i for i, g in enumerate(self.groups) if g == "detail"]
        for i in loose:
            for k in (1, 2):
                parent[root(at[self.tris[i][k]])] = root(at[self.tris[i][0]])
        pieces = {}
        for i in loose:
            pieces.setdefault(root(at[self.tris[i][0]]), []).append(i)
        for tris in pieces.values():
            p = self.points[self.tris[tris]].reshape(-1, 3)
            p = np.where(p[:, 0].mean() < 0, -1, 1) * p * (1, 0, 0) + p * (0, 1, 1)
            size = (len(tris),) + tuple(np.round(np.ptp(p, axis=0), 2))
            number, first = home.setdefault(size, (len(home) + 1, p.min(axis=0)))
            alike[tris] = number
            shift[tris] = first - p.min(axis=0)
        return alike, shift

    def _plane(self, chart, p, tri):
        """Points of a triangle in the plane of its chart, in world units."""
        across, up, _, _ = VIEWS[chart.view]
        if chart.folded:
            p = np.abs(p) * (1, 0, 0) + p * (0, 1, 1)
        return (p + chart.shift[tri])[..., (across, up)]

    def _shelves(self, scale):
        x = y = shelf = 0
        spots = []
        order = sorted(range(len(self.charts)),
                       key=lambda i: -self.charts[i].extent[1] * self.zoom.get(self.charts[i].group, 1))
        for i in order:
            c = self.charts[i]
            w, h = (np.ceil(c.extent * scale * self.zoom.get(c.group, 1)) + 2 * MARGIN).astype(int)
            if w > self.size:
                return None
            if x + w > self.size:
                x, y, shelf = 0, y + shelf, 0
            spots.append((i, x, y, w, h))
            x, shelf = x + w, max(shelf, h)
            if y + shelf > self.size:
                return None
        return spots

    def _pack(self):
        low, high = 0.5, 4000.0
        for _ in range(40):
            mid = (low + high) / 2
            low, high = (mid, high) if self._shelves(mid) else (low, mid)
        self.scale = low
        for i, x, y, w, h in self._shelves(low):
            c = self.charts[i]
            c.x, c.y, c.w, c.h = x, y, w, h
            c.scale = low * self.zoom.get(c.group, 1)

    def _texels(self, chart, tri, p=None):
        """Where points of a triangle lie on the sheet, in texels from its upper left corner."""
        q = self._plane(chart, self.points[self.tris[tri]] if p is None else p, tri)
        q = (q - chart.low) * chart.scale
        return np.stack([chart.x + MARGIN + q[..., 0], chart.y + chart.h - MARGIN - q[..., 1]], axis=-1)

    def _place(self):
        self.uvs, self.uv_tris = [], np.zeros_like(self.tris)
        seen = {}
        for c in self.charts:
            for i in c.tris:
                at = self._texels(c, i) / self.size
                for k in range(3):
                    key = (round(at[k][0], 6), round(1 - at[k][1], 6))
                    if key not in seen:
                        seen[key] = len(self.uvs)
                        self.uvs.append(key)
                    self.uv_tris[i][k] = seen[key]

    def _raster(self):
        s = self.size
        self.chart_at = np.full((s, s), -1)
        self.tag_at = np.full((s, s), -1)
        self.pos = np.zeros((s, s, 3), np.float32)
        self.nrm = np.zeros((s, s, 3), np.float32)
        for number, c in enumerate(self.charts):
            self.chart_at[c.y:c.y + c.h, c.x:c.x + c.w] = number
            best = np.full((c.h, c.w), -1e9, np.float32)
            _, _, depth, sign = VIEWS[c.view]
            for i in c.tris:
                p = self.points[self.tris[i]]
                n = self.smooth[self.tris[i]]
                toward = sign if sign else (1 if self.flat[i][depth] > 0 else -1)
                where = self._texels(c, i) - (c.x, c.y)
                hit = rasterise(where, c.w, c.h)
                if hit is None:
                    continue
                rows, cols, weights = hit
                z = (weights @ p)[:, depth] * toward
                front = z > best[rows, cols]
                rows, cols, weights, z = rows[front], cols[front], weights[front], z[front]
                best[rows, cols] = z
                self.pos[c.y + rows, c.x + cols] = weights @ p
                self.nrm[c.y + rows, c.x + cols] = weights @ n
                self.tag_at[c.y + rows, c.x + cols] = self.tag_names.index(self.tags[i])
        self.nrm /= np.maximum(np.linalg.norm(self.nrm, axis=2, keepdims=True), 1e-6)
        self.covered = self.tag_at >= 0

    def _shade(self):
        """`shade`: how open to the sky a texel is, 0 to 1, from the height of all that stands near
        it. `wear`: strips along sharp outer edges."""
        s = self.size
        self.shade = np.ones((s, s), np.float32)
        for c in self.charts:
            _, _, depth, sign = VIEWS[c.view]
            for toward in ((sign,) if sign else ((1,) if c.folded else (1, -1))):
                height = self._heights(c, depth, toward)
                own = self.pos[c.y:c.y + c.h, c.x:c.x + c.w, depth] * toward
                own = np.abs(own) if c.folded and depth == 0 else own
                open_sky = np.zeros_like(height)
                steps = 0
                for reach in (0.25, 0.6, 1.3):
                    d = max(1, int(reach * c.scale))
                    for a in range(8):
                        dx, dy = int(round(d * np.cos(a * np.pi / 4))), int(round(d * np.sin(a * np.pi / 4)))
                        over = np.clip((_shifted(height, dx, dy) - own) / reach, 0, 2.0)
                        open_sky += 1 / (1 + over * over)
                        steps += 1
                c_shade = self.shade[c.y:c.y + c.h, c.x:c.x + c.w]
                side_here = (self.nrm[c.y:c.y + c.h, c.x:c.x + c.w, depth] * toward >= 0) | c.folded
                c_shade[side_here] = (open_sky / steps)[side_here]
        sheet = Image.new("L", (s, s), 0)
        pen = ImageDraw.Draw(sheet)
        chart_of = {i: c for c in self.charts for i in c.tris}
        points, tris = self.points, self.tris
        weld = {}
        canon = np.array([weld.setdefault(tuple(np.round(p, 3)), len(weld)) for p in points])
        for at in edges(canon[tris]).values():
            if len(at) != 2:
                continue
            i, j = at
            if self.flat[i] @ self.flat[j] > 0.8:
                continue
            if (points[tris[j]].mean(axis=0) - points[tris[i]].mean(axis=0)) @ self.flat[i] > 0:
                continue  # an inner edge gathers dirt, not wear
            for t, o in ((i, j), (j, i)):
                shared = [p for p in tris[t] if canon[p] in canon[tris[o]]]
                if len(shared) == 2:
                    a, b = self._texels(chart_of[t], t, points[shared])
                    pen.line([tuple(a), tuple(b)], fill=255, width=max(1, round(self.scale * 0.08)))
        self.wear = np.asarray(sheet.filter(ImageFilter.GaussianBlur(0.7)), np.float32) / 255

    def _heights(self, c, depth, toward):
        """Height of all that may stand over a chart, seen from the chart's direction."""
        height = np.full((c.h, c.w), -1e3, np.float32)
        loose = any(np.any(s) for s in c.shift.values())
        some = c.tris if loose or c.group == "detail" else range(len(self.tris))
        nothing = np.zeros(3)
        for i in some:
            if self.flat[i, depth] * toward < 0.02 and not c.folded:
                continue
            p = self.points[self.tris[i]]
            q = (np.abs(p) * (1, 0, 0) + p * (0, 1, 1) if c.folded else p) + c.shift.get(i, nothing)
            across, up, _, _ = VIEWS[c.view]
            flat = (q[:, (across, up)] - c.low) * c.scale
            hit = rasterise(np.stack([MARGIN + flat[:, 0], c.h - MARGIN - flat[:, 1]], -1), c.w, c.h)
            if hit is not None:
                rows, cols, weights = hit
                z = (weights @ q)[:, depth] * toward
                height[rows, cols] = np.maximum(height[rows, cols], z)
        return height

    def spread(self, colours):
        """Lets the colours at the rim of each chart run out over the free texels around it."""
        out, known = colours.copy(), self.covered.copy()
        for _ in range(MARGIN + 3):
            total = np.zeros_like(out)
            count = np.zeros(known.shape, np.float32)
            for dy in (-1, 0, 1):
                for dx in (-1, 0, 1):
                    k = _shifted(known.astype(np.float32), dx, dy, 0)
                    total += np.stack([_shifted(out[..., i], dx, dy, 0) for i in range(3)], -1) * k[..., None]
                    count += k
            fresh = ~known & (count > 0)
            out[fresh] = total[fresh] / count[fresh][:, None]
            known |= fresh
        return out


def _shifted(a, dx, dy, fill=None):
    """The picture as seen dx, dy texels further on."""
    p = np.pad(a, ((abs(dy), abs(dy)), (abs(dx), abs(dx))), mode="edge" if fill is None else "constant")
    y, x = abs(dy) + dy, abs(dx) + dx
    return p[y:y + a.shape[0], x:x + a.shape[1]]


def rasterise(corners, width, height):
    """The texels whose centres a triangle covers (a little more than that, so that thin ones leave
    no gaps): rows, columns, weights of the corners. None if there are none."""
    x0, y0 = np.floor(corners.min(axis=0)).astype(int) - 1
    x1, y1 = np.ceil(corners.max(axis=0)).astype(int) + 1
    x0, y0, x1, y1 = max(x0, 0), max(y0, 0), min(x1, width), min(y1, height)
    if x0 >= x1 or y0 >= y1:
        return None
    (ax, ay), (bx, by), (cx, cy) = corners
    area = (bx - ax) * (cy - ay) - (cx - ax) * (by - ay)
    if abs(area) < 1e-6:
        return None
    gx, gy = np.meshgrid(np.arange(x0, x1) + 0.5, np.arange(y0, y1) + 0.5)
    w0 = ((bx - gx) * (cy - gy) - (cx - gx) * (by - gy)) / area
    w1 = ((cx - gx) * (ay - gy) - (ax - gx) * (cy - gy)) / area
    w2 = 1 - w0 - w1
    longest = max(abs(bx - ax), abs(by - ay), abs(cx - ax), abs(cy - ay), abs(cx - bx), abs(cy - by))
    slack = -0.7 * longest / abs(area)
    inside = (w0 >= slack) & (w1 >= slack) & (w2 >= slack)
    if not inside.any():
        return None
    rows, cols = np.nonzero(inside)
    weights = np.clip(np.stack([w0[inside], w1[inside], w2[inside]], axis=1), 0, 1)
    weights /= weights.sum(axis=1, keepdims=True)
    return rows + y0, cols + x0, weights
