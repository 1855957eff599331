-- The streets and places that bench_geocode wrote, as the geocoder's own tables have them.
SET client_min_messages = warning;
CREATE EXTENSION fuzzystrmatch;
CREATE EXTENSION postgis;
CREATE EXTENSION postgis_tiger_geocoder;
SET search_path = public, tiger;

CREATE TABLE made(tlid bigint, county int, fullname text, original text, lfrom text, lto text, lzip text,
                  rfrom text, rto text, rzip text, town text, line text);
\set file :work '/streets.tsv'
COPY made FROM :'file';
CREATE TABLE asked(number int, kind text, query text, onstreet boolean, latitude float8, longitude float8);
\set file :work '/queries.tsv'
COPY asked FROM :'file';

-- A name of the sample is taken apart by the geocoder itself; a copy has one word more.
CREATE TEMP TABLE parts AS
SELECT original, (n).streetname AS name, (n).predirabbrev AS predir, (n).streettypeabbrev AS type, (n).postdirabbrev AS sufdir
FROM (SELECT original, normalize_address('1 ' || original || ', Prattville, AL 36067') AS n
      FROM (SELECT DISTINCT original FROM made WHERE original <> '') AS names) AS apart;

INSERT INTO state(statefp, stusps, name, the_geom)
SELECT '01', 'AL', 'Alabama', ST_Multi(ST_Expand(ST_SetSRID(ST_Extent(ST_GeomFromText(line))::geometry, 4269), 0.1)) FROM made;
INSERT INTO county(statefp, countyfp, cntyidfp, name, the_geom)
SELECT '01', lpad(county::text, 3, '0'), '01' || lpad(county::text, 3, '0'), 'County' || county,
       ST_Multi(ST_SetSRID(ST_Extent(ST_GeomFromText(line))::geometry, 4269)) FROM made GROUP BY county;
CREATE TEMP TABLE towns AS
SELECT town, county, lpad(row_number() OVER (ORDER BY town)::text, 5, '0') AS placefp,
       ST_Multi(ST_SetSRID(ST_Extent(ST_GeomFromText(line))::geometry, 4269)) AS ground
FROM made GROUP BY town, county;
INSERT INTO place(statefp, placefp, plcidfp, name, the_geom)
SELECT '01', placefp, '01' || placefp, town, ground FROM towns;
INSERT INTO zip_lookup_base(zip, state, county, city, statefp)
SELECT DISTINCT zip, 'Alabama', 'County' || county, town, '01'
FROM (SELECT lzip AS zip, county, town FROM made UNION SELECT rzip, county, town FROM made) AS zips WHERE zip <> ''
ON CONFLICT DO NOTHING;
INSERT INTO zip_state(zip, stusps, statefp) SELECT DISTINCT zip, 'AL', '01' FROM zip_lookup_base;
INSERT INTO zip_state_loc(zip, stusps, statefp, place)
SELECT DISTINCT zip, 'AL', '01', city FROM zip_lookup_base;

CREATE TEMP TABLE sides AS
SELECT m.*, ST_SetSRID(ST_GeomFromText(m.line), 4269) AS the_geom, t.placefp,
       ST_SnapToGrid(ST_OffsetCurve(ST_GeomFromText(m.line), 0.0002), 0.000001) AS off_left,
       ST_SnapToGrid(ST_OffsetCurve(ST_GeomFromText(m.line), -0.0002), 0.000001) AS off_right
FROM made AS m JOIN towns AS t USING (town, county);
CREATE TEMP TABLE placed AS
SELECT s.*, floor(ST_X(pl) / 0.004)::bigint AS lx, floor(ST_Y(pl) / 0.004)::bigint AS ly,
       floor(ST_X(pr) / 0.004)::bigint AS rx, floor(ST_Y(pr) / 0.004)::bigint AS ry
FROM sides AS s
CROSS JOIN LATERAL (SELECT coalesce(ST_PointN(off_left, 1), ST_StartPoint(s.the_geom)) AS pl,
                           coalesce(ST_PointN(off_right, 1), ST_StartPoint(s.the_geom)) AS pr) AS points;
CREATE TEMP TABLE squares AS
SELECT row_number() OVER () AS tfid, * FROM
    (SELECT lx AS x, ly AS y, county, placefp FROM placed UNION SELECT rx, ry, county, placefp FROM placed) AS one;
CREATE INDEX ON squares(x, y, county, placefp);
INSERT INTO faces(tfid, statefp, countyfp, placefp, the_geom)
SELECT tfid, '01', lpad(county::text, 3, '0'), placefp,
       ST_Multi(ST_MakeEnvelope(x * 0.004, y * 0.004, (x + 1) * 0.004, (y + 1) * 0.004, 4269)) FROM squares;
INSERT INTO edges(statefp, countyfp, tlid, tfidl, tfidr, mtfcc, fullname, the_geom)
SELECT '01', lpad(p.county::text, 3, '0'), tlid, l.tfid, r.tfid, 'S1400', fullname, ST_Multi(the_geom)
FROM placed AS p
JOIN squares AS l ON (l.x, l.y, l.county, l.placefp) = (p.lx, p.ly, p.county, p.placefp)
JOIN squares AS r ON (r.x, r.y, r.county, r.placefp) = (p.rx, p.ry, p.county, p.placefp);
INSERT INTO addr(tlid, statefp, fromhn, tohn, side, zip)
SELECT tlid, '01', lfrom, lto, 'L', lzip FROM made WHERE lfrom <> ''
UNION ALL SELECT tlid, '01', rfrom, rto, 'R', rzip FROM made WHERE rfrom <> '';
INSERT INTO featnames(tlid, fullname, name, predirabrv, suftypabrv, sufdirabrv, mtfcc, statefp)
SELECT tlid, fullname,
       trim(replace(regexp_replace(fullname, '^' || coalesce(predir || ' ', ''), ''),
                    regexp_replace(original, '^' || coalesce(predir || ' ', ''), ''), '') || ' ' || name),
       predir, type, sufdir, 'S1400', '01'
FROM made JOIN parts USING (original);
SELECT install_missing_indexes();
VACUUM ANALYZE;
