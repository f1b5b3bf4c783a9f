import type { Reading, Tessara } from "tessara";
import { button, element, make } from "./dom.js";
import { ListView } from "./list_view.js";
import { MapView } from "./map_view.js";
import { MilitaryView } from "./military_view.js";
import { keepPage, loadLibrary } from "./opened.js";
import { degreesText, readLink, writeLink, type Position, type State } from "./position.js";
import { SystemsView, labelOf } from "./systems_view.js";
import { WayView } from "./way_view.js";

const EXAMPLES = ["48.1375 11.5755", "48,1375 11,5755", "48°08'15\"N 11°34'32\"E", "N 48 8.25, E 11 34.53", "32UPU9160334791",
    "32N 691602 5334791", "NKMD34530825", "TQ 300 800", "48.1375, -11.5755"];

// The fields with the digits that were typed, and where that is.
function sentenceOf(reading: Reading): string {
    const isDegrees = /^(GEODEZ|GEOGRAD)/.test(reading.system);
    const place = isDegrees ? "" : ` – ${degreesText(reading)}`;
    return `${labelOf(reading.system)}: ${reading.picture}${place}`;
}

class Page {
    readonly #text = element<HTMLInputElement>("text");
    readonly #datum = element<HTMLInputElement>("datum");
    readonly #understood = element("understood");
    readonly #meanings = element("meanings");
    readonly #views;
    readonly #datums;
    #state: State;

    constructor(private readonly tessara: Tessara) {
        this.#datums = new Map(tessara.datums().map((datum) => [datum.name.toUpperCase(), datum]));
        const take = (place: Position) => this.#take(place);
        this.#views = [
            new SystemsView(tessara), new MapView(tessara, take), new WayView(tessara, (text) => this.#type(text)),
            new MilitaryView(tessara, (place) => this.#type(degreesText(place))), new ListView(tessara),
        ];
        element("datums").append(...[...this.#datums.values()].map(({ name, title, area }) =>
            make("option", [[title, area].filter(Boolean).join(", ")], { value: name })));
        element("examples").append(...EXAMPLES.map((text) => button(text, () => this.#type(text))));
        this.#text.addEventListener("input", () => this.#read());
        this.#datum.addEventListener("input", () => this.#read());
        this.#datum.addEventListener("focus", () => this.#datum.select());
        addEventListener("hashchange", () => this.#follow());
        this.#state = readLink(location.hash);
        this.#follow();
    }

    #follow(): void {
        const { text, datum } = readLink(location.hash);
        this.#text.value = text;
        this.#datum.value = datum;
        this.#read();
    }

    #type(text: string): void {
        this.#text.value = text;
        this.#read();
    }

    // A place of the map is on WGS84.
    #take(place: Position): void {
        this.#datum.value = "WGS84";
        this.#type(degreesText(place));
    }

    // While a datum's name isn't complete the one before it counts.
    #readDatum(): string {
        const found = this.#datums.get(this.#datum.value.trim().toUpperCase());
        const about = element("datum-about");
        about.classList.toggle("wrong", found === undefined);
        if (found === undefined) {
            about.textContent = "No datum has this name; the list finds them by names and countries.";
            return this.#state.datum;
        }
        const accuracy = found.accuracy ? `, within ${found.accuracy} m` : "";
        about.textContent = `${[found.title, found.ellipsoid, found.area].filter(Boolean).join("; ")}${accuracy}`;
        return found.name;
    }

    #read(): void {
        const text = this.#text.value;
        const datum = this.#readDatum();
        const check = this.tessara.check(text, { datum });
        this.#meanings.replaceChildren();
        const isEmpty = text.trim() === "";
        this.#understood.classList.toggle("wrong", !check.good && !isEmpty);
        this.#text.setAttribute("aria-invalid", String(!check.good && !isEmpty));
        if (check.good) {
            const reading = check.meanings[0]!;
            this.#understood.replaceChildren(`Understood as ${sentenceOf(reading)}`);
            this.#show({ text, datum, position: reading });
            return;
        }
        this.#understood.replaceChildren(...(isEmpty ? ["Type a position."] : this.#explain(text, check)));
        this.#meanings.append(...check.meanings.map((reading) => this.#offer(reading)));
        this.#show({ text, datum, position: null });
    }

    #explain(text: string, { begin, end, reason, meanings }: { begin: number; end: number; reason: string; meanings: Reading[] }): (string | Node)[] {
        if (meanings.length > 1) return ["It can be read in more than one way. Which one?"];
        const sentence = `${reason.charAt(0).toUpperCase()}${reason.slice(1)}.`;
        if (end <= begin || end - begin === text.length) return [sentence];
        return [`${sentence} `, text.slice(0, begin), make("mark", [text.slice(begin, end)]), text.slice(end)];
    }

    #offer(reading: Reading): HTMLButtonElement {
        return button(sentenceOf(reading), () => this.#type(degreesText(reading)));
    }

    #show(state: State): void {
        this.#state = state;
        for (const view of this.#views) view.show(state);
        history.replaceState(null, "", writeLink(state));
    }
}

function startTheme(): void {
    const theme = element<HTMLButtonElement>("theme");
    const set = (isDark: boolean) => {
        document.documentElement.dataset["theme"] = isDark ? "dark" : "light";
        theme.setAttribute("aria-pressed", String(isDark));
    };
    const wish = matchMedia("(prefers-color-scheme: dark)");
    set(wish.matches);
    wish.addEventListener("change", () => set(wish.matches));
    theme.addEventListener("click", () => set(theme.getAttribute("aria-pressed") !== "true"));
}

// Links within the page move the focus; the address keeps the position.
function startLinks(): void {
    for (const link of document.querySelectorAll<HTMLAnchorElement>("nav a")) {
        link.addEventListener("click", (event) => {
            event.preventDefault();
            const target = element(link.hash.slice(1));
            target.focus({ preventScroll: true });
            (target.closest("section") ?? target).scrollIntoView();
        });
    }
}

async function start(): Promise<void> {
    startTheme();
    startLinks();
    try {
        const tessara = await loadLibrary();
        new Page(tessara);
        document.documentElement.dataset["ready"] = performance.now().toFixed(0);
    } catch (error) {
        element("understood").textContent = `The page can't start: ${(error as Error).message}.`;
    }
    keepPage();
}

void start();
