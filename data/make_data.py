#!/usr/bin/env python3
"""Makes click.wav and the icon (bramblequay.svg and bramblequay-SIZE.png) from scratch, with
the standard library only.

Run it from this folder after changing the sound or the icon; the results are kept in the
repository so that a build needs no Python. The SVG and the PNGs come from the same shapes.
"""
import math
import struct
import zlib


def write_click(path, rate=44100):
    # A short wooden tap: a decaying 1.9 kHz tone over a burst of noise, about 45 ms.
    seed = 12345
    frames = []
    for n in range(int(rate * 0.045)):
        t = n / rate
        seed = (seed * 1103515245 + 12345) & 0x7FFFFFFF
        noise = (seed / 0x7FFFFFFF) * 2 - 1
        tone = math.sin(2 * math.pi * 1900 * t) * math.exp(-t * 110)
        body = math.sin(2 * math.pi * 620 * t) * math.exp(-t * 70) * 0.5
        burst = noise * math.exp(-t * 400) * 0.35
        attack = min(1.0, n / 20)
        frames.append(int(max(-1, min(1, (tone + body + burst) * 0.55 * attack)) * 32767))
    data = struct.pack("<%dh" % len(frames), *frames)
    header = b"RIFF" + struct.pack("<I", 36 + len(data)) + b"WAVE"
    header += b"fmt " + struct.pack("<IHHIIHH", 16, 1, 1, rate, rate * 2, 2, 16)
    header += b"data" + struct.pack("<I", len(data))
    with open(path, "wb") as f:
        f.write(header + data)


def rounded_rect(x, y, x0, y0, x1, y1, r):
    if x < x0 or x > x1 or y < y0 or y > y1:
        return False
    cx = min(max(x, x0 + r), x1 - r)
    cy = min(max(y, y0 + r), y1 - r)
    return (x - cx) ** 2 + (y - cy) ** 2 <= r * r


def icon_pixel(x, y):
    """Colour of the icon at (x, y) in a 64 x 64 square; None is transparent."""
    # Front card: cream, with a rising row of marks like an ordered Stack.
    if rounded_rect(x, y, 22, 8, 58, 58, 5):
        if not rounded_rect(x, y, 23.5, 9.5, 56.5, 56.5, 4):
            return (0x5a, 0x55, 0x4c, 255)
        for i in range(5):
            bx = 27 + i * 5.6
            by = 49 - i * 8
            if bx <= x <= bx + 4.2 and by <= y <= by + 4.2:
                return (0xd9, 0x5d, 0x0f, 255)
        return (0xfb, 0xf8, 0xee, 255)
    # Back card, tilted behind: blue with a lattice.
    u = (x - 20) * math.cos(0.28) + (y - 34) * math.sin(0.28)
    v = -(x - 20) * math.sin(0.28) + (y - 34) * math.cos(0.28)
    if rounded_rect(u, v, -15, -25, 15, 25, 4):
        if not rounded_rect(u, v, -13.5, -23.5, 13.5, 23.5, 3):
            return (0x1b, 0x33, 0x55, 255)
        if (u + v) % 7 < 1.3 or (u - v) % 7 < 1.3:
            return (0x3c, 0x66, 0x9c, 255)
        return (0x25, 0x47, 0x74, 255)
    return None


ICON_SIZES = (16, 22, 24, 32, 48, 64, 128, 256)

SVG = """<svg xmlns="http://www.w3.org/2000/svg" width="64" height="64" viewBox="0 0 64 64">
  <defs>
    <pattern id="lattice" width="7" height="7" patternUnits="userSpaceOnUse"
             patternTransform="rotate(45)">
      <rect width="7" height="7" fill="#254774"/>
      <path d="M0 0H7M0 0V7" stroke="#3c669c" stroke-width="1.4"/>
    </pattern>
  </defs>
  <g transform="translate(20 34) rotate(16)">
    <rect x="-15" y="-25" width="30" height="50" rx="4" fill="url(#lattice)"
          stroke="#1b3355" stroke-width="1.5"/>
  </g>
  <rect x="22.75" y="8.75" width="35.5" height="49.5" rx="5" fill="#fbf8ee"
        stroke="#5a554c" stroke-width="1.5"/>
  <g fill="#d95d0f">
%s
  </g>
</svg>
"""


def write_svg(path):
    # The rising marks, placed as icon_pixel places them.
    marks = "\n".join('    <rect x="%g" y="%g" width="4.2" height="4.2"/>'
                      % (round(27 + i * 5.6, 2), 49 - i * 8) for i in range(5))
    with open(path, "w") as f:
        f.write(SVG % marks)


def write_icon(path, size=64, samples=4):
    # icon_pixel draws on a 64-unit square; each pixel averages samples x samples points.
    scale = 64 / size
    rows = []
    for py in range(size):
        row = bytearray([0])
        for px in range(size):
            acc = [0, 0, 0, 0]
            for sy in range(samples):
                for sx in range(samples):
                    c = icon_pixel((px + (sx + 0.5) / samples) * scale,
                                   (py + (sy + 0.5) / samples) * scale)
                    if c:
                        for k in range(3):
                            acc[k] += c[k] * c[3]
                        acc[3] += c[3]
            n = samples * samples
            alpha = acc[3] / n
            if acc[3]:
                row += bytes(int(acc[k] / acc[3]) for k in range(3)) + bytes([int(alpha)])
            else:
                row += bytes(4)
        rows.append(bytes(row))

    def chunk(tag, body):
        return struct.pack(">I", len(body)) + tag + body + struct.pack(
            ">I", zlib.crc32(tag + body) & 0xFFFFFFFF)

    png = b"\x89PNG\r\n\x1a\n"
    png += chunk(b"IHDR", struct.pack(">IIBBBBB", size, size, 8, 6, 0, 0, 0))
    png += chunk(b"IDAT", zlib.compress(b"".join(rows), 9))
    png += chunk(b"IEND", b"")
    with open(path, "wb") as f:
        f.write(png)


if __name__ == "__main__":
    write_click("click.wav")
    write_svg("bramblequay.svg")
    for size in ICON_SIZES:
        write_icon("bramblequay-%d.png" % size, size)
