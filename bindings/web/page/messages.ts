// What the page and its worker say to each other.
export interface Wish {
    source: Blob | string;
    datum: string;
    target: string;
}

export interface Job extends Wish {
    module: WebAssembly.Module;
}

export type News =
    | { kind: "progress"; done: number; all: number }
    | { kind: "done"; result: Blob; preview: string; rows: number; missing: number; milliseconds: number }
    | { kind: "failed"; reason: string };
