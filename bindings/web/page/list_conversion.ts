// Converts a list block by block.
import { Letters, type FieldColumns, type Tessara } from "tessara";
import { placesOf, readList, readRows } from "./csv.js";
import type { News, Wish } from "./messages.js";

const BLOCK = 20000;
const PREVIEW = 10;
const METRE_DECIMALS = 3;
const DEGREE_DECIMALS = 8;
const OK = 1;

// Numbers with a fraction have the decimals of their unit.
function writerOf(name: string, column: Float64Array | Letters): (row: number) => string {
    if (column instanceof Letters) return (row) => column.at(row);
    const isWhole = column.subarray(0, 100).every((value) => Number.isNaN(value) || Number.isInteger(value));
    if (isWhole) return (row) => String(column[row]);
    const decimals = /^(lat|lon)/.test(name) ? DEGREE_DECIMALS : METRE_DECIMALS;
    return (row) => column[row]!.toFixed(decimals);
}

// `tell` hears how far it is, and at last the result; what it gives is waited for.
export async function convertList(tessara: Tessara, { source, datum, target }: Wish, tell: (news: News) => unknown): Promise<void> {
    const began = performance.now();
    const list = readList(typeof source === "string" ? source : await source.text());
    const places = placesOf(list);
    const delimiter = list.delimiter === "" ? ";" : list.delimiter;
    const from = `GEODEZ@${datum}`;
    const parts: string[] = [];
    const isReference = target.startsWith("UTMREF@");
    const fields = isReference ? ["reference"] : tessara.systems().find(({ name }) => name === target.split("@")[0])!.fields;
    if (list.head !== null) parts.push([list.head, ...fields].join(delimiter));
    let missing = 0;
    for (let first = 0; first < list.lines.length; first += BLOCK) {
        const last = Math.min(first + BLOCK, list.lines.length);
        const rows = readRows(list, first, last, places);
        const { latitude, longitude } = rows.kind === "degrees" ? rows : tessara.parse(rows.texts, { datum });
        const lines: string[] = [];
        if (isReference) {
            const texts = tessara.format(latitude, longitude, { from, to: target }) as string[];
            texts.forEach((text, row) => {
                if (text === "") ++missing;
                lines.push(list.lines[first + row] + delimiter + text);
            });
        } else {
            const columns: FieldColumns = tessara.convert(latitude, longitude, { from, to: target });
            const writers = fields.map((name) => writerOf(name, columns[name] as Float64Array | Letters));
            for (let row = 0; row < last - first; ++row) {
                let line = list.lines[first + row]!;
                const isThere = columns.status[row] === OK;
                if (!isThere) ++missing;
                for (const write of writers) line += delimiter + (isThere ? write(row) : "");
                lines.push(line);
            }
        }
        parts.push(lines.join("\n"));
        await tell({ kind: "progress", done: last, all: list.lines.length });
    }
    const preview = parts.slice(0, 2).join("\n").split("\n", PREVIEW).join("\n");
    const result = new Blob(parts.flatMap((part) => [part, "\n"]), { type: "text/csv" });
    await tell({ kind: "done", result, preview, rows: list.lines.length, missing, milliseconds: performance.now() - began });
}
