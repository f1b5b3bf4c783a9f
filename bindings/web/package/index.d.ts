/**
 * Coordinate systems and geodetic datums. `load` once, then call the methods of what it gives:
 *
 *     const tessara = await load();
 *     tessara.convert(48.1375, 11.5755);                  // { zone: 32, hemisphere: "N", easting: ..., northing: ... }
 *     tessara.parse("48°08'15\"N 11°34'31.8\"E").latitude;  // 48.1375
 *
 * North comes before east everywhere. Latitudes and longitudes are degrees, grid values and heights metres.
 */

/** A system with its parameters and datum: `UTM`, `CH@CH1903`, `TM:lon0=9,k=0.9996`. Without a datum it is on WGS84. */
export type Reference = string;

/** Numbers of many positions. Only a `Float64Array` is taken as it is; others are copied first. */
export type Numbers = Float64Array | Float32Array | readonly number[];

export interface LoadOptions {
    /** Everything, or `conversions`: a sixth of the size, without texts and maps; arrays take three times as long. */
    part?: "all" | "conversions";
    /** The module from elsewhere: its bytes, a response, or what `Tessara.module` is in another thread. */
    source?: WebAssembly.Module | BufferSource | Response | Promise<WebAssembly.Module | BufferSource | Response>;
}

export function load(options?: LoadOptions): Promise<Tessara>;

export interface ConvertOptions {
    /** What positions are in; degrees (`GEODEZ`) unless it is given. */
    from?: Reference;
    /** What they become; `UTM` unless it is given. */
    to?: Reference;
    /** Metres above the ellipsoid. Earth-centred positions have it in x, y and z. */
    height?: number | Numbers;
}

/** The fields of a position: numbers, and letters as strings. `systems()` lists their names. */
export type Fields = Record<string, number | string>;

/** The fields of many positions. A position without a result has NaN and no letters; `status` says why. */
export type FieldColumns = Record<string, Float64Array | Letters> & { status: Int32Array };

/** Letters of many positions, such as bands and squares. */
export class Letters implements Iterable<string> {
    /** `width` bytes for each position; zeros where there is none. */
    readonly bytes: Uint8Array;
    readonly width: number;
    readonly length: number;
    at(index: number): string;
    toArray(): string[];
    [Symbol.iterator](): Iterator<string>;
}

/** A position that has no result. */
export class PositionError extends Error {
    /** The library's number; 1 is success. */
    status: number;
    /** A word that stays the same from version to version, like `outside-zone`. */
    code: string;
}

/** A text that isn't a position. */
export class TextError extends Error {
    code: string;
    /** What is wrong in the text, and where: characters from `begin` to `end`. */
    piece: string;
    begin: number;
    end: number;
}

/** What a text means. */
export interface Reading {
    latitude: number;
    longitude: number;
    system: string;
    datum: string;
    fields: Fields;
    /** The fields with the digits that were typed: `32 U PU 916__ 348__`. */
    picture: string;
    /** For people: system, fields, latitude and longitude. */
    description: string;
}

export interface Check {
    good: boolean;
    code: string;
    reason: string;
    piece: string;
    begin: number;
    end: number;
    /** Several where a text can be read in several ways. */
    meanings: Reading[];
}

export interface TextOptions {
    /** `auto` is any system that can be told from the text. */
    system?: Reference | "auto";
    /** Of positions that name none. */
    datum?: string;
}

export interface FormatOptions {
    /** `GEODEZ`, on any datum. */
    from?: Reference;
    to?: Reference;
    /** The forms for a screen. */
    display?: boolean;
    /** What the last digit stands for, in units of the system. */
    precision?: number;
    /** Of each axis of a military reference: 5 for metres, 0 for the square of 100 km. */
    digits?: number;
    /** Military references of the square that a position lies in, not of the nearest one. */
    truncate?: boolean;
}

export interface Way {
    distance: number;
    /** Degrees clockwise from north. */
    azimuth: number;
    backAzimuth: number;
}

export interface End {
    latitude: number;
    longitude: number;
    backAzimuth: number;
}

export type Columns<Result> = { [Name in keyof Result]: Float64Array } & { status: Int32Array };

export interface System {
    number: number;
    name: string;
    unit: "pixel" | "degree" | "metre";
    fields: string[];
}

/** Axis and shifts in metres. */
export interface Datum {
    number: number;
    name: string;
    ellipsoid: string;
    a: number;
    f: number;
    dx: number;
    dy: number;
    dz: number;
    /** These four with part `all` only: the name in the registries, where it is used, and metres. */
    title?: string;
    region?: string;
    area?: string;
    accuracy?: number | null;
}

/** A position in one system, or why it has none there. */
export interface Shown {
    name: Reference;
    fields?: Fields;
    /** One text, or a north and an east text. */
    texts?: string[];
    code?: string;
    reason?: string;
}

export interface MilitaryPieces {
    zone?: string;
    band?: string;
    column?: string;
    row?: string;
    easting?: string;
    northing?: string;
}

/** What may follow the pieces that are there, and the position once they are complete. */
export interface MilitaryChoices {
    zones: string[];
    bands: string[];
    columns: string[];
    rows: string[];
    latitude?: number;
    longitude?: number;
}

export interface MapOptions {
    /** Of the longer side of the map's window, in units of the picture. */
    size?: number;
    /** The texts of files that layers name. */
    files?: Record<string, string>;
}

export interface Picture {
    svg: string;
    /** What couldn't be drawn. */
    problems: string[];
    /** What is left out. */
    notes: string[];
}

/** A map and its picture. Close it when it is no longer needed. */
export interface TessaraMap {
    draw(): Picture;
    /** Degrees on the map's datum at a point of the picture. */
    degreesAt(x: number, y: number): { latitude: number; longitude: number } | null;
    pointAt(latitude: number, longitude: number): { x: number; y: number } | null;
    close(): void;
}

/** Methods throw a `TypeError` with what is wrong for names that don't exist and arguments of the wrong type. */
export interface Tessara {
    /** For another thread: `load({ source: module })` there compiles nothing. */
    readonly module: WebAssembly.Module;

    /** One position. Throws `PositionError` where it has no result. */
    convert(north: number, east: number, options?: ConvertOptions): Fields;
    /** Many positions. A number stands for all rows. */
    convert(north: Numbers | number, east: Numbers | number, options?: ConvertOptions): FieldColumns;
    /** The fields of the source by their names, each a value or many. */
    convert(fields: Fields, options: ConvertOptions): Fields;
    convert(fields: Record<string, number | string | Numbers | Letters | readonly string[]>, options: ConvertOptions): FieldColumns;

    /** Why a position has no result: the clause for a status of many. */
    statusText(status: number): string;

    /** Throws `TextError` with the piece that is wrong. */
    parse(text: string, options?: TextOptions): Reading;
    /** NaN where a text isn't a position. */
    parse(texts: readonly string[], options?: TextOptions): { latitude: Float64Array; longitude: Float64Array };
    check(text: string, options?: TextOptions): Check;

    /** Military references and earth-centred positions have one text, others a north and an east text. */
    format(north: number, east: number, options?: FormatOptions): string | { north: string; east: string };
    /** An empty text where a position has none. */
    format(north: Numbers, east: Numbers, options?: FormatOptions): string[] | { north: string[]; east: string[] };

    /** Ways on the ellipsoid of a datum. */
    distance(latitude1: number, longitude1: number, latitude2: number, longitude2: number, options?: { datum?: string }): Way;
    distance(latitude1: Numbers | number, longitude1: Numbers | number, latitude2: Numbers | number, longitude2: Numbers | number, options?: { datum?: string }): Columns<Way>;
    direct(latitude: number, longitude: number, azimuth: number, distance: number, options?: { datum?: string }): End;
    direct(latitude: Numbers | number, longitude: Numbers | number, azimuth: Numbers | number, distance: Numbers | number, options?: { datum?: string }): Columns<End>;

    systems(): System[];
    datums(): Datum[];

    show(latitude: number, longitude: number, options?: { from?: Reference; to?: Reference }): Shown;
    militaryChoices(pieces?: MilitaryPieces, options?: { datum?: string }): MilitaryChoices;

    /** Descriptions are the objects that docs/map.md explains, or their JSON. */
    drawMap(description: object | string, options?: MapOptions): Picture;
    openMap(description: object | string, options?: MapOptions): TessaraMap;
    /** The description of a map around a place, `width` metres from side to side. */
    mapAround(latitude: number, longitude: number, width: number): Record<string, unknown>;
}
