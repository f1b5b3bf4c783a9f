// A page waits for its module, so modules have to stay small: 50 and 300 kilobytes compressed, as web servers send them, and
// a hundredth more for other versions of the compiler and of the compressor.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { test } from "node:test";
import { brotliCompressSync } from "node:zlib";
import { fileFor } from "../package/tessara.js";

const MOST_BYTES = { conversions: 50_500, all: 303_000 };

for (const [part, most] of Object.entries(MOST_BYTES)) {
    test(`part '${part}' stays below ${most} bytes`, () => {
        const module = readFileSync(new URL(`../package/${fileFor(part)}`, import.meta.url));
        const size = brotliCompressSync(module).length;
        assert.ok(size <= most, `${size} bytes`);
    });
}
