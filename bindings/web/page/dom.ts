export function element<Kind extends HTMLElement>(id: string): Kind {
    const found = document.getElementById(id);
    if (found === null) throw new Error(`no element ${id}`);
    return found as Kind;
}

export function make<Name extends keyof HTMLElementTagNameMap>(
    name: Name, content: (string | Node)[] = [], attributes: Record<string, string> = {}): HTMLElementTagNameMap[Name] {
    const made = document.createElement(name);
    for (const [key, value] of Object.entries(attributes)) made.setAttribute(key, value);
    made.append(...content);
    return made;
}

export function button(label: string, onClick: () => void, attributes: Record<string, string> = {}): HTMLButtonElement {
    const made = make("button", [label], { type: "button", ...attributes });
    made.addEventListener("click", onClick);
    return made;
}

export function fill(select: HTMLSelectElement, values: readonly string[], labels: readonly string[] = values): void {
    const before = select.value;
    select.replaceChildren(...values.map((value, i) => make("option", [labels[i] ?? value], { value })));
    select.value = values.includes(before) ? before : (values[0] ?? "");
}
