// Texts of numbers for the module, which imports these functions: JavaScript reads and writes doubles exactly.
const MANTISSA_BITS = 52n;
const EXPONENT_BIAS = 1075n;

const bits = new DataView(new ArrayBuffer(8));

// A finite value that isn't negative, rounded to so many decimals; half to even.
export function fixedText(value, decimals) {
    bits.setFloat64(0, value);
    const whole = bits.getBigUint64(0);
    const biased = whole >> MANTISSA_BITS;
    const fraction = whole & ((1n << MANTISSA_BITS) - 1n);
    const mantissa = biased === 0n ? fraction : fraction | (1n << MANTISSA_BITS);
    const exponent = (biased === 0n ? 1n : biased) - EXPONENT_BIAS;
    const scaled = mantissa * 10n ** BigInt(decimals);
    let rounded = exponent >= 0n ? scaled << exponent : scaled >> -exponent;
    if (exponent < 0n) {
        const rest = scaled - (rounded << -exponent);
        const half = 1n << (-exponent - 1n);
        if (rest > half || (rest === half && rounded % 2n === 1n)) rounded += 1n;
    }
    const digits = String(rounded).padStart(decimals + 1, "0");
    return decimals === 0 ? digits : `${digits.slice(0, -decimals)}.${digits.slice(-decimals)}`;
}

// The fewest digits that are read as the same double: 1.25e+2.
export function scientificText(value) {
    return value.toExponential();
}

/** What the module imports under the name `tessara`. `memory` gives its memory, which grows. */
export function numberImports(memory) {
    const write = (text, place, room) => {
        if (text.length > room) return 0;
        const bytes = new Uint8Array(memory().buffer, place, text.length);
        for (let i = 0; i < text.length; ++i) bytes[i] = text.charCodeAt(i);
        return text.length;
    };
    const read = (place, size) => {
        let text = "";
        for (const byte of new Uint8Array(memory().buffer, place, size)) text += String.fromCharCode(byte);
        return text;
    };
    return {
        readNumber: (place, size) => Number(read(place, size)),
        writeScientific: (value, place, room) => write(scientificText(value), place, room),
        writeFixed: (value, decimals, place, room) => write(fixedText(value, decimals), place, room),
    };
}
