// How the page was opened: from a server, or as a file, where browsers fetch nothing.
import { load, type Tessara } from "tessara";

declare global {
    // The module in base 64, which module.js sets.
    var TESSARA_MODULE: string | undefined;
}

export function isFile(): boolean {
    return location.protocol === "file:";
}

async function moduleOfFile(): Promise<ArrayBuffer> {
    const script = document.createElement("script");
    script.src = "module.js";
    await new Promise((resolve, reject) => {
        script.addEventListener("load", resolve);
        script.addEventListener("error", () => reject(new Error("module.js isn't there")));
        document.head.append(script);
    });
    const letters = atob(globalThis.TESSARA_MODULE ?? "");
    const bytes = new Uint8Array(letters.length);
    for (let i = 0; i < letters.length; ++i) bytes[i] = letters.charCodeAt(i);
    globalThis.TESSARA_MODULE = undefined;
    return bytes.buffer;
}

export function loadLibrary(): Promise<Tessara> {
    return isFile() ? load({ source: moduleOfFile() }) : load();
}

// What only a server gives: the page's manifest, and the service worker that keeps the page.
export function keepPage(): void {
    if (isFile()) return;
    const manifest = document.createElement("link");
    manifest.rel = "manifest";
    manifest.href = "manifest.webmanifest";
    document.head.append(manifest);
    if ("serviceWorker" in navigator) navigator.serviceWorker.register("service_worker.js").catch(() => {});
}
