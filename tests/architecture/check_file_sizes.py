#!/usr/bin/env python3
"""No file grows into a god: 600 lines for a .cpp and 250 for a header at most."""
import pathlib
import sys

root = pathlib.Path(sys.argv[1])
LIMITS = {".cpp": 600, ".h": 250}
errors = []
for path in sorted((root / "src").rglob("*")):
    if path.suffix in LIMITS:
        lines = len(path.read_text().splitlines())
        if lines > LIMITS[path.suffix]:
            errors.append(f"{path.relative_to(root)}: {lines} lines; split it by concern (limit {LIMITS[path.suffix]})")
print("\n".join(errors) or "all files are small")
sys.exit(1 if errors else 0)
