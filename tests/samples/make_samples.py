#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Puts the bytes of the listings beside it into files: version_1.txt into version_1.qcf, and so on.

A line of a listing begins with bytes, written as two hexadecimal digits or as characters in double quotes; what follows
"|" explains them. Nothing is computed: lengths and counts stand in the listings as they were counted by hand.
"""
import pathlib
import re

for listing in sorted(pathlib.Path(__file__).parent.glob("version_*.txt")):
    data = bytearray()
    for line in listing.read_text(encoding="utf-8").splitlines():
        for hexadecimal, text in re.findall(r'\b([0-9A-F]{2})\b|"([^"]*)"', line.split("|")[0]):
            data += bytes.fromhex(hexadecimal) if hexadecimal else text.encode("ascii")
    listing.with_suffix(".qcf").write_bytes(data)
