#!/usr/bin/env python3
"""add_text.py KEY TEXT [KEY TEXT ...]: enters or replaces English texts of message keys; KEY alone with an empty
TEXT deletes. The file stays sorted by key; several calls at once wait for each other."""
import fcntl
import pathlib
import sys
from xml.sax.saxutils import escape, quoteattr
import xml.etree.ElementTree as ET

path = pathlib.Path(__file__).resolve().parent.parent / "resources/strings/mosaro_en.ts"
arguments = sys.argv[1:]
if not arguments or len(arguments) % 2:
    sys.exit(__doc__)
with open(path.parent / ".lock", "w") as lock:
    fcntl.flock(lock, fcntl.LOCK_EX)
    texts = {}
    if path.exists():
        for message in ET.parse(path).getroot().iter("message"):
            texts[message.get("id")] = message.findtext("translation") or ""
    for key, value in zip(arguments[::2], arguments[1::2]):
        if value:
            texts[key] = value
        else:
            texts.pop(key, None)
    lines = ['<?xml version="1.0" encoding="utf-8"?>', '<!DOCTYPE TS>', '<TS version="2.1" language="en">', '<context>',
             '  <name></name>']
    for key in sorted(texts):
        lines.append(f'  <message id={quoteattr(key)}>\n    <source></source>\n'
                     f'    <translation>{escape(texts[key])}</translation>\n  </message>')
    lines += ['</context>', '</TS>', '']
    path.write_text("\n".join(lines), encoding="utf-8")
