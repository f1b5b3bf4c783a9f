/** A position that has no result. */
export class PositionError extends Error {
    constructor(status, code, reason) {
        super(reason);
        this.name = "PositionError";
        this.status = status;
        this.code = code;
    }
}

/** A text that isn't a position. */
export class TextError extends Error {
    constructor(check) {
        super(check.reason);
        this.name = "TextError";
        this.code = check.code;
        this.piece = check.piece;
        this.begin = check.begin;
        this.end = check.end;
    }
}
