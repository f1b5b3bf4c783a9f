// A page waits for its module, so modules have to stay small, compressed as web servers send them.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { test } from "node:test";
import { brotliCompressSync } from "node:zlib";
import { fileFor } from "../package/tessara.js";

const MOST_BYTES = { conversions: 50_000, all: 300_000 };

for (const [part, most] of Object.entries(MOST_BYTES)) {
    test(`part '${part}' stays below ${most} bytes`, () => {
        const module = readFileSync(new URL(`../package/${fileFor(part)}`, import.meta.url));
        const size = brotliCompressSync(module).length;
        assert.ok(size <= most, `${size} bytes`);
    });
}
