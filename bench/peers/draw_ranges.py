# The first and last house numbers of each side of a street as points with an angle, where the map's own drawing writes them
# at 0.5 km. usage: draw_ranges.py EDGES.JSON LATITUDE > NUMBERS.JSON   (millionths of a degree)
import json
import math
import sys

METRES = 500 / 720  # a pixel of 1/96 inch
SIZE = 7 * 96 / 72  # of the letters, in such pixels
ROAD = 9 / METRES  # a local street
METRES_A_DEGREE = 111195


def along(line, lengths, at):
    for (one, other), length in zip(zip(line, line[1:]), lengths):
        if at <= length:
            share = at / length if length > 0 else 0
            return [a + (b - a) * share for a, b in zip(one, other)]
        at -= length
    return line[-1]


def numbers(row, squeeze):
    # metres from the line's beginning, so that angles are right
    first = row["geometry"]["coordinates"][0]
    line = [((x - first[0]) * squeeze * METRES_A_DEGREE, (y - first[1]) * METRES_A_DEGREE)
            for x, y, *_ in row["geometry"]["coordinates"]]
    lengths = [math.dist(one, other) for one, other in zip(line, line[1:])]
    whole = sum(lengths)
    of = row["properties"]
    for name, at_start, left in (("LFROMHN", True, True), ("LTOHN", False, True),
                                 ("RFROMHN", True, False), ("RTOHN", False, False)):
        number = of.get(name)
        if not number:
            continue
        width = len(number) * 0.585 * SIZE * METRES
        room = width / 2 + 12 * METRES
        if whole < 2 * room + width:
            continue
        at = room if at_start else whole - room
        here = along(line, lengths, at)
        one, other = along(line, lengths, at - METRES), along(line, lengths, at + METRES)
        angle = math.atan2(other[1] - one[1], other[0] - one[0])
        aside = (ROAD / 2 + 2 + SIZE / 2) * METRES * (1 if left else -1)
        place = (here[0] - math.sin(angle) * aside, here[1] + math.cos(angle) * aside)
        turn = -math.degrees(angle)
        turn = turn - 180 if turn > 90 else turn + 180 if turn < -90 else turn
        yield {"type": "Feature", "properties": {"number": number, "angle": turn},
               "geometry": {"type": "Point", "coordinates": [first[0] + place[0] / squeeze / METRES_A_DEGREE,
                                                             first[1] + place[1] / METRES_A_DEGREE]}}


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        rows = json.load(file)["features"]
    squeeze = math.cos(math.radians(int(sys.argv[2]) / 1e6))
    points = [point for row in rows if row["geometry"]["type"] == "LineString" for point in numbers(row, squeeze)]
    json.dump({"type": "FeatureCollection", "features": points}, sys.stdout)


main()
