// The package in Node: modules are files beside this one.
import { readFile } from "node:fs/promises";
import { fileFor, instantiate } from "./tessara.js";

export * from "./tessara.js";

export async function load(options = {}) {
    return instantiate(options.source ?? (await readFile(new URL(fileFor(options.part), import.meta.url))));
}
