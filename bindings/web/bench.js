// Measures the package beside the npm packages proj4 and mgrs, in one run, and how long loading takes:
//
//     scripts/web bench
import mgrs from "mgrs";
import proj4 from "proj4";
import { readFileSync } from "node:fs";
import { gzipSync, brotliCompressSync } from "node:zlib";
import { load } from "tessara";
import { randomColumns } from "./tests/support.js";

const RUNS = 3;
const MANY = 1e6;
const FEW = 1e5;

function processorTime() {
    const { user, system } = process.cpuUsage();
    return (user + system) / 1000;
}

// The best of some runs, by turns, in milliseconds of the processor, which other work on the machine disturbs less.
function measure(works) {
    const best = works.map(() => Infinity);
    for (let run = 0; run < RUNS; ++run) {
        works.forEach((work, k) => {
            const began = processorTime();
            work();
            best[k] = Math.min(best[k], processorTime() - began);
        });
    }
    return best;
}

function row(name, ours, theirs) {
    const [mine, other] = measure(theirs ? [ours, theirs] : [ours]);
    const peer = theirs ? `${other.toFixed(0)} | ${(other / mine).toFixed(1)}` : "- | -";
    console.log(`| ${name} | ${mine.toFixed(0)} | ${peer} |`);
}

for (const name of ["conversions.wasm", "tessara.wasm"]) {
    const bytes = readFileSync(new URL(`package/${name}`, import.meta.url));
    console.log(`${name}: ${bytes.length} bytes, gzip ${gzipSync(bytes).length}, brotli ${brotliCompressSync(bytes).length}`);
}
for (const part of ["conversions", "all"]) {
    const began = performance.now();
    (await load({ part })).convert(48.1375, 11.5755);
    console.log(`${part}: loaded, first result after ${(performance.now() - began).toFixed(0)} ms`);
}

const tessara = await load();
const [latitude, longitude] = randomColumns(MANY, 0, 80, 6, 12);
const [swissLatitude, swissLongitude] = randomColumns(MANY, 45.8, 47.8, 6, 10.4);
const utm32 = proj4("EPSG:4326", "+proj=utm +zone=32 +datum=WGS84 +units=m");
const swiss = proj4("EPSG:4326",
    "+proj=somerc +lat_0=46.9524055555556 +lon_0=7.43958333333333 +k_0=1 +x_0=600000 +y_0=200000 +ellps=bessel +towgs84=660.077,13.551,369.344");
const each = (count, work, north = latitude, east = longitude) => () => {
    for (let i = 0; i < count; ++i) work(east[i], north[i]);
};
const { easting, northing, zone, hemisphere } = tessara.convert(latitude, longitude);
const references = tessara.format(latitude.subarray(0, FEW), longitude.subarray(0, FEW));

console.log("| milliseconds | tessara | other | times as fast |\n|:---|---:|---:|---:|");
row("a million positions to UTM, one zone (proj4)", () => tessara.convert(latitude, longitude),
    each(MANY, (lon, lat) => utm32.forward([lon, lat])));
row("a million positions from UTM (proj4)",
    () => tessara.convert({ zone, hemisphere, easting, northing }, { from: "UTM", to: "GEODEZ" }),
    () => { for (let i = 0; i < MANY; ++i) utm32.inverse([easting[i], northing[i]]); });
row("a million positions in Switzerland to its grid and datum (proj4)",
    () => tessara.convert(swissLatitude, swissLongitude, { to: "CH@CH1903" }),
    each(MANY, (lon, lat) => swiss.forward([lon, lat]), swissLatitude, swissLongitude));
row("an array of a million military references as texts (mgrs)", () => tessara.format(latitude, longitude),
    () => Array.from(latitude, (lat, i) => mgrs.forward([longitude[i], lat])));
row("100 000 single military references (mgrs)", each(FEW, (lon, lat) => tessara.format(lat, lon)),
    each(FEW, (lon, lat) => mgrs.forward([lon, lat])));
row("100 000 military references read (mgrs)", () => tessara.parse(references), () => { for (const text of references) mgrs.toPoint(text); });
row("a million military references in columns (mgrs)", () => tessara.convert(latitude, longitude, { to: "UTMREF" }),
    each(MANY, (lon, lat) => mgrs.forward([lon, lat])));
row("100 000 single positions to UTM (proj4)", each(FEW, (lon, lat) => tessara.convert(lat, lon, { to: "UTM" })),
    each(FEW, (lon, lat) => utm32.forward([lon, lat])));
const small = await load({ part: "conversions" });
row("the same with the small module (proj4)", each(FEW, (lon, lat) => small.convert(lat, lon, { to: "UTM" })),
    each(FEW, (lon, lat) => utm32.forward([lon, lat])));
row("a million positions to UTM with the small module (proj4)", () => small.convert(latitude, longitude),
    each(MANY, (lon, lat) => utm32.forward([lon, lat])));
row("a million distances", () => tessara.distance(latitude, longitude, 48, 11), null);
