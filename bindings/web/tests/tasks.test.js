// Ten everyday tasks on the page with the keyboard alone, at a desk and on a phone: each from a fresh page, with few keys.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { test } from "node:test";
import { DESK, MUNICH, PHONE, SCREENSHOTS, close, open } from "./browser.js";

const MOST_TABS = 20;

// Goes by the links at the head of the page and then from control to control, as people do.
class Keyboard {
    constructor(page) {
        this.page = page;
    }

    press(key) {
        return this.page.keyboard.press(key);
    }

    type(text) {
        return this.page.keyboard.type(text);
    }

    async replace(text) {
        await this.press("Control+A");
        await this.type(text);
    }

    // To one of the links at the head of the page, back from a control, and along it.
    async jump(name) {
        const isAtStart = await this.page.evaluate(() => document.activeElement === document.body);
        await this.tabTo((wanted) => document.activeElement.textContent === wanted, name, isAtStart ? "Tab" : "Shift+Tab");
        await this.press("Enter");
    }

    async tabTo(isThere, wanted, key = "Tab") {
        for (let i = 0; i < MOST_TABS; ++i) {
            if (await this.page.evaluate(isThere, wanted)) return;
            await this.press(key);
        }
        assert.fail(`${wanted} is more than ${MOST_TABS} controls away`);
    }

    goTo(id) {
        return this.tabTo((wanted) => document.activeElement.id === wanted, id);
    }

    goToButton(label) {
        return this.tabTo((wanted) => [document.activeElement.ariaLabel, document.activeElement.textContent].includes(wanted), label);
    }
}

const TASKS = {
    "degrees to UTM, copied": async (keys, page) => {
        await keys.jump("Position");
        await keys.replace("48,1375 11,5755");
        await keys.jump("Systems");
        await keys.goToButton("Copy UTM");
        await keys.press("Enter");
        await page.waitForFunction(() => document.getElementById("copied").textContent.includes("clipboard"));
        assert.equal(await page.evaluate(() => document.activeElement.textContent), "Copied");
        assert.match(await page.evaluate(() => navigator.clipboard.readText()), /^32N 691602\.66 5334791\.1/);
    },
    "a military reference to degrees": async (keys, page) => {
        await keys.jump("Position");
        await keys.replace("32U PU 91603 34791");
        assert.match(await page.textContent('[data-system="GEODEZ"]'), /^48\.137[45]\d* 11\.575[45]\d*$/);
    },
    "a national grid": async (keys, page) => {
        await keys.jump("Position");
        await keys.replace("51.5007 -0.1246");
        assert.match(await page.textContent('[data-system="BNG"]'), /^TQ \d{5} \d{5}$/);
    },
    "another datum": async (keys, page) => {
        await keys.jump("Position");
        await keys.goTo("datum");
        await keys.replace("GER");
        assert.match(await page.textContent("#datum-about"), /Bessel/i);
        assert.match(page.url(), /datum=GER/);
    },
    "a mistake found and mended": async (keys, page) => {
        await keys.jump("Position");
        await keys.replace("32I PU 91603 34791");
        assert.equal(await page.textContent("#understood mark"), "I");
        await keys.replace("32U PU 91603 34791");
        assert.equal(await page.textContent('[data-system="UTMREF"]'), MUNICH);
    },
    "an ambiguous comma": async (keys, page) => {
        await keys.jump("Position");
        await keys.replace("48,1375,11,5755");
        assert.match(await page.textContent("#understood"), /ambiguous comma/);
        await keys.replace("48,1375; 11,5755");
        assert.equal(await page.textContent('[data-system="UTMREF"]'), MUNICH);
    },
    "distance and azimuth": async (keys, page) => {
        await keys.jump("Distance");
        await keys.goTo("swap");
        await keys.press("Enter");
        assert.match(await page.textContent("#way-result"), /first/);
        await keys.type("52.52 13.405");
        assert.match(await page.textContent("#way-result"), /^50[45]\.\d{3} km to .*azimuth 14\.\d+°/);
        await keys.goTo("swap");
        await keys.press("Enter");
        assert.equal(await page.inputValue("#text"), "52.52 13.405");
    },
    "a place of the map": async (keys, page) => {
        await keys.jump("Map");
        await keys.press("ArrowUp");
        await keys.press("-");
        await keys.press("Enter");
        assert.match(await page.inputValue("#text"), /^48\.2\d+ 11\.5\d+$/);
    },
    "a reference piece by piece": async (keys, page) => {
        await keys.jump("Piece by piece");
        await keys.press("ArrowDown");
        for (const id of ["column", "row"]) {
            await keys.goTo(id);
            await keys.type("U");
        }
        await keys.goTo("easting");
        await keys.replace("91779");
        await keys.goTo("northing");
        await keys.replace("20072");
        await keys.goTo("take");
        await keys.press("Enter");
        assert.match(await page.textContent('[data-system="UTMREF"]'), /^33UUU9177920072$/);
    },
    "a list": async (keys, page) => {
        await keys.jump("List");
        await keys.type("48.1375,11.5755");
        await keys.goTo("target");
        await keys.type("Military");
        await keys.goTo("convert");
        await keys.press("Enter");
        await page.waitForSelector("#download:visible");
        await keys.goTo("download");
        const [download] = await Promise.all([page.waitForEvent("download"), keys.press("Enter")]);
        assert.equal(readFileSync(await download.path(), "utf8"), `48.1375,11.5755,${MUNICH}\n`);
    },
};

for (const [size, viewport] of [["desk", DESK], ["phone", PHONE]]) {
    for (const [name, task] of Object.entries(TASKS)) {
        test(`${name}, by keyboard, ${size}`, async () => {
            const opened = await open({ viewport, permissions: ["clipboard-read", "clipboard-write"] });
            const { page } = opened;
            await task(new Keyboard(page), page);
            // What has the focus is on the screen.
            const box = await page.evaluate(() => document.activeElement.getBoundingClientRect().toJSON());
            assert.ok(box.bottom > 0 && box.top < viewport.height, `${name} ends at ${box.top}`);
            const wide = await page.evaluate(() => [...document.querySelectorAll(".card")].flatMap((card) => [...card.querySelectorAll("input, select, button")]
                .filter((control) => control.getBoundingClientRect().right > card.getBoundingClientRect().right).map((control) => control.id)));
            assert.deepEqual(wide, []);
            await page.screenshot({ path: new URL(`task-${size}-${name.replace(/\W+/g, "-")}.png`, SCREENSHOTS).pathname });
            await close(opened);
        });
    }
}
