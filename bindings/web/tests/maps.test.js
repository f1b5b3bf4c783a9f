import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { existsSync, readFileSync, readdirSync } from "node:fs";
import { test } from "node:test";
import { fileURLToPath } from "node:url";
import { load } from "tessara";
import { ROOT } from "./support.js";

const tessara = await load();
const PICTURES = new URL("docs/pictures/", ROOT);
const PROGRAM = fileURLToPath(new URL("build/release/bin/tessara", ROOT));

test("pictures are those of the native program, byte for byte", { skip: !existsSync(PROGRAM) }, () => {
    const files = Object.fromEntries(readdirSync(PICTURES).filter((name) => name.endsWith(".geojson"))
        .map((name) => [name, readFileSync(new URL(name, PICTURES), "utf8")]));
    const names = readdirSync(PICTURES).filter((name) => name.endsWith(".json"));
    assert.ok(names.length > 10);
    for (const name of names) {
        const path = fileURLToPath(new URL(name, PICTURES));
        const native = execFileSync(PROGRAM, ["map", path], { encoding: "utf8", maxBuffer: 1 << 26 });
        const { svg, problems } = tessara.drawMap(readFileSync(path, "utf8"), { files });
        assert.deepEqual(problems, [], name);
        assert.ok(svg === native, name);
    }
});

test("a place of a picture is the position that is drawn there", () => {
    for (const width of [1000, 50e3, 2e6, 3e7]) {
        const map = tessara.openMap(tessara.mapAround(48.1375, 11.5755, width));
        const point = map.pointAt(48.1375, 11.5755);
        const there = map.degreesAt(point.x, point.y);
        assert.ok(tessara.distance(48.1375, 11.5755, there.latitude, there.longitude).distance < width / 1e4);
        map.close();
        assert.throws(() => map.draw(), /released/);
    }
});

test("what isn't a map is refused with a reason", () => {
    assert.throws(() => tessara.drawMap("{"), TypeError);
    assert.throws(() => tessara.drawMap({}), TypeError);
    assert.throws(() => tessara.drawMap(tessara.mapAround(48, 11, 1000), { size: 1e9 }), /units long/);
    assert.throws(() => tessara.mapAround(91, 0, 1000), TypeError);
});

test("a file that isn't there is a problem of the picture", () => {
    const map = tessara.mapAround(48, 11, 1000);
    map.layers.push({ type: "geojson", file: "nowhere.geojson" });
    assert.match(tessara.drawMap(map).problems.join(), /nowhere/);
});

test("a thousand maps are opened and closed", () => {
    const description = tessara.mapAround(48, 11, 5000);
    for (let i = 0; i < 1000; ++i) tessara.openMap(description).close();
});
