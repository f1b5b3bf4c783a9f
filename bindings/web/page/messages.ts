// What the page and its worker say to each other.
export interface Job {
    module: WebAssembly.Module;
    source: Blob | string;
    datum: string;
    target: string;
}

export type News =
    | { kind: "progress"; done: number; all: number }
    | { kind: "done"; result: Blob; preview: string; rows: number; missing: number; milliseconds: number }
    | { kind: "failed"; reason: string };
