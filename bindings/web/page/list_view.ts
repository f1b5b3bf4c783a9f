import type { Tessara } from "tessara";
import { element, fill } from "./dom.js";
import { convertList } from "./list_conversion.js";
import type { Job, News, Wish } from "./messages.js";
import { isFile } from "./opened.js";
import type { State } from "./position.js";
import { targetsOf } from "./systems_view.js";

export class ListView {
    readonly #rows = element<HTMLTextAreaElement>("rows");
    readonly #file = element<HTMLInputElement>("file");
    readonly #target = element<HTMLSelectElement>("target");
    readonly #progress = element<HTMLProgressElement>("progress");
    readonly #result = element("list-result");
    readonly #preview = element("preview");
    readonly #download = element<HTMLAnchorElement>("download");
    readonly #cancel = element<HTMLButtonElement>("cancel");
    readonly #convert = element<HTMLButtonElement>("convert");
    readonly #targets;
    #dropped: File | null = null;
    #datum = "WGS84";
    #worker: Worker | null = null;
    #cancelled: AbortController | null = null;

    constructor(private readonly tessara: Tessara) {
        this.#targets = targetsOf(tessara);
        fill(this.#target, this.#targets.map(({ system }) => system), this.#targets.map(({ label }) => label));
        this.#target.value = "UTM";
        this.#convert.addEventListener("click", () => this.#start());
        this.#cancel.addEventListener("click", () => this.#stop("Cancelled."));
        this.#file.addEventListener("change", () => this.#take(this.#file.files?.[0] ?? null));
        this.#rows.addEventListener("input", () => this.#take(null));
        const card = element("list");
        card.addEventListener("dragover", (event) => event.preventDefault());
        card.addEventListener("drop", (event) => {
            event.preventDefault();
            const file = event.dataTransfer?.files[0] ?? null;
            if (file !== null) this.#take(file);
        });
    }

    show(state: State): void {
        this.#datum = state.datum;
    }

    #take(file: File | null): void {
        this.#dropped = file;
        if (file === null) return;
        this.#rows.value = "";
        this.#result.textContent = `${file.name} is ready to be converted.`;
    }

    #start(): void {
        const source = this.#dropped ?? this.#rows.value;
        if (typeof source === "string" && source.trim() === "") {
            this.#result.textContent = "There are no rows yet.";
            return;
        }
        this.#stop("");
        const target = this.#targets.find(({ system }) => system === this.#target.value)!;
        this.#progress.hidden = this.#cancel.hidden = false;
        this.#progress.value = 0;
        this.#download.hidden = this.#preview.hidden = true;
        const wish: Wish = { source, datum: this.#datum, target: `${target.system}@${target.datum ?? this.#datum}` };
        this.#cancelled = new AbortController();
        if (isFile()) this.#convertHere(wish, this.#cancelled.signal);
        else this.#convertBeside(wish);
    }

    #convertBeside(wish: Wish): void {
        this.#worker = new Worker("worker.js");
        this.#worker.addEventListener("message", (event: MessageEvent<News>) => this.#hear(event.data));
        this.#worker.addEventListener("error", () => this.#stop("The list couldn't be converted."));
        const job: Job = { ...wish, module: this.tessara.module };
        this.#worker.postMessage(job);
    }

    // Browsers start no worker from a file. The page is drawn and answers between blocks.
    #convertHere(wish: Wish, cancelled: AbortSignal): void {
        const hear = async (news: News) => {
            cancelled.throwIfAborted();
            this.#hear(news);
            await new Promise((resolve) => setTimeout(resolve));
        };
        convertList(this.tessara, wish, hear).catch((error: Error) => {
            if (!cancelled.aborted) this.#hear({ kind: "failed", reason: error.message });
        });
    }

    #stop(message: string): void {
        this.#worker?.terminate();
        this.#worker = null;
        this.#cancelled?.abort();
        this.#progress.hidden = this.#cancel.hidden = true;
        this.#result.textContent = message;
    }

    #hear(news: News): void {
        if (news.kind === "progress") {
            this.#progress.value = news.done / Math.max(news.all, 1);
            return;
        }
        if (news.kind === "failed") {
            this.#stop(`The list can't be converted: ${news.reason}.`);
            return;
        }
        const missing = news.missing === 0 ? "" : `; ${news.missing.toLocaleString("en")} have no such position`;
        this.#stop(`${news.rows.toLocaleString("en")} ${news.rows === 1 ? "row" : "rows"} in ${(news.milliseconds / 1000).toFixed(2)} s${missing}.`);
        URL.revokeObjectURL(this.#download.href);
        this.#download.href = URL.createObjectURL(news.result);
        this.#preview.textContent = news.preview;
        this.#download.hidden = this.#preview.hidden = false;
    }
}
