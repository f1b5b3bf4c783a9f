// What the page is about: a position in degrees on a datum, and the text that it came from.
export interface Position {
    latitude: number;
    longitude: number;
}

export interface State {
    text: string;
    datum: string;
    position: Position | null;
}

export const FIRST: State = { text: "48.1375 11.5755", datum: "WGS84", position: null };

const DECIMALS = 7; // a centimetre

export function degreesText({ latitude, longitude }: Position): string {
    return `${latitude.toFixed(DECIMALS)} ${longitude.toFixed(DECIMALS)}`;
}

export function metresText(metres: number): string {
    if (metres < 1000) return `${metres.toFixed(3)} m`;
    return `${(metres / 1000).toLocaleString("en", { minimumFractionDigits: 3, maximumFractionDigits: 3 })} km`;
}

export function widthText(metres: number): string {
    const digits = { maximumSignificantDigits: 3 };
    return metres < 1000 ? `${metres.toLocaleString("en", digits)} m` : `${(metres / 1000).toLocaleString("en", digits)} km`;
}

// A link to the page leads to the same position.
export function readLink(hash: string): State {
    const given = new URLSearchParams(hash.replace(/^#/, ""));
    return { ...FIRST, text: given.get("at") ?? FIRST.text, datum: given.get("datum") ?? FIRST.datum };
}

export function writeLink(state: State): string {
    const parts = new URLSearchParams({ at: state.text });
    if (state.datum !== FIRST.datum) parts.set("datum", state.datum);
    return `#${parts}`;
}
