// Texts of military references to the metre, from cells of the module's memory: their characters, and how many there are.
export const CELL = 16;

const SIZE_AT = CELL - 1;
const WITH_TWO_DIGITS = 15; // of the zone

// A string of its own characters: a part of a longer one would keep that in memory.
export function referenceAt(bytes, at) {
    const b = bytes;
    const size = b[at + SIZE_AT];
    if (size === 0) return "";
    if (size === WITH_TWO_DIGITS)
        return String.fromCharCode(b[at], b[at + 1], b[at + 2], b[at + 3], b[at + 4], b[at + 5], b[at + 6], b[at + 7], b[at + 8],
            b[at + 9], b[at + 10], b[at + 11], b[at + 12], b[at + 13], b[at + 14]);
    return String.fromCharCode(b[at], b[at + 1], b[at + 2], b[at + 3], b[at + 4], b[at + 5], b[at + 6], b[at + 7], b[at + 8],
        b[at + 9], b[at + 10], b[at + 11], b[at + 12], b[at + 13]);
}
