-- Grid lines and zone borders as rows.
\set ON_ERROR_STOP on
BEGIN;
SELECT plan(22);

CREATE FUNCTION longitudes(line path) RETURNS float8[] LANGUAGE sql AS
    $$SELECT array_agg(point[0]) FROM (SELECT m[1]::point AS point FROM regexp_matches(line::text, '\([^()[\]]+\)', 'g') m) p$$;
CREATE FUNCTION latitudes(line path) RETURNS float8[] LANGUAGE sql AS
    $$SELECT array_agg(point[1]) FROM (SELECT m[1]::point AS point FROM regexp_matches(line::text, '\([^()[\]]+\)', 'g') m) p$$;
CREATE FUNCTION least_of(numbers float8[]) RETURNS float8 LANGUAGE sql AS 'SELECT min(n) FROM unnest(numbers) n';
CREATE FUNCTION greatest_of(numbers float8[]) RETURNS float8 LANGUAGE sql AS 'SELECT max(n) FROM unnest(numbers) n';

SELECT results_eq($$SELECT axis, value, zone, part FROM tessara_grid_lines('GEODEZ', 47, 10, 48, 12, 0.5)$$,
                  $$VALUES ('east', 10::float8, NULL::int, 1), ('east', 10.5, NULL, 1), ('east', 11, NULL, 1), ('east', 11.5, NULL, 1), ('east', 12, NULL, 1),
                           ('north', 47, NULL, 1), ('north', 47.5, NULL, 1), ('north', 48, NULL, 1)$$,
                  'meridians and parallels, at multiples of the step');
SELECT results_eq($$SELECT axis, count(*) FROM tessara_grid_lines('GEODEZ', 47, 10, 48, 12, 0.5, 0.25) GROUP BY axis ORDER BY axis$$,
                  $$VALUES ('east', 5::bigint), ('north', 5)$$, 'each axis has a step');
SELECT is((SELECT array_agg(label) FROM tessara_grid_lines('GEODEZ', 47, 10, 48, 11, 0.5) WHERE axis = 'east'),
          ARRAY['10.0°E', '10.5°E', '11.0°E'], 'labels name the value and its axis');
SELECT ok((SELECT bool_and(isopen(line) AND greatest_of(longitudes(line)) - least_of(longitudes(line)) < 1e-12 AND least_of(latitudes(line)) = 47 AND greatest_of(latitudes(line)) = 48)
           FROM tessara_grid_lines('GEODEZ', 47, 10, 48, 12, 0.5) WHERE axis = 'east'), 'meridians run through the window');

-- A line of UTM has the easting that it is called by: within a 16000th of the window, 4 degrees wide.
CREATE TEMP TABLE utm AS SELECT * FROM tessara_grid_lines('UTM', 46, 10, 50, 14, 50000);
SELECT cmp_ok((SELECT max(abs(tessara_utm_easting(lat, lon, zone) - value))
               FROM (SELECT value, zone, unnest(latitudes(line)) AS lat, unnest(longitudes(line)) AS lon FROM utm WHERE axis = 'east') p),
              '<', 4 * 111320 / 16000.0::float8, 'eastings');
SELECT cmp_ok((SELECT max(abs(tessara_utm_northing(lat, lon) - value))
               FROM (SELECT value, unnest(latitudes(line)) AS lat, unnest(longitudes(line)) AS lon FROM utm WHERE axis = 'north') p),
              '<', 4 * 111320 / 16000.0::float8, 'northings');
SELECT is((SELECT array_agg(DISTINCT zone ORDER BY zone) FROM utm WHERE axis = 'east'), ARRAY[32, 33], 'of two zones');
SELECT is((SELECT count(*) FROM utm WHERE axis = 'north' AND zone IS NOT NULL), 0::bigint, 'a line through several zones has none');
SELECT is((SELECT count(*) FROM tessara_grid_lines('UTM', -60, 6, 60, 12, 100000) WHERE axis = 'east'), 7::bigint,
          'a zone is 668 km wide at the equator');

-- The origin of the Swiss grid, 600000 and 200000, is the old observatory of Berne at 7°26'22.50" E on CH1903.
SELECT is((SELECT array_agg(value ORDER BY axis) FROM tessara_grid_lines('CH@CH1903', 46.9, 7.4, 47, 7.5, 100000)), ARRAY[600000, 200000]::float8[], 'CH@CH1903');
SELECT is((SELECT count(*) FROM tessara_grid_lines('CH@CH1903', -40, 100, -39, 101, 1000)), 0::bigint, 'no lines outside a system');

SELECT results_eq($$SELECT west_zone, east_zone, part, round(least_of(longitudes(line))::numeric, 6), round(greatest_of(longitudes(line))::numeric, 6)
                    FROM tessara_zone_borders('UTM', 48, 5, 49, 13)$$,
                  $$VALUES (31, 32, 1, 6.000000, 6.000000), (32, 33, 1, 12.000000, 12.000000)$$, 'borders are meridians');
SELECT results_eq($$SELECT west_zone, east_zone FROM tessara_zone_borders('GK', 48, 7, 49, 14)$$, $$VALUES (2, 3), (3, 4), (4, 5)$$,
                  'strips of three degrees have theirs at 7.5, 10.5 and 13.5 degrees');
SELECT results_eq($$SELECT west_zone, east_zone, round(least_of(longitudes(line))) FROM tessara_zone_borders('UTM', 10, 179, 11, -179)$$,
                  $$VALUES (60, 1, 180::float8)$$, 'across the date line');

SELECT throws_ok($$SELECT * FROM tessara_grid_lines('UTM', 49, 10, 47, 12, 1000)$$, '22023', NULL, 'no latitudes');
SELECT throws_ok($$SELECT * FROM tessara_grid_lines('UTM', 47, 10, 49, 'NaN', 1000)$$, '22023', NULL, 'no longitudes');
SELECT throws_ok($$SELECT * FROM tessara_grid_lines('UTM', 47, 10, 49, 12, 0)$$, '22023', 'invalid step ''0''; expected a number above 0', 'no step');
SELECT throws_ok($$SELECT * FROM tessara_grid_lines('UTM', 47, 10, 49, 12, 1000, -1)$$, '22023', 'invalid step ''-1''; expected a number above 0', 'no step to the north');
SELECT throws_ok($$SELECT * FROM tessara_grid_lines('UTM', 47, 10, 49, 12, 1)$$, '22023',
                 'the window has more than 2000 lines of UTM@WGS84 with this step', 'too many lines');
SELECT throws_ok($$SELECT * FROM tessara_grid_lines('ECEF', 47, 10, 49, 12, 1000)$$, '22023', 'ECEF has no grid lines', 'no grid');
SELECT throws_ok($$SELECT * FROM tessara_zone_borders('CH', 47, 10, 49, 12)$$, '22023', 'CH has no zones', 'no zones');

-- Windows at random, in any system and with any step: rows or an error of an argument.
CREATE FUNCTION has_answer(name text, south float8, west float8, north float8, east float8, step float8) RETURNS boolean LANGUAGE plpgsql AS $$
BEGIN
    PERFORM count(line) FROM tessara_grid_lines(name::tessara_reference, south, west, north, east, step);
    PERFORM count(line) FROM tessara_zone_borders(name::tessara_reference, south, west, north, east);
    RETURN true;
EXCEPTION WHEN invalid_parameter_value THEN RETURN true;
END $$;
SELECT setseed(0.7);
SELECT is((SELECT count(*) FROM (SELECT (array_remove(array_agg(name), 'LAMBERTCC'))[1 + i % 22] AS name, i FROM tessara_systems(), generate_series(1, 400) i GROUP BY i) s,
               LATERAL (SELECT random() * 184 - 92 + 0 * i AS south, random() * 400 - 200 AS west, 10 ^ (random() * 14 - 9 + 0 * i) AS size) w
           WHERE NOT has_answer(name, south, west, south + size * 0.7, west + size, size * CASE WHEN name LIKE 'GEO%' THEN 0.1 ELSE 1e4 END)),
          0::bigint, 'windows at random');
SELECT * FROM finish();
ROLLBACK;
