// Debian's Chromium without a window, the page served to it, and what the page complains of.
import assert from "node:assert/strict";
import { mkdirSync } from "node:fs";
import { after, before } from "node:test";
import { chromium } from "playwright-core";
import { serve } from "../serve.js";
import { ROOT } from "./support.js";

export const SCREENSHOTS = new URL("build/web/screenshots/", ROOT);
export const DESK = { width: 1200, height: 800 };
export const PHONE = { width: 375, height: 760 };
export const MUNICH = "32UPU9160334791";

let server;
export let browser;
export let address;

before(async () => {
    server = await serve(0);
    address = `http://127.0.0.1:${server.address().port}/`;
    browser = await chromium.launch({ executablePath: "/usr/bin/chromium", args: ["--no-sandbox", "--disable-dev-shm-usage"] });
    mkdirSync(SCREENSHOTS, { recursive: true });
});

after(async () => {
    await browser?.close();
    server?.close();
});

// A page in a browser without memory of earlier ones. What it complains of is collected.
export async function open({ viewport = DESK, hash = "", from = address, ...options } = {}) {
    const context = await browser.newContext({ viewport, acceptDownloads: true, ...options });
    const page = await context.newPage();
    const complaints = [];
    page.on("console", (message) => {
        if (["error", "warning"].includes(message.type())) complaints.push(message.text());
    });
    page.on("pageerror", (error) => complaints.push(String(error)));
    await page.goto(from + hash);
    await page.waitForSelector("html[data-ready]");
    return { page, context, complaints };
}

export async function close({ context, complaints }) {
    await context.close();
    assert.deepEqual(complaints, []);
}

export function valueOf(page, system) {
    return page.locator(`[data-system="${system}"]`).textContent();
}
