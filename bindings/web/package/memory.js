// The module's memory and its calls. Texts go in as UTF-8, results come out as the answer of the latest call.
const DONE = 0;
const NO_MEMORY = 2;
const STOPPED = "tessara: the module has stopped; load it again";

const encoder = new TextEncoder();
const decoder = new TextDecoder();

export class Memory {
    #exports;
    #bytes = new Uint8Array();
    #doubles = null;
    #words = null;
    #hasStopped = false;

    constructor(exports) {
        this.#exports = exports;
    }

    has(name) {
        return name in this.#exports;
    }

    // Memory that grows gets another buffer, and views of the old one become empty.
    #refresh() {
        if (this.#bytes.length > 0) return;
        const { buffer } = this.#exports.memory;
        this.#bytes = new Uint8Array(buffer);
        this.#doubles = new Float64Array(buffer);
        this.#words = new Int32Array(buffer);
    }

    get bytes() {
        this.#refresh();
        return this.#bytes;
    }

    get doubles() {
        this.#refresh();
        return this.#doubles;
    }

    get words() {
        this.#refresh();
        return this.#words;
    }

    allocate(size) {
        const place = this.#exports.allocate(size);
        if (place === 0) throw new RangeError("tessara: memory has run out");
        return place;
    }

    release(place) {
        this.#exports.release(place);
    }

    // A trap, of memory that runs out where no exception can leave, ends the module: what it was doing stays half done.
    #run(name, values) {
        if (this.#hasStopped) throw new Error(STOPPED);
        try {
            return this.#exports[name](...values);
        } catch (error) {
            this.#hasStopped = true;
            throw error;
        }
    }

    // Calls a function of numbers that gives a number.
    number(name, first, second, third, fourth) {
        if (this.#hasStopped) throw new Error(STOPPED);
        return this.#exports[name](first, second, third, fourth);
    }

    // Calls a function whose arguments are numbers, and texts, which become a place and a size each.
    call(name, ...given) {
        const places = [];
        try {
            const values = [];
            for (const argument of given) {
                if (typeof argument !== "string") {
                    values.push(argument);
                    continue;
                }
                const bytes = encoder.encode(argument);
                const place = this.allocate(Math.max(bytes.length, 1));
                places.push(place);
                this.bytes.set(bytes, place);
                values.push(place, bytes.length);
            }
            const outcome = this.#run(name, values);
            if (outcome === NO_MEMORY) throw new RangeError("tessara: memory has run out");
            if (outcome !== DONE) throw new TypeError(this.answer());
        } finally {
            for (const place of places) this.release(place);
        }
    }

    // A call without an outcome.
    tell(name, ...values) {
        this.#exports[name](...values);
    }

    answer() {
        const place = this.#exports.answer();
        return decoder.decode(this.bytes.subarray(place, place + this.#exports.answerSize()));
    }

    ask(name, ...given) {
        this.call(name, ...given);
        return this.answer();
    }
}
