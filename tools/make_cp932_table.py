#!/usr/bin/env python3
"""Writes src/base/cp932_table.inc and checks it against the C library's converter (iconv).

    tools/make_cp932_table.py > src/base/cp932_table.inc"""
import struct
import subprocess
import sys

LEADS = [*range(0x81, 0xA0), *range(0xE0, 0xF0), *range(0xFA, 0xFD)]
TRAILS = [*range(0x40, 0x7F), *range(0x80, 0xFD)]


def unicode_of(code):
    try:
        return ord(code.decode("cp932"))
    except UnicodeDecodeError:
        return 0


table = {lead: [unicode_of(bytes([lead, trail])) for trail in TRAILS] for lead in LEADS}
codes = [bytes([lead, trail]) for lead in LEADS for trail in TRAILS if unicode_of(bytes([lead, trail]))]
iconv = subprocess.run(["iconv", "-f", "CP932", "-t", "UTF-16LE"], input=b"".join(codes), capture_output=True, check=True)
assert list(struct.unpack(f"<{len(codes)}H", iconv.stdout)) == [unicode_of(code) for code in codes]

print("""// Double-byte characters of code page 932 in the Microsoft mapping: a row a lead byte, columns the trail bytes
// 40..7E and 80..FC, 0 where nothing is defined. Lead bytes F0..F9 (user-defined) are a formula and not listed.
// Made by tools/make_cp932_table.py, checked there against the converter of the C library.
// clang-format off""")
for lead, row in table.items():
    if not any(row):
        continue
    print(f"{{0x{lead:02X}, {{")
    for i in range(0, len(row), 24):
        print(",".join(f"0x{u:04X}" if u else "0" for u in row[i : i + 24]) + ",")
    print("}},")
print("// clang-format on")
