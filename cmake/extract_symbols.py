"""Writes one SVG file for each symbol of a table, and the Qt resource list that names them all.

usage: extract_symbols.py ICONS_JSON TABLE OUTPUT_FOLDER

An icon that the set does not hold ends the build: a picture that silently misses is worse.
"""

import json
import pathlib
import sys


def rows(table):
    for number, line in enumerate(table.read_text(encoding="utf-8").splitlines(), 1):
        words = line.split("#")[0].split()
        if not words:
            continue
        if len(words) < 2 or words[2:] not in ([], ["90"], ["180"]):
            sys.exit(f"{table}:{number}: expected: symbol icon [90 | 180]")
        yield words[0], words[1], int(words[2]) if words[2:] else 0


def svg(icon, collection, degrees):
    width = icon.get("width", collection.get("width", 16))
    height = icon.get("height", collection.get("height", 16))
    body = icon["body"]
    if degrees:
        body = f'<g transform="rotate({degrees} {width / 2} {height / 2})">{body}</g>'
    return f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}">{body}</svg>\n'


def main():
    collection = json.loads(pathlib.Path(sys.argv[1]).read_text(encoding="utf-8"))
    table, output = pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3])
    output.mkdir(parents=True, exist_ok=True)
    names = []
    for symbol, icon, degrees in rows(table):
        if icon not in collection["icons"]:
            sys.exit(f"{table}: the icon set has no icon {icon!r} for {symbol}")
        if symbol in names:
            sys.exit(f"{table}: {symbol} is named twice")
        names.append(symbol)
        (output / f"{symbol}.svg").write_text(svg(collection["icons"][icon], collection, degrees), encoding="utf-8")
    files = "\n".join(f"    <file>{name}.svg</file>" for name in names)
    resources = f'<RCC>\n  <qresource prefix="/symbols">\n{files}\n  </qresource>\n</RCC>\n'
    (output / "symbols.qrc").write_text(resources, encoding="utf-8")


main()
