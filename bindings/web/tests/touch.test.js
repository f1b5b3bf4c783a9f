// The map under fingers, on a phone.
import assert from "node:assert/strict";
import { test } from "node:test";
import { PHONE, close, open } from "./browser.js";

const STEPS = 4;

// Fingers on the map; places are parts of the width and height that it has at first.
class Fingers {
    static async on(opened) {
        const { page, context } = opened;
        const sheet = page.locator("#sheet");
        await sheet.scrollIntoViewIfNeeded();
        const fingers = new Fingers();
        fingers.page = page;
        fingers.session = await context.newCDPSession(page);
        fingers.sheet = sheet;
        fingers.size = await sheet.boundingBox();
        return fingers;
    }

    // Fingers that go down, have moved or lift. A position of another length moves what is below it.
    async touch(type, places, ids = [0, 1, 2]) {
        const { x, y } = await this.sheet.boundingBox();
        const touchPoints = places.map(([right, down], k) => ({ id: ids[k], x: x + right * this.size.width, y: y + down * this.size.height }));
        await this.session.send("Input.dispatchTouchEvent", { type, touchPoints });
        await this.page.evaluate(() => new Promise(requestAnimationFrame)); // before which the browser keeps moves back
    }

    // All fingers go down one by one and move together; they stay on the map.
    async move(from, to) {
        for (let fingers = 1; fingers <= from.length; ++fingers) await this.touch("touchStart", from.slice(0, fingers));
        for (let step = 1; step <= STEPS; ++step) {
            const part = step / STEPS;
            await this.touch("touchMove", from.map(([x, y], k) => [x + (to[k][0] - x) * part, y + (to[k][1] - y) * part]));
        }
    }

    lift() {
        return this.touch("touchEnd", []);
    }

    async drag(from, to) {
        await this.move(from, to);
        await this.lift();
    }

    async tap(place) {
        await this.touch("touchStart", [place]);
        await this.lift();
        return (await this.page.inputValue("#text")).split(" ").map(Number);
    }

    async width() {
        const [, width, unit] = /^Map, ([\d,.]+) (k?m) wide/.exec(await this.page.getAttribute("#picture", "alt"));
        return Number(width.replaceAll(",", "")) * (unit === "km" ? 1000 : 1);
    }

    // What the browser itself has scrolled and zoomed.
    browserView() {
        return this.page.evaluate(() => [scrollX, scrollY, visualViewport.scale, visualViewport.offsetLeft, visualViewport.offsetTop]);
    }
}

function openOnPhone() {
    return open({ viewport: PHONE, hasTouch: true, isMobile: true });
}

// A finger is on a whole pixel of the picture, which is less than twice as wide as the map in it.
function assertNear(found, expected, width, pictureWidth) {
    const degree = 111e3; // metres of latitude
    const tolerance = (2 * width) / pictureWidth / degree;
    const [north, east] = [0, 1].map((k) => Math.abs(found[k] - expected[k]));
    const message = `${found} instead of ${expected}, ${tolerance} degrees apart at most`;
    assert.ok(north < tolerance && east * Math.cos((expected[0] * Math.PI) / 180) < tolerance, message);
}

test("two fingers zoom the map around the place between them", async () => {
    const opened = await openOnPhone();
    const fingers = await Fingers.on(opened);
    const between = [0.4, 0.5];
    const place = await fingers.tap(between);
    const text = await opened.page.inputValue("#text");
    const before = await fingers.browserView();
    const width = await fingers.width();
    await fingers.drag([[0.3, 0.5], [0.5, 0.5]], [[0.2, 0.5], [0.6, 0.5]]);
    assert.equal(await fingers.width(), width / 2);
    assert.equal(await opened.page.inputValue("#text"), text);
    assert.deepEqual(await fingers.browserView(), before);
    assertNear(await fingers.tap(between), place, width / 2, fingers.size.width);
    await fingers.drag([[0.4, 0.2], [0.4, 0.8]], [[0.4, 0.425], [0.4, 0.575]]);
    assert.equal(await fingers.width(), width * 2);
    assertNear(await fingers.tap(between), place, width * 2, fingers.size.width);
    await close(opened);
});

test("two fingers that stay apart move the map", async () => {
    const opened = await openOnPhone();
    const fingers = await Fingers.on(opened);
    const place = await fingers.tap([0.4, 0.5]);
    const before = await fingers.browserView();
    const width = await fingers.width();
    await fingers.drag([[0.3, 0.5], [0.5, 0.5]], [[0.5, 0.3], [0.7, 0.3]]);
    assert.equal(await fingers.width(), width);
    assert.deepEqual(await fingers.browserView(), before);
    assertNear(await fingers.tap([0.6, 0.3]), place, width, fingers.size.width);
    await close(opened);
});

test("the picture follows the fingers, and the one that stays drags on", async () => {
    const opened = await openOnPhone();
    const { page } = opened;
    const fingers = await Fingers.on(opened);
    const place = await fingers.tap([0.4, 0.5]);
    const text = await page.inputValue("#text");
    const width = await fingers.width();
    await fingers.move([[0.3, 0.5], [0.5, 0.5]], [[0.2, 0.5], [0.6, 0.5]]);
    const scale = await page.evaluate(() => new DOMMatrix(getComputedStyle(document.getElementById("picture")).transform).a);
    assert.ok(Math.abs(scale - 2) < 0.01, `${scale}`);
    await fingers.touch("touchEnd", [[0.6, 0.5]], [1]);
    assert.equal(await fingers.width(), width / 2);
    await fingers.touch("touchMove", [[0.4, 0.7]]);
    await fingers.lift();
    assert.equal(await fingers.width(), width / 2);
    assert.equal(await page.inputValue("#text"), text);
    assertNear(await fingers.tap([0.6, 0.7]), place, width / 2, fingers.size.width);
    await close(opened);
});

test("one finger moves the map and not the page, and a third one does nothing", async () => {
    const opened = await openOnPhone();
    const fingers = await Fingers.on(opened);
    const place = await fingers.tap([0.4, 0.5]);
    const before = await fingers.browserView();
    const width = await fingers.width();
    await fingers.drag([[0.4, 0.5]], [[0.6, 0.2]]);
    assert.deepEqual(await fingers.browserView(), before);
    assertNear(await fingers.tap([0.6, 0.2]), place, width, fingers.size.width);
    const now = await fingers.tap([0.5, 0.5]);
    await fingers.drag([[0.4, 0.5], [0.6, 0.5], [0.5, 0.7]], [[0.4, 0.5], [0.6, 0.5], [0.9, 0.9]]);
    assertNear(await fingers.tap([0.5, 0.5]), now, width, fingers.size.width);
    await close(opened);
});

test("fingers that spread far zoom to the widest and the narrowest map", async () => {
    const opened = await openOnPhone();
    const fingers = await Fingers.on(opened);
    for (let i = 0; i < 6; ++i) await fingers.drag([[0.45, 0.5], [0.55, 0.5]], [[0.1, 0.5], [0.9, 0.5]]);
    assert.equal(await fingers.width(), 50);
    for (let i = 0; i < 10; ++i) await fingers.drag([[0.1, 0.5], [0.9, 0.5]], [[0.45, 0.5], [0.55, 0.5]]);
    assert.equal(await fingers.width(), 4e7);
    assert.doesNotMatch(await opened.page.textContent("#place"), /No map/);
    await close(opened);
});
