import assert from "node:assert/strict";
import { request } from "node:http";
import { test } from "node:test";
import { serve } from "../serve.js";

// The address as it is given: fetch would tidy it.
function statusOf(port, path) {
    return new Promise((resolve, reject) => {
        request({ host: "127.0.0.1", port, path }, (response) => {
            response.resume();
            resolve(response.statusCode);
        }).on("error", reject).end();
    });
}

test("the server answers any address, and with files of the page alone", async () => {
    const server = await serve(0);
    const { port } = server.address();
    try {
        assert.equal(await statusOf(port, "/"), 200);
        for (const path of ["/%E0%A4%A", "//", "/%00", "/../serve.js", "/%2e%2e/%2e%2e/CMakeCache.txt", "/nowhere", "http://[/"])
            assert.equal(await statusOf(port, path), 404, path);
        assert.equal(await statusOf(port, "/main.js"), 200);
    } finally {
        server.close();
    }
});
