"""The drawings of samples/: posters, patterns, palettes and landscapes. Each function answers a Drawing in SVG."""
import math
import random


class Drawing:
    """Gathers the elements of one SVG picture."""

    def __init__(self, width, height, background=None):
        self.width, self.height = width, height
        self.parts = []
        self.definitions = []
        if background:
            self.rect(0, 0, width, height, background)

    def text(self):
        return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{self.width}" height="{self.height}" '
                f'viewBox="0 0 {self.width} {self.height}"><defs>{"".join(self.definitions)}</defs>'
                f'{"".join(self.parts)}</svg>')

    def add(self, element):
        self.parts.append(element)

    def rect(self, x, y, width, height, fill, extra=""):
        self.add(f'<rect x="{x}" y="{y}" width="{width}" height="{height}" fill="{fill}" {extra}/>')

    def circle(self, x, y, radius, fill, extra=""):
        self.add(f'<circle cx="{x:.2f}" cy="{y:.2f}" r="{radius:.2f}" fill="{fill}" {extra}/>')

    def ring(self, x, y, radius, stroke, width):
        self.circle(x, y, radius, "none", f'stroke="{stroke}" stroke-width="{width}"')

    def path(self, points, fill, extra="", close=True):
        data = "M" + "L".join(f"{x:.1f} {y:.1f}" for x, y in points) + ("Z" if close else "")
        self.add(f'<path d="{data}" fill="{fill}" {extra}/>')

    def raw_path(self, data, fill, extra=""):
        self.add(f'<path d="{data}" fill="{fill}" {extra}/>')

    def gradient(self, name, stops, radial=False, **box):
        kind = "radialGradient" if radial else "linearGradient"
        box = box or ({} if radial else {"x1": 0, "y1": 0, "x2": 0, "y2": 1})
        attributes = " ".join(f'{key}="{value}"' for key, value in box.items())
        inner = "".join(f'<stop offset="{offset}" stop-color="{color}" stop-opacity="{rest[0] if rest else 1}"/>'
                        for offset, color, *rest in stops)
        self.definitions.append(f'<{kind} id="{name}" {attributes}>{inner}</{kind}>')
        return f"url(#{name})"


def mixed(first, second, share):
    """A colour between two of the form #rrggbb."""
    channels = [(int(first[at:at + 2], 16), int(second[at:at + 2], 16)) for at in (1, 3, 5)]
    return "#" + "".join(f"{round(a + (b - a) * share):02x}" for a, b in channels)


def ridge_line(source, width, base, height, roughness):
    """The upper edge of a hill: a few waves of falling length."""
    waves = [(source.uniform(0.6, 1.4) * 2 ** octave, source.uniform(0, 6.28), height / roughness ** octave)
             for octave in range(6)]
    return [(x, base + sum(size * math.sin(x / width * 6.28 * speed + phase) for speed, phase, size in waves))
            for x in range(0, width + 8, 8)]


def hills(drawing, source, colors, top, bottom, height, roughness=2.1):
    for index, color in enumerate(colors):
        share = index / max(1, len(colors) - 1)
        line = ridge_line(source, drawing.width, top + (bottom - top) * share, height * (0.6 + share), roughness)
        drawing.path(line + [(drawing.width, drawing.height), (0, drawing.height)], color)


def ridge():
    d = Drawing(1920, 1200)
    d.rect(0, 0, 1920, 1200, d.gradient("sky", [(0, "#27375f"), (.35, "#7b6d94"), (.6, "#f2a48b"), (.8, "#ffd9a0")]))
    glow = d.gradient("glow", [(0, "#fff3cf", .95), (.25, "#ffd9a0", .5), (1, "#ffd9a0", 0)], radial=True)
    d.circle(1260, 640, 520, glow)
    d.circle(1260, 640, 86, "#fff6dc")
    colors = [mixed("#e9a68f", "#1b2749", share) for share in (.1, .3, .48, .66, .82, .95)]
    hills(d, random.Random(11), colors, 700, 1090, 46)
    return d


def skyline():
    source = random.Random(5)
    d = Drawing(1080, 1920)
    d.rect(0, 0, 1080, 1920, d.gradient("sky", [(0, "#0b1033"), (.45, "#3b2a6b"), (.75, "#b5507f"), (1, "#ff9a6c")]))
    for _ in range(120):
        d.circle(source.uniform(0, 1080), source.uniform(0, 900), source.choice((1, 1.4, 2.2)), "#ffffff",
                 f'opacity="{source.uniform(.3, .9):.2f}"')
    d.circle(810, 360, 120, "#fbe7c6")
    d.circle(770, 335, 112, "#161444")
    for color, base, lit in (("#3a2560", 1180, None), ("#241a4b", 1320, "#f7b267"), ("#120f30", 1480, "#ffd98e")):
        x = -20
        while x < 1080:
            width = source.randrange(80, 170, 10)
            top = base + source.randrange(-260, 200, 20)
            d.rect(x, top, width, 1920 - top, color)
            for wy in range(top + 24, 1780, 34) if lit else ():
                for wx in range(x + 14, x + width - 20, 24):
                    if source.random() < .3:
                        d.rect(wx, wy, 11, 16, lit, f'opacity="{source.choice((.5, .8, 1))}"')
            x += width + source.choice((0, 0, 12))
    d.rect(0, 1780, 1080, 140, "#0b0a22")
    for _ in range(60):
        d.rect(source.randrange(0, 1000), source.randrange(1795, 1910, 8), source.randrange(20, 110), 3, "#ffb067",
               'opacity=".45"')
    return d


def dunes():
    source = random.Random(23)
    d = Drawing(3440, 1440)
    d.rect(0, 0, 3440, 1440, d.gradient("sky", [(0, "#f6d6b8"), (.5, "#f9e9d2")]))
    d.circle(2560, 430, 170, "#e8604c")
    for index in range(7):
        base = 520 + index * 125
        light = mixed("#f0b27a", "#7a3b3f", index / 6)
        dark = mixed("#d98d5f", "#3d1f33", index / 6)
        crest = source.randrange(500, 2900)
        curve = (f"M0 {base + source.randrange(40, 120)}C{crest - 700} {base + 60} {crest - 420} {base - 120} "
                 f"{crest} {base - 110}C{crest + 420} {base - 90} {crest + 800} {base + 130} 3440 "
                 f"{base + source.randrange(0, 90)}V1440H0Z")
        d.raw_path(curve, light)
        d.raw_path(f"M{crest} {base - 110}C{crest - 60} {base + 40} {crest + 220} {base + 120} {crest - 240} 1440"
                   f"H3440V{base + 80}C{crest + 800} {base + 130} {crest + 420} {base - 90} {crest} {base - 110}Z", dark)
    return d


def rhythm():
    d = Drawing(800, 1120, "#f3ead8")
    colors = ["#d8412f", "#1f2a44", "#e9a820", "#2f7f86"]
    for row in range(5):
        for column in range(4):
            x, y = 100 + column * 160, 130 + row * 160
            kind = (row * 3 + column * 5 + row * column) % 4
            color = colors[(row + column * 3 + row * column) % 4]
            if kind == 0:
                d.circle(x + 60, y + 60, 60, color)
            elif kind == 1:
                d.raw_path(f"M{x} {y}H{x + 120}A120 120 0 0 1 {x} {y + 120}Z", color)
            elif kind == 2:
                for bar in range(4):
                    d.rect(x, y + bar * 32, 120, 18, color)
            else:
                d.raw_path(f"M{x} {y + 120}A60 60 0 0 1 {x + 120} {y + 120}ZM{x} {y + 60}A60 60 0 0 1 {x + 120} {y + 60}Z",
                           color)
    d.rect(100, 960, 600, 8, "#1f2a44")
    for bar, width in enumerate((600, 420, 520)):
        d.rect(100, 992 + bar * 24, width, 10, "#1f2a44", 'opacity=".75"')
    return d


def tiles():
    source = random.Random(8)
    d = Drawing(960, 960, "#f2efe6")
    colors = ["#0f4c5c", "#e36414", "#fb8b24", "#5f0f40", "#9a031e", "#f2efe6"]
    size = 120
    for row in range(8):
        for column in range(8):
            x, y = column * size, row * size
            ground, ink = source.sample(colors, 2)
            d.rect(x, y, size, size, ground)
            turn = f'transform="rotate({source.randrange(4) * 90} {x + 60} {y + 60})"'
            if source.random() < .3:
                d.raw_path(f"M{x} {y + 60}A60 60 0 0 1 {x + 60} {y}H{x}ZM{x + 60} {y + 120}A60 60 0 0 1 {x + 120} {y + 60}"
                           f"V{y + 120}Z", ink, turn)
            else:
                d.raw_path(f"M{x} {y}H{x + size}A{size} {size} 0 0 1 {x} {y + size}Z", ink, turn)
                d.raw_path(f"M{x} {y}H{x + 60}A60 60 0 0 1 {x} {y + 60}Z", ground, turn)
    return d


def palette():
    d = Drawing(1000, 720, "#faf6ef")
    rows = [["#3b2417", "#6f4427", "#a9714b", "#d9b08c", "#f3e3cf"], ["#1d3b36", "#3f6f5f", "#7da58c", "#b9cfb4", "#e5ebd9"],
            ["#4a1430", "#8f2d4c", "#cf5c66", "#ee9b8b", "#fadcc9"]]
    for row, colors in enumerate(rows):
        for column, color in enumerate(colors):
            x, y = 60 + column * 180, 60 + row * 210
            d.rect(x, y, 160, 140, color, 'rx="14"')
            d.rect(x + 2, y + 154, 90, 9, "#3b2417", 'rx="4" opacity=".7"')
            d.rect(x + 2, y + 170, 56, 7, "#3b2417", 'rx="3" opacity=".3"')
    return d


def citrus():
    source = random.Random(3)
    d = Drawing(720, 720, "#f7c59f")
    kinds = [("#f4a300", "#ffd166", "#fff2c9"), ("#e4572e", "#ff8c61", "#ffe0d0"), ("#7aa95c", "#c5d86d", "#f4f7d9")]
    for row in range(4):
        for column in range(4):
            x, y = 40 + column * 270 + (row % 2) * 135 - 60, 90 + row * 240
            peel, flesh, pith = kinds[(row + column * 2) % 3]
            d.circle(x, y, 112, peel)
            d.circle(x, y, 102, pith)
            start = source.uniform(0, 1)
            for piece in range(9):
                a, b = [start + (piece + edge) * 6.2832 / 9 for edge in (.07, .93)]
                inner, outer = 14, 92
                d.raw_path(f"M{x + inner * math.cos((a + b) / 2):.1f} {y + inner * math.sin((a + b) / 2):.1f}"
                           f"L{x + outer * math.cos(a):.1f} {y + outer * math.sin(a):.1f}"
                           f"A{outer} {outer} 0 0 1 {x + outer * math.cos(b):.1f} {y + outer * math.sin(b):.1f}Z", flesh,
                           f'stroke="{flesh}" stroke-width="6" stroke-linejoin="round"')
    return d


def cubes():
    source = random.Random(14)
    d = Drawing(1000, 800, "#17233a")
    schemes = ["#ef476f", "#ffd166", "#06d6a0", "#118ab2", "#f78c6b"]
    half, rise = 50, 29
    for row in range(-2, 34):
        for column in range(-1, 12):
            x = column * half * 2 + (row % 2) * half
            y = 60 + row * rise
            lift = source.choice((0, 0, 30, 60, 110, 170))
            color = source.choice(schemes)
            y -= lift
            d.path([(x, y - rise), (x + half, y), (x, y + rise), (x - half, y)], mixed(color, "#ffffff", .3))
            d.path([(x - half, y), (x, y + rise), (x, y + rise + lift + 40), (x - half, y + lift + 40)], color)
            d.path([(x + half, y), (x, y + rise), (x, y + rise + lift + 40), (x + half, y + lift + 40)],
                   mixed(color, "#17233a", .45))
    return d


def terrazzo():
    source = random.Random(31)
    d = Drawing(1024, 768, "#efe7dd")
    colors = ["#c8553d", "#588b8b", "#f28f3b", "#2d3047", "#b7a99a", "#ffd5c2"]
    placed = []
    while len(placed) < 170:
        x, y, size = source.uniform(0, 1024), source.uniform(0, 768), source.uniform(9, 46)
        if any(math.hypot(x - px, y - py) < (size + other) * .95 for px, py, other in placed):
            continue
        placed.append((x, y, size))
        turns = sorted(source.uniform(0, 6.28) for _ in range(source.randrange(5, 8)))
        d.path([(x + math.cos(t) * size * source.uniform(.7, 1), y + math.sin(t) * size * source.uniform(.6, 1))
                for t in turns], source.choice(colors))
    return d


def retro_sun():
    d = Drawing(1280, 720)
    d.rect(0, 0, 1280, 720, d.gradient("sky", [(0, "#190b3b"), (.45, "#5b1a73"), (.62, "#ff5d8f")]))
    sun = d.gradient("sun", [(0, "#ffe66d"), (.55, "#ff8c42"), (1, "#ff3c78")])
    d.definitions.append('<clipPath id="over"><rect x="0" y="0" width="1280" height="450"/></clipPath>')
    d.circle(640, 330, 220, sun, 'clip-path="url(#over)"')
    for bar in range(7):
        d.rect(400, 330 + bar * 20, 480, 2 + bar * 2.2, "#a5296f")
    d.rect(0, 450, 1280, 270, "#140a2e")
    for column in range(-24, 25):
        d.path([(640 + column * 26, 450), (640 + column * 150, 720)], "none", 'stroke="#ff5d8f" stroke-width="2"', False)
    for row in range(11):
        y = 450 + 270 * (row / 10) ** 2.1
        d.path([(0, y), (1280, y)], "none", 'stroke="#ff5d8f" stroke-width="2"', False)
    hills(d, random.Random(2), ["#2a1050"], 440, 440, 22)
    d.parts.insert(-1 - 36, d.parts.pop())
    return d


def paper():
    d = Drawing(900, 1350, "#fdf0d5")
    d.circle(450, 640, 62, "#f2b134")
    colors = ["#fdf0d5", "#fbdcb8", "#ef8d7a", "#c8566b", "#833b61", "#46295a", "#201a3d"]
    for index, color in enumerate(colors[1:], 1):
        share = index / 6
        points = []
        for step in range(72):
            angle = step / 72 * 6.2832
            wobble = 1 + .09 * math.sin(angle * 3 + index * 1.3) + .05 * math.sin(angle * 5 + index * 2.1)
            radius = (140 + 440 * share) * wobble
            points.append((450 + math.cos(angle) * radius * .7, 660 + math.sin(angle) * radius))
        outline = "M" + "L".join(f"{x:.1f} {y:.1f}" for x, y in points) + "Z"
        for shadow in range(4, 40, 4):
            d.raw_path(outline, "none", f'stroke="#1a0f2e" stroke-width="{shadow}" opacity=".05" transform="translate(0 7)"')
        d.raw_path("M-90 -90H990V1440H-90Z" + outline, color, 'fill-rule="evenodd"')
    return d


def print_poster():
    d = Drawing(630, 892, "#f6efe4")
    d.add('<g transform="scale(.75)">')
    d.circle(330, 420, 260, "#f4695b")
    d.circle(520, 600, 260, "#17616e", 'style="mix-blend-mode:multiply"')
    for step in range(26):
        for column in range(26):
            size = 1.2 + 7.5 * max(0, 1 - math.hypot(step - 18, column - 9) / 16)
            d.circle(60 + column * 29, 240 + step * 29, size, "#1a1a2e", 'opacity=".82"')
    d.rect(60, 70, 720, 14, "#1a1a2e")
    d.rect(60, 104, 380, 46, "#1a1a2e")
    d.rect(60, 1080, 720, 5, "#1a1a2e")
    for column in range(4):
        d.rect(60 + column * 190, 1104, 140, 8, "#1a1a2e", 'opacity=".6"')
    d.add("</g>")
    return d


def waves():
    d = Drawing(720, 540, "#f4f1de")
    colors = ["#e07a5f", "#3d405b", "#81b29a", "#f2cc8f"]
    for row in range(11):
        for column in range(-1, 11):
            x, y = column * 80 + (row % 2) * 40, 60 + row * 52
            for index, radius in enumerate((44, 34, 24, 14)):
                d.circle(x, y, radius, colors[(index + row) % 4] if index % 2 == 0 else "#f4f1de")
    return d


def orbit():
    frames = []
    for frame in range(12):
        d = Drawing(240, 240, "#10162f")
        turn = frame / 12 * 6.2832
        for radius, color, size, speed in ((96, "#ff6b6b", 13, 1), (68, "#ffd93d", 10, -1), (42, "#4dd4ac", 8, 2)):
            d.ring(120, 120, radius, "#2c3560", 2)
            d.circle(120 + math.cos(turn * speed) * radius, 120 + math.sin(turn * speed) * radius, size, color)
        d.circle(120, 120, 18, "#f7f7ff")
        frames.append(d)
    return frames


def pixel_island():
    """A palette of sixteen colours and rows of numbers, each drawn pixel eight by eight."""
    colors = [(20, 24, 54), (38, 43, 92), (80, 62, 130), (164, 84, 142), (242, 132, 124), (255, 196, 122), (255, 240, 190),
              (28, 92, 120), (40, 138, 150), (98, 190, 176), (230, 200, 140), (190, 146, 96), (44, 110, 66), (92, 162, 80),
              (110, 66, 48), (255, 255, 255)]
    source = random.Random(4)
    grid = []
    for y in range(48):
        row = []
        for x in range(64):
            dither = (x + y) % 2 * .5
            color = min(5, int(y / 5.4 + dither)) if y < 30 else 7 + min(2, int((y - 30) / 6 + dither))
            if math.hypot(x - 45, y - 24) < 6.5 and y < 30:
                color = 6
            if y >= 30 and abs(x - 45) < 7 - (y - 30) / 3 and (y + x // 3) % 3 == 0:
                color = 6
            if math.hypot((x - 20) / 2.6, y - 36) < 5.5 and y < 37:
                color = 10 if y < 35 else 11
            row.append(color)
        grid.append(row)
    for y in range(14, 33):
        grid[y][20 + (33 - y) // 7] = 14
    for dx, dy in ((-6, 3), (-5, 2), (-4, 1), (-3, 0), (-2, 0), (-1, -1), (0, -1), (1, -1), (2, 0), (3, 0), (4, 1), (5, 2), (6, 3),
                   (-3, 2), (-4, 3), (3, 2), (4, 3), (0, 0), (1, 0), (-1, 0), (2, 1), (-2, 1)):
        grid[14 + dy][22 + dx] = 12 + (dx + dy) % 2
    for _ in range(14):
        grid[source.randrange(0, 12)][source.randrange(0, 64)] = 15
    return colors, [[color for color in row for _ in range(8)] for row in grid for _ in range(8)]


def deco():
    d = Drawing(384, 384)
    d.add('<g transform="scale(.75)"><g clip-path="url(#disc)">')
    gold, ink, green = "#d4a94e", "#10231f", "#1f5a4c"
    for row in range(6):
        for column in range(-1, 6):
            x, y = column * 102.4 + (row % 2) * 51.2, 102 + row * 82
            for radius, color in ((51, gold), (47, ink), (38, gold), (35, green), (25, gold), (22, ink), (11, gold)):
                d.raw_path(f"M{x - radius} {y}A{radius} {radius} 0 0 1 {x + radius} {y}V{y + 90}H{x - radius}Z", color)
    d.add("</g>")
    d.definitions.append('<clipPath id="disc"><circle cx="256" cy="256" r="248"/></clipPath>')
    d.ring(256, 256, 248, gold, 8)
    d.add("</g>")
    return d


def leaf():
    d = Drawing(640, 760)
    green = d.gradient("green", [(0, "#3fa66b"), (1, "#0f5238")], x1=0, y1=0, x2=1, y2=1)
    d.raw_path("M320 60C90 60 20 300 70 470C120 610 250 660 320 650C390 660 520 610 570 470C620 300 550 60 320 60Z", green)
    d.parts[0] = d.parts[0].replace("<path", '<path mask="url(#cuts)"')
    cuts = '<mask id="cuts"><rect width="640" height="760" fill="#fff"/>'
    for side in (-1, 1):
        for step in range(4):
            y = 250 + step * 95
            cuts += (f'<path d="M{320 + side * 70} {y + 30}Q{320 + side * 180} {y - 28} {320 + side * 330} {y - 40}'
                     f'L{320 + side * 330} {y + 6}Q{320 + side * 180} {y + 4} {320 + side * 70} {y + 30}Z" fill="#000"/>')
            cuts += f'<ellipse cx="{320 + side * 48}" cy="{y + 62}" rx="15" ry="8" fill="#000"/>'
    d.definitions.append(cuts + "</mask>")
    d.raw_path("M320 110Q312 420 330 740", "none", 'stroke="#c7e8b4" stroke-width="7" stroke-linecap="round"')
    return d


def night_mountain():
    source = random.Random(19)
    d = Drawing(800, 600, "#0d1b2a")
    for index in range(9):
        d.circle(560, 180, 460 - index * 46, mixed("#0d1b2a", "#415a77", index / 8))
    d.circle(560, 180, 70, "#f4e9cd")
    for _ in range(70):
        d.circle(source.uniform(0, 800), source.uniform(0, 330), source.choice((.8, 1.2, 1.8)), "#e0e1dd")
    d.path([(60, 600), (330, 190), (420, 300), (470, 250), (760, 600)], "#1b263b")
    d.path([(330, 190), (420, 300), (388, 318), (362, 296), (330, 336), (296, 300), (262, 293)], "#e0e1dd")
    d.path([(470, 250), (520, 312), (486, 330), (462, 310), (436, 284)], "#c9ccd1")
    hills(d, source, ["#14213d", "#0b132b"], 470, 545, 16)
    return d


def star():
    d = Drawing(96, 96)
    points = [(48 + math.sin(step * math.pi / 5) * (44 if step % 2 == 0 else 19),
               50 - math.cos(step * math.pi / 5) * (44 if step % 2 == 0 else 19)) for step in range(10)]
    d.path(points, d.gradient("gold", [(0, "#ffe08a"), (1, "#f08a24")]), 'stroke="#c96a12" stroke-width="2"')
    return d


def band():
    d = Drawing(2400, 150)
    for step in range(60):
        hue = step * 6
        d.rect(step * 40, 0, 41, 150, f"hsl({hue}, 68%, 58%)")
        d.rect(step * 40, 150 - 20 - 45 * (1 + math.sin(step / 4)), 41, 150, f"hsl({hue}, 62%, 42%)")
    return d


def record():
    d = Drawing(720, 720)
    d.add('<g transform="scale(.8)">')
    d.rect(0, 0, 900, 900, "#e63946")
    d.rect(0, 0, 450, 900, "#f1faee")
    for index in range(24):
        d.ring(450, 450, 380 - index * 11, mixed("#1d3557", "#457b9d", index % 2 * .35), 8)
    d.circle(450, 450, 116, "#ffb703")
    d.circle(450, 450, 60, "#fb8500")
    d.circle(450, 450, 12, "#1d3557")
    for turn in (24, 204):
        d.add(f'<path transform="rotate({turn} 450 450)" d="M450 450L520 70A386 386 0 0 1 610 100Z" fill="#fff" opacity=".13"/>')
    d.add("</g>")
    return d
