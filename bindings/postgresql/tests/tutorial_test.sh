#!/usr/bin/env bash
# The statements of docs/sql.md run, from top to bottom, and give what the page says.
source "$(dirname "$0")/checks.sh"

createdb tutorial
statement=() expected=() block=''
while IFS= read -r line; do
    case $line in
    '```sql') block=sql statement+=('') expected+=('') ;;
    '```text') block=text ;;
    '```') block='' ;;
    *)
        [[ $block != sql ]] || statement[-1]+=$line$'\n'
        [[ $block != text ]] || expected[-1]+=$line$'\n'
        ;;
    esac
done <docs/sql.md

plan $((${#statement[@]} + 1))
is $((${#statement[@]} >= 15)) 1 'the page has fifteen statements'
for i in "${!statement[@]}"; do
    is "$(psql -XAtq -v ON_ERROR_STOP=1 -d tutorial -c "${statement[i]}" 2>&1)" "${expected[i]%$'\n'}" "${statement[i]%%$'\n'*}"
done
