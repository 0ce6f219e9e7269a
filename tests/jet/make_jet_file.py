#!/usr/bin/env python3
"""Writes a small Access database (Jet 4) for the tests, since nothing else on the platform can.

    make_jet_file.py FILE [PASSWORD]

The tables: prods (one column of each type, a row of values, a row of NULLs), and muchos (1000 rows on several pages).
Layout of the file: header page, table definitions, data pages, pages with usage maps; source: the description of the
format in the notes of the open-source reader that the tests use.
"""

import datetime
import struct
import sys

PAGE = 4096
HEADER_KEY = struct.pack("<I", 0x6B39DAC7)
MASKED = slice(0x18, 0x18 + 128)
PASSWORD_AT, DATE_AT = 0x42, 0x72
CREATED = 40975.5

BOOLEAN, BYTE, INTEGER, LONG, CURRENCY, SINGLE, DOUBLE, DATE, TEXT, OLE, MEMO = 1, 2, 3, 4, 5, 6, 7, 8, 10, 11, 12
FIXED = {BOOLEAN: "", BYTE: "<B", INTEGER: "<h", LONG: "<i", CURRENCY: "<q", SINGLE: "<f", DOUBLE: "<d", DATE: "<d"}


def rc4(key, data):
    state = list(range(256))
    j = 0
    for i in range(256):
        j = (j + state[i] + key[i % len(key)]) & 255
        state[i], state[j] = state[j], state[i]
    out = bytearray()
    i = j = 0
    for byte in data:
        i = (i + 1) & 255
        j = (j + state[i]) & 255
        state[i], state[j] = state[j], state[i]
        out.append(byte ^ state[(state[i] + state[j]) & 255])
    return bytes(out)


def header(password):
    page = bytearray(PAGE)
    page[0:4] = b"\0\1\0\0"
    page[4:20] = b"Standard Jet DB\0"
    struct.pack_into("<I", page, 0x14, 1)
    struct.pack_into("<H", page, 0x3C, 1252)
    struct.pack_into("<H", page, 0x6E, 0x0409)
    struct.pack_into("<d", page, DATE_AT, CREATED)
    mask = struct.pack("<I", int(CREATED))
    text = password.encode("utf-16-le").ljust(40, b"\0")
    page[PASSWORD_AT:PASSWORD_AT + 40] = bytes(c ^ mask[i % 4] for i, c in enumerate(text))
    page[MASKED] = rc4(HEADER_KEY, page[MASKED])
    return page


class Table:
    def __init__(self, name, columns, rows, kind=b"N"):
        self.name, self.columns, self.rows, self.kind = name, columns, rows, kind

    def fixed_offsets(self):
        offset, offsets = 0, []
        for _, kind in self.columns:
            offsets.append(offset)
            offset += struct.calcsize(FIXED.get(kind, ""))
        return offsets

    def definition(self, usage_page):
        variable = [kind for _, kind in self.columns if kind not in FIXED]
        body = bytearray(63)
        struct.pack_into("<BBHI", body, 0, 2, 1, 0, 0)
        struct.pack_into("<I", body, 16, len(self.rows))
        body[40:41] = self.kind
        struct.pack_into("<HHH", body, 41, len(self.columns), len(variable), len(self.columns))
        for at, row in ((55, 0), (59, 1)):
            struct.pack_into("<I", body, at, usage_page << 8 | row)
        variable_number = 0
        for number, ((_, kind), offset) in enumerate(zip(self.columns, self.fixed_offsets())):
            is_fixed = kind in FIXED
            size = struct.calcsize(FIXED[kind]) if is_fixed else 100 if kind == TEXT else 0
            body += struct.pack("<BIHHHHHBBIHH", kind, 0, number, variable_number, number, 0, 0,
                                3 if is_fixed else 2, 0, 0, offset, size)
            variable_number += not is_fixed
        for name, _ in self.columns:
            text = name.encode("utf-16-le")
            body += struct.pack("<H", len(text)) + text
        struct.pack_into("<I", body, 8, len(body))
        return bytes(body).ljust(PAGE, b"\0")

    def row(self, values):
        fixed, variable, offsets, present = b"", b"", [], 0
        size = self.fixed_offsets()[-1] + struct.calcsize(FIXED.get(self.columns[-1][1], ""))
        for number, ((_, kind), value) in enumerate(zip(self.columns, values)):
            if kind in FIXED:
                # A Boolean is its bit of the mask and nothing else.
                fixed += struct.pack(FIXED[kind], value or 0) if FIXED[kind] else b""
                present |= bool(value if kind == BOOLEAN else value is not None) << number
                continue
            offsets.append(2 + size + len(variable))
            if value is not None:
                present |= 1 << number
                data = value.encode("utf-16-le") if isinstance(value, str) else value
                inline = struct.pack("<III", len(data) | 0x80000000, 0, 0) if kind in (OLE, MEMO) else b""
                variable += inline + data
        ends = [2 + size + len(variable)] + offsets[::-1]
        return (struct.pack("<H", len(values)) + fixed + variable + b"".join(struct.pack("<H", end) for end in ends) +
                struct.pack("<H", len(offsets)) + present.to_bytes((len(values) + 7) // 8, "little"))


def data_page(owner, rows):
    page = bytearray(PAGE)
    end = PAGE
    for number, row in enumerate(rows):
        end -= len(row)
        page[end:end + len(row)] = row
        struct.pack_into("<H", page, 14 + 2 * number, end)
    struct.pack_into("<BBHII", page, 0, 1, 1, end - 14 - 2 * len(rows), owner, 0)
    struct.pack_into("<H", page, 12, len(rows))
    return bytes(page)


def usage_map(pages):
    bits = bytearray(64)
    for page in pages:
        bits[page // 8] |= 1 << page % 8
    return struct.pack("<BI", 0, 0) + bits


def filled(rows, capacity=PAGE - 100):
    """The rows in groups that fit a page."""
    groups, used = [[]], 0
    for row in rows:
        if used + len(row) + 2 > capacity:
            groups.append([])
            used = 0
        groups[-1].append(row)
        used += len(row) + 2
    return groups


def add_table(pages, at, table):
    """Writes the definition to page `at`, and the rows and their map to pages behind the last one."""
    first = len(pages)
    groups = filled([table.row(values) for values in table.rows])
    pages += [data_page(at, group) for group in groups]
    pages.append(data_page(0, [usage_map(range(first, first + len(groups))), usage_map([])]))
    pages[at] = table.definition(len(pages) - 1)


def days(*civil):
    delta = datetime.datetime(*civil) - datetime.datetime(1899, 12, 30)
    return delta.days + delta.seconds / 86400


def database(password):
    kinds = [("articulo", TEXT), ("nombre", TEXT), ("precio1", DOUBLE), ("existencia", LONG), ("costo", CURRENCY),
             ("alta", DATE), ("activo", BOOLEAN), ("nivel", BYTE), ("lugar", INTEGER), ("peso", SINGLE), ("nota", MEMO)]
    values = ["A1", "Piñón de 12€", 80.25, 100, 123456, days(2012, 3, 7, 10, 42, 7), True, 200, -5, 1.5, "ñandú " * 200]
    tables = [
        Table("prods", kinds, [values, ["B2"] + [None] * 10]),
        Table("muchos", [("numero", LONG), ("texto", TEXT)], [[i, f"renglón {i}"] for i in range(1000)]),
    ]
    pages = [bytes(PAGE)] * (3 + len(tables))
    pages[0] = bytes(header(password))
    catalogue = [[3 + i, table.name, 1, 0, None] for i, table in enumerate(tables)]
    columns = [("Id", LONG), ("Name", TEXT), ("Type", INTEGER), ("Flags", LONG), ("LvProp", OLE)]
    add_table(pages, 2, Table("MSysObjects", columns, catalogue, b"S"))
    for i, table in enumerate(tables):
        add_table(pages, 3 + i, table)
    return b"".join(pages)


if __name__ == "__main__":
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__)
    with open(sys.argv[1], "xb") as file:
        file.write(database(sys.argv[2] if len(sys.argv) == 3 else ""))
