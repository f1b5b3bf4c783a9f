// Converts lists beside the page.
import { load } from "tessara";
import { convertList } from "./list_conversion.js";
import type { Job, News } from "./messages.js";

function tell(news: News): void {
    self.postMessage(news);
}

self.addEventListener("message", (event: MessageEvent<Job>) => {
    load({ source: event.data.module })
        .then((tessara) => convertList(tessara, event.data, tell))
        .catch((error: Error) => tell({ kind: "failed", reason: error.message }));
});
