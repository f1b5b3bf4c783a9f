import assert from "node:assert/strict";
import { readFileSync, readdirSync } from "node:fs";
import { test } from "node:test";
import { TextError, load } from "tessara";
import { ROOT } from "./support.js";

const tessara = await load();
const SECOND = 1 / 3600;

test("texts are read as people type them", () => {
    const spellings = ["48.1375 11.5755", "48,1375 11,5755", "N 48 8.25, E 11 34.53", "48°08'15\"N 11°34'31.8\"E", "11°34'31.8\"E 48°08'15\"N"];
    for (const text of spellings) {
        const reading = tessara.parse(text);
        // 8' 15" = 0.1375 degrees; 34' 31.8" = 34.53' = 0.5755 degrees
        assert.ok(Math.abs(reading.latitude - 48.1375) < 1e-9, text);
        assert.ok(Math.abs(reading.longitude - 11.5755) < 1e-9, text);
    }
});

test("a military reference is written and read", () => {
    const text = tessara.format(48.1375, 11.5755);
    const reading = tessara.parse(text);
    assert.equal(reading.system, "UTMREF");
    assert.ok(tessara.distance(48.1375, 11.5755, reading.latitude, reading.longitude).distance < 1);
    assert.equal(tessara.format(48.1375, 11.5755, { digits: 2 }).length, "32UPU0000".length);
    assert.throws(() => tessara.format(48, 11, { digits: 6 }), RangeError);
});

test("one reference and many are the same texts", () => {
    const latitudes = Float64Array.from({ length: 9000 }, (_, i) => -79 + (i * 162) / 9000);
    const longitudes = Float64Array.from({ length: 9000 }, (_, i) => ((i * 7919) % 36000) / 100 - 180);
    const many = tessara.format(latitudes, longitudes);
    const other = tessara.format(latitudes, longitudes, { from: "GEODEZ@WGS84" });
    assert.deepEqual(many, other);
    for (let i = 0; i < many.length; i += 53) {
        assert.equal(tessara.format(latitudes[i], longitudes[i]), many[i]);
        // The slow way: each text by the writer of all systems.
        assert.deepEqual(tessara.show(latitudes[i], longitudes[i], { to: "UTMREF" }).texts, [many[i]]);
    }
    assert.deepEqual(new Set(many.map((text) => text.length)), new Set([14, 15])); // zones of one digit and of two
});

test("a position without a reference has an empty text among many", () => {
    const [before, none, after] = tessara.format([48.1375, 91, 48.1375], [11.5755, 0, 11.5755]);
    assert.deepEqual([before, none, after], ["32UPU9160334791", "", "32UPU9160334791"]);
    assert.throws(() => tessara.format(91, 0), (error) => error.code !== "");
    assert.throws(() => tessara.format("48", "11"), TypeError);
});

test("others have a north and an east text", () => {
    const { north, east } = tessara.format(48.1375, 11.5755, { to: "GEOGRAD" });
    assert.match(`${north} ${east}`, /48.*8.*15/);
    const reading = tessara.parse(`${north} ${east}`);
    assert.ok(Math.abs(reading.latitude - 48.1375) < SECOND);
    assert.equal(tessara.format([48, 91], [11, 11], { to: "GEOGRAD" }).north[1], "");
});

test("a wrong text is refused with its piece", () => {
    assert.throws(() => tessara.parse("32I PU 91603 34791"), (error) => error instanceof TextError && error.piece === "I");
    const check = tessara.check("é 48 11 x");
    assert.equal(check.good, false);
    assert.equal("é 48 11 x".slice(check.begin, check.end), check.piece);
});

test("a text with several meanings has them all", () => {
    const check = tessara.check("48,137 11,575");
    assert.ok(check.good || check.meanings.length > 1);
});

test("many texts are read at once", () => {
    const { latitude, longitude } = tessara.parse(["48 11", "nothing", "32U PU 91603 34791", "48\n11"]);
    assert.deepEqual([latitude[0], longitude[0]], [48, 11]);
    assert.ok(Number.isNaN(latitude[1]));
    assert.ok(Math.abs(latitude[2] - 48.1375) < 1e-4);
    assert.equal(latitude.length, 4);
    const degrees = Array.from({ length: 10000 }, (_, i) => i / 125);
    const many = tessara.parse(degrees.map((degree) => `${degree} ${degree / 2}`));
    assert.deepEqual([...many.latitude], degrees);
    assert.deepEqual([...many.longitude], degrees.map((degree) => degree / 2));
    assert.equal(tessara.parse([]).latitude.length, 0);
    assert.throws(() => tessara.parse([], { system: "nothing" }), TypeError);
});

test("references among many texts are read as each by itself", () => {
    // The last ones have no such square, no such band and no such zone.
    const texts = ["32UPU9160334791", "32UPU916348", "4QFJ12345678", "1 2", "32U PU 91603 34791", "32UAA9160334791", "32IPU9160334791", "61UPU9160334791"];
    const { latitude, longitude } = tessara.parse(texts);
    texts.forEach((text, i) => {
        const alone = tessara.check(text).good ? tessara.parse(text) : { latitude: NaN, longitude: NaN };
        assert.deepEqual([latitude[i], longitude[i]], [alone.latitude, alone.longitude], text);
    });
    assert.deepEqual([...latitude].map(Number.isNaN), [false, false, false, false, false, true, true, true]);
});

test("any bytes are read or refused", () => {
    let count = 0;
    for (const corpus of ["typed", "texts"]) {
        const directory = new URL(`fuzz/corpus/${corpus}/`, ROOT);
        for (const file of readdirSync(directory)) {
            const bytes = readFileSync(new URL(file, directory));
            for (const text of [bytes.toString("latin1"), bytes.toString("utf8"), bytes.toString("utf16le")]) {
                for (const system of ["auto", "UTM", "GEOREF", "BNG"]) {
                    const check = tessara.check(text, { system });
                    assert.ok(check.good === (check.code === ""));
                    ++count;
                }
            }
        }
    }
    assert.ok(count > 500);
    assert.equal(tessara.check("\ud800 48 11").good, false);
});

test("a military reference is entered piece by piece", () => {
    // Zone 32 has the columns J to R in all (DMA TM 8358.1).
    const { zones, bands } = tessara.militaryChoices();
    assert.equal(zones.length, 60);
    assert.equal(bands.join(""), "CDEFGHJKLMNPQRSTUVWX");
    const { columns } = tessara.militaryChoices({ zone: "32", band: "U" });
    assert.ok(columns.every((letter) => "JKLMNPQR".includes(letter)) && columns.includes("P"));
    const { rows } = tessara.militaryChoices({ zone: "32", band: "U", column: "P" });
    assert.ok(rows.includes("U"));
    const done = tessara.militaryChoices({ zone: "32", band: "U", column: "P", row: "U", easting: "916", northing: "347" });
    assert.ok(Math.abs(done.latitude - 48.13) < 0.01);
    assert.equal(tessara.militaryChoices({ zone: "99" }).columns.length, 0);
});
