#!/usr/bin/env bash
# The recipe of docs/scale.md for those who have lines and no database: it gives what one process gives, in order.
source "$(dirname "$0")/checks.sh"

plan 2

recipe=$(sed -n '/^    parallel /s/^    //p' docs/scale.md)
like "$recipe" '^parallel .*tessara convert' 'the page has the recipe'
export PATH=$PWD/build/postgresql/bin:$PATH
cd "$(mktemp -d)"
awk 'BEGIN {for (i = 0; i < 200000; i++) printf "%.6f %.6f\n", i % 1600 / 10 - 79.9, i / 600 - 170}' >positions.txt
tessara convert --to UTM <positions.txt >expected.txt
eval "$recipe" 2>/dev/null
is "$(md5sum <utm.txt)" "$(md5sum <expected.txt)" 'many processes give what one gives'
rm -r "$PWD"
