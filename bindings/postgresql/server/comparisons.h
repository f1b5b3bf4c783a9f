/* The six comparisons of a type, and the one that B-trees ask for, by a function that returns less, equal or
 * more. */
#pragma once

#define COMPARISON(type, name, GETARG, compare, sign)         \
    FUNCTION(tessara_##type##_##name) {                       \
        PG_RETURN_BOOL(compare(GETARG(0), GETARG(1)) sign 0); \
    }

#define COMPARISONS(type, GETARG, compare)              \
    COMPARISON(type, lt, GETARG, compare, <)            \
    COMPARISON(type, le, GETARG, compare, <=)           \
    COMPARISON(type, eq, GETARG, compare, ==)           \
    COMPARISON(type, ne, GETARG, compare, !=)           \
    COMPARISON(type, ge, GETARG, compare, >=)           \
    COMPARISON(type, gt, GETARG, compare, >)            \
    FUNCTION(tessara_##type##_cmp) {                    \
        PG_RETURN_INT32(compare(GETARG(0), GETARG(1))); \
    }
