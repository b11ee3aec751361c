#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes a Windows icon file from PNG pictures, each stored as it is (Windows Vista and later
read PNG images inside .ico files).

    make-ico.py <out.ico> <picture.png>...
"""
import struct
import sys


def png_size(data):
    if data[:8] != b"\x89PNG\r\n\x1a\n" or data[12:16] != b"IHDR":
        raise SystemExit("not a PNG picture")
    return struct.unpack(">II", data[16:24])


def main():
    out, pictures = sys.argv[1], [open(p, "rb").read() for p in sys.argv[2:]]
    header = struct.pack("<HHH", 0, 1, len(pictures))
    entries, offset = b"", 6 + 16 * len(pictures)
    for data in pictures:
        width, height = png_size(data)
        if width > 256 or height > 256:
            raise SystemExit("an icon picture is at most 256 x 256")
        # 256 is written as 0; one colour plane, 32 bits per pixel.
        entries += struct.pack("<BBBBHHII", width % 256, height % 256, 0, 0, 1, 32, len(data),
                               offset)
        offset += len(data)
    with open(out, "wb") as f:
        f.write(header + entries + b"".join(pictures))


if __name__ == "__main__":
    main()
