// The package in browsers, their workers, and other hosts that fetch: modules are files beside this one.
import { fileFor, instantiate } from "./tessara.js";

export * from "./tessara.js";

export async function load(options = {}) {
    return instantiate(options.source ?? fetch(new URL(fileFor(options.part), import.meta.url)));
}
