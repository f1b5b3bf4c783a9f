// Copies modules into the package with their data in one segment. The optimizer leaves out zeros and makes hundreds of
// segments of it, which a compressor, who sees more likeness in the whole, turns into more bytes.
import { mkdirSync, readFileSync, writeFileSync } from "node:fs";

const HEADER = 8;
const DATA = 11;
const DATA_COUNT = 12;
const I32_CONST = 0x41;
const END = 0x0b;

class Reader {
    constructor(bytes, place = 0) {
        this.bytes = bytes;
        this.place = place;
    }

    byte() {
        return this.bytes[this.place++];
    }

    // LEB128, whose last byte has the sign of a signed number.
    number(isSigned = false) {
        let value = 0;
        let shift = 0;
        for (;;) {
            const byte = this.byte();
            value |= (byte & 0x7f) << shift;
            shift += 7;
            if (byte >= 0x80) continue;
            return isSigned && byte >= 0x40 && shift < 32 ? value | (-1 << shift) : value >>> 0;
        }
    }

    take(size) {
        this.place += size;
        return this.bytes.subarray(this.place - size, this.place);
    }
}

function unsigned(value) {
    const bytes = [];
    for (; value >= 0x80; value = Math.floor(value / 0x80)) bytes.push((value % 0x80) | 0x80);
    return Uint8Array.from([...bytes, value]);
}

// A number from 0 on as a signed one.
function signed(value) {
    const bytes = unsigned(value);
    return bytes.at(-1) < 0x40 ? bytes : Uint8Array.from([...bytes.slice(0, -1), bytes.at(-1) | 0x80, 0]);
}

function expect(isTrue) {
    if (!isTrue) throw new Error("not a module with active segments of data");
}

// The segments of the memory with number 0, each at a constant place.
function segmentsOf(section) {
    const reader = new Reader(section);
    return Array.from({ length: reader.number() }, () => {
        expect(reader.number() === 0 && reader.byte() === I32_CONST);
        const place = reader.number(true);
        expect(reader.byte() === END);
        return { place, bytes: reader.take(reader.number()) };
    });
}

function joined(segments) {
    const first = Math.min(...segments.map(({ place }) => place));
    const last = Math.max(...segments.map(({ place, bytes }) => place + bytes.length));
    const bytes = new Uint8Array(last - first);
    for (const segment of segments) bytes.set(segment.bytes, segment.place - first);
    return Buffer.concat([Uint8Array.of(1, 0, I32_CONST), signed(first), Uint8Array.of(END), unsigned(bytes.length), bytes]);
}

function withOneSegment(module) {
    const parts = [module.subarray(0, HEADER)];
    const reader = new Reader(module, HEADER);
    while (reader.place < module.length) {
        const id = reader.byte();
        const section = reader.take(reader.number());
        if (id === DATA_COUNT) continue; // without it no instruction names a segment: the module isn't valid then
        const content = id === DATA ? joined(segmentsOf(section)) : section;
        parts.push(Uint8Array.of(id), unsigned(content.length), content);
    }
    return Buffer.concat(parts);
}

const MODULES = new URL("../../build/web/modules/", import.meta.url);
const PACKAGE = new URL("package/", import.meta.url);
mkdirSync(PACKAGE, { recursive: true });
for (const name of ["tessara.wasm", "conversions.wasm"]) {
    const module = withOneSegment(readFileSync(new URL(name, MODULES)));
    new WebAssembly.Module(module);
    writeFileSync(new URL(name, PACKAGE), module);
}
