// Stored positions, and random ones that are the same in each run.
import { readFileSync } from "node:fs";

export const ROOT = new URL("../../../", import.meta.url);
export const MILLIMETRE = 1e-3;

// The lines of a file of tests/data without comments, divided at blanks.
export function rows(name) {
    const text = readFileSync(new URL(`tests/data/${name}`, ROOT), "utf8");
    return text.split("\n").filter((line) => line.trim() && !line.startsWith("#")).map((line) => line.trim().split(/\s+/));
}

// Park and Miller's minimal standard generator (Communications of the ACM 31, 1988).
export function randomNumbers(seed) {
    let state = seed;
    return (low, high) => {
        state = (state * 48271) % 2147483647;
        return low + ((high - low) * state) / 2147483647;
    };
}

export function randomColumns(count, south, north, west, east, seed = 1) {
    const random = randomNumbers(seed);
    const latitude = new Float64Array(count);
    const longitude = new Float64Array(count);
    for (let i = 0; i < count; ++i) {
        latitude[i] = random(south, north);
        longitude[i] = random(west, east);
    }
    return [latitude, longitude];
}
