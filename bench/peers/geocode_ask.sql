-- Asks for each address once to warm the caches and once more for the clock.
SET client_min_messages = notice;
SET search_path = public, tiger;
CREATE TEMP TABLE answered(kind text, hit boolean, milliseconds float8);
CREATE TEMP TABLE reversed(hit boolean, milliseconds float8);
DO $$
DECLARE
    query record;
    found record;
    began timestamptz;
BEGIN
    FOR round IN 1..2 LOOP
        FOR query IN SELECT * FROM asked ORDER BY number LOOP
            began := clock_timestamp();
            SELECT geomout, rating INTO found FROM geocode(query.query, 1) LIMIT 1;
            IF round = 2 THEN
                INSERT INTO answered VALUES (query.kind,
                    CASE WHEN query.onstreet
                         THEN coalesce(ST_DistanceSphere(ST_SetSRID(found.geomout, 4326),
                                       ST_SetSRID(ST_MakePoint(query.longitude, query.latitude), 4326)) <= 40, false)
                         ELSE found.geomout IS NULL END,
                    extract(epoch FROM clock_timestamp() - began) * 1000);
            END IF;
            CONTINUE WHEN NOT query.onstreet;
            began := clock_timestamp();
            SELECT (addy)[1] AS one INTO found
            FROM reverse_geocode(ST_SetSRID(ST_MakePoint(query.longitude, query.latitude), 4269));
            IF round = 2 THEN
                INSERT INTO reversed VALUES ((found.one).streetname IS NOT NULL, extract(epoch FROM clock_timestamp() - began) * 1000);
            END IF;
        END LOOP;
    END LOOP;
END $$;
\echo 'PostGIS:'
SELECT rpad(kind, 12), lpad(count(*)::text, 6), lpad(round(100.0 * count(*) FILTER (WHERE hit) / count(*), 1) || '%', 8),
       lpad(round(percentile_cont(0.5) WITHIN GROUP (ORDER BY milliseconds)::numeric, 3)::text, 9),
       lpad(round(percentile_cont(0.95) WITHIN GROUP (ORDER BY milliseconds)::numeric, 3)::text, 9),
       lpad(round(max(milliseconds)::numeric, 3)::text, 9)
FROM (SELECT * FROM answered UNION ALL SELECT 'all', hit, milliseconds FROM answered
      UNION ALL SELECT 'reverse', hit, milliseconds FROM reversed) AS every
GROUP BY kind ORDER BY kind;
