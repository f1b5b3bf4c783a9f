-- Wrong values of every argument of every function, NULL, and garbage: a result or an error that says what is wrong.
\set ON_ERROR_STOP on
BEGIN;
SELECT plan(13);

CREATE TEMP TABLE functions AS
SELECT p.oid, p.proname AS name, p.proargtypes::oid[] AS types, p.provolatile, p.proisstrict, p.proparallel, p.procost, p.proretset
FROM pg_proc p JOIN pg_depend d ON d.objid = p.oid AND d.deptype = 'e' JOIN pg_extension e ON e.oid = d.refobjid
WHERE e.extname = 'tessara' AND d.classid = 'pg_proc'::regclass;

SELECT is((SELECT array_agg(name ORDER BY name) FROM functions WHERE provolatile <> 'i' OR NOT proisstrict OR proparallel <> 's' OR procost < 1),
          NULL, 'functions are immutable, strict and safe in parallel');
SELECT cmp_ok((SELECT count(*) FROM functions), '>', 100::bigint, 'there are functions');

-- Of each type a value that is right for most functions.
CREATE TEMP TABLE harmless (type regtype, value text);
INSERT INTO harmless VALUES
    ('float8', '48.1'), ('int4', '10'), ('text', 'WGS84'), ('cstring', '48 11'), ('float8[]', '{48,49}'), ('int8', '7'), ('point', '(11,48)'),
    ('tessara_reference', 'UTM'), ('tessara_gridref', '32UPU916348'), ('tessara_position', '48 11');
CREATE TEMP TABLE wrong (type regtype, value text);
INSERT INTO wrong VALUES
    ('float8', 'NaN'), ('float8', 'Infinity'), ('float8', '-Infinity'), ('float8', '1e308'), ('float8', '-1e308'), ('float8', '91'),
    ('float8', '-90'), ('float8', '360.0000001'), ('float8', '0'), ('float8', '-0'), ('float8', '5e-324'), ('float8', '48.1'),
    ('int4', '0'), ('int4', '-1'), ('int4', '61'), ('int4', '33'), ('int4', '100'), ('int4', '2147483647'), ('int4', '-2147483648'),
    ('text', ''), ('text', ' '), ('text', '((('), ('text', 'WGS84'), ('text', repeat('9', 5000)), ('text', repeat('48 ', 3000)), ('text', 'ü°′″ 中'),
    ('text', '%s%n'), ('text', '32UPU'), ('text', 'easting'),
    ('cstring', ''), ('cstring', '%'), ('cstring', 'GEODEZ@WGS84('), ('cstring', '(,,,)'), ('cstring', 'UTM'), ('cstring', repeat('A', 3000)),
    ('float8[]', '{}'), ('float8[]', '{NaN,NULL}'), ('float8[]', '{{1,2},{3,4}}'), ('float8[]', '{1e308,48}'), ('float8[]', '[5:6]={48,49}'),
    ('int8', '0'), ('int8', '-1'), ('point', '(1,2)'), ('point', '(NaN,Infinity)'),
    ('tessara_reference', 'UTM'), ('tessara_reference', 'UTMREF@GER'), ('tessara_reference', 'ECEF'), ('tessara_reference', 'GEOREF'),
    ('tessara_reference', 'UPS'), ('tessara_reference', 'BMN@MGI'), ('tessara_reference', 'TM:k=0.5'), ('tessara_reference', 'GK:strip=60'),
    ('tessara_gridref', '32UPU'), ('tessara_gridref', '1CDM1234567890'), ('tessara_position', '48 11'), ('tessara_position', '-90 0'),
    ('tessara_position', 'ECEF@WGS84(6378137, 0, 0)');
INSERT INTO wrong SELECT type, NULL FROM (SELECT DISTINCT type FROM wrong) t;

-- Calls each function with all values in one place and harmless ones in the others.
CREATE FUNCTION call_all(OUT calls int, OUT failures text[]) LANGUAGE plpgsql AS $$
DECLARE f record; k int; j int; v record; arguments text; other text; found text;
BEGIN
    calls := 0;
    FOR f IN SELECT * FROM functions WHERE 2281 <> ALL (types) LOOP  -- internal
        FOR k IN 1 .. cardinality(f.types) LOOP
            FOR v IN SELECT value FROM wrong WHERE type = (f.types)[k - 1] LOOP
                arguments := '';
                FOR j IN 1 .. cardinality(f.types) LOOP
                    SELECT value INTO STRICT other FROM harmless WHERE type = (f.types)[j - 1];
                    arguments := arguments || CASE WHEN j > 1 THEN ', ' ELSE '' END ||
                        format('%L::%s', CASE WHEN j = k THEN v.value ELSE other END, (f.types)[j - 1]::regtype);
                END LOOP;
                calls := calls + 1;
                BEGIN
                    EXECUTE format('SELECT (t)::text FROM %I(%s) t', f.name, arguments) INTO found;
                    IF v.value IS NULL AND coalesce(translate(found, '(,)', ''), '') <> '' THEN failures := failures || (f.name || ' of NULL is ' || found); END IF;
                EXCEPTION WHEN numeric_value_out_of_range OR invalid_text_representation OR invalid_parameter_value OR array_subscript_error THEN NULL;
                WHEN OTHERS THEN failures := failures || format('%s(%s): %s %s', f.name, left(arguments, 80), SQLSTATE, SQLERRM);
                END;
            END LOOP;
        END LOOP;
    END LOOP;
END $$;
SELECT calls, coalesce(array_to_string(failures, E'\n'), '') AS failures FROM call_all() \gset
SELECT cmp_ok(:calls, '>', 1000, 'functions were called');
SELECT is(:'failures'::text, '', 'each call gives a result, NULL for NULL, or an error for its input');

-- 10 000 garbage texts: bytes at random, and positions with a few characters changed.
SELECT setseed(0.1);
CREATE TEMP TABLE garbage AS
SELECT string_agg(substr(E' 0123456789ABCUNPSEW.,:;()@+-°\'"ä中\t\n', 1 + floor(random() * 38)::int, 1), '') AS typed
FROM generate_series(1, 5000) i, generate_series(1, 1 + i % 30) GROUP BY i;
INSERT INTO garbage
SELECT overlay(typed PLACING chr(33 + floor(random() * 90)::int) FROM 1 + floor(random() * length(typed))::int FOR floor(random() * 3)::int)
FROM generate_series(1, 500), unnest(ARRAY['32UPU9160334791', '48.1375 11.5755', 'N 48 8.25 E 11 34.53', '48°08''15"N 11°34''31.8"E', 'UTM@WGS84(32, N, 691602.5, 5334791)',
    'GEODEZ@WGS84(48, 11)', '32 N 691602 5334791', 'ECEF@WGS84(4177951, 855748, 4727480)', 'NKMD3453 0825', 'TQ 30107 79953']) typed;
SELECT is((SELECT count(*) FROM garbage), 10000::bigint, 'there are 10 000 texts');
SELECT is((SELECT count(*) FROM garbage WHERE (tessara_check(typed)).is_position <> (tessara_parse_or_null(typed) IS NOT NULL)),
          0::bigint, 'a text is a position if the check says so');
SELECT is((SELECT count(*) FROM garbage, tessara_check(typed) c
           WHERE NOT c.is_position AND (c.code = '' OR c.reason = '' OR c.piece IS NOT NULL AND substr(typed, c.piece_at, length(c.piece)) <> c.piece)),
          0::bigint, 'what is none has a reason, and its piece is in the text');
-- Input functions: an error of the text, or a value whose text is read back.
CREATE FUNCTION is_read(typed text) RETURNS boolean LANGUAGE plpgsql AS $$
DECLARE p tessara_position; g tessara_gridref; r tessara_reference;
BEGIN
    BEGIN p := typed::tessara_position; IF p::text::tessara_position <> p THEN RETURN false; END IF;
    EXCEPTION WHEN invalid_text_representation OR invalid_parameter_value THEN NULL; END;
    BEGIN g := typed::tessara_gridref; IF g::text::tessara_gridref <> g THEN RETURN false; END IF;
    EXCEPTION WHEN invalid_text_representation THEN NULL; END;
    BEGIN r := typed::tessara_reference; EXCEPTION WHEN invalid_parameter_value THEN NULL; END;
    RETURN true;
END $$;
SELECT is((SELECT count(*) FROM garbage WHERE NOT is_read(typed)), 0::bigint, 'input functions take or refuse them');

-- Each function with 10 000 rows of numbers and texts at random. One that has a variant for NULL is called in that variant;
-- rows that end in an error are tried one by one.
CREATE FUNCTION extreme() RETURNS float8 LANGUAGE sql VOLATILE AS $$
    SELECT CASE floor(random() * 8)::int
        WHEN 0 THEN (ARRAY['NaN', 'Infinity', '-Infinity', '1.7976931348623157e308', '-1.7976931348623157e308', '5e-324', '-0', '90', '-90', '180', '-180', '84', '-80'])[1 + floor(random() * 13)::int]::float8
        WHEN 1 THEN (random() - 0.5) * 10 ^ (random() * 600 - 300)
        WHEN 2 THEN (random() - 0.5) * 1e7
        WHEN 3 THEN round((random() * 720 - 360)::numeric / 90) * 90 + (floor(random() * 3) - 1) * 1e-13
        ELSE random() * 200 - 100
    END $$;
CREATE TEMP TABLE pool AS
SELECT row_number() OVER () AS id, typed, extreme() AS n1, extreme() AS n2, extreme() AS n3, extreme() AS n4, extreme() AS n5,
       tessara_gridref(random() * 158 - 79, random() * 360 - 180) AS gridref1, tessara_square(random() * 158 - 79, random() * 360 - 180, 1000) AS gridref2,
       tessara_convert(random() * 158 - 79, random() * 360 - 180, (ARRAY['UTM', 'UTMREF', 'GEOGRAD', 'GEOREF', 'ECEF', 'GEODEZ@GER', 'GK'])[1 + floor(random() * 7)::int]) AS place1,
       tessara_position(random() * 180 - 90, random() * 360 - 180) AS place2
FROM garbage;
CREATE FUNCTION argument_of(name text, type regtype, k int) RETURNS text LANGUAGE sql AS $$
    SELECT CASE type::text
        WHEN 'double precision' THEN 'n' || k
        WHEN 'double precision[]' THEN format('ARRAY[n%s, n%s, n5]', k, k + 2)
        WHEN 'integer' THEN '(ARRAY[1, 10])[1 + id % 2]'
        WHEN 'bigint' THEN 'id'
        WHEN 'text' THEN CASE WHEN name ~ '(distance|azimuth|way|direct)' THEN '(ARRAY[''GER'', ''WGS84''])[1 + id % 2]' ELSE 'typed' END
        WHEN 'cstring' THEN 'textout(typed)'
        WHEN 'point' THEN 'point(n1, n2)'
        WHEN 'tessara_reference' THEN '(ARRAY[''UTM'', ''GK@GER'', ''GEODEZ@GER'', ''CH@CH1903'', ''UPS'', ''RD@GER'', ''VDG''])[1 + id % 7]::tessara_reference'
        WHEN 'tessara_gridref' THEN 'gridref' || 1 + k % 2
        WHEN 'tessara_position' THEN 'place' || 1 + k % 2
    END $$;
CREATE FUNCTION call_at_random(OUT calls int, OUT one_by_one int, OUT failures text[]) LANGUAGE plpgsql AS $$
DECLARE f record; query text; found bigint; i int;
BEGIN
    calls := 0;
    one_by_one := 0;
    FOR f IN SELECT * FROM functions WHERE 2281 <> ALL (types) AND NOT proretset AND cardinality(types) > 0
             AND NOT EXISTS (SELECT 1 FROM functions n WHERE n.name = functions.name || '_or_null' AND n.types = functions.types) LOOP
        SELECT format('SELECT count(*) FILTER (WHERE %L AND found ~ ''NaN|Infinity'') FROM (SELECT (t)::text AS found FROM pool, LATERAL %I(%s) t WHERE id BETWEEN $1 AND $2 OFFSET 0) r',
                      701 = ANY (f.types), f.name, string_agg(argument_of(f.name, type, k::int), ', ' ORDER BY k))
        INTO query FROM unnest(f.types) WITH ORDINALITY u(type, k);
        calls := calls + 1;
        BEGIN
            EXECUTE query USING 1, 10000 INTO found;
            IF found > 0 THEN failures := failures || format('%s: %s results are no numbers', f.name, found); END IF;
        EXCEPTION WHEN numeric_value_out_of_range OR invalid_text_representation OR invalid_parameter_value THEN
            one_by_one := one_by_one + 1;
            FOR i IN 1 .. 10000 LOOP
                BEGIN
                    EXECUTE query USING i, i INTO found;
                    IF found > 0 THEN failures := failures || format('%s of row %s is no number', f.name, i); END IF;
                EXCEPTION WHEN numeric_value_out_of_range OR invalid_text_representation OR invalid_parameter_value THEN NULL;
                END;
            END LOOP;
        WHEN OTHERS THEN failures := failures || format('%s: %s %s', query, SQLSTATE, SQLERRM);
        END;
    END LOOP;
END $$;
CREATE UNIQUE INDEX ON pool (id);
ANALYZE pool;
SELECT calls, one_by_one, coalesce(array_to_string(failures[1:20], E'\n'), '') AS failures FROM call_at_random() \gset
SELECT cmp_ok(:calls, '>', 70, 'functions were called at random');
SELECT cmp_ok(:one_by_one, '<', 15, 'most have no rows with an error');
SELECT is(:'failures'::text, '', 'each row gives a finite result, NULL, or an error for its input');

-- Bytes at random, and those of positions with a few of them changed, as binary input.
SELECT current_setting('data_directory') || '/bytes' AS file \gset
CREATE TABLE some_bytes (bytes bytea);
CREATE TABLE some_positions (place tessara_position);
CREATE TABLE some_gridrefs (gridref tessara_gridref);
CREATE FUNCTION is_received(into_table text, sent bytea, file text) RETURNS boolean LANGUAGE plpgsql AS $$
BEGIN
    TRUNCATE some_bytes;
    INSERT INTO some_bytes VALUES (sent);
    EXECUTE format('COPY some_bytes TO %L (FORMAT binary)', file);
    EXECUTE format('COPY %I FROM %L (FORMAT binary)', into_table, file);
    RETURN true;
EXCEPTION WHEN invalid_binary_representation THEN RETURN false;
END $$;
CREATE TEMP TABLE sent AS
SELECT i, set_byte(set_byte(tessara_position_send(place), floor(random() * 8)::int, floor(random() * 4)::int), 8 + i % 24, floor(random() * 256)::int) AS position,
       int8send(floor(random() * 9e18)::bigint) AS gridref, tessara_gridref_send(tessara_gridref(random() * 80, random() * 170)) AS right_gridref
FROM generate_series(1, 400) i, LATERAL tessara_convert(random() * 80, random() * 170, (ARRAY['UTM', 'UTMREF', 'GEODEZ', 'GEOREF', 'ECEF'])[1 + i % 5]) AS place;
SELECT is((SELECT count(*) FILTER (WHERE is_received('some_gridrefs', right_gridref, :'file')) FROM sent)
          + (SELECT 0 * count(is_received('some_gridrefs', gridref, :'file')) + 0 * count(is_received('some_positions', position, :'file')) FROM sent),
          400::bigint, 'bytes are taken or refused');
SELECT is((SELECT count(*) FROM some_positions WHERE place::text::tessara_position <> place) + (SELECT count(*) FROM some_gridrefs WHERE gridref::text::tessara_gridref <> gridref),
          0::bigint, 'and those that are taken are positions');
SELECT * FROM finish();
ROLLBACK;
