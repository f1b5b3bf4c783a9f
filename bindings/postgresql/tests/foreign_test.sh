#!/usr/bin/env bash
# Three servers: a table whose zones lie on two of them. What is asked of positions is computed where they are.
source "$(dirname "$0")/checks.sh"

plan 16

near=$PGPORT
parts=(54331 54332)
clusters=()
stop_parts() {
    for port in "${clusters[@]}"; do control "$port" stop -m immediate || true; done
}
trap stop_parts EXIT

ask() {
    psql -XAtq -v ON_ERROR_STOP=1 -p "$near" -d foreign_tables "$@"
}

for i in 0 1; do
    start_cluster "${parts[i]}"
    psql -Xq -p "${parts[i]}" -c 'CREATE EXTENSION tessara' -c "CREATE TABLE sightings AS
        SELECT id, tessara_utm_zone(lat, lon) AS zone, lat, lon FROM (
            SELECT i AS id, -79 + (i * 0.618033988749895 - floor(i * 0.618033988749895))::float8 * 162 AS lat, -179 + i / 500.0::float8 AS lon
            FROM generate_series(1, 179000) i) p
        WHERE (tessara_utm_zone(lat, lon) > 30)::int = $i" \
        -c 'CREATE INDEX ON sightings (tessara_square(lat, lon, 10000))' \
        -c 'CREATE STATISTICS squares ON zone, tessara_square(lat, lon, 100000) FROM sightings' -c 'ANALYZE sightings'
done
createdb -p "$near" foreign_tables
ask -c 'CREATE EXTENSION tessara' -c 'CREATE EXTENSION postgres_fdw' \
    -c 'CREATE TABLE sightings (id int, zone int, lat float8, lon float8) PARTITION BY RANGE (zone)'
for i in 0 1; do
    ask -c "CREATE SERVER part$i FOREIGN DATA WRAPPER postgres_fdw
            OPTIONS (host '$places', port '${parts[i]}', dbname 'postgres', extensions 'tessara', async_capable 'true', use_remote_estimate 'true')" \
        -c "CREATE USER MAPPING FOR postgres SERVER part$i OPTIONS (user 'postgres')" \
        -c "CREATE FOREIGN TABLE sightings$i PARTITION OF sightings FOR VALUES FROM ($((1 + i * 30))) TO ($((31 + i * 30))) SERVER part$i OPTIONS (table_name 'sightings')"
done
ask -c 'CREATE TABLE all_of_them (id int, zone int, lat float8, lon float8)' -c 'INSERT INTO all_of_them TABLE sightings' -c 'ANALYZE all_of_them'
is "$(ask -c 'SELECT count(*), count(DISTINCT id) FROM all_of_them')" '179000|179000' 'all rows are on the two servers'

# remote QUERY PATTERN WHAT: the SQL that is sent to the servers, and the result beside that of a local table.
remote() {
    like "$(ask -c "EXPLAIN (VERBOSE, COSTS OFF) $1" | grep 'Remote SQL')" "$2" "$3"
    is "$(ask -c "$1" | sort)" "$(ask -c "${1/sightings/all_of_them}" | sort)" "$3: the rows"
}

remote 'SELECT id, tessara_utm_easting(lat, lon) FROM sightings WHERE tessara_utm_zone(lat, lon) = 32 AND tessara_utm_northing(lat, lon) > 5e6' \
    'WHERE.*tessara_utm_northing\(lat, lon\) > .*tessara_utm_zone\(lat, lon\) = 32' 'a filter by UTM is computed there'
remote "SELECT id FROM sightings WHERE tessara_square(lat, lon, 10000) <@ '32UPU'" \
    "WHERE.*tessara_square\(lat, lon, 10000\).*<@.*'32UPU'" 'a filter by a military square is'
remote "SELECT id FROM sightings WHERE tessara_gridref(lat, lon) LIKE '32U%'" \
    "tessara_gridref\(lat, lon\).*~~.*'32U%'" 'a filter by a pattern is'
remote "SELECT id FROM sightings WHERE tessara_east(lat, lon, 'CH@CH1903') BETWEEN 600000 AND 700000 AND lat BETWEEN 46 AND 47.5 AND lon BETWEEN 6 AND 10" \
    "tessara_east\(lat, lon, 'CH@CH1903'" 'a filter in a national grid is'
remote 'SELECT id FROM sightings WHERE tessara_distance(lat, lon, 48.1375, 11.5755) < 100000' \
    'tessara_distance\(lat, lon, 48.1375' 'a filter by distance is'

# Aggregates. Rows of one zone are on one server, so each of them counts its groups to the end.
pushed='SET enable_partitionwise_aggregate = on'
grouped='SELECT zone, tessara_square(lat, lon, 100000), count(*), min(tessara_utm_easting(lat, lon)) FROM sightings GROUP BY 1, 2'
like "$(ask -c "$pushed" -c "EXPLAIN (VERBOSE, COSTS OFF) $grouped" | grep -cE 'Remote SQL: SELECT zone, public.tessara_square.*count.*min.*GROUP BY')" \
    2 'groups by squares are counted on both servers'
is "$(ask -c "$pushed" -c "$grouped" | sort | md5sum)" "$(ask -c "${grouped/sightings/all_of_them}" | sort | md5sum)" 'and the counts are right'
like "$(ask -c "EXPLAIN (COSTS OFF) SELECT * FROM sightings WHERE tessara_square(lat, lon, 10000) = '32UPU93'" | tr '\n' ' ')" \
    'Append.*Async Foreign Scan.*Async Foreign Scan' 'both servers work at the same time'

# A server that stops in the middle of a query. The query reads its rows alone, a hundred in a tenth of a second: beside
# another server the error may wait until that one has no more rows, some minutes later.
reads="SELECT count(*) FROM pg_stat_activity WHERE query LIKE 'FETCH%'"
stop_in_the_middle() {
    for _ in {1..1000}; do
        [[ $(psql -XAtq -p "${parts[1]}" -c "$reads") == 0 ]] || break
    done
    control "${parts[1]}" stop -m immediate
}
stop_in_the_middle &
like "$(ask -c 'SELECT count(tessara_parse(tessara_format(lat, lon, $$UTMREF$$))), count(pg_sleep(0.001)) FROM sightings WHERE zone > 30' 2>&1)" \
    'ERROR' 'a server that stops in the middle is an error'
wait
control "${parts[1]}" start
is "$(ask -c 'SELECT count(*) FROM sightings')" 179000 'and nothing is lost when it is back'
