// Lists of positions as lines: a latitude and a longitude in two columns, or a text in one.
export interface List {
    delimiter: string;
    head: string | null;
    lines: string[];
}

export type Rows =
    | { kind: "degrees"; latitude: Float64Array; longitude: Float64Array }
    | { kind: "texts"; texts: string[] };

const DELIMITERS = ["\t", ";", ","];
const SAMPLE = 20;
const LATITUDE = /^\s*"?(lat|latitude|breite|y)"?\s*$/i;
const LONGITUDE = /^\s*"?(lon|lng|long|longitude|länge|laenge|x)"?\s*$/i;

function unquoted(field: string): string {
    const text = field.trim();
    return text.startsWith('"') && text.endsWith('"') && text.length > 1 ? text.slice(1, -1).replaceAll('""', '"') : text;
}

// Fields in quotes may hold the delimiter.
export function fieldsOf(line: string, delimiter: string): string[] {
    if (!line.includes('"')) return line.split(delimiter);
    const fields: string[] = [];
    let begin = 0;
    let isQuoted = false;
    for (let i = 0; i <= line.length; ++i) {
        if (line[i] === '"') isQuoted = !isQuoted;
        if (i < line.length && (isQuoted || line[i] !== delimiter)) continue;
        fields.push(line.slice(begin, i));
        begin = i + 1;
    }
    return fields;
}

// Where the fields are apart by something else, a comma is a decimal comma.
function numberOf(field: string, delimiter: string): number {
    const text = unquoted(field);
    if (text === "") return NaN;
    return Number(delimiter === "," ? text : text.replace(",", "."));
}

export function readList(text: string): List {
    const lines = text.split(/\r?\n/);
    while (lines.length > 0 && lines[lines.length - 1]!.trim() === "") lines.pop();
    const sample = lines.slice(0, SAMPLE);
    const delimiter = DELIMITERS.find((each) => sample.every((line) => line.includes(each))) ?? "";
    const first = lines[0] ?? "";
    const fields = delimiter === "" ? [first] : fieldsOf(first, delimiter);
    const hasHead = lines.length > 1 && !fields.some((field) => /\d/.test(field));
    return { delimiter, head: hasHead ? first : null, lines: hasHead ? lines.slice(1) : lines };
}

// The columns of latitude and longitude: those of such names, or the first two.
export function placesOf(list: List): [number, number] | null {
    if (list.delimiter === "") return null;
    if (list.head !== null) {
        const names = fieldsOf(list.head, list.delimiter);
        const latitude = names.findIndex((name) => LATITUDE.test(name));
        const longitude = names.findIndex((name) => LONGITUDE.test(name));
        if (latitude >= 0 && longitude >= 0) return [latitude, longitude];
    }
    const sample = list.lines.slice(0, SAMPLE).map((line) => fieldsOf(line, list.delimiter));
    const areNumbers = sample.every((fields) => fields.length >= 2 && !fields.slice(0, 2).some((field) => Number.isNaN(numberOf(field, list.delimiter))));
    return areNumbers ? [0, 1] : null;
}

export function readRows(list: List, first: number, last: number, places: [number, number] | null): Rows {
    const lines = list.lines.slice(first, last);
    if (places === null) return { kind: "texts", texts: lines.map(unquoted) };
    const latitude = new Float64Array(lines.length);
    const longitude = new Float64Array(lines.length);
    lines.forEach((line, i) => {
        const fields = fieldsOf(line, list.delimiter);
        latitude[i] = numberOf(fields[places[0]] ?? "", list.delimiter);
        longitude[i] = numberOf(fields[places[1]] ?? "", list.delimiter);
    });
    return { kind: "degrees", latitude, longitude };
}
