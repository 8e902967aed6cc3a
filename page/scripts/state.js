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

const words = {
    size: ['320x240', '640x480', '1024x768'],
    format: ['565', '555'],
    textures: ['16-bit', 'palettised'],
    view: ['picture', 'polygons', 'overdraw', 'depth', 'line', 'one', 'steps'],
};
const limits = {
    state: [0, 3],
    shading: [-1, 2],
    transparency: [-1, 100],
    largest: [0, 256],
    level: [-1, 2],
    nearest: [0, 1000],
    farthest: [0, 1000],
    phase: [0, 1],
    turn: [-1000, 1000],
    lift: [-0.3, 0.3],
    away: [0.02, 8],
    zoom: [0.1, 20],
    x: [-1000, 1000],
    y: [-1000, 1000],
    z: [-1000, 1000],
    polygon: [-1, 1e6],
    line: [0, 4095],
    painted: [-1, 1e6],
    spans: [0, 1e6],
};
const whole = ['state', 'shading', 'transparency', 'largest', 'level', 'polygon', 'line', 'painted', 'spans'];
const digits = 5;
const listeners = new Set();
let current = { ...defaults };

const settingsKey = 'settings of the page';

// The value that a text stands for; undefined when it means nothing.
function parsed(key, text) {
    const kind = typeof defaults[key];
    if (kind === 'boolean') return { yes: true, no: false }[text];
    if (kind === 'string') return !words[key] || words[key].includes(text) ? text : undefined;
    if (text === '' || !Number.isFinite(Number(text))) return undefined;
    const value = Math.min(Math.max(Number(text), limits[key][0]), limits[key][1]);
    return whole.includes(key) ? Math.round(value) : value;
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

/** All values as they are saved. */
export function toSettings() {
    return { [settingsKey]: current };
}

/** What a file holds as settings; undefined when it is another file. */
export function settingsIn(json) {
    return json !== null && typeof json === 'object' ? json[settingsKey] : undefined;
}

function expectedOf(key) {
    if (words[key]) return words[key].join(', ').replace(/, ([^,]*)$/, ' or $1');
    if (limits[key]) return `a number from ${limits[key].join(' to ')}`;
    return typeof defaults[key] === 'boolean' ? 'true or false' : 'a text';
}

/** The values of saved settings; what they do not name has its default. Gives `values`, or a `problem`: the half of a
 *  sentence that goes on after the file. */
export function fromSettings(settings) {
    if (settings === null || typeof settings !== 'object' || Array.isArray(settings))
        return { problem: `${settingsKey}: expected is an object with keys in braces` };
    const values = { ...defaults };
    for (const [key, value] of Object.entries(settings)) {
        if (!Object.hasOwn(defaults, key))
            return { problem: `${key}: there is no such setting; expected are ${Object.keys(defaults).join(', ')}` };
        const isKind = typeof value === typeof defaults[key];
        const isKnown = isKind && (!words[key] || words[key].includes(value));
        const isInside = isKind && (!limits[key] || (value >= limits[key][0] && value <= limits[key][1]));
        if (!isKnown || !isInside)
            return { problem: `${key}: expected is ${expectedOf(key)}, not ${JSON.stringify(value)}` };
        values[key] = whole.includes(key) ? Math.round(value) : value;
    }
    return { values };
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
        const value = parsed(key, text);
        if (value !== undefined) values[key] = value;
    }
    return values;
}
