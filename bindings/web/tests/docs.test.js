// The examples of docs/web.md print what stands below them.
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { readFileSync, rmSync, writeFileSync } from "node:fs";
import { test } from "node:test";
import { fileURLToPath } from "node:url";
import { ROOT } from "./support.js";

const PAGE = readFileSync(new URL("docs/web.md", ROOT), "utf8");

test("the example for Node prints what stands below it", () => {
    const [, code, output] = /```js\n([\s\S]*?)```\n```text\n([\s\S]*?)```/.exec(PAGE);
    // Beside the package, so that its name leads there.
    const file = fileURLToPath(new URL(`../example-${process.pid}.mjs`, import.meta.url));
    writeFileSync(file, code);
    try {
        assert.equal(execFileSync(process.execPath, [file], { encoding: "utf8" }), output);
    } finally {
        rmSync(file);
    }
});
