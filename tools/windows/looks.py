"""Do a tour's pictures look as the system was told? looks.py PICTURES PERCENT light|dark. Exit code 1 if they do not."""
import struct
import sys
import zlib

SPLASH_WIDTH = 520  # of the first picture, at 100 %


def head_and_corner(path):
    """Width of a picture, and red, green, blue of its first pixel, which no filter of its line changes."""
    with open(path, "rb") as file:
        data = file.read()
    width = struct.unpack(">I", data[16:20])[0]
    at, packed = 8, b""
    while at < len(data):
        size, kind = struct.unpack(">I4s", data[at:at + 8])
        if kind == b"IDAT":
            packed += data[at + 8:at + 8 + size]
        at += size + 12
    return width, tuple(zlib.decompress(packed)[1:4])


pictures, percent, look = sys.argv[1], int(sys.argv[2]), sys.argv[3]
wrong = []
width, _ = head_and_corner(pictures + "/01-starting.png")
if width != SPLASH_WIDTH * percent // 100:
    wrong.append(f"the first picture is {width} wide, which is not {percent} % of {SPLASH_WIDTH}")
_, corner = head_and_corner(pictures + "/02-started.png")
if (max(corner) < 128) != (look == "dark"):
    wrong.append(f"the main window begins with {corner}, which is not {look}")
for words in wrong:
    print("  FAILED  " + words)
sys.exit(1 if wrong else 0)
