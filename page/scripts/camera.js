// Where the camera stands: the scene's own camera, changed by what mouse, touch and keys have added to the state.
import { change, state } from '#page/state.js';

const fullTurn = 2 * Math.PI;

/** The numbers for the renderer's camera. What nobody has touched is left exactly as the scene has it. */
export function placedCamera(own, values, circleTurn) {
    const [x, y, z, distance, height, startTurn, , , zoom, nearest, farthest] = own;
    let across = distance;
    let up = height;
    if (values.lift !== 0 || values.away !== 1) {
        const radius = Math.hypot(distance, height) * values.away;
        const angle = Math.atan2(height, distance) + values.lift * fullTurn;
        const limit = 0.24 * fullTurn;
        across = radius * Math.cos(Math.max(-limit, Math.min(limit, angle)));
        up = radius * Math.sin(Math.max(-limit, Math.min(limit, angle)));
    }
    const nearZ = values.nearest > 0 ? values.nearest : nearest;
    const farZ = Math.max(values.farthest > 0 ? values.farthest : farthest, nearZ * 1.01);
    const turn = startTurn + values.turn + circleTurn;
    return [x + values.x, y + values.y, z + values.z, across, up, turn, 0, 0, zoom * values.zoom, nearZ, farZ];
}

const clamped = (value, low, high) => Math.max(low, Math.min(high, value));

export function orbit(turn, lift) {
    const values = state();
    change({ turn: values.turn + turn, lift: clamped(values.lift + lift, -0.3, 0.3) });
}

export function goNearer(factor) {
    change({ away: clamped(state().away * factor, 0.02, 8) });
}

/** Moves what the camera looks at, and itself with it: to the right, up, and ahead along the floor. */
export function walk(camera, right, up, ahead) {
    const values = state();
    const angle = camera[5] * fullTurn;
    change({
        x: values.x + right * Math.cos(angle) - ahead * Math.sin(angle),
        y: values.y + up,
        z: values.z - right * Math.sin(angle) - ahead * Math.cos(angle),
    });
}

const pressed = new Set();
const moves = {
    ArrowLeft: () => ({ turn: -1 }),
    ArrowRight: () => ({ turn: 1 }),
    ArrowUp: () => ({ lift: 1 }),
    ArrowDown: () => ({ lift: -1 }),
    KeyW: () => ({ ahead: 1 }),
    KeyS: () => ({ ahead: -1 }),
    KeyA: () => ({ right: -1 }),
    KeyD: () => ({ right: 1 }),
    KeyR: () => ({ up: 1 }),
    KeyF: () => ({ up: -1 }),
    Equal: () => ({ nearer: 1 }),
    NumpadAdd: () => ({ nearer: 1 }),
    Minus: () => ({ nearer: -1 }),
    NumpadSubtract: () => ({ nearer: -1 }),
};

/** Whether a held key moves the camera. */
export function keysAreHeld() {
    return pressed.size > 0;
}

/** Moves the camera as the held keys say, for so many seconds. */
export function moveByKeys(camera, seconds) {
    const sum = { turn: 0, lift: 0, ahead: 0, right: 0, up: 0, nearer: 0 };
    for (const code of pressed)
        for (const [what, amount] of Object.entries(moves[code]())) sum[what] += amount;
    if (sum.turn || sum.lift) orbit(sum.turn * 0.12 * seconds, sum.lift * 0.06 * seconds);
    if (sum.nearer) goNearer(Math.exp(-sum.nearer * 0.9 * seconds));
    const pace = 0.6 * camera[3] * seconds;
    if (sum.ahead || sum.right || sum.up) walk(camera, sum.right * pace, sum.up * pace, sum.ahead * pace);
}

/** Has an element move the camera by mouse, touch and keys. `camera()` gives the numbers as they are, `clicked(x, y)`
 *  is called with a pixel of the picture when the pointer went down and up in one place. */
export function listenToPointerAndKeys(element, camera, clicked) {
    const pointers = new Map();
    let start = null;
    let dragged = false;
    const apart = () => {
        const [a, b] = [...pointers.values()];
        return Math.hypot(a.x - b.x, a.y - b.y);
    };

    element.addEventListener('pointerdown', (event) => {
        element.setPointerCapture(event.pointerId);
        pointers.set(event.pointerId, { x: event.clientX, y: event.clientY });
        if (pointers.size === 1) {
            start = { x: event.clientX, y: event.clientY };
            dragged = false;
        } else dragged = true;
    });
    element.addEventListener('pointermove', (event) => {
        const before = pointers.get(event.pointerId);
        if (!before) return;
        if (Math.hypot(event.clientX - start.x, event.clientY - start.y) > 4) dragged = true;
        if (!dragged) return;
        const width = element.clientWidth;
        const right = (event.clientX - before.x) / width;
        const down = (event.clientY - before.y) / width;
        const distanceBefore = pointers.size === 2 ? apart() : 0;
        pointers.set(event.pointerId, { x: event.clientX, y: event.clientY });
        const pans = pointers.size > 1 || event.shiftKey || (event.buttons & 6) !== 0;
        if (pans) walk(camera(), -right * camera()[3], down * camera()[3], 0);
        else orbit(-0.6 * right, 0.4 * down);
        if (distanceBefore > 0) goNearer(distanceBefore / Math.max(1, apart()));
    });
    const release = (event) => {
        if (!pointers.delete(event.pointerId)) return;
        if (event.type !== 'pointerup' || dragged || pointers.size > 0) return;
        const box = element.getBoundingClientRect();
        const x = Math.floor(((event.clientX - box.left) / box.width) * element.width);
        const y = Math.floor(((event.clientY - box.top) / box.height) * element.height);
        clicked(clamped(x, 0, element.width - 1), clamped(y, 0, element.height - 1));
    };
    element.addEventListener('pointerup', release);
    element.addEventListener('pointercancel', release);
    element.addEventListener('contextmenu', (event) => event.preventDefault());
    element.addEventListener('wheel', (event) => {
        event.preventDefault();
        goNearer(Math.exp(event.deltaY * 0.001));
    }, { passive: false });

    element.addEventListener('keydown', (event) => {
        if (event.ctrlKey || event.altKey || event.metaKey) return;
        if (Object.hasOwn(moves, event.code)) pressed.add(event.code);
        else if (event.code === 'Space') change({ moves: !state().moves });
        else if (event.code === 'Enter') clicked(element.width >> 1, element.height >> 1);
        else return;
        event.preventDefault();
    });
    element.addEventListener('keyup', (event) => pressed.delete(event.code));
    element.addEventListener('blur', () => pressed.clear());
}
