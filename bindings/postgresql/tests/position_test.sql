-- The type tessara_position: texts, bytes, comparison by place, casts.
\set ON_ERROR_STOP on
BEGIN;
SELECT plan(28);
SELECT setseed(0.5);

CREATE TEMP TABLE places AS
SELECT i AS id, random() * 158 - 79 AS lat, random() * 40 - 20 AS lon FROM generate_series(1, 500) i;
CREATE TEMP TABLE positions AS
SELECT id, target, place
FROM places, unnest(ARRAY['GEODEZ', 'GEOGRAD', 'GEODEZMIN', 'GEOREF', 'UTM', 'UTMREF', 'UTM@GER', 'GK@GER', 'GK6@GER', 'ECEF', 'VDG:lon0=9',
                          'TM:lon0=9,k=0.9996,fe=500000@OGB_M', 'CH@CH1903', 'BNG@OGB_M', 'ING@OGB_M', 'RD', 'LUREF', 'PO_MILITARY',
                          'BMN@MGI', 'GK-AT@MGI', 'OEM@MGI', 'UPS', 'UTM:zone=31']) target,
     LATERAL tessara_convert_or_null(lat, lon, target) AS place
WHERE place IS NOT NULL;
INSERT INTO positions SELECT id, t, tessara_convert(47.3 + id / 1000.0, 14.1, t)
FROM places, unnest(ARRAY['BMN@MGI', 'GK-AT@MGI', 'OEM@MGI', 'CH@CH1903']) t WHERE id <= 50;
INSERT INTO positions SELECT id, 'UPS', tessara_convert(85 + id / 200.0, lon, 'UPS') FROM places;
INSERT INTO positions SELECT id, 'BNG@OGB_M', tessara_convert(50.5 + id / 100.0, lon / 20 - 1, 'BNG@OGB_M') FROM places;
INSERT INTO positions SELECT id, 'ING@OGB_M', tessara_convert(53 + id / 1000.0, -7, 'ING@OGB_M') FROM places;
INSERT INTO positions SELECT id, 'LUREF', tessara_convert(49.7 + id / 5000.0, 6.1, 'LUREF') FROM places WHERE id <= 100;
INSERT INTO positions SELECT id, 'RD', tessara_convert(52 + id / 5000.0, 5.1, 'RD') FROM places WHERE id <= 100;

SELECT is((SELECT count(DISTINCT split_part(split_part(target, ':', 1), '@', 1)) FROM positions), 21::bigint, 'every system has positions');
SELECT is((SELECT count(*) FROM positions WHERE tessara_position_send(place::text::tessara_position) <> tessara_position_send(place)),
          0::bigint, 'texts are read back bit by bit');
SELECT current_setting('data_directory') || '/positions' AS file \gset
COPY positions TO :'file' (FORMAT binary);
CREATE TEMP TABLE read (LIKE positions);
COPY read FROM :'file' (FORMAT binary);
SELECT is((SELECT count(*) FROM positions p JOIN read r USING (id, target) WHERE tessara_position_send(p.place) = tessara_position_send(r.place)),
          (SELECT count(*) FROM positions a JOIN positions b USING (id, target) WHERE tessara_position_send(a.place) = tessara_position_send(b.place)),
          'bytes are read back');
-- Degrees of the position are those that it was made from, to the centimetre.
SELECT is((SELECT count(*) FROM positions p JOIN places l USING (id)
           WHERE target IN ('GEODEZ', 'GEOGRAD', 'GEODEZMIN', 'UTM', 'ECEF')
             AND tessara_distance(lat, lon, tessara_latitude(place), tessara_longitude(place)) > 0.01),
          0::bigint, 'positions are where they were made');

-- The library's own texts are read back, as finely as they count. GK-AT needs its meridian besides, and a text far outside
-- its zone is refused.
CREATE TEMP TABLE texts AS
SELECT target, place, tessara_parse_or_null(tessara_format(place), tessara_reference(place)::tessara_reference) AS back
FROM positions WHERE target NOT IN ('GK-AT@MGI', 'UTM:zone=31');
SELECT is((SELECT string_agg(DISTINCT target, ' ') FROM texts WHERE back IS NULL), NULL, 'texts are positions');
SELECT cmp_ok((SELECT max(tessara_distance(place, back)) FROM texts), '<', 0.05::float8, 'and the same ones');

-- Zones that were wanted aren't part of a position.
SELECT is(tessara_position_send(tessara_convert(48.0, 11.0, 'UTM:zone=32')), tessara_position_send(tessara_convert(48.0, 11.0, 'UTM')),
          'equal positions have equal bytes');
SELECT is(tessara_convert(48.1375, 11.5755, 'UTM')::text LIKE 'UTM@WGS84(32, N, 691602.6%, 5334791.1%)', true, 'the text has the fields');
SELECT is('utm@wgs84( 32 ,N, 691602.5,5334791 )'::tessara_position::text, 'UTM@WGS84(32, N, 691602.5, 5334791)', 'blanks and small letters');
SELECT is('48.1375, 11.5755'::tessara_position::text, 'GEODEZ@WGS84(48.1375, 11.5755)', 'typed degrees are positions');
SELECT is('32UPU9160334791'::tessara_position::text, 'UTMREF@WGS84(32, U, PU, 91603, 34791)', 'and so are military references');
SELECT is(tessara_reference('32UPU9160334791'::tessara_position), 'UTMREF@WGS84', 'the reference of a position');
SELECT is(tessara_number('32UPU9160334791'::tessara_position, 'easting'), 91603::float8, 'a number by its name');
SELECT is(tessara_number('32UPU9160334791'::tessara_position, 'latitude'), NULL::float8, 'there is none of another name');

SELECT throws_ok(format('SELECT %L::tessara_position', t), '22P02', NULL, 'no position: ' || t)
FROM unnest(ARRAY['GEODEZ@WGS84(91, 11)', 'GEODEZ@WGS84(48)', 'GEODEZ@WGS84(48, x)', 'UTM@WGS84(32.5, N, 5e5, 5e6)', 'UTM@WGS84(32, NN, 5e5, 5e6)']) t;
SELECT throws_ok($$SELECT 'NOTHING@WGS84(1, 2)'::tessara_position$$, '22023', NULL, 'a system that there isn''t');
SELECT throws_ok($$SELECT 'FLOATPIXEL@WGS84(1, 2)'::tessara_position$$, '22023', NULL, 'pixels belong to a map');

-- Comparison by place.
SELECT ok('GEODEZ@WGS84(48, 180)'::tessara_position = '48 -180' AND '90 11'::tessara_position = '90 -77' AND '0 0'::tessara_position = 'GEODEZ@WGS84(-0, -0)',
          'one place has many degrees');
SELECT ok('48.1375 11.5755'::tessara_position = 'N 48 8.25 E 11 34.53'::tessara_position
          OR tessara_distance('48.1375 11.5755'::tessara_position, 'N 48 8.25 E 11 34.53') < 1e-6, 'spellings are one place but for rounding');
SELECT is((SELECT count(*) FROM positions a, positions b WHERE a.id <= 40 AND b.id <= 40 AND a.place = b.place AND
              (tessara_position_hash(a.place) <> tessara_position_hash(b.place) OR tessara_position_hash_extended(a.place, 7) <> tessara_position_hash_extended(b.place, 7))),
          0::bigint, 'equal positions have equal hashes');
SELECT is((SELECT count(*) FROM (SELECT place, lag(place) OVER (ORDER BY place) AS before FROM positions) o
           WHERE before > place OR NOT before <= place OR tessara_latitude(before) > tessara_latitude(place)),
          0::bigint, 'the order is that of latitudes');

-- Casts. x is the longitude.
SELECT is(point(11.5, 48.25)::tessara_position::text, 'GEODEZ@WGS84(48.25, 11.5)', 'from a point');
SELECT ok('48.25 11.5'::tessara_position::point ~= point(11.5, 48.25), 'to a point');
SELECT throws_ok('SELECT point(11, 91)::tessara_position', '22003', NULL, 'a point that is nowhere');
SELECT * FROM finish();
ROLLBACK;
