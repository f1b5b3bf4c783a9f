// The page in headless Chromium.
import assert from "node:assert/strict";
import { readFileSync, readdirSync } from "node:fs";
import { test } from "node:test";
import { DESK, MUNICH, PHONE, SCREENSHOTS, address, browser, close, open, valueOf } from "./browser.js";
import { ROOT } from "./support.js";

const AXE = readFileSync(new URL("../node_modules/axe-core/axe.min.js", import.meta.url), "utf8");

test("a position is shown in all systems, or why it has none", async () => {
    const opened = await open();
    const { page } = opened;
    await page.fill("#text", "48°08'15\"N 11°34'31.8\"E");
    assert.match(await page.textContent("#understood"), /^Understood as Degrees, minutes, seconds/);
    assert.equal(await valueOf(page, "UTMREF"), MUNICH);
    // 180 + 11 = 12 times 15 and 11 degrees, 90 + 48 = 9 times 15 and 3: the letters N, K, M, D; 34.53' and 08.25'.
    assert.equal(await valueOf(page, "GEOREF"), "NKMD34530825");
    assert.match(await valueOf(page, "UTM"), /^32N 691602\.6\d 5334791\.1\d$/);
    assert.match(await valueOf(page, "BNG"), /outside/);
    assert.equal(await page.locator('tr:has([data-system="BNG"]) button').isVisible(), false);
    await page.fill("#text", "");
    assert.equal(await page.textContent("#understood"), "Type a position.");
    assert.equal(await page.textContent("#systems"), "There is no position yet.");
    await close(opened);
});

test("a decimal comma is understood, and what is wrong is marked", async () => {
    const opened = await open();
    const { page } = opened;
    await page.fill("#text", "48,1375 11,5755");
    assert.equal(await valueOf(page, "UTMREF"), MUNICH);
    await page.fill("#text", "32I PU 91603 34791");
    assert.equal(await page.textContent("#understood mark"), "I");
    assert.equal(await page.getAttribute("#text", "aria-invalid"), "true");
    await close(opened);
});

test("a text is copied", async () => {
    const opened = await open({ permissions: ["clipboard-read", "clipboard-write"] });
    const { page } = opened;
    await page.click('tr:has([data-system="UTMREF"]) button');
    await page.waitForFunction(() => document.getElementById("copied").textContent.includes("clipboard"));
    assert.equal(await page.evaluate(() => navigator.clipboard.readText()), MUNICH);
    await close(opened);
});

test("a datum is found by its country, and changes the position", async () => {
    const opened = await open();
    const { page } = opened;
    const options = await page.locator("#datums option").evaluateAll((all) => all.map((option) => `${option.value} ${option.textContent}`));
    assert.equal(options.length, 239);
    assert.ok(options.some((option) => /Ethiopia/.test(option)));
    const before = await valueOf(page, "UTMREF");
    await page.fill("#datum", "ger");
    assert.match(await page.textContent("#datum-about"), /Bessel/i);
    await page.fill("#text", "48.1375 11.5755");
    assert.notEqual(await valueOf(page, "GK"), "");
    assert.notEqual(await valueOf(page, "UTMREF"), before);
    await page.fill("#datum", "nowhere");
    assert.match(await page.textContent("#datum-about"), /No datum/);
    await close(opened);
});

test("the position is in the link", async () => {
    const opened = await open();
    const { page } = opened;
    await page.fill("#text", "32U PU 916 348");
    await page.fill("#datum", "GER");
    const hash = await page.evaluate(() => location.hash);
    const again = await open({ hash });
    assert.equal(await again.page.inputValue("#text"), "32U PU 916 348");
    assert.equal(await again.page.inputValue("#datum"), "GER");
    await close(again);
    await close(opened);
});

test("a click on the map sets the position; keys and buttons move and zoom", async () => {
    const opened = await open();
    const { page } = opened;
    const alt = () => page.getAttribute("#picture", "alt");
    const box = await page.locator("#sheet").boundingBox();
    await page.mouse.click(box.x + box.width * 0.3, box.y + box.height * 0.4);
    const text = await page.inputValue("#text");
    assert.match(text, /^48\.\d{7} 11\.\d{7}$/);
    const first = await alt();
    await page.click("#farther");
    assert.notEqual(await alt(), first);
    await page.focus("#sheet");
    const second = await alt();
    await page.keyboard.press("ArrowRight");
    assert.notEqual(await alt(), second);
    await page.keyboard.press("+");
    await page.keyboard.press("Enter");
    assert.notEqual(await page.inputValue("#text"), text);
    const third = await alt();
    await page.mouse.move(box.x + box.width / 2, box.y + box.height / 2);
    await page.mouse.down();
    await page.mouse.move(box.x + box.width / 4, box.y + box.height / 2, { steps: 5 });
    await page.mouse.up();
    assert.notEqual(await alt(), third);
    const beforeWheel = await alt();
    await page.mouse.wheel(0, 300);
    await page.waitForFunction((old) => document.getElementById("picture").alt !== old, beforeWheel);
    for (const grid of await page.locator("#grid option").evaluateAll((all) => all.map((option) => option.value))) {
        await page.selectOption("#grid", grid);
        assert.doesNotMatch(await page.textContent("#place"), /No map/);
    }
    for (let i = 0; i < 22; ++i) await page.click("#farther");
    assert.doesNotMatch(await page.textContent("#place"), /No map/);
    await close(opened);
});

// The way from Munich's centre one degree north along its meridian has the azimuth 0.
test("distance and azimuth follow the second position", async () => {
    const opened = await open();
    const { page } = opened;
    await page.fill("#text", "48 11");
    await page.fill("#other", "49 11");
    // A degree of latitude at 48.5 is 111.2 km long (111.132 - 0.560 cos 2B).
    assert.match(await page.textContent("#way-result"), /^111\.\d{3} km .*azimuth 0\.0000°/);
    await page.click("#swap");
    assert.match(await page.textContent("#way-result"), /azimuth (-?180\.0000)°/);
    await page.fill("#other", "nowhere");
    assert.equal(await page.getAttribute("#way-result", "class"), "wrong");
    await close(opened);
});

test("a military reference is entered piece by piece", async () => {
    const opened = await open();
    const { page } = opened;
    assert.equal(await page.inputValue("#zone"), "32");
    const columns = () => page.locator("#column option").evaluateAll((all) => all.map((option) => option.value).join(""));
    const before = await columns();
    await page.selectOption("#zone", "33");
    assert.notEqual(await columns(), before);
    await page.selectOption("#band", "U");
    await page.selectOption("#column", "U");
    await page.selectOption("#row", "U");
    await page.fill("#easting", "91779");
    await page.fill("#northing", "20072");
    await page.click("#take");
    assert.equal(await valueOf(page, "UTMREF"), "33UUU9177920072");
    await page.fill("#easting", "x");
    assert.equal(await page.isDisabled("#take"), true);
    await close(opened);
});

test("a list is converted in a worker and downloaded", async () => {
    const opened = await open();
    const { page } = opened;
    await page.fill("#rows", "name;lon;lat\nMunich;11,5755;48,1375\n\"Nowhere; at all\";0;99\n");
    await page.selectOption("#target", "UTMREF");
    await page.click("#convert");
    await page.waitForSelector("#download:visible");
    const [download] = await Promise.all([page.waitForEvent("download"), page.click("#download")]);
    const text = readFileSync(await download.path(), "utf8");
    assert.equal(text, `name;lon;lat;reference\nMunich;11,5755;48,1375;${MUNICH}\n"Nowhere; at all";0;99;\n`);
    assert.match(await page.textContent("#list-result"), /2 rows .*1 have no such position/);
    await page.fill("#rows", "48°08'15\"N 11°34'31.8\"E\n32U PU 91603 34791");
    await page.click("#convert");
    await page.waitForFunction((text) => document.getElementById("preview").textContent.includes(`E;${text}`), MUNICH);
    await close(opened);
});

test("a million rows are converted while the page answers", async () => {
    const opened = await open();
    const { page } = opened;
    const rows = Array.from({ length: 1000000 }, (_, i) => `${(i % 160) - 79}.${i % 997},${(i % 359) - 179}.${i % 991}`);
    await page.setInputFiles("#file", { name: "positions.csv", mimeType: "text/csv", buffer: Buffer.from(rows.join("\n")) });
    await page.click("#convert");
    await page.fill("#text", "32U PU 91603 34791");
    assert.match(await page.textContent("#understood"), /Military/);
    await page.waitForSelector("#download:visible", { timeout: 120000 });
    const result = await page.textContent("#list-result");
    assert.match(result, /^1,000,000 rows/);
    console.log(`a list: ${result}`);
    await close(opened);
});

test("any text is read or refused", async () => {
    const opened = await open();
    const { page } = opened;
    const directory = new URL("fuzz/corpus/typed/", ROOT);
    const texts = readdirSync(directory).map((file) => readFileSync(new URL(file, directory)).toString("latin1"));
    const answers = await page.evaluate((texts) => {
        function type(id, text) {
            const field = document.getElementById(id);
            field.value = text;
            field.dispatchEvent(new Event("input", { bubbles: true }));
        }
        return texts.map((text) => {
            type("text", text);
            type("other", text);
            return document.getElementById("understood").textContent;
        });
    }, texts);
    assert.equal(answers.length, texts.length);
    for (const answer of answers) assert.notEqual(answer, "");
    await page.fill("#text", "<img src=x onerror=alert(1)>");
    assert.equal(await page.locator("#understood img").count(), 0);
    await close(opened);
});

test("nothing is fetched after the page is loaded, and it opens without a network", async () => {
    const opened = await open();
    const { page, context } = opened;
    await page.evaluate(() => navigator.serviceWorker.ready);
    const requests = [];
    context.on("request", (request) => {
        // The browser asks for the icon when it likes.
        if (!request.url().startsWith("blob:") && !request.url().endsWith("icon.svg")) requests.push(request.url());
    });
    await page.fill("#text", "47.3769 8.5417");
    await page.fill("#other", "48 11");
    await page.click("#farther");
    await page.click("#theme");
    assert.deepEqual(requests, []);
    await page.reload();
    await page.waitForSelector("html[data-ready]");
    await context.setOffline(true);
    await page.reload();
    await page.waitForSelector("html[data-ready]");
    await page.fill("#rows", "48.1375,11.5755");
    await page.selectOption("#target", "UTMREF");
    await page.click("#convert");
    await page.waitForFunction((text) => document.getElementById("preview").textContent.includes(text), MUNICH);
    await close(opened);
});

test("the whole page is used with the keyboard", async () => {
    const opened = await open();
    const { page } = opened;
    const reached = new Set();
    await page.keyboard.press("Tab");
    assert.equal(await page.evaluate(() => document.activeElement.textContent), "Position");
    await page.keyboard.press("Enter");
    assert.equal(await page.evaluate(() => document.activeElement.id), "text");
    for (let i = 0; i < 80; ++i) {
        reached.add(await page.evaluate(() => document.activeElement.id || document.activeElement.tagName));
        await page.keyboard.press("Tab");
    }
    for (const id of ["text", "datum", "sheet", "closer", "grid", "other", "zone", "easting", "rows", "file", "target", "convert"])
        assert.ok(reached.has(id), id);
    await close(opened);
});

for (const colorScheme of ["light", "dark"]) {
    for (const [size, viewport] of [["desk", DESK], ["phone", PHONE]]) {
        test(`accessible and in its frame: ${size}, ${colorScheme}`, async () => {
            const opened = await open({ viewport, colorScheme, bypassCSP: true });
            const { page } = opened;
            await page.fill("#other", "52.52 13.405");
            await page.fill("#rows", "48.1375,11.5755");
            await page.click("#convert");
            await page.waitForSelector("#download:visible");
            await page.evaluate(AXE);
            const { violations } = await page.evaluate(() => window.axe.run());
            assert.deepEqual(violations.map(({ id, nodes }) => `${id}: ${nodes.map((node) => node.html).join()}`), []);
            const overflow = await page.evaluate(() => document.documentElement.scrollWidth - innerWidth);
            assert.ok(overflow <= 0, `${overflow} pixels too wide`);
            await page.evaluate(() => scrollTo(0, 0));
            await page.screenshot({ path: new URL(`${size}-${colorScheme}.png`, SCREENSHOTS).pathname, fullPage: true });
            // The first view of a light page is a picture of docs/web.md.
            if (colorScheme === "light") await page.screenshot({ path: new URL(`page_${size}.png`, SCREENSHOTS).pathname });
            await close(opened);
        });
    }
}

test("the example of the manual shows a military reference", async () => {
    const [, html] = /```html\n([\s\S]*?)```/.exec(readFileSync(new URL("docs/web.md", ROOT), "utf8"));
    const context = await browser.newContext();
    const page = await context.newPage();
    const types = { js: "text/javascript", wasm: "application/wasm" };
    await page.route("**/node_modules/tessara/*", (route) => {
        const name = new URL(route.request().url()).pathname.split("/").pop();
        return route.fulfill({ body: readFileSync(new URL(`../package/${name}`, import.meta.url)), contentType: types[name.split(".").pop()] });
    });
    await page.route("**/example.html", (route) => route.fulfill({ body: html, contentType: "text/html" }));
    await page.goto(`${address}example.html`);
    await page.waitForFunction(() => document.querySelector("output").textContent !== "");
    assert.equal(await page.textContent("output"), MUNICH.slice(0, 3) + " " + MUNICH.slice(3, 5));
    await context.close();
});

test("the page opens as a file", async () => {
    const opened = await open({ from: new URL("build/web/page/index.html", ROOT).href });
    const { page } = opened;
    assert.equal(await valueOf(page, "UTMREF"), MUNICH);
    await page.fill("#other", "49 11");
    assert.match(await page.textContent("#way-result"), /azimuth/);
    await page.focus("#sheet");
    await page.keyboard.press("ArrowRight");
    await page.keyboard.press("Enter");
    assert.match(page.url(), /#at=48\.\d+\+11\.\d+$/);
    const rows = Array.from({ length: 30000 }, (_, i) => `48.1375,${i % 180}`);
    const list = Buffer.from(["48.1375,11.5755", ...rows].join("\n"));
    await page.setInputFiles("#file", { name: "positions.csv", mimeType: "text/csv", buffer: list });
    await page.selectOption("#target", "UTMREF");
    await page.click("#convert");
    await page.waitForSelector("#download:visible");
    assert.match(await page.textContent("#list-result"), /^30,001 rows/);
    assert.match(await page.textContent("#preview"), new RegExp(MUNICH));
    await close(opened);
});

test("the policy forbids scripts within the page", async () => {
    const opened = await open();
    const { page } = opened;
    const ran = await page.evaluate(() => {
        const script = document.createElement("script");
        script.textContent = "window.ran = true";
        document.body.append(script);
        return window.ran === true;
    });
    assert.equal(ran, false);
    await opened.context.close(); // the browser reports what it has stopped
});
