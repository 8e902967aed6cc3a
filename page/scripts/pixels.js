// From 16-bit pixels to those of a canvas, and pictures that show how a frame was made.
import { polygonWord } from '#page/renderer.js';

const opaque = 0xff000000;
const tables = new Map();

// All 65,536 pixels of a format as a canvas has them. The short channels are widened to 0 to 255.
function wideColours(format) {
    if (tables.has(format)) return tables.get(format);
    const table = new Uint32Array(65536);
    const isWide = format === '565';
    for (let pixel = 0; pixel < table.length; ++pixel) {
        const red = (pixel >> (isWide ? 11 : 10)) & 31;
        const green = (pixel >> 5) & (isWide ? 63 : 31);
        const blue = pixel & 31;
        const wideGreen = isWide ? (green << 2) | (green >> 4) : (green << 3) | (green >> 2);
        table[pixel] = opaque | (((blue << 3) | (blue >> 2)) << 16) | (wideGreen << 8) | (red << 3) | (red >> 2);
    }
    tables.set(format, table);
    return table;
}

/** Widens a frame into 32-bit pixels. */
export function widen(frame, format, wide) {
    const colours = wideColours(format);
    const { width, height, pitch, pixels } = frame;
    for (let y = 0; y < height; ++y) {
        const row = y * pitch;
        const to = y * width;
        for (let x = 0; x < width; ++x) wide[to + x] = colours[pixels[row + x]];
    }
}

function packed(red, green, blue) {
    return (opaque | (blue << 16) | (green << 8) | red) >>> 0;
}

/** A colour that tells a polygon from its neighbours, as [red, green, blue]. */
export function colourOfPolygon(polygon) {
    if (polygon < 0) return [24, 26, 32];
    let bits = Math.imul(polygon + 1, 0x9e3779b1);
    bits = Math.imul(bits ^ (bits >>> 15), 0x2c1b3c6d);
    return [72 + ((bits >>> 4) & 127), 72 + ((bits >>> 12) & 127), 72 + ((bits >>> 20) & 127)];
}

function forEachSpan(spans, visit) {
    for (let i = 0; i < spans.length; i += 4) visit(spans[i], spans[i + 1], spans[i + 2], spans[i + 3]);
}

/** Each polygon in a colour of its own. What is see-through is mixed half and half with what lies behind it. */
export function paintPolygons(parts, width, wide) {
    wide.fill(opaque);
    forEachSpan(parts.spans, (x, y, length, polygon) => {
        const [red, green, blue] = colourOfPolygon(polygon);
        const seeThrough = polygon >= 0 && parts.polygons.integers[polygon * polygonWord.count] > 0;
        const from = y * width + x;
        if (!seeThrough) {
            wide.fill(packed(red, green, blue), from, from + length);
            return;
        }
        for (let i = from; i < from + length; ++i) {
            const before = wide[i];
            wide[i] = packed((red + (before & 255)) >> 1, (green + ((before >> 8) & 255)) >> 1,
                (blue + ((before >> 16) & 255)) >> 1);
        }
    });
}

/** The colours of 0, 1, 2, ... times; more than the last is shown as the last. */
export const overdrawColours = Object.freeze([
    [0, 0, 0], [30, 58, 120], [32, 120, 150], [52, 160, 92], [190, 190, 60], [236, 140, 44], [232, 72, 60],
    [255, 220, 230],
]);

/** How often each pixel was written. Gives the greatest number and the mean. */
export function paintOverdraw(parts, width, height, wide) {
    const times = new Uint16Array(width * height);
    let sum = 0;
    forEachSpan(parts.spans, (x, y, length, polygon) => {
        if (polygon < 0) return;
        sum += length;
        for (let i = y * width + x, end = i + length; i < end; ++i) ++times[i];
    });
    const colours = overdrawColours.map((colour) => packed(...colour));
    let most = 0;
    for (let i = 0; i < times.length; ++i) {
        if (times[i] > most) most = times[i];
        wide[i] = colours[Math.min(times[i], colours.length - 1)];
    }
    return { most, mean: sum / times.length };
}

/** The nearer, the brighter; by the polygons' planes of inverse depth, on a scale of logarithms. The ends of the scale
 *  leave out one pixel of 200 on each side: at the rim of a polygon its plane may reach nearly any depth. */
export function paintDepth(parts, width, height, wide) {
    const depth = new Float32Array(width * height);
    const { integers, floats } = parts.polygons;
    forEachSpan(parts.spans, (x, y, length, polygon) => {
        const at = polygon * polygonWord.count;
        if (polygon < 0 || integers[at] === 2) return;
        const step = floats[at + polygonWord.stepX];
        let value = step * x + floats[at + polygonWord.stepY] * y + floats[at + polygonWord.origin];
        for (let i = y * width + x, end = i + length; i < end; ++i, value += step) depth[i] = Math.max(value, 1e-6);
    });
    const sorted = depth.filter((value) => value > 0).sort();
    const least = sorted[Math.floor(sorted.length / 200)] ?? 1;
    const most = sorted[sorted.length - 1 - Math.floor(sorted.length / 200)] ?? 1;
    const low = Math.log(least);
    const scale = most > least ? 225 / (Math.log(most) - low) : 0;
    for (let i = 0; i < depth.length; ++i) {
        const inside = Math.min(Math.max(depth[i], least), most);
        const grey = depth[i] > 0 ? Math.round(30 + (Math.log(inside) - low) * scale) : 0;
        wide[i] = packed(grey, grey, grey);
    }
    return { nearest: 1 / most, farthest: 1 / least };
}

/** Darkens the whole picture, so that what is then marked stands out. */
export function dim(wide) {
    for (let i = 0; i < wide.length; ++i) {
        const pixel = wide[i];
        const mean = ((pixel & 255) + ((pixel >> 8) & 255) + ((pixel >> 16) & 255)) / 3;
        const grey = Math.round(12 + mean * 0.42);
        wide[i] = packed(grey, grey, grey);
    }
}

/** Marks the spans of a polygon, in blocks of eight pixels of two colours in turn. */
export function paintBlocks(parts, polygon, width, wide) {
    const light = packed(255, 206, 84);
    const dark = packed(222, 130, 36);
    forEachSpan(parts.spans, (x, y, length, owner) => {
        if (owner !== polygon) return;
        for (let i = 0; i < length; ++i) wide[y * width + x + i] = (i >> 3) & 1 ? dark : light;
    });
}

/** The polygon that was painted last at each pixel; -1: none. */
export function owners(parts, width, height) {
    const result = new Int32Array(width * height).fill(-1);
    forEachSpan(parts.spans, (x, y, length, polygon) => {
        if (polygon >= 0) result.fill(polygon, y * width + x, y * width + x + length);
    });
    return result;
}
