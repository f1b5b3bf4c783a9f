-- Random statements with the functions, operators, casts and types of the extension; tests/fuzz.sh runs them.
\set ON_ERROR_STOP on
CREATE SCHEMA fuzz;

CREATE FUNCTION fuzz.one_of(choices text[]) RETURNS text LANGUAGE sql VOLATILE AS $$
    SELECT choices[1 + floor(random() * cardinality(choices))::int] $$;
CREATE FUNCTION fuzz.below(count int) RETURNS int LANGUAGE sql VOLATILE AS $$ SELECT floor(random() * count)::int $$;

CREATE FUNCTION fuzz.typed() RETURNS text LANGUAGE plpgsql VOLATILE AS $$
DECLARE made text;
BEGIN
    made := fuzz.one_of(ARRAY['32UPU9160334791', '32UPU916348', '32UPU', '48.1375 11.5755', '48.1375, 11.5755', 'N 48 8.25 E 11 34.53', '48°08''15"N 11°34''31.8"E', 'UTM@WGS84(32, N, 691602.5, 5334791)',
        'GEODEZ@WGS84(48, 11)', '32 N 691602 5334791', '32U 691602 5334791', 'ECEF@WGS84(4177951, 855748, 4727480)', 'NKMD3453 0825', 'TQ 30107 79953', 'UTM', 'GK@GER', 'TM:lon0=9,k=0.9996,fe=500000', 'UTM:zone=33',
        'CH@CH1903', 'GEODEZ@GER', 'BMN@MGI', 'UPS', 'RD', 'GEOREF', 'VDG', 'WGS84', 'GER', 'NAD27', 'easting', 'latitude', 'x', '', ' ', '1CDM1234567890', '60XVR', 'ZAH', '%', '32U%', '__']);
    CASE fuzz.below(6)
        WHEN 0 THEN made := overlay(made PLACING chr(33 + fuzz.below(90)) FROM 1 + fuzz.below(greatest(length(made), 1)) FOR fuzz.below(3));
        WHEN 1 THEN made := overlay(made PLACING fuzz.one_of(ARRAY['ä', '中', '\', '''', '"', '%', '(', ')', ',', '@', ':', '-', E'\t', E'\n', '1e999', 'NaN', '°', '😀']) FROM 1 + fuzz.below(greatest(length(made), 1)) FOR fuzz.below(2));
        WHEN 2 THEN made := made || fuzz.one_of(ARRAY[' ', '@', ':', '@GER', '0', '9999999999', ':zone=61', ':k=NaN', '()', '(1,2,3,4,5,6,7)']);
        WHEN 3 THEN IF fuzz.below(10) = 0 THEN made := repeat(made || fuzz.one_of(ARRAY['', ' ', ',']), 1 + fuzz.below(3000)); END IF;
        ELSE NULL;
    END CASE;
    RETURN made;
END $$;

CREATE FUNCTION fuzz.number() RETURNS float8 LANGUAGE sql VOLATILE AS $$
    SELECT CASE fuzz.below(8)
        WHEN 0 THEN fuzz.one_of(ARRAY['NaN', 'Infinity', '-Infinity', '1.7976931348623157e308', '-1.7976931348623157e308', '5e-324', '-0', '0', '90', '-90', '180', '-180', '84', '-80'])::float8
        WHEN 1 THEN (random() - 0.5) * 10 ^ (random() * 600 - 300)
        WHEN 2 THEN (random() - 0.5) * 2e7
        WHEN 3 THEN round((random() * 720 - 360)::numeric / 3)::float8 * 3 + (fuzz.below(3) - 1) * 1e-13
        WHEN 4 THEN random() * 360 - 180
        ELSE random() * 180 - 90
    END $$;

CREATE FUNCTION fuzz.numbers() RETURNS text LANGUAGE plpgsql VOLATILE AS $$
DECLARE items text;
BEGIN
    SELECT string_agg(CASE WHEN fuzz.below(9) = 0 THEN 'NULL' ELSE fuzz.number()::text END, ',') INTO items FROM generate_series(1, 1 + fuzz.below(4));
    RETURN CASE fuzz.below(8)
        WHEN 0 THEN '''{}''::float8[]'
        WHEN 1 THEN quote_literal('{{' || items || '},{' || items || '}}') || '::float8[]'
        WHEN 2 THEN format('array_fill(%L::float8, ARRAY[%s], ARRAY[%s])', fuzz.number(), 1 + fuzz.below(2000), fuzz.below(2000000) - 1000000)
        WHEN 3 THEN format('ARRAY[%L::float8, %L::float8]', fuzz.number(), fuzz.number())
        ELSE quote_literal('{' || items || '}') || '::float8[]'
    END;
END $$;

-- An expression with a random value of a type.
CREATE FUNCTION fuzz.value(type regtype) RETURNS text LANGUAGE plpgsql VOLATILE AS $$
BEGIN
    IF fuzz.below(25) = 0 THEN RETURN 'NULL::' || type; END IF;
    RETURN CASE type::text
        WHEN 'double precision' THEN format('%L::float8', fuzz.number())
        WHEN 'double precision[]' THEN fuzz.numbers()
        WHEN 'integer' THEN format('%L::int4', fuzz.one_of(ARRAY['1', '10', '100', '1000', '100000', '0', '-1', '61', '32', '2147483647', '-2147483648', fuzz.below(100)::text]))
        WHEN 'bigint' THEN format('%L::int8', fuzz.one_of(ARRAY['0', '-1', '9223372036854775807', '-9223372036854775808', fuzz.below(1000000)::text]))
        WHEN 'point' THEN format('point(%L, %L)', fuzz.number(), fuzz.number())
        WHEN 'tessara_gridref' THEN CASE fuzz.below(3)
            WHEN 0 THEN format('%L::tessara_gridref', fuzz.typed())
            WHEN 1 THEN format('tessara_square(%L, %L, %s)', random() * 180 - 90, random() * 360 - 180, fuzz.one_of(ARRAY['1', '10', '100', '1000', '10000', '100000']))
            ELSE format('(SELECT gridref FROM fuzz.gridrefs ORDER BY md5(gridref::text || %L) LIMIT 1)', fuzz.below(1000)) END
        WHEN 'tessara_position' THEN CASE fuzz.below(3)
            WHEN 0 THEN format('%L::tessara_position', fuzz.typed())
            WHEN 1 THEN format('tessara_convert(%L, %L, %L)', random() * 180 - 90, random() * 360 - 180, fuzz.one_of(ARRAY['UTM', 'UTMREF', 'GEODEZ@GER', 'ECEF', 'GEOREF', 'GK@GER', 'TM:lon0=9', 'UPS']))
            ELSE format('(SELECT place FROM fuzz.places ORDER BY md5(place::text || %L) LIMIT 1)', fuzz.below(1000)) END
        WHEN 'tessara_reference' THEN format('%L::tessara_reference', CASE WHEN fuzz.below(3) = 0 THEN fuzz.typed() ELSE
            fuzz.one_of(ARRAY['UTM', 'GK@GER', 'GEODEZ@GER', 'CH@CH1903', 'UPS', 'RD@GER', 'VDG', 'UTMREF', 'ECEF', 'GEOREF', 'TM:lon0=9', 'BMN', 'UTM:zone=33', 'GEOGRAD']) END)
        -- Texts of all types, and those of no type.
        ELSE format('%L::%s', fuzz.typed(), type)
    END;
END $$;

CREATE VIEW fuzz.functions AS
SELECT p.oid, p.proname AS name, p.proargtypes::oid[] AS types
FROM pg_proc p JOIN pg_depend d ON d.objid = p.oid AND d.deptype = 'e' JOIN pg_extension e ON e.oid = d.refobjid
WHERE e.extname = 'tessara' AND d.classid = 'pg_proc'::regclass AND 2281 <> ALL (p.proargtypes::oid[]);  -- internal

CREATE TABLE fuzz.calls AS SELECT name, types FROM fuzz.functions ORDER BY name, types::text;
CREATE TABLE fuzz.operators AS
SELECT o.oprname AS name, o.oprleft::regtype AS one, o.oprright::regtype AS other
FROM pg_operator o JOIN pg_depend d ON d.objid = o.oid AND d.deptype = 'e' AND d.classid = 'pg_operator'::regclass JOIN pg_extension e ON e.oid = d.refobjid
WHERE e.extname = 'tessara' ORDER BY o.oid;

CREATE TABLE fuzz.gridrefs AS SELECT tessara_square(random() * 158 - 79, random() * 360 - 180, (10 ^ (i % 6))::int) AS gridref FROM generate_series(1, 300) i;
CREATE INDEX ON fuzz.gridrefs (gridref);
CREATE TABLE fuzz.places AS SELECT tessara_convert(random() * 158 - 79, random() * 360 - 180, (ARRAY['UTM', 'UTMREF', 'GEODEZ', 'GEOREF', 'ECEF', 'TM:lon0=9,k=0.9996'])[1 + i % 6]) AS place FROM generate_series(1, 300) i;
CREATE INDEX ON fuzz.places (place);
ANALYZE;

CREATE FUNCTION fuzz.statement() RETURNS text LANGUAGE plpgsql VOLATILE AS $$
DECLARE call record; operator record; type text; arguments text;
BEGIN
    type := fuzz.one_of(ARRAY['tessara_gridref', 'tessara_position']);
    SELECT * INTO operator FROM fuzz.operators OFFSET fuzz.below((SELECT count(*) FROM fuzz.operators)::int) LIMIT 1;
    CASE fuzz.below(12)
        WHEN 0 THEN RETURN format('SELECT %s::text::%s', fuzz.value(type::regtype), type);
        WHEN 1 THEN RETURN format('SELECT array_agg(v ORDER BY v DESC)::text FROM unnest(ARRAY[%s, %s, %s]) v', fuzz.value(type::regtype), fuzz.value(type::regtype), fuzz.value(type::regtype));
        WHEN 2 THEN RETURN format('SELECT count(DISTINCT v)::text FROM unnest(ARRAY[%s, %s, %s]) v GROUP BY v', fuzz.value(type::regtype), fuzz.value(type::regtype), fuzz.value(type::regtype));
        WHEN 3 THEN RETURN format('SELECT (%s %s %s)::text', fuzz.value(operator.one), operator.name, fuzz.value(operator.other));
        WHEN 4 THEN IF type = 'tessara_gridref' THEN
                RETURN format('SELECT count(*)::text FROM fuzz.gridrefs WHERE gridref %s %s', operator.name, fuzz.value(CASE WHEN operator.other = 'tessara_position'::regtype THEN 'tessara_gridref' ELSE operator.other END));
            END IF;
            RETURN format('SELECT count(*)::text FROM fuzz.places WHERE place %s %s', fuzz.one_of(ARRAY['<', '<=', '=', '<>', '>', '>=']), fuzz.value('tessara_position'));
        WHEN 5 THEN RETURN format('SELECT (%s::%s)::text', fuzz.value(fuzz.one_of(ARRAY['tessara_gridref', 'tessara_position', 'point', 'text'])::regtype), fuzz.one_of(ARRAY['tessara_gridref', 'tessara_position', 'point', 'tessara_reference']));
        ELSE NULL;
    END CASE;
    SELECT * INTO call FROM fuzz.calls OFFSET fuzz.below((SELECT count(*) FROM fuzz.calls)::int) LIMIT 1;
    SELECT string_agg(fuzz.value(t), ', ' ORDER BY k) INTO arguments FROM unnest(call.types) WITH ORDINALITY u(t, k);
    RETURN format('SELECT (t)::text FROM %I(%s) t', call.name, arguments);
END $$;

CREATE TABLE fuzz.bytes (bytes bytea);
CREATE TABLE fuzz.received_gridrefs (value tessara_gridref);
CREATE TABLE fuzz.received_places (value tessara_position);

-- Sends bytes at random, or those of a value with some of them changed, as binary input. What is taken has a text that is read back.
CREATE FUNCTION fuzz.receive(file text) RETURNS void LANGUAGE plpgsql AS $$
DECLARE sent bytea; target text; same bigint;
BEGIN
    target := fuzz.one_of(ARRAY['received_gridrefs', 'received_places']);
    IF target = 'received_gridrefs' THEN sent := tessara_gridref_send(gridref) FROM fuzz.gridrefs OFFSET fuzz.below(300) LIMIT 1;
    ELSE sent := tessara_position_send(place) FROM fuzz.places OFFSET fuzz.below(300) LIMIT 1; END IF;
    FOR i IN 1 .. fuzz.below(4) LOOP
        sent := set_byte(sent, fuzz.below(length(sent)), fuzz.below(256));
    END LOOP;
    IF fuzz.below(10) = 0 THEN sent := substr(sent, 1, fuzz.below(length(sent))); END IF;
    IF fuzz.below(10) = 0 THEN sent := sent || sent; END IF;
    TRUNCATE fuzz.bytes, fuzz.received_gridrefs, fuzz.received_places;
    INSERT INTO fuzz.bytes VALUES (sent);
    EXECUTE format('COPY fuzz.bytes TO %L (FORMAT binary)', file);
    EXECUTE format('COPY fuzz.%I FROM %L (FORMAT binary)', target, file);
    IF target = 'received_gridrefs' THEN SELECT count(*) INTO same FROM fuzz.received_gridrefs WHERE value::text::tessara_gridref = value;
    ELSE SELECT count(*) INTO same FROM fuzz.received_places WHERE value::text::tessara_position = value; END IF;
    IF same <> 1 THEN RAISE EXCEPTION 'the text of % is read as another value', sent; END IF;
END $$;

-- Makes statements from a seed and returns those with an unexpected error. With `isLoud` the log has each before it runs.
CREATE FUNCTION fuzz.run(seed float8, count int, file text, isLoud boolean) RETURNS SETOF text LANGUAGE plpgsql AS $$
DECLARE statement text; found text;
BEGIN
    PERFORM setseed(seed);
    FOR i IN 1 .. count LOOP
        statement := CASE WHEN i % 50 = 0 THEN format('SELECT fuzz.receive(%L)::text', file) ELSE fuzz.statement() END;
        IF isLoud THEN RAISE LOG 'statement: %', statement; END IF;
        BEGIN
            EXECUTE statement INTO found;
        EXCEPTION
            WHEN numeric_value_out_of_range OR invalid_text_representation OR invalid_parameter_value OR array_subscript_error OR invalid_binary_representation THEN NULL;
            -- The server's own: of statements that fit no function or operator, of protocols and of sizes.
            WHEN undefined_function OR cannot_coerce OR protocol_violation OR program_limit_exceeded OR undefined_object THEN NULL;
            WHEN OTHERS THEN RETURN NEXT format('%s %s: %s', SQLSTATE, SQLERRM, left(statement, 300));
        END;
    END LOOP;
END $$;
