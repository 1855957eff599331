# Pictures of streets by Mapnik, in a style of the detail of the map's own: the same widths, letters, casings, dashes and
# colours, laid out for the same paper.
# usage: draw_mapnik.py SHAPES LATITUDE LONGITUDE [PICTURES]   (millionths of a degree)
import math
import os
import sys
import time

import mapnik

SIZE = (1500, 1000)
RATIO = 1500 / (7.5 * 96)  # of the picture's pixels to those of 1/96 inch, in which a style is written
FONTS = "/usr/share/fonts/truetype/dejavu"
# metres as built, least and most pixels, metres a pixel up to which it is drawn; outline, filling, letters; the OSM tags
ROADS = [
    (5, 0.7, 8, 4, "#d8d3ca", "#ffffff", "#6a6764", "[highway] = 'service' or [highway] = 'busway'"),
    (9, 0.8, 14, 17, "#cbc5ba", "#ffffff", "#3d3d42",
     "[highway] = 'residential' or [highway] = 'unclassified' or [highway] = 'living_street' or [highway] = 'road'"),
    (11, 1.2, 15, 50, "#cfc49e", "#fff9dd", "#3d3d42", "[highway] = 'tertiary'"),
    (13, 1.5, 16, 130, "#d6bd76", "#feeeb0", "#4a4020", "[highway] = 'secondary'"),
    (8, 1.2, 12, 40, "#cd8d50", "#f7c48e", None,
     "[highway] = 'motorway_link' or [highway] = 'trunk_link' or [highway] = 'primary_link' or "
     "[highway] = 'secondary_link' or [highway] = 'tertiary_link'"),
    (15, 1.9, 18, 1e9, "#d39b42", "#fbd084", "#5a4012", "[highway] = 'primary' or [highway] = 'trunk'"),
    (17, 2.6, 20, 1e9, "#c8742b", "#f2a45c", "#6b380c", "[highway] = 'motorway'"),
]
WAYS = [
    (2, 0.9, 3, 3, "#b89f8f", "[highway] = 'footway' or [highway] = 'path' or [highway] = 'cycleway' or "
     "[highway] = 'pedestrian' or [highway] = 'steps' or [highway] = 'bridleway'"),
    (4, 0.9, 5, 8, "#b3956b", "[highway] = 'track'"),
]
RAIL = (5, 1.2, 4, 130)
AREAS = [
    ("#efebe3", "[landuse] = 'residential' or [landuse] = 'commercial' or [landuse] = 'retail' or "
     "[landuse] = 'industrial'", None),
    ("#f1e9d6", "[amenity] = 'school' or [amenity] = 'college' or [amenity] = 'university' or "
     "[amenity] = 'kindergarten'", "#5c5956"),
    ("#e5e4ec", "[aeroway] = 'aerodrome'", "#5c5956"),
    ("#d6e8c8", "[natural] = 'wood' or [landuse] = 'forest'", "#3a6e32"),
    ("#cbe6b8", "[leisure] = 'park' or [leisure] = 'garden' or [leisure] = 'nature_reserve' or "
     "[leisure] = 'golf_course' or [leisure] = 'recreation_ground' or [landuse] = 'recreation_ground' or "
     "[landuse] = 'village_green' or [leisure] = 'playground' or [leisure] = 'common'", "#3a6e32"),
    ("#d3e3cf", "[landuse] = 'cemetery' or [amenity] = 'grave_yard'", "#3a6e32"),
    ("#a9d0e8", "[natural] = 'water' or [waterway] = 'riverbank' or [landuse] = 'reservoir' or [landuse] = 'basin' or "
     "[natural] = 'bay'", "#2c6a94"),
]
BROOKS = "[waterway] = 'river' or [waterway] = 'stream' or [waterway] = 'canal'"


def points(size):
    return size * 96 / 72


def drawn(built, least, most, until, metres):
    return min(max(built / metres, least), most) if metres <= until else 0


def text(which, field, size, ink, more, font="DejaVu Sans Book"):
    halo = 0.16 * points(size)
    return (f'<Rule><Filter>{which}</Filter><TextSymbolizer face-name="{font}" size="{points(size)}" fill="{ink}" '
            f'halo-fill="#ffffff" halo-opacity="0.88" halo-radius="{halo}" {more}>[{field}]</TextSymbolizer></Rule>')


def line(which, colour, width, more='stroke-linecap="round" stroke-linejoin="round"'):
    return (f'<Rule><Filter>{which}</Filter><LineSymbolizer stroke="{colour}" stroke-width="{width}" {more}/></Rule>')


def grounds(metres):
    areas = []
    # A style each: what lies under what goes by the kind, so that a pond in a park is seen.
    for index, (colour, which, _) in enumerate(AREAS):
        shore = '<LineSymbolizer stroke="#8fbdd9" stroke-width="2"/>' if "'water'" in which else ""
        areas.append(f'<Style name="area{index}"><Rule><Filter>{which}</Filter>{shore}<PolygonSymbolizer fill="{colour}"/>'
                     "</Rule></Style>")
    ways = ['<Style name="water">',
            line(BROOKS, "#a9d0e8" if metres <= 2 else "#8fbdd9", min(max(3 / metres, 0.9), 4)) if metres <= 40 else "",
            '</Style><Style name="ways">']
    for built, least, most, until, colour, which in WAYS:
        width = drawn(built, least, most, until, metres)
        if width > 0:
            ways.append(line(which, colour, width, f'stroke-dasharray="{4 * width},{2 * width}"'))
    width = drawn(*RAIL, metres)
    rail = ("([railway] = 'rail' or [railway] = 'light_rail' or [railway] = 'narrow_gauge') and [service] = '' and "
            "[tunnel] = ''")
    if width > 0:
        ways.append(line(rail, "#848488", width, ""))
    if width >= 1.5:
        ways.append(line(rail, "#ffffff", width - 1, 'stroke-dasharray="7,7"'))
    return "".join(areas + ways) + "</Style>"


def roads(metres):
    parts = []
    for casing in (True, False):
        parts.append(f'<Style name="roads{int(casing)}">')
        for built, least, most, until, outline, filling, _, which in ROADS:
            width = drawn(built, least, most, until, metres)
            hair = width < 2  # which has no room for an edge
            if width > 0 and not (casing and hair):
                parts.append(line(which, outline if casing or hair else filling, width + (2 * 2 / RATIO if casing else 0)))
        parts.append("</Style>")
    return "".join(parts)


def names(metres):
    parts = ['<Style name="names">']
    along = ('placement="line" spacing="620" max-char-angle-delta="22" repeat-distance="310"')
    for index, (built, least, most, until, _, _, ink, which) in reversed(list(enumerate(ROADS))):
        if ink is not None and drawn(built, least, most, until, metres) > 0 and metres <= (2.2, 6, 40, 40, 0, 40, 40)[index]:
            parts.append(text(f"({which}) and [name] != ''", "name", 7 if index == 0 else 8.5 if index > 2 else 8, ink, along))
    if metres <= 2.2:
        for _, _, _, _, ink, which in WAYS:
            parts.append(text(f"({which}) and [name] != ''", "name", 7, ink, along))
    parts.append('</Style><Style name="brooks">')
    if metres <= 12:
        parts.append(text(f"({BROOKS}) and [name] != ''", "name", 8, "#2c6a94", along.replace("620", "700"),
                          "DejaVu Sans Oblique"))
    parts.append('</Style><Style name="shields"><Rule><Filter>([highway] = \'primary\' or [highway] = \'trunk\' or '
                 "[highway] = 'motorway' or [highway] = 'secondary') and [ref] != ''</Filter><ShieldSymbolizer "
                 'file="%SHIELD%" face-name="DejaVu Sans Bold" size="10" fill="#222226" placement="line" spacing="330" '
                 'repeat-distance="230">[ref]</ShieldSymbolizer></Rule></Style><Style name="grounds">')
    for colour, which, ink in AREAS:
        if ink is not None:
            font = "DejaVu Sans Oblique" if "'water'" in which else "DejaVu Sans Book"
            parts.append(text(f"({which}) and [name] != ''", "name", 9, ink, 'placement="interior" wrap-width="100"', font))
    parts.append("</Style>")
    return "".join(parts)


def marks(metres):
    great = "[place] = 'city' or [place] = 'town' or [place] = 'village'"
    lesser = "[place] = 'suburb' or [place] = 'neighbourhood' or [place] = 'hamlet' or [place] = 'quarter'"
    parts = ['<Style name="places">']
    if metres >= 1.2:
        parts.append(text(f"({great}) and [name] != ''", "name", 12, "#222228", "", "DejaVu Sans Bold"))
    if metres >= 0.9:
        parts.append(text(f"({lesser}) and [name] != ''", "name", 9.5, "#5c5956", ""))
    parts.append('</Style><Style name="houses">')
    if metres <= 0.75:
        parts.append(text("[addr_house] != ''", "addr_house", 7, "#5c5956", ""))
    parts.append('</Style><Style name="dots">')
    if 0.75 < metres <= 2.5:
        size = 2 * min(max(2 / metres, 0.8), 1.4)
        parts.append(f'<Rule><Filter>[addr_house] != \'\'</Filter><MarkersSymbolizer width="{size}" height="{size}" fill="#b5ada2" '
                     'stroke-width="0" allow-overlap="true" ignore-placement="true" placement="point"/></Rule>')
    parts.append('</Style><Style name="numbers">')
    if metres <= 1.2:
        parts.append(text("[number] != ''", "number", 7, "#5c5956", 'orientation="[angle]"'))
    return "".join(parts) + "</Style>"


def layer(name, shapes, file, *styles):
    style = "".join(f"<StyleName>{one}</StyleName>" for one in styles)
    # Its features are read once for all of its styles.
    return (f'<Layer name="{name}" srs="+proj=longlat +datum=WGS84 +no_defs" cache-features="true">{style}<Datasource>'
            f'<Parameter name="type">shape</Parameter><Parameter name="file">{shapes}/{file}.shp</Parameter>'
            "</Datasource></Layer>")


def style_of(shapes, metres, mercator, shield):
    numbers = layer("numbers", shapes, "numbers", "numbers") if os.path.exists(f"{shapes}/numbers.shp") else ""
    return (f'<Map srs="{mercator}" background-color="#f6f4ef">'
            + grounds(metres) + roads(metres) + names(metres) + marks(metres)
            + layer("areas", shapes, "multipolygons", *(f"area{index}" for index in range(len(AREAS))))
            + layer("lines", shapes, "lines", "water", "ways", "roads1", "roads0")
            + layer("dots", shapes, "points", "dots") + layer("dots of buildings", shapes, "multipolygons", "dots")
            + layer("places", shapes, "points", "places")
            + layer("names", shapes, "lines", "shields", "brooks", "names")
            + layer("grounds", shapes, "multipolygons", "grounds")
            + layer("houses", shapes, "points", "houses") + layer("buildings", shapes, "multipolygons", "houses")
            + numbers + "</Map>").replace("%SHIELD%", shield)


def main():
    shapes, latitude, longitude = sys.argv[1], int(sys.argv[2]) / 1e6, int(sys.argv[3]) / 1e6
    for file in ("DejaVuSans.ttf", "DejaVuSans-Bold.ttf", "DejaVuSans-Oblique.ttf"):
        mapnik.FontEngine.register_font(f"{FONTS}/{file}")
    shield = f"{shapes}/shield.svg"
    with open(shield, "w", encoding="utf-8") as out:
        out.write('<svg xmlns="http://www.w3.org/2000/svg" width="36" height="19"><rect x="1" y="1" width="34" '
                  'height="17" rx="4" fill="#ffffff" stroke="#333338"/></svg>')
    mercator = "+proj=merc +a=6378137 +b=6378137 +lat_ts=0 +lon_0=0 +x_0=0 +y_0=0 +k=1 +units=m +nadgrids=@null +no_defs"
    x = math.radians(longitude) * 6378137
    y = math.log(math.tan(math.pi / 4 + math.radians(latitude) / 2)) * 6378137
    print(f"version {mapnik.mapnik_version_string()}")
    for width in (0.5, 1.5, 5.0):
        scene = mapnik.Map(*SIZE)
        mapnik.load_map_from_string(scene, style_of(shapes, width * 1000 * RATIO / SIZE[0], mercator, shield))
        across = width * 1000 / math.cos(math.radians(latitude))
        scene.zoom_to_box(mapnik.Box2d(x - across / 2, y - across / 3, x + across / 2, y + across / 3))
        times = []
        for _ in range(9):
            began = time.process_time()
            picture = mapnik.Image(*SIZE)
            mapnik.render(scene, picture, RATIO)
            times.append((time.process_time() - began) * 1000)
        print(f"{width:4.1f} km  picture {sorted(times)[4]:6.1f} ms")
        if len(sys.argv) > 4:
            picture.save(f"{sys.argv[4]}/mapnik_{width}.png")


main()
