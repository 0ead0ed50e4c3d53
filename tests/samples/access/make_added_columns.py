#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes added_columns.mdb: a small Access 2000 file with tables whose columns came and went while rows were there.

Each row is laid down with the columns that its table had when it was written. added_columns.json says, by hand, what
has to be read from it. The header page is that of shotsys.mdb.
"""
import pathlib
import struct

PAGE = 4096
YES_NO, INTEGER, LONG, DOUBLE, TEXT, OLE, MEMO = 1, 3, 4, 7, 10, 11, 12
VARIABLE = (TEXT, OLE, MEMO)
SIZES = {YES_NO: 1, INTEGER: 2, LONG: 4, DOUBLE: 8, TEXT: 510, OLE: 0, MEMO: 0}
CODES = {INTEGER: "<h", LONG: "<i", DOUBLE: "<d"}


def column(number, name, kind, place):
    """Place: of a fixed column the offset in a row, of a text its number among the texts."""
    return {"number": number, "name": name, "kind": kind, "place": place}


def text_bytes(text):
    return text.encode("utf-16-le")


def definition(columns, most_columns, texts, rows, map_row):
    page = bytearray(struct.pack("<BBHI", 2, 1, 0, 0))
    page += struct.pack("<IIII", 0, 0, rows, 0) + bytes(16)
    page += struct.pack("<BHHHII", 0x4E, most_columns, texts, len(columns), 0, 0)
    page += struct.pack("<II", map_row | 1 << 8, map_row | 1 << 8)
    for c in columns:
        fixed = c["kind"] not in VARIABLE
        page += struct.pack("<BIHHHIBBIHH", c["kind"], 0, c["number"], 0 if fixed else c["place"], c["number"],
                            0x409 if c["kind"] == TEXT else 0, 3 if fixed else 2, 0, 0,
                            c["place"] if fixed else 0, SIZES[c["kind"]])
    for c in columns:
        page += struct.pack("<H", len(text_bytes(c["name"]))) + text_bytes(c["name"])
    return bytes(page).ljust(PAGE, b"\0")


def row(cells, columns, values):
    """A row from the time when its table had the columns 0 to cells - 1."""
    known = [c for c in columns if c["number"] < cells]
    bits = bytearray((cells + 7) // 8)
    fixed = bytearray()
    texts = {}
    for c in known:
        value = values.get(c["name"])
        if value is None or value is False:
            continue
        bits[c["number"] // 8] |= 1 << c["number"] % 8
        if c["kind"] in CODES:
            content = struct.pack(CODES[c["kind"]], value)
            fixed = fixed.ljust(c["place"] + len(content), b"\0")
            fixed[c["place"]:c["place"] + len(content)] = content
        elif c["kind"] == TEXT:
            texts[c["place"]] = text_bytes(value)
    fixed_size = max([0] + [c["place"] + SIZES[c["kind"]] for c in known if c["kind"] in CODES])
    data = bytearray(struct.pack("<H", cells) + fixed.ljust(fixed_size, b"\0"))
    count = max([0] + [c["place"] + 1 for c in known if c["kind"] in VARIABLE])
    if count:
        starts = []
        for i in range(count):
            starts.append(len(data))
            data += texts.get(i, b"")
        starts.append(len(data))
        data += b"".join(struct.pack("<H", start) for start in reversed(starts)) + struct.pack("<H", count)
    return bytes(data + bits)


def data_page(owner, rows):
    starts, end, content = [], PAGE, b""
    for one in rows:
        end -= len(one)
        starts.append(end)
        content = one + content
    head = struct.pack("<BBHIIH", 1, 1, end - 14 - 2 * len(rows), owner, 0, len(rows))
    head += b"".join(struct.pack("<H", start) for start in starts)
    return head + bytes(end - len(head)) + content


def usage_map(page):
    return struct.pack("<BI", 0, 0) + (1 << page).to_bytes(64, "little")


def table(definition_page, map_row, columns, dropped, rows):
    """The two pages of a table. Dropped columns count in rows but stand in no definition."""
    everything = columns + dropped
    kept = sorted(columns, key=lambda c: c["number"])
    texts = sum(c["kind"] in VARIABLE for c in everything)
    laid = [row(cells, everything, values) for cells, values in rows]
    return [definition(kept, len(everything), texts, len(rows), map_row), data_page(definition_page, laid)]


CATALOG = [column(0, "Id", LONG, 0), column(1, "Name", TEXT, 0), column(2, "Type", INTEGER, 4),
           column(3, "Flags", LONG, 6), column(4, "LvProp", OLE, 1)]
# Began with two numbers; a text, a yes or no and a long number came, "Old Code" went, a text came last.
ROLLS = [column(0, "Roll", INTEGER, 0), column(2, "Name", TEXT, 0), column(3, "In Use", YES_NO, 0),
         column(4, "Footage", LONG, 10), column(5, "Remark", TEXT, 1)]
ROLLS_DROPPED = [column(1, "Old Code", DOUBLE, 2)]
# As Access makes it: one more column whenever a pasted row is wider than all before it.
ERRORS = [column(i, f"Field{i}", TEXT, i) for i in range(4)] + [column(4, "Field4", MEMO, 4)]

CATALOG_ROWS = [(5, {"Id": 4, "Name": "Camera Rolls", "Type": 1, "Flags": 0}),
                (5, {"Id": 6, "Name": "Paste Errors", "Type": 1, "Flags": 0})]
ROLLS_ROWS = [(2, {"Roll": 1, "Old Code": 0.5}),
              (3, {"Roll": -2, "Name": "Zweite Rolle – Café"}),
              (4, {"Roll": 3, "Name": "Third", "In Use": True}),
              (5, {"Roll": 4, "In Use": False, "Footage": -70000}),
              (6, {"Roll": 5, "Name": "", "In Use": True, "Footage": 400, "Remark": "last"})]
ERRORS_ROWS = [(2, {"Field0": "25", "Field1": "not a number"}),
               (4, {"Field0": "26", "Field2": "", "Field3": "too long"}),
               (5, {"Field0": "27", "Field3": "x"})]

here = pathlib.Path(__file__).parent
pages = [(here / "shotsys.mdb").read_bytes()[:PAGE], data_page(0, [usage_map(n) for n in (3, 5, 7)])]
pages += table(2, 0, CATALOG, [], CATALOG_ROWS)
pages += table(4, 1, ROLLS, ROLLS_DROPPED, ROLLS_ROWS)
pages += table(6, 2, ERRORS, [], ERRORS_ROWS)
(here / "added_columns.mdb").write_bytes(b"".join(pages))
