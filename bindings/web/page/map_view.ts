import type { Tessara, TessaraMap } from "tessara";
import { element, fill } from "./dom.js";
import { Gesture, type Change, type Point } from "./gesture.js";
import { degreesText, widthText, type Position, type State } from "./position.js";

const NARROWEST = 50;
const WIDEST = 4e7;
const ZOOM = 2;
const STEP = 0.25; // of the map, for a key
const LARGEST_LINES = 6;
const MARGINS = 0.75; // the part of the picture that isn't numbers at its frame
const SHAPE = 0.8; // the height of the library's maps, in their widths
const BESIDE = 76; // units of the picture for numbers left and right of the window
const ABOVE = 76; // for four rows of them
const BELOW = 98; // for three rows and a scale bar
const EDGE = 12; // around maps without numbers beside them
const LEGEND = /^.* class="(legend|sample|note)".*\n/gm; // lines of a picture
const SMALLEST = 280;
const LARGEST = 900;
const CLICK = 5; // pixels of a pointer that doesn't drag
const FIRST_BUTTON = 0; // of a mouse; a finger has no other

const GRIDS = ["as it fits", "UTM", "GK@GER", "GEODEZ", "BNG@OGB_M", "CH@CH1903", "zones of UTM", "none"];

interface Layer { type: string; system?: string; step?: number; [key: string]: unknown }
interface Description { layers: Layer[]; window: { left: number; top: number; right: number; bottom: number }; title?: string }

// 1, 2 or 5 times a power of ten.
function roundStep(metres: number): number {
    const power = 10 ** Math.floor(Math.log10(metres));
    return (metres / power >= 5 ? 5 : metres / power >= 2 ? 2 : 1) * power;
}

function limitedWidth(metres: number): number {
    return Math.min(Math.max(metres, NARROWEST), WIDEST);
}

export class MapView {
    readonly #sheet = element("sheet");
    readonly #picture = element<HTMLImageElement>("picture");
    readonly #grid = element<HTMLSelectElement>("grid");
    readonly #wide = element("wide");
    readonly #place = element("place");
    #map: TessaraMap | null = null;
    #view = { left: 0, top: 0, width: 1, height: 1 }; // of the picture, in its units
    #window = { width: 1, height: 1 };
    #centre: Position = { latitude: 48, longitude: 11 };
    #width = 50e3;
    #position: Position | null = null;
    readonly #gesture = new Gesture();
    #hasMoved = false; // in this gesture, which is no click then

    constructor(private readonly tessara: Tessara, private readonly onPlace: (place: Position) => void) {
        fill(this.#grid, GRIDS);
        this.#grid.addEventListener("change", () => this.#draw());
        element("closer").addEventListener("click", () => this.#zoom(1 / ZOOM));
        element("farther").addEventListener("click", () => this.#zoom(ZOOM));
        element("centre").addEventListener("click", () => this.#goTo(this.#position));
        this.#sheet.addEventListener("keydown", (event) => this.#onKey(event));
        this.#sheet.addEventListener("wheel", (event) => {
            event.preventDefault();
            const at = this.#pointAt(event);
            this.#apply({ from: at, to: at, scale: event.deltaY > 0 ? 1 / ZOOM : ZOOM });
        }, { passive: false });
        this.#sheet.addEventListener("pointerdown", (event) => this.#onDown(event));
        this.#sheet.addEventListener("pointermove", (event) => this.#onMove(event));
        this.#sheet.addEventListener("pointerup", (event) => this.#onUp(event));
        this.#sheet.addEventListener("pointercancel", () => this.#cancel());
        this.#picture.addEventListener("load", () => this.#transform());
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

    #zoom(factor: number): void {
        this.#width = limitedWidth(this.#width * factor);
        this.#draw();
    }

    // A change whose map is neither too wide nor too narrow.
    #limited(change: Change): Change {
        return { ...change, scale: this.#width / limitedWidth(this.#width / change.scale) };
    }

    #apply(change: Change): void {
        const { from, to, scale } = this.#limited(change);
        const start = this.#unitsAt(from);
        const end = this.#unitsAt(to);
        const x = start.x + (this.#window.width / 2 - end.x) / scale;
        const y = start.y + (this.#window.height / 2 - end.y) / scale;
        this.#centre = this.#map?.degreesAt(x, y) ?? this.#centre;
        this.#width /= scale;
        this.#draw();
    }

    #description(): Description {
        const { latitude, longitude } = this.#centre;
        const description = this.tessara.mapAround(latitude, longitude, this.#width) as unknown as Description;
        const layers = description.layers.filter((layer) => layer.type !== "positions");
        description.layers = this.#withGrid(layers);
        delete description.title;
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
            this.#transform();
            return;
        }
        const { svg, problems, notes } = this.#map.draw();
        const shown = this.#crop(svg);
        const old = this.#picture.src;
        this.#picture.src = URL.createObjectURL(new Blob([shown], { type: "image/svg+xml" }));
        this.#picture.style.setProperty("aspect-ratio", `${this.#view.width} / ${this.#view.height}`);
        if (old.startsWith("blob:")) URL.revokeObjectURL(old);
        this.#wide.textContent = `${widthText(this.#width)} wide`;
        const middle = degreesText(this.#centre);
        this.#picture.alt = `Map, ${widthText(this.#width)} wide, around ${middle}`;
        this.#place.textContent = [...problems, ...notes].join("; ");
        this.#sheet.dataset["milliseconds"] = (performance.now() - began).toFixed(0);
    }

    // The picture without its legend. The window has the same place in it whatever numbers are next to its frame, so
    // that what is under a pointer stays there when the map is drawn again.
    #crop(svg: string): string {
        const { width, height } = this.#window;
        const [left = 0, , whole = 0] = (/viewBox="([^"]+)"/.exec(svg)?.[1] ?? "").split(/[ ,]+/).map(Number);
        const isBare = left >= -EDGE && left + whole <= width + EDGE;
        const shown = width + 2 * (isBare ? EDGE : BESIDE);
        const part = shown / (width + 2 * BESIDE);
        this.#view = {
            left: (width - shown) / 2,
            top: height / 2 - part * (ABOVE + (SHAPE * width) / 2),
            width: shown,
            height: part * (ABOVE + SHAPE * width + BELOW),
        };
        const box = Object.values(this.#view).map((value) => value.toFixed(2));
        return svg.replace(LEGEND, "").replace(/viewBox="[^"]*"/, `viewBox="${box.join(" ")}"`)
            .replace(/ width="[^"]*"/, ` width="${box[2]}"`).replace(/ height="[^"]*"/, ` height="${box[3]}"`);
    }

    // Pixels of the sheet, of the browser's window.
    #pointAt(event: { clientX: number; clientY: number }): Point {
        const box = this.#sheet.getBoundingClientRect();
        return { x: event.clientX - box.left, y: event.clientY - box.top };
    }

    // Units of the picture, of pixels of the sheet.
    #unitsAt({ x, y }: Point): Point {
        return {
            x: this.#view.left + (x / this.#sheet.offsetWidth) * this.#view.width,
            y: this.#view.top + (y / this.#sheet.offsetHeight) * this.#view.height,
        };
    }

    #placeAt(event: PointerEvent): Position | null {
        const { x, y } = this.#unitsAt(this.#pointAt(event));
        return this.#map?.degreesAt(x, y) ?? null;
    }

    #onDown(event: PointerEvent): void {
        if (event.button !== FIRST_BUTTON) return;
        if (this.#hasMoved) this.#settle();
        if (!this.#gesture.add(event.pointerId, this.#pointAt(event))) return;
        this.#sheet.setPointerCapture(event.pointerId);
        if (this.#gesture.fingers > 1) this.#hasMoved = true;
    }

    #onMove(event: PointerEvent): void {
        if (!this.#gesture.has(event.pointerId)) {
            if (event.pointerType === "mouse") this.#tell(this.#placeAt(event));
            return;
        }
        this.#gesture.move(event.pointerId, this.#pointAt(event));
        const { from, to } = this.#gesture.change;
        if (Math.hypot(to.x - from.x, to.y - from.y) > CLICK) this.#hasMoved = true;
        this.#transform();
    }

    #tell(place: Position | null): void {
        this.#place.textContent = place === null ? "" : degreesText(place);
    }

    #onUp(event: PointerEvent): void {
        if (!this.#gesture.has(event.pointerId)) return;
        if (this.#hasMoved) this.#settle();
        this.#gesture.remove(event.pointerId);
        const isClick = !this.#hasMoved;
        if (this.#gesture.fingers === 0) this.#hasMoved = false;
        const place = isClick ? this.#placeAt(event) : null;
        if (place !== null) this.onPlace(place);
    }

    // Draws the map that the fingers have made.
    #settle(): void {
        const { change } = this.#gesture;
        this.#gesture.restart();
        this.#apply(change);
    }

    #cancel(): void {
        this.#gesture.clear();
        this.#hasMoved = false;
        this.#transform();
    }

    // The picture follows the fingers until it is drawn again.
    #transform(): void {
        if (!this.#hasMoved || this.#gesture.fingers === 0) {
            this.#picture.style.setProperty("transform", "none");
            return;
        }
        const { from, to, scale } = this.#limited(this.#gesture.change);
        this.#picture.style.setProperty("transform", `translate(${to.x - scale * from.x}px, ${to.y - scale * from.y}px) scale(${scale})`);
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
