// The state of the page, which is in this one place. Whatever changes it goes through change(); whatever shows it
// listens. What differs from the defaults is kept in the address, so that a link shows the same thing.

/** The defaults; the kind of each value is that of its default. */
export const defaults = Object.freeze({
    scene: 'room',
    row: 'LitTextured', // of the gallery
    size: '640x480',
    format: '565',
    state: 1, // the render state: 0 unlit, 1 lit, 3 fallback
    textures: '16-bit', // or 'palettised'
    shading: -1, // -1: as the scene has it
    transparency: -1,
    largest: 0, // side of a texture; 0: as it is
    level: -1, // of detail; -1: by the distance
    nearest: 0, // Z that is drawn; 0: as the scene has it
    farthest: 0,
    moves: true, // things move
    circles: false, // the camera goes round
    phase: 0, // of the movement, from 0 to 1
    turn: 0, // of the camera, added to the scene's, in turns
    lift: 0, // likewise, upwards
    away: 1, // the camera's distance, as a multiple of the scene's
    zoom: 1,
    x: 0, // where the camera looks, added to the scene's target
    y: 0,
    z: 0,
    view: 'picture',
    polygon: -1, // that is looked at; -1: none
    line: 240, // that is opened up
    painted: -1, // how many polygons are painted; -1: all
    spans: 0, // how many of the next one's spans
});

const digits = 5;
const listeners = new Set();
let current = { ...defaults };

function parsed(text, kind) {
    if (kind === 'boolean') return text === 'yes' ? true : text === 'no' ? false : undefined;
    if (kind === 'number') return text !== '' && Number.isFinite(Number(text)) ? Number(text) : undefined;
    return text;
}

function written(value) {
    if (typeof value === 'boolean') return value ? 'yes' : 'no';
    if (typeof value === 'number') return String(Number(value.toFixed(digits)));
    return value;
}

/** The state as it is. Nobody writes to it. */
export function state() {
    return current;
}

/** Changes some values, and tells all listeners which ones were changed. */
export function change(values) {
    const changed = Object.keys(values).filter((key) => current[key] !== values[key]);
    if (changed.length === 0) return;
    current = { ...current, ...values };
    for (const listener of listeners) listener(new Set(changed));
}

/** Calls listener(names of the changed values) after each change. */
export function listen(listener) {
    listeners.add(listener);
}

/** The part of an address behind its '#'. */
export function toAddress(values = current) {
    const different = Object.keys(defaults).filter((key) => written(values[key]) !== written(defaults[key]));
    return different.map((key) => `${key}=${encodeURIComponent(written(values[key]))}`).join('&');
}

/** The values that an address names; what it does not name has its default. Words that mean nothing are passed over. */
export function fromAddress(address) {
    const values = { ...defaults };
    for (const pair of address.replace(/^#/, '').split('&')) {
        const at = pair.indexOf('=');
        const key = pair.slice(0, at);
        if (at < 0 || !Object.hasOwn(defaults, key)) continue;
        let text;
        try {
            text = decodeURIComponent(pair.slice(at + 1));
        } catch {
            continue;
        }
        const value = parsed(text, typeof defaults[key]);
        if (value !== undefined) values[key] = value;
    }
    return values;
}
