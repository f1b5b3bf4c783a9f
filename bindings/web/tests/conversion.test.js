import assert from "node:assert/strict";
import { test } from "node:test";
import { Letters, PositionError, load } from "tessara";
import { MILLIMETRE, randomColumns, rows } from "./support.js";

const tessara = await load();
const small = await load({ part: "conversions" });

function near(is, should, tolerance, what = "") {
    assert.ok(Math.abs(is - should) <= tolerance, `${what}: ${is} instead of ${should}`);
}

test("UTM is that of GeographicLib", () => {
    const stored = rows("kernel/utm.txt");
    const result = tessara.convert(stored.map((row) => Number(row[0])), stored.map((row) => Number(row[1])));
    stored.forEach(([, , zone, easting, northing], i) => {
        assert.equal(`${result.zone[i]}${result.hemisphere.at(i).toLowerCase()}`, zone.replace(/^0/, ""));
        near(result.easting[i], Number(easting), MILLIMETRE, zone);
        near(result.northing[i], Number(northing), MILLIMETRE, zone);
    });
});

for (const [file, reference, north, east] of [
    ["swiss_grid", "CH@CH1903", "northing", "easting"],
    ["british_grid", "BNG@OGB_M", "fullNorthing", "fullEasting"],
]) {
    test(`${reference} is that of PROJ`, () => {
        let count = 0;
        for (const row of rows(`kernel/${file}.txt`)) {
            const [latitude, longitude, easting, northing] = row.map(Number);
            const datum = reference.split("@")[1];
            let result;
            try {
                result = tessara.convert(latitude, longitude, { from: `GEODEZ@${datum}`, to: reference });
            } catch (error) {
                assert.ok(error instanceof PositionError); // outside the area of the grid
                continue;
            }
            near(result[east], easting, MILLIMETRE, row.join(" "));
            near(result[north], northing, MILLIMETRE, row.join(" "));
            ++count;
        }
        assert.ok(count > 5);
    });
}

test("military references are those of GeoConvert", () => {
    const stored = rows("kernel/utmref.txt");
    const texts = tessara.format(stored.map((row) => Number(row[0])), stored.map((row) => Number(row[1])));
    stored.forEach((row, i) => assert.equal(texts[i], row[2].replace(/^0/, "")));
});

test("earth-centred positions take heights in and give them back", () => {
    for (const row of rows("kernel/ecef.txt").filter(([datum]) => datum === "2")) {
        const [, latitude, longitude, height, x, y, z] = row.map(Number);
        const there = tessara.convert(latitude, longitude, { to: "ECEF", height });
        near(there.x, x, MILLIMETRE);
        near(there.y, y, MILLIMETRE);
        near(there.z, z, MILLIMETRE);
        const back = tessara.convert({ x, y, z }, { from: "ECEF", to: "GEODEZ" });
        near(back.latitude, latitude, 1e-8); // a millimetre
        near(back.height, height, MILLIMETRE);
    }
});

test("distances are those of GeodSolve", () => {
    const stored = rows("kernel/geodesic_inverse.txt").filter(([datum]) => datum === "2").map((row) => row.map(Number));
    const column = (k) => Float64Array.from(stored, (row) => row[k]);
    const ways = tessara.distance(column(1), column(2), column(3), column(4));
    const ends = tessara.direct(column(1), column(2), column(5), column(7));
    stored.forEach((row, i) => {
        near(ways.distance[i], row[7], MILLIMETRE);
        near(ends.latitude[i], row[3], 1e-8);
        near(Math.sin(((ends.longitude[i] - row[4]) * Math.PI) / 180), 0, 1e-8);
    });
    const one = tessara.distance(...stored[0].slice(1, 5));
    assert.equal(one.distance, ways.distance[0]);
});

test("a position comes back from each system", () => {
    const homes = [["UTM"], ["UTMREF", 1.5], ["GEOGRAD"], ["GEODEZMIN"], ["UPS", MILLIMETRE, 86], ["GK@GER"], ["CH@CH1903", MILLIMETRE, 47, 8], ["RD", MILLIMETRE, 52, 5], ["TM:lon0=12,k=0.9996"]];
    for (const [to, metres = MILLIMETRE, latitude = 48.1375, longitude = 11.5755] of homes) {
        const fields = tessara.convert(latitude, longitude, { to });
        const back = tessara.convert(fields, { from: to, to: "GEODEZ" });
        near(tessara.distance(latitude, longitude, back.latitude, back.longitude).distance, 0, metres, to);
    }
});

test("arrays, single positions and both modules give the same bits", () => {
    const [latitude, longitude] = randomColumns(10000, -80, 84, -180, 180);
    for (const to of ["UTM", "UTMREF", "GEOREF", "GEOGRAD@GER", "GK@GER", "ECEF", "VDG", "BNG@OGB_M"]) {
        const many = tessara.convert(latitude, longitude, { to });
        assert.deepEqual(small.convert(latitude, longitude, { to }), many);
        for (let i = 0; i < latitude.length; i += 97) {
            if (many.status[i] !== 1) {
                assert.throws(() => tessara.convert(latitude[i], longitude[i], { to }), { status: many.status[i] });
                continue;
            }
            const one = tessara.convert(latitude[i], longitude[i], { to });
            for (const [name, value] of Object.entries(one)) {
                const there = many[name] instanceof Letters ? many[name].at(i) : many[name][i];
                assert.ok(Object.is(there, value), `${to} ${name}`);
            }
        }
    }
});

test("columns have the bits of records", () => {
    const homes = [["UTM", -80, 84, -180, 180], ["GK@GER", 40, 60, 0, 20], ["CH@CH1903", 46, 47.5, 6, 10], ["RD@RNT_A", 50.5, 53.5, 3.5, 7], ["UPS", 84, 90, -180, 180], ["ECEF", -90, 90, -180, 180], ["BMN@HER", 46.5, 49, 9.6, 17], ["VDG", -80, 80, -170, 170]];
    const names = new Set(tessara.datums().map((datum) => datum.name));
    for (const [given, ...area] of homes) {
        const to = names.has(given.split("@")[1]) ? given : given.split("@")[0];
        const [latitude, longitude] = randomColumns(2000, ...area, 7);
        const many = tessara.convert(latitude, longitude, { to });
        for (let i = 0; i < latitude.length; ++i) {
            const { fields } = tessara.show(latitude[i], longitude[i], { to });
            if (fields === undefined) continue;
            for (const [name, value] of Object.entries(fields)) {
                if (typeof value !== "number") continue;
                assert.ok(many[name][i] === value, `${to} ${name} at ${latitude[i]} ${longitude[i]}`);
            }
        }
    }
});

test("the fields of one position have the bits and the statuses of arrays", () => {
    const utm = { zone: 32, hemisphere: "N", easting: 691602.66, northing: 5334791.14 };
    const military = { zone: 32, band: "U", square: "PU", easting: 91603, northing: 34791 };
    const cases = [
        ["UTM", utm], ["UTM", { ...utm, zone: 32.5 }], ["UTM", { ...utm, zone: NaN }], ["UTM", { ...utm, zone: Infinity }], ["UTM", { ...utm, zone: 1e9 }],
        ["UTM", { ...utm, hemisphere: "S" }], ["UTM", { ...utm, hemisphere: "x" }], ["UTM", { ...utm, northing: NaN }], ["UTM", { easting: 5e5, northing: 5e6 }],
        ["UTMREF", military], ["UTMREF", { ...military, square: "II" }], ["UTMREF", { ...military, easting: 0.5 }], ["UTMREF", { ...military, band: "PU" }],
        ["GEOREF", { letters: "NKMD", lonMinutes: 3453, latMinutes: 825 }], ["GK@GER", { easting: 4468510.9, northing: 5333359.7 }],
        ["BNG@OGB_M", { square: "TQ", easting: 30000, northing: 80000 }], ["GEODEZ", { latitude: 91, longitude: 0 }], ["GEODEZ", { latitude: 48 }],
    ];
    for (const [from, fields] of cases) {
        const columns = Object.fromEntries(Object.entries(fields).map(([name, value]) => [name, [value]]));
        for (const to of ["GEODEZ", "UTM", "GEOGRAD", "UTMREF"]) {
            for (const library of [tessara, small]) {
                const many = library.convert(columns, { from, to });
                if (many.status[0] !== 1) {
                    assert.throws(() => library.convert(fields, { from, to }), { status: many.status[0] }, `${from} ${JSON.stringify(fields)} to ${to}`);
                    continue;
                }
                const one = library.convert(fields, { from, to });
                for (const [name, value] of Object.entries(one)) assert.ok(Object.is(many[name].at(0), value), `${from} to ${to}: ${name}`);
            }
        }
    }
});

test("a position without fields is refused", () => {
    tessara.convert(48, 11);
    for (const fields of [{}, { height: 5 }, { status: 1 }]) assert.throws(() => tessara.convert(fields, { from: "UTM", to: "GEODEZ" }), TypeError);
});

test("many conversions by turns are those of a few", () => {
    const references = Array.from({ length: 200 }, (_, i) => `TM:lon0=${i % 100}`);
    const eastings = references.map((to) => small.convert(48, 11, { to }).easting);
    references.forEach((to, i) => assert.equal(small.convert(48, 11, { to }).easting, eastings[i]));
    assert.equal(new Set(eastings).size, 100);
});

test("rows without a result have a status, and NaN and no letters in their fields", () => {
    const result = tessara.convert([48, 91, NaN], 11, { to: "UTMREF" });
    assert.deepEqual(Array.from(result.status, Number).map((status) => status === 1), [true, false, false]);
    assert.ok(Number.isNaN(result.easting[1]));
    assert.equal(result.square.at(1), "");
    assert.deepEqual(result.square.toArray().slice(1), ["", ""]);
    assert.match(tessara.statusText(result.status[1]), /north/);
    assert.equal(tessara.statusText(1), "");
});

test("one position without a result is an error that says why", () => {
    assert.throws(() => tessara.convert(91, 11), (error) => error instanceof PositionError && /north/.test(error.message) && error.code !== "");
    assert.throws(() => tessara.distance(91, 0, 0, 0), PositionError);
    assert.throws(() => tessara.format(91, 0), PositionError);
});

test("wrong calls are refused with a reason", () => {
    assert.throws(() => tessara.convert(48, 11, { to: "UTN" }), /UTM/);
    assert.throws(() => tessara.convert(48, 11, { to: "UTM@NOWHERE" }), TypeError);
    assert.throws(() => tessara.convert("48", 11), TypeError);
    assert.throws(() => tessara.convert([1, 2], [1]), RangeError);
    assert.throws(() => tessara.convert({ latitude: 1, easting: 2 }, { from: "GEODEZ" }), /no field 'easting'/);
    assert.throws(() => tessara.convert(1, 2, { from: "ECEF" }), TypeError);
    assert.throws(() => tessara.convert(1, 2, { to: "FLOATPIXEL" }), TypeError);
    assert.throws(() => small.parse("48 11"), /part 'all'/);
    assert.throws(() => tessara.convert({ zone: 32.5, hemisphere: "N", easting: 5e5, northing: 5e6 }, { from: "UTM", to: "GEODEZ" }), PositionError);
});

test("letters that don't fit a field are refused instead of cut", () => {
    const munich = tessara.convert([48.1375], [11.5755], { to: "UTMREF" });
    const one = { zone: 32, band: "U", square: "PU", easting: 91603, northing: 34791 };
    assert.equal(tessara.convert(one, { from: "UTMREF", to: "UTM" }).zone, 32);
    assert.throws(() => tessara.convert({ ...one, square: "PUX" }, { from: "UTMREF", to: "UTM" }), PositionError);
    assert.throws(() => tessara.convert({ ...one, band: "UU" }, { from: "UTMREF", to: "UTM" }), PositionError);
    assert.throws(() => tessara.convert({ ...munich, band: munich.square }, { from: "UTMREF", to: "UTM" }), /band has 1 letters/);
});

test("arrays of numbers have the texts of typed arrays over several blocks", () => {
    const latitude = Array.from({ length: 10000 }, (_, i) => (i % 160) - 80);
    const longitude = Array.from({ length: 10000 }, (_, i) => (i % 359) - 179);
    for (const to of ["GEOGRAD", "UTMREF"]) {
        const texts = tessara.format(latitude, longitude, { to, digits: 4 });
        assert.deepEqual(texts, tessara.format(Float64Array.from(latitude), Float64Array.from(longitude), { to, digits: 4 }));
        const alone = tessara.format(latitude[9000], longitude[9000], { to, digits: 4 });
        assert.deepEqual(to === "UTMREF" ? texts[9000] : { north: texts.north[9000], east: texts.east[9000] }, alone);
    }
});

test("empty arrays give empty columns", () => {
    const result = tessara.convert(new Float64Array(), new Float64Array());
    assert.equal(result.easting.length, 0);
    assert.deepEqual(tessara.format([], []), []);
});

test("ten thousand different conversions don't use up the memory", () => {
    for (let i = 0; i < 10000; ++i) small.convert(48, 11, { to: `TM:lon0=${i / 100 - 50}` });
    assert.equal(small.convert(48, 11).zone, 32);
});

test("a module that another thread has compiled is loaded", async () => {
    const other = await load({ source: small.module });
    assert.deepEqual(other.convert(48.1375, 11.5755), small.convert(48.1375, 11.5755));
});

test("systems and datums are listed", () => {
    const systems = tessara.systems();
    assert.deepEqual(systems.find((system) => system.name === "UTM").fields, ["zone", "hemisphere", "easting", "northing"]);
    const datums = tessara.datums();
    assert.equal(datums.length, 239);
    // The ellipsoid's defining constants (NIMA TR8350.2).
    assert.equal(datums.find((datum) => datum.name === "WGS84").a, 6378137);
    assert.equal(small.datums()[2].title, undefined);
});
