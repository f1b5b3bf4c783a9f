// Conversions of stored seeds have the bits of the native library, for each type of coordinates, into it and out of it,
// and so have geodesics.
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { closeSync, openSync, readFileSync, rmSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { test } from "node:test";
import { fileURLToPath } from "node:url";
import { WASI } from "node:wasi";
import { ROOT } from "./support.js";

const POSITIONS = process.env.TESSARA_DIGEST_POSITIONS ?? "100000";
const NATIVE = fileURLToPath(new URL("build/release/bin/conversion_digest", ROOT));
const MODULE = new URL("build/web/modules/web_digest.wasm", ROOT);

test(`${POSITIONS} positions of each type have the bits of the native library`, async () => {
    const native = execFileSync(NATIVE, [POSITIONS], { encoding: "utf8" });
    const output = join(tmpdir(), `tessara-digest-${process.pid}`);
    const stdout = openSync(output, "w");
    try {
        const wasi = new WASI({ version: "preview1", args: ["digest", POSITIONS], stdout, returnOnExit: true });
        const { instance } = await WebAssembly.instantiate(readFileSync(MODULE), {
            wasi_snapshot_preview1: wasi.wasiImport,
            env: new Proxy({}, { get: () => () => -1, has: () => true }),
        });
        assert.equal(wasi.start(instance), 0);
    } finally {
        closeSync(stdout);
    }
    const inModule = readFileSync(output, "utf8");
    rmSync(output);
    assert.ok(native.split("\n").length > 20);
    assert.equal(inModule, native);
});
