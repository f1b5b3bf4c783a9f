import type { MilitaryChoices, Tessara } from "tessara";
import { element, fill } from "./dom.js";
import { degreesText, type Position, type State } from "./position.js";

// What may still be entered depends on the pieces before it.
export class MilitaryView {
    readonly #letters = ["zone", "band", "column", "row"].map((id) => element<HTMLSelectElement>(id));
    readonly #digits = ["easting", "northing"].map((id) => element<HTMLInputElement>(id));
    readonly #result = element("military-result");
    #datum = "WGS84";
    #place: Position | null = null;

    constructor(private readonly tessara: Tessara, onPlace: (place: Position) => void) {
        for (const input of [...this.#letters, ...this.#digits]) input.addEventListener("input", () => this.#update());
        element("take").addEventListener("click", () => {
            if (this.#place !== null) onPlace(this.#place);
        });
    }

    // The reference of the page's position.
    show(state: State): void {
        this.#datum = state.datum;
        if (state.position === null) return;
        const { fields } = this.tessara.show(state.position.latitude, state.position.longitude,
            { from: `GEODEZ@${state.datum}`, to: `UTMREF@${state.datum}` });
        if (fields === undefined) {
            this.#update();
            return;
        }
        const { zone, band, square, easting, northing } = fields as { zone: number; band: string; square: string; easting: number; northing: number };
        this.#offer(this.tessara.militaryChoices({ zone: String(zone), band, column: square[0]!, row: square[1]! }, { datum: this.#datum }));
        [String(zone), band, square[0]!, square[1]!].forEach((value, i) => (this.#letters[i]!.value = value));
        [easting, northing].forEach((value, i) => (this.#digits[i]!.value = String(value).padStart(5, "0")));
        this.#update();
    }

    #pieces() {
        const [zone, band, column, row] = this.#letters.map((select) => select.value);
        const [easting, northing] = this.#digits.map((input) => input.value.trim());
        return { zone: zone!, band: band!, column: column!, row: row!, easting: easting!, northing: northing! };
    }

    #offer({ zones, bands, columns, rows }: MilitaryChoices): void {
        [zones, bands, columns, rows].forEach((values, i) => fill(this.#letters[i]!, values));
    }

    // A column that no longer exists changes the rows, too.
    #update(): void {
        const options = { datum: this.#datum };
        this.#offer(this.tessara.militaryChoices(this.#pieces(), options));
        this.#offer(this.tessara.militaryChoices(this.#pieces(), options));
        const pieces = this.#pieces();
        const { latitude, longitude } = this.tessara.militaryChoices(pieces, options);
        const isThere = latitude !== undefined && longitude !== undefined;
        this.#place = isThere ? { latitude, longitude } : null;
        const { zone, band, column, row, easting, northing } = pieces;
        this.#result.textContent = this.#place === null
            ? "Easting and northing are up to five digits each, equally many."
            : `${zone}${band} ${column}${row} ${easting} ${northing} is ${degreesText(this.#place)}`;
        element<HTMLButtonElement>("take").disabled = this.#place === null;
    }
}
