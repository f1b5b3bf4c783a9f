// Serves the page at 127.0.0.1, on the port of the environment variable PORT or 8025.
import { createReadStream, statSync } from "node:fs";
import { createServer } from "node:http";
import { extname, join, normalize } from "node:path";
import { fileURLToPath } from "node:url";

const FOLDER = fileURLToPath(new URL("../../build/web/page/", import.meta.url));
const TYPES = {
    ".html": "text/html; charset=utf-8", ".js": "text/javascript; charset=utf-8", ".css": "text/css; charset=utf-8",
    ".svg": "image/svg+xml", ".wasm": "application/wasm", ".webmanifest": "application/manifest+json",
};

// The file of an address; null where it has none, as for one that isn't well formed.
function fileOf(address) {
    try {
        const path = normalize(decodeURIComponent(new URL(address, "http://localhost").pathname));
        const file = join(FOLDER, path.endsWith("/") ? `${path}index.html` : path);
        return file.startsWith(FOLDER) && statSync(file).isFile() ? file : null;
    } catch {
        return null;
    }
}

export function serve(port) {
    const server = createServer((request, response) => {
        const file = fileOf(request.url);
        if (file === null) {
            response.writeHead(404).end();
            return;
        }
        response.writeHead(200, { "content-type": TYPES[extname(file)] ?? "application/octet-stream" });
        createReadStream(file).pipe(response);
    });
    return new Promise((resolve) => server.listen(port, "127.0.0.1", () => resolve(server)));
}

if (process.argv[1] === fileURLToPath(import.meta.url)) {
    const server = await serve(Number(process.env.PORT ?? 8025));
    console.log(`http://127.0.0.1:${server.address().port}/`);
}
