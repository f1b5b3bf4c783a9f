// Bundles the page into one folder of files, which any server can serve and a browser can open as files: scripts are
// no modules, which browsers don't load from files.
import { createHash } from "node:crypto";
import { copyFileSync, mkdirSync, readFileSync, readdirSync, rmSync, writeFileSync } from "node:fs";
import { build } from "esbuild";

const SOURCE = new URL("page/", import.meta.url);
const FOLDER = new URL("../../build/web/page/", import.meta.url);
const STATIC = ["index.html", "style.css", "icon.svg", "manifest.webmanifest"];

rmSync(FOLDER, { recursive: true, force: true });
mkdirSync(FOLDER, { recursive: true });
const options = {
    absWorkingDir: new URL(".", import.meta.url).pathname,
    outdir: FOLDER.pathname,
    bundle: true,
    minify: true,
    format: "iife",
    target: "es2022",
    define: { "import.meta.url": "location.href" },
    conditions: ["browser"],
    logLevel: "warning",
};
await build({ ...options, entryPoints: ["page/main.ts", "page/worker.ts"] });
for (const name of STATIC) copyFileSync(new URL(name, SOURCE), new URL(name, FOLDER));
copyFileSync(new URL("package/tessara.wasm", import.meta.url), new URL("tessara.wasm", FOLDER));

// A page that has changed has another version, and the browser keeps the new one.
const files = readdirSync(FOLDER).sort();
const hash = createHash("sha256");
for (const name of files) hash.update(name).update(readFileSync(new URL(name, FOLDER)));
const define = {
    ...options.define,
    FILES: JSON.stringify(["./", ...files]),
    VERSION: JSON.stringify(`tessara-${hash.digest("hex").slice(0, 12)}`),
};
await build({ ...options, entryPoints: ["page/service_worker.ts"], define });

// From a file the module is a script. The page that a server serves doesn't need it.
const module = readFileSync(new URL("tessara.wasm", FOLDER)).toString("base64");
writeFileSync(new URL("module.js", FOLDER), `TESSARA_MODULE = "${module}";\n`);
