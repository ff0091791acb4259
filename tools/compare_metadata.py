#!/usr/bin/env python3
"""compare_metadata.py [--ctl MOSAROCTL] PATH...: imports files into a library of its own and compares what the records
say with vipsheader, exiftool, identify, pdfinfo and Ghostscript, as far as they are installed. PATH is a file, a
folder, or @LIST, a text file with a path a line. Prints a table by type, how many disagreements there are by type,
field and tool, and a line for each; the exit status is 1 when there is one. A tool that says nothing about a field
takes no part in it, nor one that only guesses."""
import argparse
import collections
import json
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
BATCH = 200
TIME_LIMIT = 600
PDF_TEXTS = ("Title", "Author", "Subject", "Creator", "Producer")
TOLERANCE = {"imageDPI": 0.6, "mediaWidth": 0.51, "mediaHeight": 0.51}
PNG_MODELS = {0: "Gray", 2: "RGB", 3: "RGB", 4: "Gray", 6: "RGB"}
VIPS_MODELS = {"b-w": "Gray", "grey16": "Gray", "srgb": "RGB", "rgb16": "RGB", "cmyk": "CMYK", "lab": "Lab"}
IDENTIFY_MODELS = {"Gray": "Gray", "sRGB": "RGB", "RGB": "RGB", "CMYK": "CMYK", "Lab": "Lab"}
VIPS_DEPTHS = {"uchar": 8, "ushort": 16, "float": 32}
# Where identify gives the depth of the file, not the one that the colours of a palette need.
KNOWN_DEPTHS = {"png", "jpg", "jpeg", "jpe", "tif", "tiff", "psd", "jp2", "j2k"}
VECTORS = {"svg", "pdf", "ai", "eps", "ps"}


def run(command, limit=TIME_LIMIT):
    """The outputs of a command, or nothing when it is missing or too slow."""
    try:
        return subprocess.run(command, capture_output=True, text=True, errors="replace", timeout=limit)
    except (OSError, subprocess.TimeoutExpired):
        return subprocess.CompletedProcess(command, 1, "", "")


def batches(paths):
    return (paths[start:start + BATCH] for start in range(0, len(paths), BATCH))


def extension(path):
    return pathlib.Path(path).suffix.lower().lstrip(".")


def wanted_files(arguments):
    files = []
    for argument in arguments:
        if argument.startswith("@"):
            files += pathlib.Path(argument[1:]).read_text(encoding="utf-8").splitlines()
        elif pathlib.Path(argument).is_dir():
            files += [str(path) for path in sorted(pathlib.Path(argument).rglob("*")) if path.is_file()]
        else:
            files.append(argument)
    return list(dict.fromkeys(str(pathlib.Path(path).absolute()) for path in files if path))


def from_vipsheader(paths):
    found = collections.defaultdict(dict)
    for batch in batches([path for path in paths if extension(path) not in VECTORS - {"svg"}]):
        named, current = [path + "[dpi=96]" if has_printed_size(path) else path for path in batch], None
        for line in run(["vipsheader", "-a", *named]).stdout.splitlines():
            # With one file vipsheader leaves the path out of all lines but the first.
            head = re.match(r"(.+?)(?:\[dpi=96\])?: (?:\d+x\d+ \w+, \d+ bands?, )", line)
            if head and head[1] in batch:
                current = head[1]
            elif current:
                key, _, value = re.sub(r"^.*?: (?=[\w-]+: )", "", line).partition(": ")
                found[current].setdefault(key, value)
    return {path: vips_fields(path, header) for path, header in found.items()}


def has_printed_size(path):
    """Whether a drawing gives its width in points, inches and the like: vipsheader gives an inch
    72 pixels, where a drawing has 96."""
    if extension(path) != "svg":
        return False
    start = pathlib.Path(path).read_text(encoding="utf-8", errors="replace")
    return re.search(r"<(?:svg:)?svg\b[^>]*?\swidth\s*=\s*[\"'][\d.]+\s*(?:pt|pc|cm|mm|in)[\"']", start) is not None


def vips_fields(path, header):
    fields = {"mediaWidth": float(header["width"]), "mediaHeight": float(header["height"])}
    if extension(path) in VECTORS:
        return fields
    if header.get("vips-loader", "").startswith("magickload"):
        return fields  # Whose depth, opacity and resolution are those of the memory that it decodes into.
    model = VIPS_MODELS.get(header["interpretation"])
    if model:
        fields["imageColorModel"] = model
        fields["imageHasAlpha"] = int(header["bands"]) > {"Gray": 1, "CMYK": 4}.get(model, 3)
    fields["imageDepth"] = int(header.get("bits-per-sample", VIPS_DEPTHS.get(header["format"], 8)))
    # One pixel per millimetre, or 72 per inch, stands for none given; a PNG without a unit is not told apart.
    if float(header["xres"]) not in (0, 1) and extension(path) != "png":
        fields["imageDPI"] = float(header["xres"]) * 25.4
    return fields


def from_exiftool(paths):
    answers = []
    for batch in batches(paths):
        answers += json.loads(run(["exiftool", "-j", "-n", "-G", *batch]).stdout or "[]")
    return {answer["SourceFile"]: exif_fields(answer) for answer in answers}


def exif_fields(tags):
    path = tags["SourceFile"]
    if extension(path) == "pdf":
        fields = {"pdf" + name: str(tags["PDF:" + name]) for name in PDF_TEXTS if "PDF:" + name in tags}
        fields.update({"pdfPageCount": tags.get("PDF:PageCount"), "pdfVersion": tags.get("PDF:PDFVersion")})
        return fields
    if extension(path) in VECTORS:
        return box_size(str(tags.get("PostScript:BoundingBox", "")))
    fields = dict(zip(("mediaWidth", "mediaHeight"), map(float, str(tags.get("Composite:ImageSize", "")).split())))
    fields["imageDepth"] = tags.get("PNG:BitDepth", tags.get("File:BitsPerSample"))
    fields["imageColorModel"] = PNG_MODELS.get(tags.get("PNG:ColorType"))
    fields["imageProfile"] = tags.get("ICC_Profile:ProfileDescription")
    fields["mediaSoftware"] = tags.get("PNG:Software", tags.get("EXIF:Software"))
    fields["imageDPI"] = exif_dpi(tags)
    return fields


def exif_dpi(tags):
    if tags.get("PNG:PixelUnits") == 1:
        return tags.get("PNG:PixelsPerUnitX", 0) * 0.0254
    if tags.get("File:PixelsPerMeterX"):
        return tags["File:PixelsPerMeterX"] * 0.0254
    for group, inches in (("EXIF", 2), ("JFIF", 1)):
        unit, across = tags.get(group + ":ResolutionUnit"), tags.get(group + ":XResolution")
        if isinstance(across, (int, float)) and across and unit in (inches, inches + 1):
            return across * (1 if unit == inches else 2.54)
    return None


def from_identify(paths):
    found = {}
    form = "%w|%h|%x|%U|%z|%[colorspace]|%A|%d/%f\n"
    for batch in batches([path for path in paths if extension(path) not in VECTORS]):
        known = set(batch)
        for line in run(["identify", "-quiet", "-format", form, *[path + "[0]" for path in batch]]).stdout.splitlines():
            parts = line.split("|", 7)
            if len(parts) == 8 and parts[7] in known:
                found[parts[7]] = identify_fields(*parts[:7])
                if extension(parts[7]) not in KNOWN_DEPTHS:
                    found[parts[7]].pop("imageDepth")
    return found


def identify_fields(width, height, across, unit, depth, space, alpha):
    fields = {"mediaWidth": float(width), "mediaHeight": float(height), "imageDepth": int(depth),
              "imageColorModel": IDENTIFY_MODELS.get(space), "imageHasAlpha": alpha not in ("False", "Undefined")}
    # A bitmap without a resolution gets a default of 72 per centimetre here.
    if unit == "PixelsPerInch" and float(across) or unit == "PixelsPerCentimeter" and float(across) not in (0, 72):
        fields["imageDPI"] = float(across) * (1 if unit == "PixelsPerInch" else 2.54)
    return fields


def from_pdfinfo(paths):
    found = {}
    for path in (path for path in paths if extension(path) in ("pdf", "ai")):
        lines = [line.partition(":") for line in run(["pdfinfo", "-box", path], 30).stdout.splitlines()]
        said = {key: value.strip() for key, _, value in lines}
        if "Pages" not in said:
            continue
        fields = {"pdf" + name: said.get(name, "") for name in PDF_TEXTS}
        fields.update({"pdfPageCount": int(said["Pages"]), "pdfVersion": said["PDF version"]})
        found[path] = fields | box_size(said.get("MediaBox", ""))
    return found


def from_ghostscript(paths):
    command = ["gs", "-q", "-dSAFER", "-dNOPAUSE", "-dBATCH", "-sDEVICE=bbox", "-dLastPage=1"]
    found = {}
    for path in (path for path in paths if extension(path) == "eps"):
        box = re.search(r"%%HiResBoundingBox: (.+)", run([*command, path], 30).stderr)
        found[path] = box_size(box[1]) if box else {}
    return found


def box_size(text):
    try:
        left, bottom, right, top = map(float, text.split())
    except ValueError:
        return {}
    return {"mediaWidth": right - left, "mediaHeight": top - bottom}


def agrees(path, field, ours, theirs):
    if field in TOLERANCE:
        # A box of whole numbers is the exact one widened to the outside.
        slack = 1 if extension(path) == "eps" else TOLERANCE[field]
        return ours is not None and abs(ours - float(theirs)) <= slack
    if isinstance(theirs, (bool, int)):
        return ours == theirs
    return (ours or "").strip() == str(theirs).strip()


def imported_records(ctl, files):
    """The records by source path, and the reasons by path of those that did not come in."""
    with tempfile.TemporaryDirectory(prefix="compare-") as folder:
        library = [str(ctl), "--library", folder + "/Compare.mosaro", "--json"]
        created = run([str(ctl), "create", folder + "/Compare.mosaro"])
        if created.returncode:
            sys.exit(f"{ctl}: {created.stderr.strip()}")
        reasons = {}
        for batch in batches(files):
            answer = json.loads(run([*library, "import", "--reference", *batch]).stdout or "{}")
            refused = answer.get("failed", []) + answer.get("skipped", [])
            reasons.update({entry["path"]: entry["reason"] for entry in refused})
        records = json.loads(run([*library, "list"]).stdout)
    return {record["mediaOriginalPath"]: record for record in records}, reasons


def disagreements(records):
    """A list of path, field, our value, the tool's value and the tool; a value of None is no answer."""
    paths, found = list(records), []
    for tool, reader in (("vipsheader", from_vipsheader), ("exiftool", from_exiftool), ("identify", from_identify),
                         ("pdfinfo", from_pdfinfo), ("gs", from_ghostscript)):
        if not shutil.which(tool):
            print(f"{tool} is not installed and takes no part", file=sys.stderr)
            continue
        for path, fields in reader(paths).items():
            for field, theirs in fields.items():
                ours = records.get(path, {}).get(field)
                if path in records and theirs is not None and not agrees(path, field, ours, theirs):
                    found.append((path, field, ours, theirs, tool))
    return found


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    built = [ROOT / "build" / kind / "src/ctl/mosaroctl" for kind in ("release", "dev")]
    parser.add_argument("--ctl", type=pathlib.Path, default=next((path for path in built if path.exists()), built[0]))
    parser.add_argument("path", nargs="+")
    arguments = parser.parse_args()
    files = wanted_files(arguments.path)
    records, reasons = imported_records(arguments.ctl, files)
    found = disagreements(records)
    doubtful = {entry[0] for entry in found}
    row = "{:<8}{:>8}{:>10}{:>8}{:>10}"
    print(row.format("Type", "tried", "imported", "failed", "agreeing"))
    for kind in sorted({extension(path) for path in files}):
        tried = [path for path in files if extension(path) == kind]
        done = [path for path in tried if path in records]
        print(row.format(kind, len(tried), len(done), len(tried) - len(done), len(set(done) - doubtful)))
        lost = collections.Counter(reasons.get(path, "no reason given") for path in tried if path not in records)
        for reason, count in lost.most_common():
            print(f"  {count} x {reason}")
    by_kind = collections.Counter((extension(path), field, tool) for path, field, _, _, tool in found)
    for (kind, field, tool), count in by_kind.most_common():
        print(f"{count:>5} x {kind} {field} {tool}")
    for path, field, ours, theirs, tool in found:
        print(f"{path}: {field} {ours!r} {tool} {theirs!r}")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
