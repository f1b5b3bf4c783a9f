-- Beside PostGIS: casts, and results that another program computes in the same query.
\set ON_ERROR_STOP on
BEGIN;
SET client_min_messages = warning;
CREATE EXTENSION postgis;
CREATE EXTENSION tessara_postgis;
SELECT plan(15);
SELECT setseed(0.3);

-- PROJ and the library compute transverse Mercator by different series; a millimetre is what a position has.
CREATE TEMP TABLE utm AS
SELECT lat, lon, ST_Transform(ST_SetSRID(ST_MakePoint(lon, lat), 4326), 32600 + tessara_utm_zone(lat, lon) + (lat < 0)::int * 100) AS point
FROM (SELECT random() * 163 - 79.5 AS lat, random() * 359 - 179.5 AS lon FROM generate_series(1, 20000)) p;
SELECT cmp_ok((SELECT max(greatest(abs(ST_X(point) - tessara_utm_easting(lat, lon)), abs(ST_Y(point) - tessara_utm_northing(lat, lon)))) FROM utm),
              '<', 0.001::float8, 'UTM is that of PostGIS');
CREATE TEMP TABLE dutch AS
SELECT lat, lon, ST_Transform(ST_SetSRID(ST_MakePoint(lon, lat), 4289), 28992) AS point
FROM (SELECT random() * 3 + 51 AS lat, random() * 3 + 3.5 AS lon FROM generate_series(1, 1000)) p;
-- EPSG 28992 has its origin at 155000, 463000 on a Bessel ellipsoid; the shift to WGS84 isn't part of it.
SELECT cmp_ok((SELECT max(greatest(abs(ST_X(point) - tessara_east(lat, lon, 'GEODEZ@GER', 'RD@GER')),
                                   abs(ST_Y(point) - tessara_north(lat, lon, 'GEODEZ@GER', 'RD@GER')))) FROM dutch),
              '<', 0.001::float8, 'the Dutch grid is that of PostGIS');
-- Geodesics by GeographicLib's series, within PostGIS.
SELECT cmp_ok((SELECT max(abs(ST_Distance(ST_MakePoint(a.lon, a.lat)::geography, ST_MakePoint(b.lon, b.lat)::geography) -
                              tessara_distance(a.lat, a.lon, b.lat, b.lon)))
               FROM (SELECT * FROM utm LIMIT 100) a, (SELECT * FROM utm OFFSET 100 LIMIT 100) b
               WHERE abs(a.lat + b.lat) > 5),
              '<', 0.001::float8, 'distances are those of PostGIS');

SELECT is(ST_AsText('48.25 11.5'::tessara_position::geometry), 'POINT(11.5 48.25)', 'to a geometry');
SELECT is(ST_SRID('48.25 11.5'::tessara_position::geometry), 4326, 'on WGS84');
SELECT is(ST_AsText('48.25 11.5'::tessara_position::geography), 'POINT(11.5 48.25)', 'to a geography');
SELECT is(ST_SetSRID(ST_MakePoint(11.5, 48.25), 4326)::tessara_position::text, 'GEODEZ@WGS84(48.25, 11.5)', 'from a geometry');
SELECT is(ST_MakePoint(11.5, 48.25)::geography::tessara_position::text, 'GEODEZ@WGS84(48.25, 11.5)', 'from a geography');
SELECT cmp_ok((SELECT max(tessara_distance(point::tessara_position, tessara_position(lat, lon))) FROM utm),
              '<', 0.001::float8, 'from a geometry in UTM');
SELECT is(ST_GeomFromText('POINT EMPTY', 4326)::tessara_position, NULL, 'an empty point is nowhere');
SELECT throws_like($$SELECT ST_MakePoint(11.5, 48.25)::tessara_position$$, '%SRID%', 'a geometry without a system');
SELECT throws_like($$SELECT ST_GeomFromText('LINESTRING(11 48, 12 49)', 4326)::tessara_position$$, '%POINT%', 'a line');
SELECT throws_ok($$SELECT ST_SetSRID(ST_MakePoint(11, 91), 4326)::tessara_position$$, NULL, NULL, 'beyond the pole');
SELECT is((SELECT ST_AsText(tessara_geometry(line), 6) FROM tessara_grid_lines('GEODEZ', 47, 10.5, 48, 11.5, 1) WHERE axis = 'east'), 'LINESTRING(11 48,11 47)',
          'a grid line');
SELECT is((SELECT ST_AsEWKT(tessara_geometry(line), 6) FROM tessara_zone_borders('UTM', 47, 11, 48, 13)), 'SRID=4326;LINESTRING(12 48,12 47)', 'a zone border');
SELECT * FROM finish();
ROLLBACK;
