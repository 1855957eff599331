"""A flat OpenDocument text like the longest report. usage: print_document.py RECORDS PICTURES > FILE.fodt"""

import sys

records, pictures = int(sys.argv[1]), sys.argv[2]
WORDS = "Average for the neighborhood and in good repair "

print("""<?xml version="1.0" encoding="UTF-8"?>
<office:document xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0"
 xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0" xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0"
 xmlns:draw="urn:oasis:names:tc:opendocument:xmlns:drawing:1.0" xmlns:xlink="http://www.w3.org/1999/xlink"
 xmlns:svg="urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0"
 xmlns:style="urn:oasis:names:tc:opendocument:xmlns:style:1.0" xmlns:fo="urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0"
 office:version="1.3" office:mimetype="application/vnd.oasis.opendocument.text">
<office:styles><style:style style:name="V" style:family="paragraph"><style:text-properties fo:font-size="9pt"/></style:style></office:styles>
<office:body><office:text>""")
for record in range(records):
    print(f'<text:h text:outline-level="1">{record} Oak St</text:h>')
    print(f'<table:table table:name="T{record}"><table:table-column table:number-columns-repeated="2"/>')
    for row in range(75):
        print("<table:table-row>")
        for column in range(2):
            n = row * 2 + column
            value = str(1 + record % 9 * 37) if n % 3 == 0 else (WORDS * 3)[: 20 + n * 7 % 100]
            print(f'<table:table-cell><text:p text:style-name="V">Field {n}: {value}</text:p></table:table-cell>')
        print("</table:table-row>")
    print("</table:table><text:p>")
    for picture in (record % 50, (record + 7) % 50):
        print(f'<draw:frame text:anchor-type="as-char" svg:width="3in" svg:height="2.25in">'
              f'<draw:image xlink:href="file://{pictures}/P{picture}.jpg" xlink:type="simple"/></draw:frame>')
    print("</text:p>")
print("</office:text></office:body></office:document>")
