#!/usr/bin/env python3
"""Every #include between layers must be an edge of cmake/LayerTable.cmake; headless folders name no widget."""
import pathlib
import re
import sys

root = pathlib.Path(sys.argv[1])
table = {}
for layer, uses in re.findall(r'"([a-z/]+):([a-z/ ]*)"', (root / "cmake/LayerTable.cmake").read_text()):
    table[layer] = set(uses.split())


def closure(layer):
    seen = set()
    todo = list(table[layer])
    while todo:
        name = todo.pop()
        if name not in seen:
            seen.add(name)
            todo.extend(table[name])
    return seen


def layer_of(relative):
    parts = relative.parts
    if len(parts) > 2 and parts[1] == "ui":
        return f"{parts[0]}/ui"
    return parts[0]


WIDGETS = re.compile(
    r'#include <(QtWidgets.*|QWidget|QApplication|QDialog|QMessageBox|QLabel|QPushButton|QMainWindow|QMenu|QAction'
    r'|QFileDialog|QStyle.*|Q(?!StringView|ByteArrayView)\w*View|Q\w*Layout)>')
allowed_widget_layers = {"kit", "shell", "app"}
errors = []
for path in sorted([*(root / "src").rglob("*"), *(root / "fuzz").rglob("*")]):
    if path.suffix not in (".h", ".cpp"):
        continue
    relative = path.relative_to(root / "src" if root / "src" in path.parents else root)
    layer = layer_of(relative)
    may = closure(layer) | {layer}
    for number, line in enumerate(path.read_text().splitlines(), 1):
        match = re.match(r'#include "([^"]+)"', line)
        if match and "/" in match.group(1):
            target = layer_of(pathlib.PurePath(match.group(1)))
            if target in table and target not in may:
                errors.append(f"{relative}:{number}: '{layer}' may not use '{target}'. Pass what it needs through a "
                              f"port of a lower layer, or move the code up (cmake/LayerTable.cmake).")
        if not layer.endswith("/ui") and layer not in allowed_widget_layers and WIDGETS.match(line):
            errors.append(f"{relative}:{number}: '{layer}' is headless; move this to its ui/ folder.")
        if re.search(r'\bsharedManager\(\)', line) and layer not in ("shell", "app", "ctl"):
            declares = re.search(r'static \w+& sharedManager\(\)|\w+& \w+::sharedManager\(\)', line)
            if not declares:
                errors.append(f"{relative}:{number}: only shell, app and ctl say sharedManager(); take a reference in "
                              f"the constructor instead.")
print("\n".join(errors) or "all includes follow the layer table")
sys.exit(1 if errors else 0)
