# Runs random statements for a time: fuzz.sh SECONDS [SEED]. A statement has a result or a documented error; a dead backend,
# an internal error, or a statement without an end is a failure. The seed repeats the statements.
seconds=$1
seed=${2:-$RANDOM}
chunk=500

psql -Xqf $tests/fuzz.sql
file=$places/$PGPORT/fuzz_bytes

# A statement runs in a fraction of a second, with sanitizers in some.
run_chunk() {
    psql -XAtqc 'SET statement_timeout = 600000' -c "SELECT * FROM fuzz.run($1 / 1000003.0, $chunk, '$file', $2)"
}

statements=0
status=0
end=$((SECONDS + seconds))
while ((SECONDS < end)); do
    number=$(((seed + statements / chunk) % 1000003))
    if ! found=$(run_chunk $number false 2>&1); then
        echo "the backend ended with seed $number: $found"
        until psql -Xqc 'SELECT 1' >/dev/null 2>&1; do sleep 1; done
        run_chunk $number true >/dev/null 2>&1 || true
        grep -a 'LOG:  statement: ' "$places/$PGPORT/log" | tail -1
        status=1
        break
    fi
    statements=$((statements + chunk))
    if [[ -n $found ]]; then
        echo "with seed $number:"
        echo "$found" | head -20
        status=1
    fi
done
echo "$statements statements with seeds from $seed"
