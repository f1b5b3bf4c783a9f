# Measures conversions of a table beside PostGIS's ST_Transform in one run: bench.sh ROWS [ROUNDS]. Runs in tests/run, which has
# started the server. The best of some rounds counts; rounds of different queries alternate, so that what else the
# machine does meets all of them. Without a number of rounds there are as many as five minutes have room for, from the
# start of the script on, but not more than eight.

rows=$1
rounds=${2:-8}
seconds_of_rounds=${2:+1000000}
seconds_of_rounds=${seconds_of_rounds:-300}
export PGDATABASE=bench
createdb bench
psql -Xq -c 'CREATE EXTENSION tessara' -c 'CREATE EXTENSION postgis' -c "CREATE TABLE places AS
    SELECT lat, lon, ST_SetSRID(ST_MakePoint(lon, lat), 4326) AS point
    FROM (SELECT random() * 157 - 78 AS lat, 6.001 + random() * 5.998 AS lon FROM generate_series(1, $rows)) p" -c 'VACUUM ANALYZE places' -c 'CHECKPOINT' 2>/dev/null

names=(
    'reading and adding the columns'
    'easting of UTM'
    'row of UTM'
    'military reference'
    'military square of 10 km'
    'military reference as text'
    'easting of Gauss-Krueger on GER'
    'distance to a place'
    'references in a square, counted'
    'positions without a result, as NULL'
    'ST_Transform to UTM'
)
queries=(
    'sum(lat + lon)'
    'sum(tessara_utm_easting(lat, lon))'
    'sum((tessara_utm(lat, lon)).easting)'
    'max(hashtext(NULL)) FILTER (WHERE tessara_gridref(lat, lon) IS NULL)'
    'max(hashtext(NULL)) FILTER (WHERE tessara_square(lat, lon, 10000) IS NULL)'
    'max(length(tessara_gridref(lat, lon)::text))'
    "sum(tessara_east(lat, lon, 'GK@GER'))"
    'sum(tessara_distance(lat, lon, 48.1375, 11.5755))'
    "count(*) FILTER (WHERE tessara_gridref(lat, lon) <@ '32UPU')"
    "count(tessara_east_or_null(lat, lon, 'ING@OGB_M'))"
    'sum(ST_X(ST_Transform(point, 32632)))'
)

# seconds WORKERS QUERY
seconds() {
    psql -XAtq -c "SET jit = off; SET max_parallel_workers_per_gather = $1; SET parallel_setup_cost = 0; SET parallel_tuple_cost = 0" \
        -c '\timing on' -c "SELECT $2 FROM places" | sed -n 's/^Time: \([0-9.]*\) ms.*/\1/p'
}

longest=0
for ((round = 0; round < rounds && SECONDS + longest < seconds_of_rounds || round == 0; round++)); do
    began=$SECONDS
    for i in "${!queries[@]}"; do
        echo "$i one $(seconds 0 "${queries[i]}")"
        echo "$i two $(seconds 1 "${queries[i]}")"
    done
    longest=$((SECONDS - began > longest ? SECONDS - began : longest))
done >"$places/times"

echo "The best of $round rounds, $(uptime | sed 's/.*load/load/')"
echo "| $rows positions, milliseconds | one process | two processes | gain | ns a row more than reading | ST_Transform takes |"
echo '|:---|---:|---:|---:|---:|---:|'
printf '%s\n' "${names[@]}" | awk -v rows="$rows" '
    NR == FNR { if (!($1 $2 in best) || $3 < best[$1 $2]) best[$1 $2] = $3; last = $1; next }
    { name[FNR - 1] = $0 }
    END {
        reading = best["0one"]
        for (i = 0; i <= last; i++) {
            more = best[i "one"] - reading
            printf "| %s | %.0f | %.0f | %.1f | %.0f | ", name[i], best[i "one"], best[i "two"], best[i "one"] / best[i "two"], more * 1e6 / rows
            printf(i == 0 ? "- |\n" : "%.1f times |\n", i == 0 ? 0 : (best[last "one"] - reading) / more)
        }
    }' "$places/times" -
