#!/usr/bin/env python3
"""Draws BandwidthManager.png: three rising bars under an arrow, 16x16, palette PNG."""
import struct
import sys
import zlib

SIZE = 16
# 0 transparent, 1 bar blue, 2 bar dark edge, 3 arrow orange, 4 highlight
PALETTE = [(0, 0, 0), (52, 120, 214), (24, 64, 128), (240, 140, 20), (150, 196, 250)]
ALPHA = [0, 255, 255, 255, 255]


def pixels():
    img = [[0] * SIZE for _ in range(SIZE)]
    for x0, height in ((1, 5), (6, 9), (11, 13)):
        for y in range(SIZE - height, SIZE):
            for x in range(x0, x0 + 4):
                edge = x in (x0, x0 + 3) or y == SIZE - height
                img[y][x] = 2 if edge else (4 if x == x0 + 1 else 1)
    # arrow along the bar tops, pointing up and right
    for i in range(7):
        x, y = 1 + 2 * i, 8 - i
        for dx in (0, 1):
            if 0 <= x + dx < SIZE and 0 <= y < SIZE:
                img[y][x + dx] = 3
    for x, y in ((12, 1), (13, 1), (14, 1), (14, 2), (14, 3)):
        img[y][x] = 3
    return img


def chunk(kind, data):
    body = kind + data
    return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body) & 0xFFFFFFFF)


def png():
    raw = b"".join(b"\0" + bytes(row) for row in pixels())
    return (b"\x89PNG\r\n\x1a\n"
            + chunk(b"IHDR", struct.pack(">IIBBBBB", SIZE, SIZE, 8, 3, 0, 0, 0))
            + chunk(b"PLTE", b"".join(bytes(c) for c in PALETTE))
            + chunk(b"tRNS", bytes(ALPHA))
            + chunk(b"IDAT", zlib.compress(raw, 9))
            + chunk(b"IEND", b""))


if __name__ == "__main__":
    out = sys.argv[1] if len(sys.argv) > 1 else "BandwidthManager.png"
    with open(out, "wb") as f:
        f.write(png())
