// Columns of positions: arrays outside, blocks of rows in the module's memory inside.
import { CELL, referenceAt } from "./references.js";

export const BLOCK = 4096;
export const MOST_FIELDS = 8;
const FIRST_TARGET = MOST_FIELDS + 1;
export const WORD = 4;
export const OK = 1; // of a status
export const DOUBLE = 8;

export function isArray(value) {
    return Array.isArray(value) || ArrayBuffer.isView(value) || value instanceof Letters;
}

/** Letters of many positions, side by side in bytes. */
export class Letters {
    constructor(bytes, width) {
        this.bytes = bytes;
        this.width = width;
    }

    get length() {
        return this.bytes.length / this.width;
    }

    at(index) {
        const first = (index < 0 ? this.length + index : index) * this.width;
        const letters = this.bytes.subarray(first, first + this.width);
        return letters.includes(0) ? "" : String.fromCharCode(...letters);
    }

    *[Symbol.iterator]() {
        for (let i = 0; i < this.length; ++i) yield this.at(i);
    }

    toArray() {
        return [...this];
    }
}

// Letters outside ASCII, and a text that is too long, become letters that no system has.
export function bytesOf(text, width) {
    if (typeof text !== "string") throw new TypeError("letters have to be a string");
    return Uint8Array.from({ length: width }, (_, i) => {
        const code = i < text.length ? text.charCodeAt(i) : 0;
        return code < 0x80 && text.length <= width ? code : 0x3f;
    });
}

export function numberOf(value) {
    if (typeof value !== "number") throw new TypeError(`expected a number, not ${typeof value}`);
    return value;
}

function lineOf(value) {
    const text = String(value);
    return text.includes("\n") ? text.replaceAll("\n", " ") : text;
}

/** Rows of an argument as the module has them: one value for all, or bytes or doubles to copy from. */
function prepare(value, field) {
    const isLetters = field !== null && field.kind === "L";
    if (!isArray(value)) {
        return { isOne: true, values: isLetters ? bytesOf(value, field.width) : Float64Array.of(numberOf(value)) };
    }
    if (!isLetters) return { isOne: false, values: value instanceof Float64Array ? value : Float64Array.from(value) };
    if (value instanceof Letters) {
        if (value.width !== field.width) throw new TypeError(`${field.name} has ${field.width} letters, not ${value.width}`);
        return { isOne: false, values: value.bytes };
    }
    const bytes = new Uint8Array(value.length * field.width);
    for (let i = 0; i < value.length; ++i) bytes.set(bytesOf(value[i], field.width), i * field.width);
    return { isOne: false, values: bytes };
}

/** How many rows arguments have: the length of the arrays among them, or nothing without any. */
export function countOf(values) {
    let count = null;
    for (const value of values) {
        if (!isArray(value)) continue;
        if (count !== null && count !== value.length) throw new RangeError("arrays have to be of the same length");
        count = value.length;
    }
    return count;
}

/** The memory for a block of rows. */
export class Block {
    constructor(memory) {
        this.memory = memory;
        const columns = 2 * FIRST_TARGET;
        this.structs = memory.allocate((columns + 1) * 2 * WORD);
        this.columns = memory.allocate(columns * BLOCK * DOUBLE);
        this.statuses = memory.allocate(BLOCK * WORD);
    }

    #place(column) {
        return this.columns + column * BLOCK * DOUBLE;
    }

    get sources() {
        return this.structs;
    }

    get targets() {
        return this.structs + FIRST_TARGET * 2 * WORD;
    }

    #describe(column, place, stride) {
        const words = this.memory.words;
        words[this.structs / WORD + 2 * column] = place;
        words[this.structs / WORD + 2 * column + 1] = stride;
    }

    // Says where the columns of a conversion are. `given` has a value for each field of the source, or undefined; the
    // height is the last one.
    #arrange({ source, target }, inputs, hasHeights) {
        for (let k = 0; k <= MOST_FIELDS; ++k) this.#describe(k, 0, 0);
        inputs.forEach((input, k) => {
            if (input === null) return;
            const stride = input.isOne ? 0 : source[k]?.kind === "L" ? source[k].width : DOUBLE;
            this.#describe(k === source.length ? MOST_FIELDS : k, this.#place(k), stride);
        });
        for (let k = 0; k <= MOST_FIELDS; ++k) this.#describe(FIRST_TARGET + k, 0, 0);
        target.forEach((field, k) =>
            this.#describe(FIRST_TARGET + k, this.#place(FIRST_TARGET + k), field.kind === "L" ? field.width : DOUBLE));
        if (hasHeights) this.#describe(FIRST_TARGET + MOST_FIELDS, this.#place(FIRST_TARGET + MOST_FIELDS), DOUBLE);
        this.#describe(FIRST_TARGET + MOST_FIELDS + 1, this.statuses, WORD);
    }

    // Converts block by block; `take` is called with the first row of each, and how many it has.
    #convertBlocks(conversion, given, count, hasHeights, take) {
        const { memory } = this;
        const { source } = conversion;
        const inputs = given.map((value, k) => (value === undefined ? null : prepare(value, source[k] ?? null)));
        this.#arrange(conversion, inputs, hasHeights);
        for (let row = 0; row < count; row += BLOCK) {
            const rows = Math.min(BLOCK, count - row);
            inputs.forEach((input, k) => {
                if (input === null) return;
                const heap = input.values instanceof Uint8Array ? memory.bytes : memory.doubles;
                const width = input.values instanceof Uint8Array ? source[k].width : 1;
                const part = input.isOne ? input.values : input.values.subarray(row * width, (row + rows) * width);
                heap.set(part, this.#place(k) / heap.BYTES_PER_ELEMENT);
            });
            memory.call("convert", conversion.handle, this.sources, this.targets, rows);
            take(row, rows);
        }
    }

    // Columns for the fields of the target, its height, and statuses.
    convert(conversion, given, count) {
        const { memory } = this;
        const { source, target } = conversion;
        const outputs = target.map((field) =>
            field.kind === "L" ? new Uint8Array(count * field.width) : new Float64Array(count));
        const hasHeights = given[source.length] !== undefined || conversion.knowsHeight;
        const heights = hasHeights ? new Float64Array(count) : null;
        const statuses = new Int32Array(count);
        this.#convertBlocks(conversion, given, count, hasHeights, (row, rows) => {
            outputs.forEach((output, k) => {
                const heap = output instanceof Uint8Array ? memory.bytes : memory.doubles;
                const width = output instanceof Uint8Array ? target[k].width : 1;
                const place = this.#place(FIRST_TARGET + k) / heap.BYTES_PER_ELEMENT;
                output.set(heap.subarray(place, place + rows * width), row * width);
            });
            if (heights) {
                const place = this.#place(FIRST_TARGET + MOST_FIELDS) / DOUBLE;
                heights.set(memory.doubles.subarray(place, place + rows), row);
            }
            statuses.set(memory.words.subarray(this.statuses / WORD, this.statuses / WORD + rows), row);
        });
        return { outputs, heights, statuses };
    }

    // Military references: the columns of the conversion stay where they are until they are written.
    references(conversion, given, count) {
        const texts = new Array(count);
        const places = conversion.target.map((_, k) => this.#place(FIRST_TARGET + k));
        const cells = this.#place(FIRST_TARGET + conversion.target.length); // as large as the two next columns
        this.#convertBlocks(conversion, given, count, false, (row, rows) => {
            this.memory.tell("writeReferences", ...places, this.statuses, rows, cells);
            const { bytes } = this.memory;
            for (let i = 0; i < rows; ++i) texts[row + i] = referenceAt(bytes, cells + i * CELL);
        });
        return texts;
    }

    // Copies rows of columns of numbers into the memory.
    #fill(inputs, row, rows) {
        const { doubles } = this.memory;
        inputs.forEach((input, k) => {
            const place = this.#place(k) / DOUBLE;
            if (input.isOne) doubles.fill(input.values[0], place, place + rows);
            else doubles.set(input.values.subarray(row, row + rows), place);
        });
    }

    // Runs a function over four columns of numbers, which gives three.
    solve(name, datum, given, count) {
        const { memory } = this;
        const inputs = given.map((value) => prepare(value, null));
        const outputs = [0, 1, 2].map(() => new Float64Array(count));
        const statuses = new Int32Array(count);
        const results = this.#place(inputs.length);
        for (let row = 0; row < count; row += BLOCK) {
            const rows = Math.min(BLOCK, count - row);
            this.#fill(inputs, row, rows);
            memory.call(name, datum, this.columns, results, this.statuses, BLOCK, rows);
            outputs.forEach((output, k) => {
                const place = (results + k * BLOCK * DOUBLE) / DOUBLE;
                output.set(memory.doubles.subarray(place, place + rows), row);
            });
            statuses.set(memory.words.subarray(this.statuses / WORD, this.statuses / WORD + rows), row);
        }
        return { outputs, statuses };
    }

    // Positions of texts, which go in as lines.
    parse(texts, system, datum) {
        const { memory } = this;
        const latitude = new Float64Array(texts.length);
        const longitude = new Float64Array(texts.length);
        let row = 0;
        do {
            const rows = Math.min(BLOCK, texts.length - row);
            let lines = "";
            for (let i = row; i < row + rows; ++i) lines += lineOf(texts[i]) + "\n";
            memory.call("parseLines", lines, system, datum, this.#place(0), this.#place(1), rows);
            [latitude, longitude].forEach((output, k) => {
                const place = this.#place(k) / DOUBLE;
                output.set(memory.doubles.subarray(place, place + rows), row);
            });
            row += rows;
        } while (row < texts.length);
        return { latitude, longitude };
    }

    // Lines of text for the rows of two columns of numbers, of all blocks.
    lines(north, east, count, call) {
        const inputs = [north, east].map((value) => prepare(value, null));
        const lines = [];
        for (let row = 0; row < count; row += BLOCK) {
            const rows = Math.min(BLOCK, count - row);
            this.#fill(inputs, row, rows);
            const answer = call(this.#place(0), this.#place(1), rows);
            for (const line of answer.split("\n").slice(0, rows)) lines.push(line);
        }
        return lines;
    }
}
