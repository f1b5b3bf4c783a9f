// One position: a slot of the module's memory for each field, so that a call has nothing to arrange.
import { DOUBLE, MOST_FIELDS, OK, WORD, bytesOf, numberOf } from "./columns.js";
import { CELL, referenceAt } from "./references.js";

export class Row {
    #memory;
    #source;
    #target;
    #places; // of the target's fields
    #status; // of success
    #cell;

    constructor(memory) {
        this.#memory = memory;
        this.#source = memory.allocate(2 * MOST_FIELDS * DOUBLE + DOUBLE + CELL);
        this.#target = this.#source + MOST_FIELDS * DOUBLE;
        this.#places = Array.from({ length: MOST_FIELDS }, (_, k) => this.#target + k * DOUBLE);
        this.#status = this.#target + MOST_FIELDS * DOUBLE;
        this.#cell = this.#status + DOUBLE;
        memory.words[this.#status / WORD] = OK;
    }

    // Two numbers of the source, in the fields for north and east; a status.
    convertPair({ handle, north, east, givesPair }, northValue, eastValue) {
        const { doubles } = this.#memory;
        const first = this.#source / DOUBLE;
        doubles[first + north] = northValue;
        doubles[first + east] = eastValue;
        return this.#memory.number("convertRow", handle, this.#source, givesPair, this.#target);
    }

    // A value for each field of the source, or undefined; a status.
    convert({ handle, source }, values) {
        const { bytes, doubles } = this.#memory;
        let given = 0;
        source.forEach((field, k) => {
            if (values[k] === undefined) return;
            given |= 1 << k;
            const place = this.#source + k * DOUBLE;
            if (field.kind === "L") bytes.set(bytesOf(values[k], field.width), place);
            else doubles[place / DOUBLE] = numberOf(values[k]);
        });
        return this.#memory.number("convertRow", handle, this.#source, given, this.#target);
    }

    // The military reference after a conversion that has succeeded.
    reference() {
        const [zone, band, square, easting, northing] = this.#places;
        this.#memory.tell("writeReferences", zone, band, square, easting, northing, this.#status, 1, this.#cell);
        return referenceAt(this.#memory.bytes, this.#cell);
    }

    // The fields of the target after a conversion.
    result({ target }) {
        const { bytes, doubles } = this.#memory;
        const result = {};
        let place = this.#target;
        for (const { name, kind, width } of target) {
            if (kind !== "L") result[name] = doubles[place / DOUBLE];
            else if (width === 1) result[name] = String.fromCharCode(bytes[place]);
            else result[name] = String.fromCharCode(...bytes.subarray(place, place + width));
            place += DOUBLE;
        }
        return result;
    }
}
