# TAP for tests that are written in shell.
set -euo pipefail

number=0

plan() {
    echo "1..$1"
}

report() {
    number=$((number + 1))
    echo "$1ok $number - $2"
}

# is FOUND EXPECTED WHAT
is() {
    if [[ $1 == "$2" ]]; then report '' "$3"; else
        report 'not ' "$3"
        sed 's/^/# /' <<<$'found:\n'"$1"$'\nexpected:\n'"$2" | head -40
    fi
}

# like FOUND PATTERN WHAT
like() {
    if grep -qE "$2" <<<"$1"; then report '' "$3"; else
        report 'not ' "$3"
        sed 's/^/# /' <<<"found: $1"$'\n'"expected: $2" | head -40
    fi
}

# skip WHAT REASON
skip() {
    report '' "$1 # SKIP $2"
}
