// What a module does when its memory has run out: each call says so, and goes on once there is memory again.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { test } from "node:test";
import { Memory } from "../package/memory.js";
import { importsWith } from "../package/tessara.js";

const DONE = 0;
const NO_MEMORY = 2;

test("a call without memory fails, and the next one with memory succeeds", () => {
    const module = new WebAssembly.Module(readFileSync(new URL("../package/tessara.wasm", import.meta.url)));
    const { exports } = new WebAssembly.Instance(module, importsWith(() => exports.memory));
    exports._initialize?.();
    assert.equal(exports.datums(), DONE);
    const taken = [];
    for (let size = 2 ** 28; size >= 8; size /= 2) {
        for (let place = exports.allocate(size); place !== 0; place = exports.allocate(size)) taken.push(place);
    }
    assert.equal(exports.datums(), NO_MEMORY);
    for (const place of taken) exports.release(place);
    assert.equal(exports.datums(), DONE);
});

test("a module that has stopped isn't called again", () => {
    let calls = 0;
    const trap = () => {
        ++calls;
        throw new WebAssembly.RuntimeError("unreachable");
    };
    const memory = new Memory({ memory: new WebAssembly.Memory({ initial: 1 }), trap });
    assert.throws(() => memory.call("trap"), WebAssembly.RuntimeError);
    assert.throws(() => memory.call("trap"), /load it again/);
    assert.equal(calls, 1);
});
