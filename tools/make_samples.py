#!/usr/bin/env python3
"""make_samples.py [FOLDER]: draws the pictures of samples/, of our own making, free for any use.

The drawings stand in sample_drawings.py as SVG; this file turns them into the formats, depths, colour models and
odd shapes that an import meets. Needs the package libvips-tools.
"""
import pathlib
import struct
import subprocess
import sys
import tempfile

import sample_drawings as drawings


class Workshop:
    """Renders SVG and converts it by the command-line tool of the image library."""

    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        self.count = 0

    def vips(self, operation, source, *arguments):
        self.count += 1
        target = self.folder / f"{self.count}.v"
        subprocess.run(["vips", operation, str(source), str(target), *map(str, arguments)], check=True)
        return target

    def svg(self, drawing, scale=1, opaque=True):
        self.count += 1
        file = self.folder / f"{self.count}.svg"
        file.write_text(drawing.text(), encoding="utf-8")
        image = self.vips("svgload", file, "--scale", scale)
        return self.vips("flatten", image) if opaque else image

    def bytes(self, image, suffix, options=""):
        """The image as the bytes of a file; options as the library's savers take them."""
        self.count += 1
        file = self.folder / f"{self.count}.{suffix}"
        subprocess.run(["vips", "copy", str(image), f"{file}{options}"], check=True)
        return file.read_bytes()


def jpeg(workshop, drawing, quality=82, options=""):
    image = workshop.svg(drawing)
    return workshop.bytes(image, "jpg", f"[Q={quality},strip,optimize-coding{options}]")


def progressive_jpeg(workshop, drawing):
    return jpeg(workshop, drawing, options=",interlace")


def cmyk_jpeg(workshop, drawing):
    image = workshop.vips("icc_transform", workshop.svg(drawing), "cmyk", "--input-profile", "srgb")
    return workshop.bytes(image, "jpg", "[Q=75,strip,optimize-coding,profile=none]")


def turned_jpeg(workshop, drawing):
    """Stored lying on its side with the note to turn it, as a camera held upright does."""
    image = workshop.vips("rot", workshop.svg(drawing), "d270")
    plain = workshop.bytes(image, "jpg", "[Q=82,strip,optimize-coding]")
    return plain[:2] + exif(orientation=6, description="Paper layers", software="Mosaro samples") + plain[2:]


def exif(orientation, description, software):
    """The segment of a JPEG file that carries these three facts."""
    texts = [(0x010E, description.encode() + b"\0"), (0x0131, software.encode() + b"\0")]
    count = len(texts) + 1
    tail_at = 8 + 2 + 12 * count + 4
    entries = {0x0112: struct.pack("<HHIHH", 0x0112, 3, 1, orientation, 0)}
    tail = b""
    for tag, text in texts:
        entries[tag] = struct.pack("<HHII", tag, 2, len(text), tail_at + len(tail))
        tail += text
    directory = struct.pack("<H", count) + b"".join(entries[tag] for tag in sorted(entries)) + bytes(4)
    body = b"Exif\0\0" + b"II*\0" + struct.pack("<I", 8) + directory + tail
    return b"\xff\xe1" + struct.pack(">H", len(body) + 2) + body


def png(workshop, drawing):
    return workshop.bytes(workshop.svg(drawing), "png", "[compression=9,strip,palette,dither=0]")


def transparent_png(workshop, drawing):
    return workshop.bytes(workshop.svg(drawing, opaque=False), "png", "[compression=9,strip]")


def deep_png(workshop, drawing):
    """16 bits for each channel: the mean of four samples has values that 8 bits do not know."""
    image = workshop.vips("cast", workshop.svg(drawing, scale=2), "ushort")
    image = workshop.vips("linear", image, "257", "0")
    image = workshop.vips("cast", workshop.vips("shrink", image, 2, 2), "ushort")
    image = workshop.vips("copy", image, "--interpretation", "rgb16")
    return workshop.bytes(image, "png", "[compression=9,strip]")


def gif(workshop, drawing):
    return workshop.bytes(workshop.svg(drawing), "gif", "[dither=0,effort=10]")


def animated_gif(workshop, frames):
    width, height = frames[0].width, frames[0].height
    film = workshop.folder / "film.raw"
    film.write_bytes(b"".join(workshop.bytes(workshop.svg(frame), "raw") for frame in frames))
    image = workshop.vips("rawload", film, width, height * len(frames), 3)
    return workshop.bytes(image, "gif", f"[dither=0,effort=10,page-height={height}]")


def tiff(workshop, drawing):
    options = "[compression=deflate,predictor=horizontal,level=9,xres=11.811,yres=11.811]"  # 300 dots per inch
    return workshop.bytes(workshop.svg(drawing), "tif", options)


def tga(workshop, drawing):
    """True colour with transparency, run-length packets, rows from the top."""
    image = workshop.svg(drawing, opaque=False)
    pixels = workshop.bytes(image, "raw")
    width, height = drawing.width, drawing.height
    head = struct.pack("<BBBHHBHHHHBB", 0, 0, 10, 0, 0, 0, 0, 0, width, height, 32, 0x28)
    body = bytearray()
    for y in range(height):
        row = [pixels[at:at + 4] for at in range(y * width * 4, (y + 1) * width * 4, 4)]
        x = 0
        while x < width:
            run = 1
            while run < 128 and x + run < width and row[x + run] == row[x]:
                run += 1
            red, green, blue, alpha = row[x]
            body += bytes([127 + run, blue, green, red, alpha])
            x += run
    return head + bytes(body)


def bmp(_, picture):
    """Sixteen colours, four bits a pixel, rows from the bottom."""
    palette, rows = picture
    width, height = len(rows[0]), len(rows)
    body = bytearray()
    for row in reversed(rows):
        line = bytes(row[x] << 4 | row[x + 1] for x in range(0, width, 2))
        body += line + bytes(-len(line) % 4)
    colors = b"".join(bytes([blue, green, red, 0]) for red, green, blue in palette)
    offset = 14 + 40 + len(colors)
    info = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 4, 0, len(body), 2835, 2835, len(palette), 0)
    return b"BM" + struct.pack("<IHHI", offset + len(body), 0, 0, offset) + info + colors + bytes(body)


PICTURES = [
    ("Blue ridge at dawn.jpg", jpeg, drawings.ridge),
    ("Harbour lights.jpg", progressive_jpeg, drawings.skyline),
    ("Dunes, panorama.jpg", jpeg, drawings.dunes),
    ("Rhythm, poster.png", png, drawings.rhythm),
    ("Quarter tiles.png", png, drawings.tiles),
    ("Café colours.png", png, drawings.palette),
    ("Zitronen und Öl.tif", tiff, drawings.citrus),
    ("Isometric town.tif", tiff, drawings.cubes),
    ("Terrazzo.png", png, drawings.terrazzo),
    ("Retro sun.jpg", jpeg, drawings.retro_sun),
    ("Paper layers.jpg", turned_jpeg, drawings.paper),
    ("Ink and coral.jpg", cmyk_jpeg, drawings.print_poster),
    ("Waves.gif", gif, drawings.waves),
    ("Orbit.gif", animated_gif, drawings.orbit),
    ("Pixel island.bmp", bmp, drawings.pixel_island),
    ("Deco fan.tga", tga, drawings.deco),
    ("Monstera.png", transparent_png, drawings.leaf),
    ("Ночная гора.png", deep_png, drawings.night_mountain),
    ("Étoile.png", transparent_png, drawings.star),
    ("Spectrum band.png", png, drawings.band),
    ("Record sleeve.jpg", jpeg, drawings.record),
]


def main():
    target = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parents[1] / "samples")
    target.mkdir(parents=True, exist_ok=True)
    total = 0
    for name, encode, draw in PICTURES:
        with tempfile.TemporaryDirectory() as folder:
            data = encode(Workshop(folder), draw())
        (target / name).write_bytes(data)
        total += len(data)
        print(f"{len(data):8} {name}")
    print(f"{total:8} bytes in all")


if __name__ == "__main__":
    main()
