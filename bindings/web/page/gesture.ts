// One finger, or a mouse, that moves a picture; two that also zoom it.
export interface Point {
    x: number;
    y: number;
}

// What has become of the picture: it is `scale` times as large, and the point that was at `from` is at `to`.
export interface Change {
    from: Point;
    to: Point;
    scale: number;
}

interface Finger { first: Point; last: Point }

const MOST_FINGERS = 2;

function middle(points: Point[]): Point {
    const mean = (values: number[]) => values.reduce((sum, value) => sum + value, 0) / values.length;
    return { x: mean(points.map(({ x }) => x)), y: mean(points.map(({ y }) => y)) };
}

function spread([one, other]: Point[]): number {
    return one === undefined || other === undefined ? 1 : Math.max(Math.hypot(one.x - other.x, one.y - other.y), 1);
}

export class Gesture {
    readonly #fingers = new Map<number, Finger>();

    get fingers(): number {
        return this.#fingers.size;
    }

    has(id: number): boolean {
        return this.#fingers.has(id);
    }

    // False for a finger too many.
    add(id: number, at: Point): boolean {
        if (this.#fingers.size >= MOST_FINGERS) return false;
        this.#fingers.set(id, { first: at, last: at });
        return true;
    }

    move(id: number, at: Point): void {
        const finger = this.#fingers.get(id);
        if (finger !== undefined) finger.last = at;
    }

    remove(id: number): void {
        this.#fingers.delete(id);
    }

    clear(): void {
        this.#fingers.clear();
    }

    // What has changed so far is done: the fingers go on from where they are.
    restart(): void {
        for (const finger of this.#fingers.values()) finger.first = finger.last;
    }

    get change(): Change {
        const fingers = [...this.#fingers.values()];
        const first = fingers.map((finger) => finger.first);
        const last = fingers.map((finger) => finger.last);
        return { from: middle(first), to: middle(last), scale: spread(last) / spread(first) };
    }
}
