#!/usr/bin/env bash
# What happens around the functions: cancelled queries, two backends, little memory, a restart, updates, removal.
source "$(dirname "$0")/checks.sh"

plan 19

query() {
    psql -XAtq -v ON_ERROR_STOP=1 "$@"
}

createdb lifecycle
export PGDATABASE=lifecycle
query -c 'CREATE TABLE kept AS SELECT i AS id FROM generate_series(1, 10) i'
objects="SELECT 'class ' || oid::regclass FROM pg_class WHERE oid >= 16384
    UNION ALL SELECT 'type ' || oid::regtype FROM pg_type WHERE oid >= 16384
    UNION ALL SELECT 'function ' || oid::regprocedure FROM pg_proc WHERE oid >= 16384
    UNION ALL SELECT 'operator ' || oid::regoperator FROM pg_operator WHERE oid >= 16384
    UNION ALL SELECT 'operator class ' || opcname FROM pg_opclass WHERE oid >= 16384
    UNION ALL SELECT 'operator family ' || opfname FROM pg_opfamily WHERE oid >= 16384
    UNION ALL SELECT 'cast ' || castsource::regtype || ' ' || casttarget::regtype FROM pg_cast WHERE oid >= 16384
    ORDER BY 1"
before=$(query -c "$objects")
query -c 'CREATE EXTENSION tessara'
with=$(query -c "$objects")
query -c 'DROP EXTENSION tessara'
is "$(query -c "$objects")" "$before" 'DROP EXTENSION leaves nothing'

query -c 'CREATE SCHEMA geo' -c 'CREATE EXTENSION tessara SCHEMA geo'
is "$(query -c "SELECT geo.tessara_gridref(48.1375, 11.5755)")" 32UPU9160334791 'the extension lives in any schema'
query -c 'ALTER EXTENSION tessara SET SCHEMA public'
is "$(query -c "SELECT tessara_gridref(48.1375, 11.5755)")" 32UPU9160334791 'and moves to another one'

# Updates: the next version is the installed one and a function more.
sed "s/^default_version.*/default_version = 'next'/" "$share/extension/tessara.control" >"$places/next.control"
cp "$places/next.control" "$share/extension/tessara.control"
versions=$(query -c "SELECT DISTINCT version FROM pg_available_extension_versions WHERE name = 'tessara'" | sort -V | tail -1)
echo "CREATE FUNCTION tessara_next() RETURNS integer LANGUAGE sql IMMUTABLE RETURN 1;" >"$share/extension/tessara--$versions--next.sql"
query -c 'CREATE TABLE held AS SELECT tessara_gridref(48, 11) AS gridref, tessara_position(48, 11) AS place' \
    -c 'CREATE INDEX ON held (gridref)' -c 'CREATE INDEX ON held (place)' -c 'ALTER EXTENSION tessara UPDATE'
is "$(query -c "SELECT tessara_next(), gridref, place FROM held WHERE gridref = tessara_gridref(48, 11)")" \
    '1|32UPU4918818236|GEODEZ@WGS84(48, 11)' 'an update keeps the data'
rm "$share/extension/tessara--$versions--next.sql"
query -c 'DROP EXTENSION tessara CASCADE' 2>/dev/null
sed "s/^default_version.*/default_version = '$versions'/" "$places/next.control" >"$share/extension/tessara.control"
query -c 'CREATE EXTENSION tessara'
is "$(query -c "$objects" | grep -v held)" "$(grep -v held <<<"$with")" 'the extension comes back as it was'

# A table with an expression index, in the shape of a real one.
query -c 'CREATE TABLE tracks AS SELECT i AS id, 45 + i % 1000 / 100.0::float8 AS lat, 6 + i / 1000 % 1000 / 200.0::float8 AS lon
          FROM generate_series(1, 400000) i' -c 'CREATE INDEX tracks_square ON tracks (tessara_square(lat, lon, 10000))' -c 'ANALYZE tracks'
in_square="SELECT count(*) FROM tracks WHERE tessara_square(lat, lon, 10000) = '32TLT00'"
count=$(query -c "$in_square")
is "$(query -c 'SET enable_bitmapscan = off' -c 'SET enable_indexscan = off' -c "$in_square")" "$count" 'an index finds what a scan finds'
control "$PGPORT" restart
is "$(query -c "$in_square")" "$count" 'it does after a restart, too'
like "$(query -c "EXPLAIN $in_square")" tracks_square 'which the planner uses it after'

# Two backends.
sums="SELECT sum(tessara_utm_easting(lat, lon)) || ' ' || count(DISTINCT tessara_gridref(lat, lon)) FROM (SELECT * FROM tracks ORDER BY id) t"
query -c "$sums" >"$places/first" &
query -c "$sums" >"$places/second"
wait $!
is "$(<"$places/first")" "$(<"$places/second")" 'two backends at once give the same'
like "$(<"$places/first")" '[0-9]' 'and it is a sum'

# Parallel workers.
parallel="SET parallel_setup_cost = 0; SET parallel_tuple_cost = 0; SET min_parallel_table_scan_size = 0; SET max_parallel_workers_per_gather = 2"
grouped='SELECT md5(string_agg(square || n::text, $$ $$ ORDER BY square)) FROM
    (SELECT tessara_square(lat, lon, 1000)::text AS square, count(*) AS n FROM tracks GROUP BY 1) s'
is "$(query -c "$parallel" -c "$grouped")" "$(query -c 'SET max_parallel_workers_per_gather = 0' -c "$grouped")" 'workers give the same'

# Sorting and hashing with the least memory there is.
is "$(query -c "SET work_mem = '64kB'" -c "$grouped")" "$(query -c "SET work_mem = '256MB'" -c "$grouped")" 'so does little memory'

# Cancelled queries.
cancelled() {
    query -c "SET statement_timeout = '300ms'" -c "$1" 2>&1 || true
}
like "$(cancelled 'SELECT count(tessara_parse(tessara_format(a.lat, b.lon, $$UTMREF$$))) FROM tracks a, tracks b')" \
    'canceling statement' 'rows can be cancelled'
like "$(cancelled "SELECT count(tessara_convert_array(lats, lats, 'UTM')) FROM
    (SELECT array_agg(48.0::float8) AS lats FROM generate_series(1, 3000000)) a, generate_series(1, 100)")" \
    'canceling statement' 'arrays can be cancelled'
like "$(cancelled "SELECT count(line) FROM generate_series(1, 10000) i, tessara_grid_lines('UTM', -70, -180, 70, 180, 50000 + i)")" \
    'canceling statement' 'grid lines can be cancelled'

# Memory of the library is given back: a session does the same work again and doesn't grow.
work='SELECT count(tessara_convert_or_null(lat, lon, (ARRAY[$$UTM$$, $$CH@CH1903$$, $$GK@GER$$])[1 + id % 3])), count(tessara_parse(tessara_format(lat, lon, $$UTM$$))),
    count((tessara_check(id || $$ nothing$$)).reason) FROM (SELECT * FROM tracks LIMIT 20000) t;
    SELECT count(tessara_convert_array_or_null(ARRAY[lat, 91], ARRAY[lon, 11], $$UTM$$)), count(tessara_parse_or_null(id::text)) FROM (SELECT * FROM tracks LIMIT 20000) t;'
resident="SELECT (regexp_match(pg_read_file('/proc/' || pg_backend_pid() || '/status'), 'VmRSS:\\s+(\\d+)'))[1]"
keeps_its_size() {
    if [[ -n ${server_preload:-} ]]; then
        skip "$2" 'the sanitizers keep what is freed for a while'
        return
    fi
    local kilobytes
    kilobytes=$(query -c "$1" -c "$resident" -c "$1" -c "$1" -c "$1" -c "$resident" | grep -v '|')
    like "$(awk 'NR == 1 {first = $1} END {print NR, ($1 - first < 1024 ? "steady" : "grown from " first " to " $1)}' <<<"$kilobytes")" \
        '2 steady' "$2"
}
keeps_its_size "$work" 'a session that works on keeps its size'
lines='SELECT count(g.line), max(g.part) FROM generate_series(1, 20) i, tessara_grid_lines($$UTM$$, 45, 5, 55, 15 + i, 20000) g;
    SELECT count(b.line), max(b.part) FROM generate_series(1, 200) i, tessara_zone_borders($$UTM$$, 45, 5, 55, 15 + i % 20) b;'
keeps_its_size "$lines" 'and so does one that makes lines'

# Texts in another encoding than UTF-8.
createdb -E LATIN1 --locale=C -T template0 latin
latin() {
    PGCLIENTENCODING=UTF8 PGDATABASE=latin query "$@"
}
latin -c 'CREATE EXTENSION tessara'
is "$(latin -c "SELECT tessara_parse('48°08''15\"N 11°34''31.8\"E')")" 'GEOGRAD@WGS84(48, 8, 15, N, 11, 34, 31.8, E)' 'texts are read in LATIN1'
is "$(latin -c "SELECT piece, piece_at FROM tessara_check('48°61''N 11°E')")" '61|4' 'and pieces counted in characters'
