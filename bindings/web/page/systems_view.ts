import type { Shown, Tessara } from "tessara";
import { button, element, make } from "./dom.js";
import type { State } from "./position.js";

// National grids are on the datum of their country; without one a system is on the datum of the page.
export const SYSTEMS: readonly { system: string; label: string; datum?: string }[] = [
    { system: "GEODEZ", label: "Degrees" },
    { system: "GEODEZMIN", label: "Degrees, minutes" },
    { system: "GEOGRAD", label: "Degrees, minutes, seconds" },
    { system: "UTM", label: "UTM" },
    { system: "UTMREF", label: "Military reference (MGRS)" },
    { system: "GEOREF", label: "GEOREF" },
    { system: "UPS", label: "UPS, polar" },
    { system: "ECEF", label: "Earth-centred x, y, z" },
    { system: "GK", label: "Gauss-Krüger, 3°", datum: "GER" },
    { system: "GK6", label: "Gauss-Krüger, 6°", datum: "GER" },
    { system: "CH", label: "Switzerland", datum: "#7" },
    { system: "BMN", label: "Austria, BMN", datum: "#6" },
    { system: "OEM", label: "Austria, ÖM", datum: "#6" },
    { system: "GK-AT", label: "Austria, Gauss-Krüger", datum: "#6" },
    { system: "BNG", label: "Great Britain", datum: "#98" },
    { system: "ING", label: "Ireland", datum: "#97" },
    { system: "RD", label: "Netherlands", datum: "#237" },
    { system: "LUREF", label: "Luxembourg", datum: "#238" },
    { system: "PO_MILITARY", label: "Portugal, military", datum: "#1" },
];

const COPIED_MILLISECONDS = 2000;

export interface Target {
    system: string;
    label: string;
    datum: string | null;
}

// Datums are named by their numbers in the table above, because that is what they are known by in files.
export function targetsOf(tessara: Tessara): Target[] {
    const names = new Map(tessara.datums().map((datum) => [`#${datum.number}`, datum.name]));
    return SYSTEMS.map(({ system, label, datum }) => ({ system, label, datum: datum === undefined ? null : (names.get(datum) ?? datum) }));
}

// As people write it where that is one text, and otherwise the library's north and east text.
export function textOf({ texts, fields }: Shown, system: string): string {
    if (fields === undefined) return "";
    const number = (name: string, decimals: number) => (fields[name] as number).toFixed(decimals);
    const whole = (name: string, digits: number) => String(fields[name]).padStart(digits, "0");
    switch (system) {
        case "GEODEZ":
            return `${number("latitude", 7)} ${number("longitude", 7)}`;
        case "UTM":
            return `${fields["zone"]}${fields["hemisphere"]} ${number("easting", 2)} ${number("northing", 2)}`;
        case "UPS":
            return `${fields["hemisphere"]} ${number("easting", 2)} ${number("northing", 2)}`;
        case "GEOREF":
            return `${fields["letters"]}${whole("lonMinutes", 4)}${whole("latMinutes", 4)}`;
        case "BNG":
        case "ING":
            return `${fields["square"]} ${whole("easting", 5)} ${whole("northing", 5)}`;
        default:
            return (texts ?? []).join(texts?.length === 2 ? "  " : " ");
    }
}

export function labelOf(system: string): string {
    return SYSTEMS.find((each) => each.system === system)?.label ?? system;
}

export class SystemsView {
    readonly #body = element<HTMLTableSectionElement>("systems");
    readonly #note = element("copied");
    readonly #targets: Target[];
    readonly #rows: { row: HTMLTableRowElement; datum: HTMLElement; value: HTMLTableCellElement; copy: HTMLButtonElement }[];

    constructor(private readonly tessara: Tessara) {
        this.#targets = targetsOf(tessara);
        this.#rows = this.#targets.map(({ label }) => {
            const datum = make("small");
            const value = make("td", [], { role: "cell" });
            const copy = button("Copy", () => void this.#copy(copy, label, value.textContent ?? ""), { "aria-label": `Copy ${label}` });
            const row = make("tr", [make("th", [label, datum], { scope: "row", role: "rowheader" }), value, make("td", [copy], { role: "cell" })], { role: "row" });
            return { row, datum, value, copy };
        });
    }

    // The button says so, too: on a phone the note is far below it.
    async #copy(copy: HTMLButtonElement, label: string, text: string): Promise<void> {
        try {
            await navigator.clipboard.writeText(text);
            copy.textContent = "Copied";
            setTimeout(() => (copy.textContent = "Copy"), COPIED_MILLISECONDS);
            this.#note.textContent = `${label} is in the clipboard.`;
        } catch {
            this.#note.textContent = "The browser doesn't allow copying here; select the text instead.";
        }
    }

    show(state: State): void {
        const found: HTMLTableRowElement[] = [];
        const missing: HTMLTableRowElement[] = [];
        this.#note.textContent = "";
        const { position } = state;
        if (position === null) {
            this.#body.replaceChildren(make("tr", [make("td", ["There is no position yet."], { colspan: "3", role: "cell" })], { role: "row" }));
            return;
        }
        this.#targets.forEach(({ system, datum }, i) => {
            const { row, datum: where, value, copy } = this.#rows[i]!;
            const on = datum ?? state.datum;
            const shown = this.tessara.show(position.latitude, position.longitude, { from: `GEODEZ@${state.datum}`, to: `${system}@${on}` });
            const text = textOf(shown, system);
            where.textContent = on;
            value.textContent = text === "" ? (shown.reason ?? "") : text;
            value.className = text === "" ? "why" : "value";
            value.dataset["system"] = system;
            copy.hidden = text === "";
            (text === "" ? missing : found).push(row);
        });
        this.#body.replaceChildren(...found, ...missing);
    }
}
