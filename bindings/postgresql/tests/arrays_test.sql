-- Arrays beside the same functions of single positions.
\set ON_ERROR_STOP on
BEGIN;
SELECT plan(16);
SELECT setseed(0.75);

CREATE TEMP TABLE places AS
SELECT i AS id, random() * 163 - 79.5 AS lat, random() * 359 - 179.5 AS lon FROM generate_series(1, 150000) i;
CREATE TEMP TABLE arrays AS SELECT array_agg(lat ORDER BY id) AS lats, array_agg(lon ORDER BY id) AS lons FROM places;

-- The message and the innermost place of an error.
CREATE FUNCTION error_of(query text) RETURNS text LANGUAGE plpgsql AS $$
DECLARE message text; context text;
BEGIN
    EXECUTE query;
    RETURN '';
EXCEPTION WHEN OTHERS THEN
    GET STACKED DIAGNOSTICS message = MESSAGE_TEXT, context = PG_EXCEPTION_CONTEXT;
    RETURN message || '; ' || split_part(context, E'\n', 1);
END $$;

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
SELECT is(error_of($$SELECT tessara_convert_array('{48, 49, 91, 92}', '{11, 12, 13, 14}', 'UTM')$$), 'position (91, 13) has no result; element 3 of the arrays', 'an error names the element');
SELECT is(error_of($$SELECT tessara_gridref_array('{48, NULL, 91}', '{11, 12, 13}')$$), 'position (91, 13) has no result; element 3 of the arrays', 'of references, too');
SELECT is(error_of($$SELECT tessara_convert_array('{NULL, 91}', '{11, 12}', 'UTM')$$), 'position (91, 12) has no result; element 2 of the arrays', 'NULL is no error');
SELECT is((tessara_convert_array_or_null('{48, 91}', '{11, 12}', 'UTM')).zones, '{32,NULL}', 'or NULL');
SELECT is(tessara_square_array_or_null('{48, 91, NaN}', '{11, 12, 1}', 100000)::text, '{32UPU,NULL,NULL}', 'or NULL for squares');
SELECT throws_ok($$SELECT tessara_convert_array('{48, 49}', '{11}', 'UTM')$$, '2202E', NULL, 'lengths differ');
SELECT throws_ok($$SELECT tessara_convert_array('{{48}, {49}}', '{{11}, {12}}', 'UTM')$$, '2202E', NULL, 'more than one dimension');
SELECT throws_ok($$SELECT tessara_convert_array('{48}', '{11}', 'UTMREF')$$, '22023', NULL, 'references aren''t two numbers');
SELECT throws_ok($$SELECT tessara_square_array('{48}', '{11}', 8)$$, '22023', NULL, 'no such side');
SELECT throws_ok($$SELECT tessara_square_array_or_null('{48}', '{11}', 8)$$, '22023', NULL, 'which NULL doesn''t hide');
SELECT * FROM finish();
ROLLBACK;
