import { Block, Letters, OK, countOf, isArray, numberOf } from "./columns.js";
import { PositionError, TextError } from "./errors.js";
import { Memory } from "./memory.js";
import { numberImports } from "./numbers.js";
import { Row } from "./row.js";

export { Letters, PositionError, TextError };

const DEGREES = "GEODEZ";
const MILITARY = "UTMREF";
const METRE_DIGITS = 5;
const NO_DIGITS = -1;
const MOST_CONVERSIONS = 64; // that are kept prepared
const NORTH_NAMES = ["latitude", "fullNorthing", "northing", "y"];
const EAST_NAMES = ["longitude", "fullEasting", "easting", "x"];
const NO_OPTIONS = {};

const encoder = new TextEncoder();
const decoder = new TextDecoder();

export function fileFor(part = "all") {
    if (part === "all") return "./tessara.wasm";
    if (part === "conversions") return "./conversions.wasm";
    throw new TypeError(`there is no part '${part}': expected 'all' or 'conversions'`);
}

// The library calls nothing outside but what reads and writes numbers. What its standard library might write is dropped.
export function importsWith(memory) {
    const dropped = new Proxy({}, { get: (_, name) => (name === "emscripten_notify_memory_growth" ? () => {} : () => 52) });
    const numbers = numberImports(memory);
    return new Proxy({}, { get: (_, name) => (name === "tessara" ? numbers : dropped), has: () => true });
}

export async function instantiate(source) {
    const given = await source;
    const isResponse = typeof Response !== "undefined" && given instanceof Response;
    if (isResponse && !given.ok) throw new Error(`tessara: the module can't be loaded (${given.status})`);
    const module = given instanceof WebAssembly.Module ? given : await WebAssembly.compile(isResponse ? await given.arrayBuffer() : given);
    const instance = await WebAssembly.instantiate(module, importsWith(() => instance.exports.memory));
    instance.exports._initialize?.();
    return new Tessara(instance.exports, module);
}

function parseFields(lines) {
    return lines.map((line) => {
        const [name, kind, width] = line.split(" ");
        return { name, kind, width: Number(width) };
    });
}

// The field of numbers that has the first of the names that any has; -1 without.
function placeOf(names, fields) {
    const isNamed = (name) => (field) => field.kind === "N" && field.name === name;
    const name = names.find((each) => fields.some(isNamed(each)));
    return fields.findIndex(isNamed(name));
}

function systemOf(reference) {
    return reference.split(/[:@]/)[0].toUpperCase();
}

// The characters that stand at bytes of a text.
function characters(text, begin, end) {
    const bytes = encoder.encode(text);
    return [decoder.decode(bytes.subarray(0, begin)).length, decoder.decode(bytes.subarray(0, end)).length];
}

export class Tessara {
    #memory;
    #block;
    #row;
    #conversions = new Map();
    #conversionCount = 0;
    #statuses = new Map();

    constructor(exports, module) {
        this.module = module;
        this.#memory = new Memory(exports);
        this.#block = new Block(this.#memory);
        this.#row = new Row(this.#memory);
    }

    #needAll() {
        if (!this.#memory.has("parse")) throw new TypeError("the part 'conversions' has no texts and no maps: load part 'all'");
    }

    // Conversions by the names of their references.
    #prepare(from, to) {
        return this.#conversions.get(from)?.get(to) ?? this.#prepareNew(from, to);
    }

    #prepareNew(from, to) {
        const [head, target] = this.#memory.ask("prepare", from, to).trimEnd().split("\n\n");
        const [handle, ...source] = head.split("\n");
        const conversion = {
            handle: Number(handle),
            from: systemOf(from),
            to: systemOf(to),
            source: parseFields(source),
            target: parseFields(target.split("\n")),
        };
        conversion.knowsHeight = conversion.from === "ECEF" && conversion.to !== "ECEF";
        conversion.north = placeOf(NORTH_NAMES, conversion.source);
        conversion.east = placeOf(EAST_NAMES, conversion.source);
        conversion.hasPair = conversion.north >= 0 && conversion.east >= 0 && conversion.from !== "ECEF";
        conversion.givesPair = conversion.hasPair ? (1 << conversion.north) | (1 << conversion.east) : 0;
        if (this.#conversionCount >= MOST_CONVERSIONS) this.#forget();
        if (!this.#conversions.has(from)) this.#conversions.set(from, new Map());
        this.#conversions.get(from).set(to, conversion);
        ++this.#conversionCount;
        return conversion;
    }

    #forget() {
        for (const targets of this.#conversions.values()) {
            for (const { handle } of targets.values()) this.#memory.tell("forget", handle);
        }
        this.#conversions.clear();
        this.#conversionCount = 0;
    }

    #errorOf(status) {
        if (!this.#statuses.has(status)) this.#statuses.set(status, this.#memory.ask("statusText", status).split("\n"));
        return new PositionError(status, ...this.#statuses.get(status));
    }

    // A value for each field of the source, and the height.
    #arguments(conversion, given, options) {
        const values = new Array(conversion.source.length + 1).fill(undefined);
        values[conversion.source.length] = options.height;
        if (given.length === 1) {
            const fields = given[0];
            for (const name of Object.keys(fields)) {
                const k = conversion.source.findIndex((field) => field.name === name);
                if (k >= 0) values[k] = fields[name];
                else if (name === "height") values[conversion.source.length] = fields[name];
                else if (name !== "status") throw new TypeError(`${conversion.from} has no field '${name}', but ${conversion.source.map((field) => field.name).join(", ")}`);
            }
            if (values.every((value, k) => value === undefined || k === conversion.source.length))
                throw new TypeError(`pass fields of ${conversion.from}: ${conversion.source.map((field) => field.name).join(", ")}`);
            return values;
        }
        if (!conversion.hasPair)
            throw new TypeError(`${conversion.from} has no north and east: pass its fields in an object`);
        values[conversion.north] = given[0];
        values[conversion.east] = given[1];
        return values;
    }

    convert(...given) {
        const options = this.#takeOptions(given);
        const { from = DEGREES, to = "UTM" } = options;
        const conversion = this.#prepare(from, to);
        const isPair = typeof given[0] === "number" && typeof given[1] === "number";
        if (isPair && options.height === undefined && conversion.hasPair)
            return this.#single(conversion, this.#row.convertPair(conversion, given[0], given[1]));
        const values = this.#arguments(conversion, given, options);
        const count = countOf(values);
        const hasHeight = values[conversion.source.length] !== undefined || conversion.knowsHeight;
        if (count === null && !hasHeight) return this.#single(conversion, this.#row.convert(conversion, values));
        const { outputs, heights, statuses } = this.#block.convert(conversion, values, count ?? 1);
        const result = {};
        if (count === null) {
            if (statuses[0] !== OK) throw this.#errorOf(statuses[0]);
            conversion.target.forEach((field, k) => {
                result[field.name] = field.kind === "L" ? String.fromCharCode(...outputs[k]) : outputs[k][0];
            });
            if (heights !== null && conversion.to !== "ECEF") result.height = heights[0];
            return result;
        }
        conversion.target.forEach((field, k) => {
            result[field.name] = field.kind === "L" ? new Letters(outputs[k], field.width) : outputs[k];
        });
        if (heights !== null && conversion.to !== "ECEF") result.height = heights;
        result.status = statuses;
        return result;
    }

    #single(conversion, status) {
        if (status !== OK) throw this.#errorOf(status);
        return this.#row.result(conversion);
    }

    // The last argument, if it is an object behind what says where a position is.
    #takeOptions(given) {
        const last = given[given.length - 1];
        const hasOptions = given.length > 1 && typeof last === "object" && last !== null && !isArray(last);
        return hasOptions ? given.pop() : NO_OPTIONS;
    }

    statusText(status) {
        if (status === OK) return "";
        return this.#errorOf(status).message;
    }

    #solve(name, given, names, { datum = "WGS84" } = {}) {
        const count = countOf(given);
        const { outputs, statuses } = this.#block.solve(name, datum, given, count ?? 1);
        if (count === null && statuses[0] !== OK) throw this.#errorOf(statuses[0]);
        const result = Object.fromEntries(names.map((field, k) => [field, count === null ? outputs[k][0] : outputs[k]]));
        if (count !== null) result.status = statuses;
        return result;
    }

    distance(latitude1, longitude1, latitude2, longitude2, options) {
        return this.#solve("inverse", [latitude1, longitude1, latitude2, longitude2],
            ["distance", "azimuth", "backAzimuth"], options);
    }

    direct(latitude, longitude, azimuth, distance, options) {
        return this.#solve("direct", [latitude, longitude, azimuth, distance],
            ["latitude", "longitude", "backAzimuth"], options);
    }

    systems() {
        return this.#memory.ask("systems").trimEnd().split("\n").map((line) => {
            const [number, name, unit, fields] = line.split("\t");
            return { number: Number(number), name, unit, fields: fields.trim().split(" ").filter(Boolean) };
        });
    }

    datums() {
        const hasTexts = this.#memory.has("datumDescriptions");
        const texts = hasTexts ? this.#memory.ask("datumDescriptions").split("\n") : [];
        return this.#memory.ask("datums").trimEnd().split("\n").map((line, i) => {
            const [number, name, ellipsoid, a, f, dx, dy, dz] = line.split("\t");
            const datum = { number: Number(number), name, ellipsoid, a: Number(a), f: Number(f), dx: Number(dx), dy: Number(dy), dz: Number(dz) };
            if (!hasTexts) return datum;
            const [title, region, area, accuracy] = texts[i].split("\t");
            return { ...datum, title, region, area, accuracy: Number(accuracy) || null };
        });
    }

    check(text, { system = "auto", datum = "WGS84" } = {}) {
        this.#needAll();
        const clean = String(text).toWellFormed?.() ?? decoder.decode(encoder.encode(String(text)));
        const { readings, fault } = JSON.parse(this.#memory.ask("parse", clean, system, datum));
        if (fault === undefined) return { good: true, code: "", reason: "", piece: "", begin: 0, end: 0, meanings: readings };
        const [begin, end] = characters(clean, fault.begin, fault.end);
        return { good: false, code: fault.code, reason: fault.reason, piece: clean.slice(begin, end), begin, end, meanings: readings };
    }

    parse(text, options = {}) {
        this.#needAll();
        if (!Array.isArray(text)) {
            const check = this.check(text, options);
            if (!check.good) throw new TextError(check);
            return check.meanings[0];
        }
        const { system = "auto", datum = "WGS84" } = options;
        return this.#block.parse(text, system, datum);
    }

    format(latitude, longitude, options = {}) {
        this.#needAll();
        const { from = DEGREES, to = MILITARY, display = false, precision = 0, digits = METRE_DIGITS, truncate = false } = options;
        if (!Number.isInteger(digits) || digits < 0 || digits > METRE_DIGITS) throw new RangeError("a reference has 0 to 5 digits of each axis");
        const conversion = this.#prepare(from, to);
        if (conversion.source.length !== 2) throw new TypeError(`${conversion.from} has more fields than north and east`);
        const target = conversion.to;
        const isReference = target === MILITARY || target === "MGRS";
        const count = countOf([latitude, longitude]);
        const isPlain = isReference && digits === METRE_DIGITS && !truncate && conversion.from === DEGREES;
        if (isPlain && count === null) return this.#reference(conversion, latitude, longitude);
        const given = [undefined, undefined, undefined];
        given[conversion.north] = latitude;
        given[conversion.east] = longitude;
        const lines = isPlain
            ? this.#block.references(conversion, given, count)
            : this.#block.lines(given[0], given[1], count ?? 1, (first, second, rows) =>
                this.#memory.ask("format", conversion.handle, first, second, rows, display ? 1 : 0, precision,
                    isReference ? digits : NO_DIGITS, truncate ? 1 : 0));
        if (count === null && lines[0] === "") {
            this.convert(latitude, longitude, { from, to });
            throw new PositionError(0, "outside", "the position has no text");
        }
        if (isReference || target === "ECEF") return count === null ? lines[0] : lines;
        const pairs = lines.map((line) => line.split("\t"));
        if (count === null) return { north: pairs[0][0], east: pairs[0][1] };
        return { north: pairs.map((pair) => pair[0]), east: pairs.map((pair) => pair[1] ?? "") };
    }

    #reference(conversion, latitude, longitude) {
        const status = this.#row.convertPair(conversion, numberOf(latitude), numberOf(longitude));
        if (status !== OK) throw this.#errorOf(status);
        return this.#row.reference();
    }

    show(latitude, longitude, { from = DEGREES, to = "UTM" } = {}) {
        this.#needAll();
        const conversion = this.#prepare(from, to);
        if (conversion.source.length !== 2) throw new TypeError(`${conversion.from} has more fields than north and east`);
        return JSON.parse(this.#memory.ask("show", conversion.handle, latitude, longitude));
    }

    militaryChoices(pieces = {}, { datum = "WGS84" } = {}) {
        this.#needAll();
        const { zone = "", band = "", column = "", row = "", easting = "", northing = "" } = pieces;
        const texts = [zone, band, column, row, easting, northing].map((piece) => String(piece).replaceAll("\t", " "));
        return JSON.parse(this.#memory.ask("militaryChoices", texts.join("\t"), datum));
    }

    mapAround(latitude, longitude, width) {
        this.#needAll();
        return JSON.parse(this.#memory.ask("mapAround", latitude, longitude, width));
    }

    openMap(description, { size = 1000, files = {} } = {}) {
        this.#needAll();
        const text = typeof description === "string" ? description : JSON.stringify(description);
        const handle = Number(this.#memory.ask("openMap", text, JSON.stringify(files), size));
        return new TessaraMap(this.#memory, handle);
    }

    drawMap(description, options) {
        const map = this.openMap(description, options);
        try {
            return map.draw();
        } finally {
            map.close();
        }
    }
}

class TessaraMap {
    #memory;
    #handle;

    constructor(memory, handle) {
        this.#memory = memory;
        this.#handle = handle;
    }

    draw() {
        const [svg, problems, notes] = this.#memory.ask("drawMap", this.#handle).split("\0");
        const lines = (text) => text.split("\n").filter(Boolean);
        return { svg, problems: lines(problems), notes: lines(notes) };
    }

    #pair(name, first, second) {
        const place = this.#memory.allocate(16);
        try {
            this.#memory.call(name, this.#handle, first, second, place);
            const [one, other] = this.#memory.doubles.subarray(place / 8, place / 8 + 2);
            return Number.isFinite(one) && Number.isFinite(other) ? [one, other] : null;
        } finally {
            this.#memory.release(place);
        }
    }

    degreesAt(x, y) {
        const found = this.#pair("degreesAt", x, y);
        return found && { latitude: found[0], longitude: found[1] };
    }

    pointAt(latitude, longitude) {
        const found = this.#pair("pointAt", latitude, longitude);
        return found && { x: found[0], y: found[1] };
    }

    close() {
        this.#memory.tell("closeMap", this.#handle);
    }
}
