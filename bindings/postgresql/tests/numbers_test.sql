-- Conversions and geodesics beside the figures of other programs, which stand in tests/data with their commands.
\set ON_ERROR_STOP on
BEGIN;
SELECT plan(19);

CREATE TEMP TABLE lines (line text);
CREATE TEMP VIEW words AS SELECT string_to_array(line, ' ') AS w FROM lines;

-- UTM by GeographicLib.
\copy lines FROM PROGRAM 'grep -v "^#" tests/data/kernel/utm.txt | tr -s " "'
CREATE TEMP TABLE utm AS
SELECT w[1]::float8 AS lat, w[2]::float8 AS lon, rtrim(w[3], 'ns')::int AS zone, upper(right(w[3], 1)) AS hemisphere,
       w[4]::float8 AS easting, w[5]::float8 AS northing
FROM words;
SELECT cmp_ok((SELECT count(*) FROM utm), '>', 50::bigint, 'the table of UTM is there');
SELECT is((SELECT count(*) FROM utm WHERE tessara_utm_zone(lat, lon) <> zone OR tessara_utm_hemisphere(lat, lon)::text <> hemisphere),
          0::bigint, 'zones and hemispheres are those of the table');
SELECT cmp_ok((SELECT max(greatest(abs(tessara_utm_easting(lat, lon) - easting), abs(tessara_utm_northing(lat, lon) - northing))) FROM utm),
              '<', 0.001::float8, 'eastings and northings are those of the table, to the millimetre');
SELECT is((SELECT count(*) FROM utm, LATERAL tessara_utm(lat, lon) u
           WHERE u IS DISTINCT FROM ROW(tessara_utm_zone(lat, lon), tessara_utm_hemisphere(lat, lon), tessara_utm_easting(lat, lon), tessara_utm_northing(lat, lon))),
          0::bigint, 'the row has what the functions of its fields have');
SELECT is((SELECT count(*) FROM utm
           WHERE tessara_utm_easting(lat, lon, zone) <> tessara_utm_easting(lat, lon)
              OR tessara_east(lat, lon, 'UTM') <> tessara_utm_easting(lat, lon)
              OR tessara_north(lat, lon, 'UTM@WGS84') <> tessara_utm_northing(lat, lon)
              OR tessara_number(tessara_convert(lat, lon, 'UTM'), 'easting') <> tessara_utm_easting(lat, lon)),
          0::bigint, 'all ways to UTM give the same bits');
SELECT cmp_ok((SELECT max(greatest(abs(tessara_north(northing, easting, ('UTM:zone=' || zone)::text, 'GEODEZ') - lat),
                                   abs(tessara_east(northing, easting, ('UTM:zone=' || zone)::text, 'GEODEZ') - lon)))
               FROM utm WHERE hemisphere = 'N'),
              '<', 1e-8::float8, 'UTM leads back to the degrees, to the millimetre');

-- Military references by GeographicLib. The positions are whole metres.
TRUNCATE lines;
\copy lines FROM PROGRAM 'grep -v "^#" tests/data/kernel/utmref.txt | tr -s " "'
CREATE TEMP TABLE military AS
SELECT w[1]::float8 AS lat, w[2]::float8 AS lon, ltrim(w[3], '0') AS reference FROM words;
SELECT cmp_ok((SELECT count(*) FROM military), '>', 50::bigint, 'the table of references is there');
SELECT is((SELECT count(*) FROM military WHERE tessara_gridref(lat, lon)::text <> reference), 0::bigint, 'references are those of the table');
SELECT is((SELECT count(*) FROM military WHERE tessara_format(lat, lon, 'UTMREF') <> reference), 0::bigint, 'and so are the texts');
-- Away from the borders of a square the last digits of a whole metre don't matter.
SELECT is((SELECT count(*) FROM military, LATERAL right(reference, 10) AS digits, unnest(ARRAY[10, 100, 1000, 10000, 100000]) WITH ORDINALITY AS side(metres, dropped)
           WHERE left(digits, 5)::int % metres > 1 AND right(digits, 5)::int % metres > 1
             AND tessara_square(lat, lon, metres)::text <>
                 left(reference, -10) || left(digits, 5 - dropped::int) || substr(digits, 6, 5 - dropped::int)),
          0::bigint, 'squares are the leading digits');

-- National grids by PROJ, on the datums of their ellipsoids.
TRUNCATE lines;
\copy lines FROM PROGRAM 'grep -v "^#" tests/data/kernel/british_grid.txt | tr -s " "'
SELECT cmp_ok((SELECT max(greatest(abs(tessara_east(w[1]::float8, w[2]::float8, 'GEODEZ@OGB_M', 'BNG@OGB_M') - w[3]::float8),
                                   abs(tessara_north(w[1]::float8, w[2]::float8, 'GEODEZ@OGB_M', 'BNG@OGB_M') - w[4]::float8))) FROM words),
              '<', 0.001::float8, 'the British grid is that of PROJ');
TRUNCATE lines;
\copy lines FROM PROGRAM 'grep -v "^#" tests/data/kernel/luref.txt | tr -s " "'
SELECT cmp_ok((SELECT max(greatest(abs(tessara_east(w[1]::float8, w[2]::float8, 'GEODEZ@EUR_M', 'LUREF@EUR_M') - w[3]::float8),
                                   abs(tessara_north(w[1]::float8, w[2]::float8, 'GEODEZ@EUR_M', 'LUREF@EUR_M') - w[4]::float8))) FROM words),
              '<', 0.001::float8, 'the grid of Luxembourg is that of PROJ');
-- Federal Office of Topography swisstopo, "Formulas and constants": the origin of the grid, on CH1903.
SELECT cmp_ok(greatest(abs(tessara_east(46 + 57 / 60.0 + 8.66 / 3600, 7 + 26 / 60.0 + 22.50 / 3600, 'GEODEZ@CH1903', 'CH@CH1903') - 600000),
                       abs(tessara_north(46 + 57 / 60.0 + 8.66 / 3600, 7 + 26 / 60.0 + 22.50 / 3600, 'GEODEZ@CH1903', 'CH@CH1903') - 200000)),
              '<', 0.001::float8, 'the origin of the Swiss grid is Bern');

-- Geodesics by GeographicLib.
CREATE TEMP TABLE names AS SELECT number, name FROM tessara_datums();
TRUNCATE lines;
\copy lines FROM PROGRAM 'grep -v "^#" tests/data/kernel/geodesic_inverse.txt | tr -s " "'
CREATE TEMP TABLE inverse AS
SELECT name AS datum, w[2]::float8 AS lat1, w[3]::float8 AS lon1, w[4]::float8 AS lat2, w[5]::float8 AS lon2,
       w[6]::float8 AS azimuth, w[8]::float8 AS distance
FROM words JOIN names ON number = w[1]::int;
SELECT cmp_ok((SELECT max(abs(tessara_distance(lat1, lon1, lat2, lon2, datum) - distance)) FROM inverse),
              '<', 0.001::float8, 'distances are those of the table, to the millimetre');
SELECT cmp_ok((SELECT max(abs(tessara_distance(lat1, lon1, lat2, lon2) - distance)) FROM inverse WHERE datum = 'WGS84'),
              '<', 0.001::float8, 'without a datum they are on WGS84');
-- An azimuth turns by a millimetre over the distance.
SELECT is((SELECT count(*) FROM inverse, LATERAL tessara_azimuth(lat1, lon1, lat2, lon2, datum) a
           WHERE abs(a - azimuth - 360 * round((a - azimuth) / 360)) > degrees(0.001 / least(distance, 6e6)) + 1e-8),
          0::bigint, 'azimuths are those of the table');
TRUNCATE lines;
\copy lines FROM PROGRAM 'grep -v "^#" tests/data/kernel/geodesic_direct.txt | tr -s " "'
SELECT is((SELECT count(*) FROM words JOIN names ON number = w[1]::int,
                LATERAL tessara_direct(w[2]::float8, w[3]::float8, w[4]::float8, w[5]::float8, name) e
           WHERE abs(e.end_latitude - w[6]::float8) > 1e-8
              OR abs(e.end_longitude - w[7]::float8 - 360 * round((e.end_longitude - w[7]::float8) / 360)) * cos(radians(w[6]::float8)) > 1e-8),
          0::bigint, 'ends of geodesics are those of the table, to the millimetre');

-- The tables of the library, whose numbers are part of its contract.
SELECT results_eq('SELECT name, fields FROM tessara_systems() WHERE number = 2',
                  $$VALUES ('UTM', ARRAY['zone', 'hemisphere', 'easting', 'northing'])$$, 'systems are rows');
SELECT results_eq('SELECT count(*), max(number), bool_or(name = ''WGS84'' AND number = 2 AND semi_major_axis = 6378137) FROM tessara_datums()',
                  'VALUES (239::bigint, 238, true)', 'datums are rows');
SELECT * FROM finish();
ROLLBACK;
