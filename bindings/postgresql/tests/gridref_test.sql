-- The type tessara_gridref: texts, order, squares, indexes.
\set ON_ERROR_STOP on
BEGIN;
SELECT plan(27);
SELECT setseed(0.25);

CREATE TEMP TABLE places AS
SELECT i AS id, random() * 163 - 79.5 AS lat, random() * 359.8 - 179.9 AS lon FROM generate_series(1, 20000) i;

-- Spellings.
SELECT is(spelling::tessara_gridref::text, '32UPU9160334791', spelling)
FROM unnest(ARRAY['32UPU9160334791', '32U PU 91603 34791', '32upu9160334791']) spelling;
SELECT is('32UPU9134'::tessara_gridref::text, '32UPU9134', 'a square keeps its digits');
SELECT is(array_agg(tessara_side(g)), ARRAY[100000, 10000, 1000, 100, 10, 1], 'sides of squares')
FROM unnest('{32UPU,32UPU93,32UPU9134,32UPU916347,32UPU91603479,32UPU9160334791}'::tessara_gridref[]) g;
SELECT throws_ok($$SELECT '32IPU9160334791'::tessara_gridref$$, '22P02', NULL, 'a letter that no band has');
SELECT throws_ok($$SELECT ''::tessara_gridref$$, '22P02', NULL, 'no text');
SELECT throws_ok($$SELECT '32UPU916'::tessara_gridref$$, '22P02', NULL, 'digits that can''t be divided');
SELECT throws_ok($$SELECT '48.1 11.5'::tessara_gridref$$, '22P02', NULL, 'degrees');
SELECT throws_ok($$SELECT tessara_square(48.1, 11.5, 7)$$, '22023', 'there are no squares of 7 m', 'no such side');

-- What is written is read back, as text and as bytes.
CREATE TEMP TABLE written AS
SELECT id, tessara_square(lat, lon, side) AS square FROM places, unnest(ARRAY[1, 100, 10000, 100000]) side WHERE id <= 1000;
SELECT is((SELECT count(*) FROM written WHERE square::text::tessara_gridref <> square), 0::bigint, 'texts are read back');
SELECT current_setting('data_directory') || '/gridrefs' AS file \gset
COPY written TO :'file' (FORMAT binary);
CREATE TEMP TABLE read (LIKE written);
COPY read FROM :'file' (FORMAT binary);
SELECT is((SELECT count(*) FROM (TABLE written EXCEPT TABLE read) d), 0::bigint, 'bytes are read back');

-- A position lies in its squares, and a square in the larger ones.
SELECT is((SELECT count(*) FROM places WHERE NOT tessara_square(lat, lon, 1) <@ tessara_square(lat, lon, 1000)
              OR NOT tessara_square(lat, lon, 100000) @> tessara_square(lat, lon, 10)
              OR tessara_square(lat, lon, 10) @> tessara_square(lat, lon, 100)),
          0::bigint, 'squares contain the finer squares of a position');
SELECT is((SELECT count(*) FROM places, unnest(ARRAY[10, 100, 1000, 10000, 100000]) side
           WHERE tessara_square(tessara_square(lat, lon, 1), side) <> tessara_square(lat, lon, side)),
          0::bigint, 'the larger square around a square is that of the position');
-- Containment by the digits, apart from how the numbers are made.
SELECT is((SELECT count(*) FROM places a, places b, unnest(ARRAY[1, 2, 3]) n,
                LATERAL tessara_square(a.lat, a.lon, (10 ^ (5 - n))::int) AS square, LATERAL tessara_square(b.lat, 9, 1) AS place,
                LATERAL (SELECT square::text AS s, place::text AS p) t
           WHERE a.id <= 100 AND b.id <= 100
             AND (place <@ square) <> (left(p, -10) = left(s, -2 * n) AND left(right(p, 10), n) = left(right(s, 2 * n), n)
                                       AND left(right(p, 5), n) = right(s, n))),
          0::bigint, 'containment is that of the letters and leading digits');

-- Order.
SELECT is((SELECT string_agg(g::text, ' ' ORDER BY g)
           FROM unnest('{32UPU94,9CVP,32UPU9160334791,32UPU,32UPU93,32TPU,32UPU9030,1CDM}'::tessara_gridref[]) g),
          '1CDM 9CVP 32TPU 32UPU 32UPU93 32UPU9030 32UPU9160334791 32UPU94',
          'the order is that of zones, bands and squares, a square before what lies in it');
SELECT is((SELECT count(*) FROM (SELECT square, lag(square) OVER (ORDER BY square) AS before FROM written) o
           WHERE before > square OR (before = square) <> (before::text = square::text)),
          0::bigint, 'sorting and comparing agree');

-- LIKE goes by the text.
SELECT is((SELECT count(*) FROM written WHERE (square LIKE '3_U%1') <> (square::text LIKE '3_U%1')), 0::bigint, 'LIKE goes by the text');
SELECT ok('32UPU93'::tessara_gridref LIKE '32UPU__', 'LIKE with letters');
SELECT ok('32UPU93'::tessara_gridref NOT LIKE '32UPU', 'LIKE wants the whole text');
SELECT ok('32UPU93'::tessara_gridref LIKE '%%%', 'LIKE with nothing but percent signs');

-- Indexes on expressions.
CREATE TABLE cells (id int, lat float8, lon float8);
INSERT INTO cells TABLE places;
CREATE INDEX ON cells (tessara_square(lat, lon, 10000));
CREATE INDEX ON cells USING hash (tessara_gridref(lat, lon));
ANALYZE cells;
CREATE FUNCTION plan_of(query text) RETURNS text LANGUAGE plpgsql AS $$
DECLARE line text; plan text := '';
BEGIN
    FOR line IN EXECUTE 'EXPLAIN (COSTS OFF) ' || query LOOP plan := plan || line || E'\n'; END LOOP;
    RETURN plan;
END $$;
SELECT matches(plan_of($$SELECT * FROM cells WHERE tessara_square(lat, lon, 10000) = '32UPU93'$$),
               'cells_tessara_square_idx', 'the planner uses the index of a square');
SELECT matches(plan_of($$SELECT * FROM cells WHERE tessara_square(lat, lon, 10000) <@ '32UPU'$$),
               'Index Cond: .*>= ''32UPU''.*<= ''32UPU9999999999''', 'and of the squares in a larger one, as a range');
SELECT matches(plan_of($$SELECT * FROM cells WHERE '32UPU' @> tessara_square(lat, lon, 10000)$$),
               'Index Cond: .*>= ''32UPU''.*<= ''32UPU9999999999''', 'from the other side, too');
SELECT matches(plan_of($$SELECT * FROM cells WHERE tessara_gridref(lat, lon) = '32UPU9160334791'$$),
               'cells_tessara_gridref_idx', 'and the hash index of a reference');
-- Whichever way they are found, the rows are the same.
CREATE TEMP TABLE squares AS SELECT DISTINCT tessara_square(lat, lon, 100000) AS square FROM cells WHERE id <= 300;
CREATE FUNCTION rows_in(square tessara_gridref) RETURNS int[] LANGUAGE plpgsql AS $$
DECLARE ids int[];
BEGIN
    EXECUTE format('SELECT array_agg(id ORDER BY id) FROM cells WHERE tessara_square(lat, lon, 10000) <@ %L', square) INTO ids;
    RETURN ids;
END $$;
CREATE TEMP TABLE by_index AS SELECT square, rows_in(square) AS ids FROM squares;
SET LOCAL enable_indexscan = off; SET LOCAL enable_bitmapscan = off; SET LOCAL enable_indexonlyscan = off;
SELECT is((SELECT count(*) FROM by_index WHERE ids IS DISTINCT FROM rows_in(square) OR cardinality(ids) = 0), 0::bigint,
          'an index finds the rows that a scan finds');
SELECT results_eq($$SELECT tessara_square(lat, lon, 100000)::text, count(*) FROM cells GROUP BY 1 ORDER BY 1$$,
                  $$SELECT left(tessara_gridref_text, length(tessara_gridref_text) - 2), count(*)
                    FROM (SELECT tessara_square(lat, lon, 10000)::text AS tessara_gridref_text FROM cells) t GROUP BY 1 ORDER BY 1$$,
                  'grouping by squares hashes them');
SELECT * FROM finish();
ROLLBACK;
