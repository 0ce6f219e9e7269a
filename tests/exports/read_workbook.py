"""Prints what a workbook file holds, read with nothing but the standard library:  read_workbook.py FILE

    sheet Ventas frozen=1 filter=A1:B3 widths=8.2,10.2
    A1|text|@ bold|Artículo
    B2|number|#,##0.00|12.5
    B3|=SUM(B2:B2)|#,##0.00 bold|12.5

Line ends in texts are shown as \\n. Fails when a part is missing or is no well-formed XML.
"""
import re
import sys
import xml.etree.ElementTree as tree
import zipfile

MAIN = "{http://schemas.openxmlformats.org/spreadsheetml/2006/main}"
RELATION = "{http://schemas.openxmlformats.org/officeDocument/2006/relationships}"
BUILT_IN = {0: "General", 1: "0", 2: "0.00", 3: "#,##0", 4: "#,##0.00", 49: "@"}


def looks(styles):
    """The number format of each cell style, with its weight."""
    patterns = dict(BUILT_IN)
    for row in styles.iter(MAIN + "numFmt"):
        patterns[int(row.get("numFmtId"))] = row.get("formatCode")
    bold = [font.find(MAIN + "b") is not None for font in styles.find(MAIN + "fonts")]
    found = []
    for style in styles.find(MAIN + "cellXfs"):
        weight = " bold" if bold[int(style.get("fontId"))] else ""
        found.append(patterns[int(style.get("numFmtId"))] + weight)
    return found


def unescaped(text):
    return re.sub("_x([0-9A-Fa-f]{4})_", lambda found: chr(int(found.group(1), 16)), text)


def shown(cell, styles):
    kind = cell.get("t", "n")
    if kind == "inlineStr":
        name, value = "text", unescaped("".join(part.text or "" for part in cell.iter(MAIN + "t")))
    else:
        name = {"n": "number", "b": "boolean"}[kind]
        value = cell.find(MAIN + "v").text
    formula = cell.find(MAIN + "f")
    if formula is not None:
        name = "=" + formula.text
    return "|".join((cell.get("r"), name, styles[int(cell.get("s", "0"))], value.replace("\n", "\\n")))


def heading(name, sheet):
    pane = sheet.find(f"{MAIN}sheetViews/{MAIN}sheetView/{MAIN}pane")
    filtered = sheet.find(MAIN + "autoFilter")
    widths = []
    for column in sheet.iter(MAIN + "col"):
        count = int(column.get("max")) - int(column.get("min")) + 1
        widths += [f"{float(column.get('width')):.1f}"] * count
    return "sheet {} frozen={} filter={} widths={}".format(
        name, "no" if pane is None else pane.get("ySplit"), "no" if filtered is None else filtered.get("ref"), ",".join(widths)
    )


def main():
    with zipfile.ZipFile(sys.argv[1]) as book:
        if book.testzip() is not None:
            sys.exit("damaged")
        for name in book.namelist():
            tree.fromstring(book.read(name))
        styles = looks(tree.fromstring(book.read("xl/styles.xml")))
        relations = tree.fromstring(book.read("xl/_rels/workbook.xml.rels"))
        targets = {row.get("Id"): row.get("Target") for row in relations}
        for entry in tree.fromstring(book.read("xl/workbook.xml")).iter(MAIN + "sheet"):
            sheet = tree.fromstring(book.read("xl/" + targets[entry.get(RELATION + "id")]))
            print(heading(entry.get("name"), sheet))
            for cell in sheet.iter(MAIN + "c"):
                print(shown(cell, styles))


main()
