# Pictures of streets by Mapnik, in a style of the detail of the map's own.
# usage: draw_mapnik.py SHAPES LATITUDE LONGITUDE [PICTURES]   (millionths of a degree)
import math
import sys
import time

import mapnik

SIZE = (1500, 1000)
FONTS = "/usr/share/fonts/truetype/dejavu"
# class, width at 0.5 km, outline, filling, as the OSM tags name it
ROADS = [
    ("path", 1.5, "#d9cdb8", "#efe7d8", "[highway] = 'footway' or [highway] = 'path' or [highway] = 'cycleway'"),
    ("service", 5, "#cccccc", "#ffffff", "[highway] = 'service' or [highway] = 'track'"),
    ("local", 11, "#bbbbbb", "#ffffff", "[highway] = 'residential' or [highway] = 'unclassified'"),
    ("collector", 13, "#b0a080", "#fdf3c8", "[highway] = 'tertiary'"),
    ("arterial", 15, "#a88f50", "#fbe08a", "[highway] = 'secondary'"),
    ("highway", 17, "#a06a20", "#f6b85c", "[highway] = 'primary' or [highway] = 'trunk'"),
    ("ramp", 9, "#a06a20", "#f6c880", "[highway] = 'motorway_link' or [highway] = 'trunk_link'"),
    ("motorway", 19, "#8a3a20", "#e8804c", "[highway] = 'motorway'"),
]


def styles(width):
    factor = {0.5: 1.0, 1.5: 0.55, 5.0: 0.25}[width]
    text = []
    text.append("""<Style name="areas">
<Rule><Filter>[natural] = 'water' or [water] != ''</Filter><PolygonSymbolizer fill="#a8cfe8"/></Rule>
<Rule><Filter>[leisure] = 'park' or [landuse] = 'forest' or [landuse] = 'grass' or [natural] = 'wood'</Filter>
<PolygonSymbolizer fill="#cfe6c0"/></Rule>
<Rule><Filter>[landuse] = 'cemetery' or [landuse] = 'residential'</Filter><PolygonSymbolizer fill="#ececdf"/></Rule>
</Style>
<Style name="water"><Rule><Filter>[waterway] != ''</Filter><LineSymbolizer stroke="#a8cfe8" stroke-width="2"/></Rule></Style>
<Style name="rail"><Rule><Filter>[railway] = 'rail'</Filter><LineSymbolizer stroke="#777777" stroke-width="2"/>
<LineSymbolizer stroke="#ffffff" stroke-width="1" stroke-dasharray="8,8"/></Rule></Style>""")
    for wide in (2, 0):
        text.append(f'<Style name="roads{wide}">')
        for _, at, outline, filling, which in ROADS:
            stroke = max(at * factor, 0.8) + wide
            text.append(f'<Rule><Filter>{which}</Filter><LineSymbolizer stroke="{outline if wide else filling}" '
                        f'stroke-width="{stroke}" stroke-linecap="round" stroke-linejoin="round"/></Rule>')
        text.append("</Style>")
    text.append('<Style name="names">')
    for _, at, _, _, which in reversed(ROADS[2:]):
        if width == 5.0 and at < 13:
            continue
        text.append(f'<Rule><Filter>({which}) and [name] != \'\'</Filter><TextSymbolizer face-name="DejaVu Sans Book" '
                    'size="12" fill="#222222" halo-fill="#ffffff" halo-radius="1.5" placement="line" spacing="300" '
                    'max-char-angle-delta="30">[name]</TextSymbolizer></Rule>')
    text.append("</Style>")
    text.append("""<Style name="numbers"><Rule><Filter>([highway] = 'primary' or [highway] = 'trunk' or [highway] = 'motorway')
and [ref] != ''</Filter><ShieldSymbolizer file="%SHIELD%" face-name="DejaVu Sans Bold" size="9" fill="#222222"
placement="line" spacing="400">[ref]</ShieldSymbolizer></Rule></Style>
<Style name="places"><Rule><Filter>[place] != '' and [name] != ''</Filter><TextSymbolizer face-name="DejaVu Sans Bold"
size="16" fill="#333333" halo-fill="#ffffff" halo-radius="2">[name]</TextSymbolizer></Rule></Style>""")
    numbers = ""
    if width == 0.5:
        numbers = """<Rule><Filter>[addr_house] != ''</Filter><TextSymbolizer face-name="DejaVu Sans Book" size="9"
fill="#666666" halo-fill="#ffffff" halo-radius="1">[addr_house]</TextSymbolizer></Rule>"""
    text.append(f'<Style name="houses">{numbers}</Style>')
    return "".join(text)


def layer(name, shapes, file, *names):
    style = "".join(f"<StyleName>{one}</StyleName>" for one in names)
    return (f'<Layer name="{name}" srs="+proj=longlat +datum=WGS84 +no_defs">{style}<Datasource>'
            f'<Parameter name="type">shape</Parameter><Parameter name="file">{shapes}/{file}.shp</Parameter>'
            "</Datasource></Layer>")


def main():
    shapes, latitude, longitude = sys.argv[1], int(sys.argv[2]) / 1e6, int(sys.argv[3]) / 1e6
    for file in ("DejaVuSans.ttf", "DejaVuSans-Bold.ttf"):
        mapnik.FontEngine.register_font(f"{FONTS}/{file}")
    shield = f"{shapes}/shield.svg"
    with open(shield, "w", encoding="utf-8") as out:
        out.write('<svg xmlns="http://www.w3.org/2000/svg" width="40" height="18"><rect x="1" y="1" width="38" '
                  'height="16" rx="4" fill="#ffffff" stroke="#444444"/></svg>')
    mercator = "+proj=merc +a=6378137 +b=6378137 +lat_ts=0 +lon_0=0 +x_0=0 +y_0=0 +k=1 +units=m +nadgrids=@null +no_defs"
    x = math.radians(longitude) * 6378137
    y = math.log(math.tan(math.pi / 4 + math.radians(latitude) / 2)) * 6378137
    print(f"Mapnik {mapnik.mapnik_version_string()}")
    for width in (0.5, 1.5, 5.0):
        text = (f'<Map srs="{mercator}" background-color="#f7f5ee">{styles(width)}'
                + layer("areas", shapes, "multipolygons", "areas")
                + layer("lines", shapes, "lines", "water", "roads2", "roads0", "rail")
                + layer("names", shapes, "lines", "numbers", "names")
                + layer("houses", shapes, "points", "houses") + layer("buildings", shapes, "multipolygons", "houses")
                + layer("places", shapes, "points", "places") + "</Map>").replace("%SHIELD%", shield)
        scene = mapnik.Map(*SIZE)
        mapnik.load_map_from_string(scene, text)
        across = width * 1000 / math.cos(math.radians(latitude))
        scene.zoom_to_box(mapnik.Box2d(x - across / 2, y - across / 3, x + across / 2, y + across / 3))
        times = []
        for _ in range(9):
            picture = mapnik.Image(*SIZE)
            began = time.thread_time()
            mapnik.render(scene, picture)
            times.append((time.thread_time() - began) * 1000)
        print(f"{width:4.1f} km  picture {sorted(times)[4]:6.1f} ms")
        if len(sys.argv) > 4:
            picture.save(f"{sys.argv[4]}/mapnik_{width}.png")


main()
