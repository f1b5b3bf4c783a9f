// Keeps the whole page, so that it opens without a network. The build replaces the list of files and the version.
declare const FILES: string[];
declare const VERSION: string;

interface Extendable extends Event {
    waitUntil(done: Promise<unknown>): void;
}
interface Fetching extends Extendable {
    readonly request: Request;
    respondWith(response: Promise<Response>): void;
}

addEventListener("install", (event) => {
    (event as Extendable).waitUntil(caches.open(VERSION).then((cache) => cache.addAll(FILES)));
});

addEventListener("activate", (event) => {
    const forget = async () => {
        for (const name of await caches.keys()) {
            if (name !== VERSION && name.startsWith("tessara-")) await caches.delete(name);
        }
    };
    (event as Extendable).waitUntil(forget());
});

addEventListener("fetch", (event) => {
    const fetching = event as Fetching;
    if (fetching.request.method !== "GET") return;
    const answer = async () =>
        (await caches.match(fetching.request, { ignoreSearch: true, cacheName: VERSION })) ?? fetch(fetching.request);
    fetching.respondWith(answer());
});
