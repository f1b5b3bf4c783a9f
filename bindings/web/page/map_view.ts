import type { Tessara, TessaraMap } from "tessara";
import { element, fill } from "./dom.js";
import { degreesText, widthText, type Position, type State } from "./position.js";

const NARROWEST = 50;
const WIDEST = 4e7;
const ZOOM = 2;
const STEP = 0.25; // of the map, for a key
const LARGEST_LINES = 6;
const MARGINS = 0.75; // the part of the picture that isn't numbers at its frame
const BESIDE = 76; // units of the picture for numbers left and right of the window
const BELOW = 36; // for numbers below it
const BAR = 48; // for a scale bar
const SMALLEST = 280;
const LARGEST = 900;
const CLICK = 5; // pixels of a pointer that doesn't drag

const GRIDS = ["as it fits", "UTM", "GK@GER", "GEODEZ", "BNG@OGB_M", "CH@CH1903", "zones of UTM", "none"];

interface Layer { type: string; system?: string; step?: number; [key: string]: unknown }
interface Description { layers: Layer[]; window: { left: number; top: number; right: number; bottom: number }; title?: string }

// 1, 2 or 5 times a power of ten.
function roundStep(metres: number): number {
    const power = 10 ** Math.floor(Math.log10(metres));
    return (metres / power >= 5 ? 5 : metres / power >= 2 ? 2 : 1) * power;
}

export class MapView {
    readonly #sheet = element("sheet");
    readonly #picture = element<HTMLImageElement>("picture");
    readonly #grid = element<HTMLSelectElement>("grid");
    readonly #place = element("place");
    #map: TessaraMap | null = null;
    #view = { left: 0, top: 0, width: 1, height: 1 }; // of the picture, in its units
    #window = { width: 1, height: 1 };
    #centre: Position = { latitude: 48, longitude: 11 };
    #width = 50e3;
    #position: Position | null = null;
    #drag: { x: number; y: number; moved: boolean } | null = null;

    constructor(private readonly tessara: Tessara, private readonly onPlace: (place: Position) => void) {
        fill(this.#grid, GRIDS);
        this.#grid.addEventListener("change", () => this.#draw());
        element("closer").addEventListener("click", () => this.#zoom(1 / ZOOM));
        element("farther").addEventListener("click", () => this.#zoom(ZOOM));
        element("centre").addEventListener("click", () => this.#goTo(this.#position));
        this.#sheet.addEventListener("keydown", (event) => this.#onKey(event));
        this.#sheet.addEventListener("wheel", (event) => {
            event.preventDefault();
            this.#zoom(event.deltaY > 0 ? ZOOM : 1 / ZOOM, this.#placeAt(event));
        }, { passive: false });
        this.#sheet.addEventListener("pointerdown", (event) => {
            this.#drag = { x: event.clientX, y: event.clientY, moved: false };
            this.#sheet.setPointerCapture(event.pointerId);
        });
        this.#sheet.addEventListener("pointermove", (event) => this.#onMove(event));
        this.#sheet.addEventListener("pointerup", (event) => this.#onUp(event));
        this.#sheet.addEventListener("pointercancel", () => this.#endDrag());
        let last = this.#sheet.clientWidth;
        new ResizeObserver(() => {
            if (Math.abs(this.#sheet.clientWidth - last) < CLICK) return;
            last = this.#sheet.clientWidth;
            this.#draw();
        }).observe(this.#sheet);
    }

    // The map keeps its place while the position is on it.
    show(state: State): void {
        this.#position = state.position === null ? null : this.#onWgs84(state.position, state.datum);
        const place = this.#position;
        if (place === null) return;
        const point = this.#map?.pointAt(place.latitude, place.longitude) ?? null;
        const isShown = point !== null && point.x > 0 && point.y > 0 && point.x < this.#window.width && point.y < this.#window.height;
        if (!isShown) this.#centre = place;
        this.#draw();
    }

    #onWgs84(position: Position, datum: string): Position | null {
        try {
            const { latitude, longitude } = this.tessara.convert(position.latitude, position.longitude, { from: `GEODEZ@${datum}`, to: "GEODEZ" });
            return { latitude: latitude as number, longitude: longitude as number };
        } catch {
            return null;
        }
    }

    #goTo(place: Position | null): void {
        if (place === null) return;
        this.#centre = place;
        this.#draw();
    }

    // The place under the pointer stays where it is.
    #zoom(factor: number, around: Position | null = null): void {
        const width = Math.min(Math.max(this.#width * factor, NARROWEST), WIDEST);
        if (around !== null) {
            const part = 1 - width / this.#width;
            const east = ((around.longitude - this.#centre.longitude + 540) % 360) - 180;
            this.#centre = {
                latitude: this.#centre.latitude + (around.latitude - this.#centre.latitude) * part,
                longitude: ((this.#centre.longitude + east * part + 540) % 360) - 180,
            };
        }
        this.#width = width;
        this.#draw();
    }

    #description(): Description {
        const { latitude, longitude } = this.#centre;
        const description = this.tessara.mapAround(latitude, longitude, this.#width) as unknown as Description;
        const layers = description.layers.filter((layer) => layer.type !== "positions");
        description.layers = this.#withGrid(layers);
        description.title = `${widthText(this.#width)} wide`;
        const place = this.#position;
        if (place !== null) {
            const at = [place.latitude, place.longitude];
            description.layers.push({ type: "positions", places: [{ at, datum: "WGS84" }], colour: "vermillion" });
        }
        return description;
    }

    #withGrid(layers: Layer[]): Layer[] {
        const chosen = this.#grid.value;
        if (chosen === GRIDS[0]) return layers;
        const plain = layers.filter((layer) => layer.type !== "grid");
        if (chosen === "none") return plain;
        if (chosen === "zones of UTM") return [...plain, { type: "borders", system: "UTM" }];
        if (chosen === "GEODEZ") return layers.filter((layer) => layer.type !== "grid" || layer.system === "GEODEZ");
        return [...plain, { type: "grid", system: chosen, step: roundStep(this.#width / LARGEST_LINES) }];
    }

    #draw(): void {
        const began = performance.now();
        try {
            const description = this.#description();
            const size = Math.min(Math.max(this.#sheet.clientWidth * MARGINS, SMALLEST), LARGEST);
            const map = this.tessara.openMap(description, { size });
            const { left, top, right, bottom } = description.window;
            const unit = size / Math.max(right - left, bottom - top);
            this.#window = { width: (right - left) * unit, height: (bottom - top) * unit };
            this.#map?.close();
            this.#map = map;
        } catch (error) {
            this.#place.textContent = `No map: ${(error as Error).message}.`;
            return;
        }
        const { svg, problems, notes } = this.#map.draw();
        const shown = this.#crop(svg);
        const old = this.#picture.src;
        this.#picture.src = URL.createObjectURL(new Blob([shown], { type: "image/svg+xml" }));
        this.#picture.style.setProperty("aspect-ratio", `${this.#view.width} / ${this.#view.height}`);
        this.#picture.style.setProperty("transform", "none");
        if (old.startsWith("blob:")) URL.revokeObjectURL(old);
        const middle = degreesText(this.#centre);
        this.#picture.alt = `Map, ${widthText(this.#width)} wide, around ${middle}`;
        this.#place.textContent = [...problems, ...notes].join("; ");
        this.#sheet.dataset["milliseconds"] = (performance.now() - began).toFixed(0);
    }

    // The picture without its legend, and with the numbers next to the frame only.
    #crop(svg: string): string {
        const [left, top, width, height] = (/viewBox="([^"]+)"/.exec(svg)?.[1] ?? "0 0 1 1").split(/[ ,]+/).map(Number) as [number, number, number, number];
        const west = Math.max(left, -BESIDE);
        const east = Math.min(left + width, this.#window.width + BESIDE);
        const below = svg.includes('class="scale-bar"') ? BELOW + BAR : BELOW;
        const south = Math.min(top + height, this.#window.height + below);
        this.#view = { left: west, top, width: east - west, height: south - top };
        const box = Object.values(this.#view).map((value) => value.toFixed(2));
        return svg.replace(/viewBox="[^"]*"/, `viewBox="${box.join(" ")}"`)
            .replace(/ width="[^"]*"/, ` width="${box[2]}"`).replace(/ height="[^"]*"/, ` height="${box[3]}"`);
    }

    // The place of a pixel of the browser's window.
    #placeAt(event: { clientX: number; clientY: number }): Position | null {
        const box = this.#sheet.getBoundingClientRect();
        const x = this.#view.left + ((event.clientX - box.left) / box.width) * this.#view.width;
        const y = this.#view.top + ((event.clientY - box.top) / box.height) * this.#view.height;
        return this.#map?.degreesAt(x, y) ?? null;
    }

    #onMove(event: PointerEvent): void {
        if (this.#drag === null) {
            if (event.pointerType === "mouse") this.#tell(this.#placeAt(event));
            return;
        }
        const x = event.clientX - this.#drag.x;
        const y = event.clientY - this.#drag.y;
        if (Math.hypot(x, y) > CLICK) this.#drag.moved = true;
        if (this.#drag.moved) this.#picture.style.setProperty("transform", `translate(${x}px, ${y}px)`);
    }

    #tell(place: Position | null): void {
        this.#place.textContent = place === null ? "" : degreesText(place);
    }

    #onUp(event: PointerEvent): void {
        const drag = this.#drag;
        this.#endDrag();
        if (drag === null) return;
        if (!drag.moved) {
            const place = this.#placeAt(event);
            if (place !== null) this.onPlace(place);
            return;
        }
        this.#move((drag.x - event.clientX) / this.#sheet.clientWidth, (drag.y - event.clientY) / this.#sheet.clientHeight);
    }

    #endDrag(): void {
        this.#drag = null;
        this.#picture.style.setProperty("transform", "none");
    }

    // By parts of the map to the right and down.
    #move(right: number, down: number): void {
        const x = this.#window.width / 2 + right * this.#view.width;
        const y = this.#window.height / 2 + down * this.#view.height;
        this.#goTo(this.#map?.degreesAt(x, y) ?? null);
        if (this.#map === null) this.#draw();
    }

    #onKey(event: KeyboardEvent): void {
        const actions: Record<string, () => void> = {
            "ArrowLeft": () => this.#move(-STEP, 0),
            "ArrowRight": () => this.#move(STEP, 0),
            "ArrowUp": () => this.#move(0, -STEP),
            "ArrowDown": () => this.#move(0, STEP),
            "+": () => this.#zoom(1 / ZOOM),
            "=": () => this.#zoom(1 / ZOOM),
            "-": () => this.#zoom(ZOOM),
            "Enter": () => this.onPlace(this.#centre),
        };
        const action = actions[event.key];
        if (action === undefined || event.ctrlKey || event.metaKey || event.altKey) return;
        event.preventDefault();
        action();
    }
}
