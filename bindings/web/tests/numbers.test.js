// What the module lets JavaScript do has the texts and the values of a complete standard library.
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { test } from "node:test";
import { fileURLToPath } from "node:url";
import { fixedText, numberImports, scientificText } from "../package/numbers.js";
import { ROOT } from "./support.js";

const NATIVE = fileURLToPath(new URL("build/web/double_text_test", ROOT));
const DECIMALS = [0, 1, 7, 23, 60];

function doubleOf(hexadecimal) {
    const bits = new DataView(new ArrayBuffer(8));
    bits.setBigUint64(0, BigInt(`0x${hexadecimal}`));
    return bits.getFloat64(0);
}

test("texts of numbers are those of the native library", () => {
    const lines = execFileSync(NATIVE, ["texts"], { encoding: "utf8", maxBuffer: 1 << 26 }).trimEnd().split("\n");
    assert.ok(lines.length > 14000);
    for (const line of lines) {
        const [bits, scientific, ...fixed] = line.split(" ");
        const value = doubleOf(bits);
        // The standard library writes exponents with at least two digits.
        assert.equal(scientificText(value).replace(/([+-])(\d)$/, "$10$2"), scientific);
        assert.deepEqual(DECIMALS.map((decimals) => fixedText(value, decimals)), fixed);
        assert.equal(Number(scientific), value);
    }
});

test("ties are rounded to even", () => {
    assert.deepEqual([0.5, 1.5, 2.5].map((value) => fixedText(value, 0)), ["0", "2", "2"]);
    assert.deepEqual([0.125, 0.375].map((value) => fixedText(value, 2)), ["0.12", "0.38"]);
});

test("a text that is longer than there is room isn't written", () => {
    const memory = new WebAssembly.Memory({ initial: 1 });
    const { writeFixed, readNumber } = numberImports(() => memory);
    assert.equal(writeFixed(1234.5, 1, 8, 5), 0);
    assert.equal(writeFixed(1234.5, 1, 8, 6), 6);
    assert.equal(readNumber(8, 6), 1234.5);
});
