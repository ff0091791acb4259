#!/usr/bin/env python3
"""Message keys: each key in use has an English text, each text is in use."""
import pathlib
import re
import sys
import xml.etree.ElementTree as ET

root = pathlib.Path(sys.argv[1])
texts = {}
for message in ET.parse(root / "resources/strings/mosaro_en.ts").getroot().iter("message"):
    texts[message.get("id")] = (message.findtext("translation") or "").strip()

FAMILIES = r'(?:Basic|Error|Message|Menu|File|View|Window|Help|Lib|Document|Label|Tooltip|Guide|CX|MRL|About|Preferences|Failure|Accessible|Hint|Smart|Inspector)'
used = {}
for path in sorted((root / "src").rglob("*")):
    if path.suffix in (".h", ".cpp"):
        for key in re.findall(r'"(' + FAMILIES + r'\.[A-Za-z0-9][A-Za-z0-9.]*)"', path.read_text()):
            used.setdefault(key, path.relative_to(root))

missing = [f"{where}: \"{key}\" has no text; run tools/add_text.py \"{key}\" \"…\"" for key, where in used.items()
           if not texts.get(key)]
unused = [f"mosaro_en.ts: \"{key}\" is used nowhere; delete it" for key in texts if key not in used
          and not re.match(r'Guide\.(Title|Subtitle)\d$', key)]
print("\n".join(missing + unused) or f"{len(used)} keys, all with a text")
sys.exit(1 if missing or unused else 0)
