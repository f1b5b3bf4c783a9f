-- Arrays beside the same functions of single positions.
\set ON_ERROR_STOP on
BEGIN;
SELECT plan(16);
SELECT setseed(0.75);

CREATE TEMP TABLE places AS
SELECT i AS id, random() * 163 - 79.5 AS lat, random() * 359 - 179.5 AS lon FROM generate_series(1, 150000) i;
CREATE TEMP TABLE arrays AS SELECT array_agg(lat ORDER BY id) AS lats, array_agg(lon ORDER BY id) AS lons FROM places;

SELECT is((SELECT count(*) FROM arrays, tessara_convert_array(lats, lons, 'UTM') c,
                  unnest(c.norths, c.easts, c.zones) WITH ORDINALITY u(north, east, zone, id) JOIN places p USING (id)
           WHERE u IS NOT DISTINCT FROM ROW(tessara_utm_northing(lat, lon), tessara_utm_easting(lat, lon), tessara_utm_zone(lat, lon), id)),
          150000::bigint, 'arrays have the bits of single positions');
SELECT is((SELECT count(*) FROM arrays, unnest(tessara_gridref_array(lats, lons), tessara_square_array(lats, lons, 100)) WITH ORDINALITY u(metre, hundred, id)
           JOIN places USING (id) WHERE metre = tessara_gridref(lat, lon) AND hundred = tessara_square(lat, lon, 100)),
          150000::bigint, 'and so have arrays of references');
SELECT is(tessara_convert_array('{}', '{}', 'UTM'), ROW('{}'::float8[], '{}'::float8[], '{}'::int[]), 'nothing gives nothing');
SELECT is((tessara_convert_array('{47}', '{8}', 'CH@CH1903')).zones, NULL, 'a system without zones has none');
SELECT is((tessara_convert_array('{48, NULL, 49}', '{11, 12, NULL}', 'UTM')).zones, '{32,NULL,NULL}', 'NULL gives NULL');
SELECT is(tessara_gridref_array('{48, NULL}', '{11, 12}')::text, '{32UPU4918818236,NULL}', 'NULL gives no reference');
SELECT throws_like($$SELECT tessara_convert_array('{48, 49, 91, 92}', '{11, 12, 13, 14}', 'UTM')$$, '%(91, 13)%element 3%', 'an error names the element');
SELECT throws_like($$SELECT tessara_gridref_array('{48, NULL, 91}', '{11, 12, 13}')$$, '%(91, 13)%element 3%', 'of references, too');
SELECT throws_like($$SELECT tessara_convert_array('{NULL, 91}', '{11, 12}', 'UTM')$$, '%(91, 12)%element 2%', 'NULL is no error');
SELECT is((tessara_convert_array_or_null('{48, 91}', '{11, 12}', 'UTM')).zones, '{32,NULL}', 'or NULL');
SELECT is(tessara_square_array_or_null('{48, 91, NaN}', '{11, 12, 1}', 100000)::text, '{32UPU,NULL,NULL}', 'or NULL for squares');
SELECT throws_ok($$SELECT tessara_convert_array('{48, 49}', '{11}', 'UTM')$$, '2202E', NULL, 'lengths differ');
SELECT throws_ok($$SELECT tessara_convert_array('{{48}, {49}}', '{{11}, {12}}', 'UTM')$$, '2202E', NULL, 'more than one dimension');
SELECT throws_ok($$SELECT tessara_convert_array('{48}', '{11}', 'UTMREF')$$, '22023', NULL, 'references aren''t two numbers');
SELECT throws_ok($$SELECT tessara_square_array('{48}', '{11}', 8)$$, '22023', NULL, 'no such side');
SELECT throws_ok($$SELECT tessara_square_array_or_null('{48}', '{11}', 8)$$, '22023', NULL, 'which NULL doesn''t hide');
SELECT * FROM finish();
ROLLBACK;
