import type { Tessara } from "tessara";
import { element } from "./dom.js";
import { degreesText, metresText, type State } from "./position.js";

export class WayView {
    readonly #other = element<HTMLInputElement>("other");
    readonly #result = element("way-result");
    #state: State | null = null;

    constructor(private readonly tessara: Tessara, onSwap: (text: string) => void) {
        this.#other.addEventListener("input", () => this.#update());
        element("swap").addEventListener("click", () => {
            const [here, there] = [this.#state?.text ?? "", this.#other.value];
            if (there.trim() === "") {
                this.#result.textContent = "Type the other position first.";
                this.#other.focus();
                return;
            }
            this.#other.value = here;
            onSwap(there);
        });
    }

    show(state: State): void {
        this.#state = state;
        this.#update();
    }

    #update(): void {
        const text = this.#other.value.trim();
        const here = this.#state?.position ?? null;
        this.#result.className = "";
        this.#result.textContent = "";
        if (text === "" || here === null) return;
        const datum = this.#state!.datum;
        const check = this.tessara.check(text, { datum });
        if (!check.good) {
            this.#result.className = "wrong";
            this.#result.textContent = `${check.reason}.`;
            return;
        }
        const there = check.meanings[0]!;
        try {
            const way = this.tessara.distance(here.latitude, here.longitude, there.latitude, there.longitude, { datum });
            this.#result.textContent = `${metresText(way.distance)} to ${degreesText(there)}, azimuth ${way.azimuth.toFixed(4)}°, ` +
                `back ${way.backAzimuth.toFixed(4)}°`;
        } catch (error) {
            this.#result.className = "wrong";
            this.#result.textContent = `${(error as Error).message}.`;
        }
    }
}
