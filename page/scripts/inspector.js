// The inspector: views that open up the frame which was drawn last. The renderer leaves its lists and spans in memory;
// the views read them and change nothing.
import {
    colourOfPolygon, dim, overdrawColours, owners, paintBlocks, paintDepth, paintOverdraw, paintPolygons, widen,
} from '#page/pixels.js';
import { polygonWord } from '#page/renderer.js';
import { openedRow } from '#page/opened_row.js';
import { change, state } from '#page/state.js';
import { element, many, number, outlineOn, svg } from '#page/elements.js';

const css = (colour) => `rgb(${colour.join(' ')})`;

function slider(label, name, greatest, listener) {
    const input = element('input', { type: 'range', min: 0, max: greatest, step: 1, name });
    const shown = element('span');
    input.addEventListener('input', () => listener(Number(input.value)));
    const words = element('span', {}, [label, ' ', shown]);
    return { label: element('label', { class: 'wide' }, [words, input]), input, shown };
}

// The order in which the see-through polygons are painted, as numbers in the picture.
function markSortedPolygons(inspector, context) {
    const { polygons, describe } = inspector;
    let painted = 0;
    context.font = '10px system-ui, sans-serif';
    for (let i = 0; i < polygons.count && painted < 80; ++i) {
        if (polygons.integers[i * polygonWord.count + polygonWord.list] === 0) continue;
        if (polygons.integers[i * polygonWord.count + polygonWord.spanCount] === 0) continue;
        ++painted;
        const { outline } = describe(i);
        context.strokeStyle = css(colourOfPolygon(i));
        outlineOn(context, outline);
        const middle = [0, 1].map((axis) => outline.reduce((sum, corner) => sum + corner[axis], 0) / outline.length);
        context.lineWidth = 3;
        context.strokeStyle = '#000';
        context.strokeText(String(painted), middle[0] - 4, middle[1] + 4);
        context.lineWidth = 1;
        context.fillStyle = '#fff';
        context.fillText(String(painted), middle[0] - 4, middle[1] + 4);
    }
}

// A ring around an outline that is too small to be found.
function ringAround(context, outline) {
    const [left, top] = [0, 1].map((axis) => Math.min(...outline.map((corner) => corner[axis])));
    const [right, bottom] = [0, 1].map((axis) => Math.max(...outline.map((corner) => corner[axis])));
    if (Math.max(right - left, bottom - top) > 16) return;
    context.beginPath();
    context.arc((left + right) / 2, (top + bottom) / 2, 14, 0, 2 * Math.PI);
    context.stroke();
}

// The corners before and after each plane, each as a small drawing.
function clipStages(stages, width, height) {
    return element('div', { class: 'stages' }, stages.map((stage) => {
        const xs = stage.corners.map((corner) => corner[0]);
        const ys = stage.corners.map((corner) => (stage.onScreen ? corner[1] : -corner[1]));
        if (stage.onScreen) {
            xs.push(0, width);
            ys.push(0, height);
        }
        const left = Math.max(Math.min(...xs), stage.onScreen ? -2 * width : -Infinity);
        const right = Math.min(Math.max(...xs), stage.onScreen ? 3 * width : Infinity);
        const top = Math.max(Math.min(...ys), stage.onScreen ? -2 * height : -Infinity);
        const bottom = Math.min(Math.max(...ys), stage.onScreen ? 3 * height : Infinity);
        const across = Math.max(right - left, (bottom - top) * 1.4, 1e-6) * 1.1;
        const scale = 220 / across;
        const at = (x, y) => [110 + (x - (left + right) / 2) * scale, 75 + (y - (top + bottom) / 2) * scale];
        const points = stage.corners.map(([x, y]) => at(x, stage.onScreen ? y : -y));
        const [x0, y0] = at(0, 0);
        const drawing = svg('svg', { viewBox: '0 0 220 150', role: 'img', 'aria-label': stage.name }, [
            ...(stage.onScreen
                ? [svg('rect', { x: x0, y: y0, width: width * scale, height: height * scale, fill: '#1f2a38' })] : []),
            svg('polygon', {
                points: points.map((point) => point.join(',')).join(' '),
                fill: stage.cut ? '#ffce5466' : '#7cc4ff44', stroke: stage.cut ? '#ffce54' : '#7cc4ff',
            }),
            ...points.map(([x, y]) => svg('circle', { cx: x, cy: y, r: 3, fill: '#fff' })),
        ]);
        const corners = stage.corners.length;
        const said = corners === 0 ? 'nothing is left' : `${corners} corners${stage.cut ? ', cut here' : ''}`;
        const list = element('details', {}, [
            element('summary', {}, ['The corners']),
            element('ol', {}, stage.corners.map((corner) => element('li', {}, [corner.map(number).join(', ')]))),
        ]);
        return element('figure', {}, [drawing, element('figcaption', {}, [`${stage.name}: ${said}`, list])]);
    }));
}

// A view has a name, two sentences, and paint(inspector): it paints the picture's 32-bit pixels and may add marks,
// tools and details.
const views = {
    polygons: {
        name: 'Spans',
        explanation: 'Each polygon has a colour of its own here, and what you see of it are its spans: the runs of '
            + 'columns in which nothing nearer lies before it. Opaque spans tile the picture without a gap and without '
            + 'an overlap, which is why there needs to be no depth buffer; see-through ones are mixed over them.',
        paint({ parts, width, wide }) {
            paintPolygons(parts, width, wide);
        },
    },
    overdraw: {
        name: 'Overdraw',
        explanation: 'The colour tells how often a pixel was written in this frame. Of opaque polygons each pixel is '
            + 'written once, however many lie behind one another, and only see-through ones add to that.',
        paint(inspector) {
            const { most, mean } = paintOverdraw(inspector.parts, inspector.width, inspector.height, inspector.wide);
            inspector.details.replaceChildren(
                element('ul', { class: 'legend' }, overdrawColours.map((colour, times) => element('li', {}, [
                    element('i', { style: `background: ${css(colour)}` }), ` ${times}`,
                    times === overdrawColours.length - 1 ? ' or more' : '']))),
                element('p', {}, [`Each pixel was written ${mean.toFixed(2)} times in the mean, and ${most} times at `
                    + 'most.']),
            );
        },
    },
    depth: {
        name: 'Depth order',
        explanation: 'The brighter, the nearer: the grey is computed from the plane of inverse depth that each polygon '
            + 'carries. The numbered outlines are the see-through polygons in the order in which they are painted, '
            + 'from the farthest to the nearest.',
        paint(inspector) {
            const { parts, width, height, wide } = inspector;
            const { nearest, farthest } = paintDepth(parts, width, height, wide);
            inspector.marks.push((context) => markSortedPolygons(inspector, context));
            inspector.details.replaceChildren(
                element('p', {}, [`The brightest grey is depth ${number(nearest)} or nearer, the darkest `
                    + `${number(farthest)} or farther. The first 80 see-through polygons that are seen have a `
                    + 'number.']),
            );
        },
    },
    line: {
        name: 'Scanline',
        explanation: 'One row of the picture is opened up: the walk goes from left to right over the active edges, and '
            + 'each edge enters a polygon into the depth stack or takes it out. What lies on top of the stack, down to '
            + 'the first opaque polygon, is seen, and each run of columns in which that does not change is a span.',
        tools(inspector) {
            const row = slider('Row', 'line', inspector.height - 1, (line) => change({ line }));
            row.input.value = state().line;
            row.shown.textContent = state().line;
            return [row.label];
        },
        paint(inspector) {
            const line = Math.min(Math.max(Math.round(state().line), 0), inspector.height - 1);
            dim(inspector.wide);
            const colours = new Uint32Array(inspector.wide.length);
            paintPolygons(inspector.parts, inspector.width, colours);
            const row = [line * inspector.width, (line + 1) * inspector.width];
            inspector.wide.set(colours.subarray(...row), row[0]);
            inspector.marks.push((context) => {
                context.strokeStyle = '#fff';
                context.strokeRect(-1, line - 1.5, inspector.width + 2, 4);
            });
            inspector.details.replaceChildren(
                openedRow(inspector.renderer.openRow(line), line, inspector.width, inspector.describe));
        },
        // The row follows the pointer until a click holds it, and after another one it follows again.
        point(inspector, x, y) {
            inspector.isHeld = !inspector.isHeld;
            change({ line: y });
        },
        hover(inspector, y) {
            if (!inspector.isHeld) change({ line: y });
        },
    },
    one: {
        name: 'One polygon',
        explanation: 'One polygon is followed on its way: its corners before and after each clip plane, and its spans '
            + 'in the picture, in the blocks of eight pixels between which its texture is divided by depth. Click on '
            + 'another polygon in the picture to follow that one.',
        tools(inspector) {
            const chosen = slider('Polygon', 'polygon', Math.max(0, inspector.polygons.count - 1),
                (polygon) => change({ polygon }));
            chosen.input.value = inspector.chosen();
            chosen.shown.textContent = inspector.chosen();
            return [chosen.label];
        },
        paint(inspector) {
            const chosen = inspector.chosen();
            dim(inspector.wide);
            inspector.details.replaceChildren();
            if (chosen < 0) return;
            paintBlocks(inspector.parts, chosen, inspector.width, inspector.wide);
            const told = inspector.describe(chosen);
            inspector.marks.push((context) => {
                context.strokeStyle = '#7cc4ff';
                outlineOn(context, told.outline);
                ringAround(context, told.outline);
            });
            const at = chosen * polygonWord.count;
            const { integers } = inspector.polygons;
            const rows = told.rows.length;
            const widths = told.rows.reduce((sum, [, left, right]) => sum + right - left, 0);
            const { pixels, blocks } = inspector.extentOf(chosen);
            inspector.details.replaceChildren(
                element('p', {}, [`Polygon ${chosen} in the order of painting: face ${told.face} of '${told.object}', `
                    + `material '${told.material}', row ${told.row}, list '${told.list}'. Its outline covers `
                    + `${many(rows, 'row')} and ${many(widths, 'pixel')}. Of it are seen: `
                    + `${many(integers[at + polygonWord.spanCount], 'span')} with ${many(pixels, 'pixel')}, in `
                    + `${many(blocks, 'block')} of up to eight.`]),
                element('h3', {}, ['Through the clip planes']),
                clipStages(inspector.renderer.follow(state().phase, chosen), inspector.width, inspector.height),
                element('h3', {}, ['The rows of its outline']),
                element('details', {}, [element('summary', {}, [many(rows, 'row')]),
                    element('ol', { start: told.rows[0]?.[0] ?? 0 },
                        told.rows.map(([, left, right]) => element('li', {}, [`columns ${left} to ${right}`])))]),
            );
        },
        point(inspector, x, y) {
            change({ polygon: inspector.ownerAt(x, y) });
        },
    },
    steps: {
        name: 'Step by step',
        explanation: 'The frame is painted again, polygon by polygon and span by span, as far as the sliders say. '
            + 'First come the opaque polygons in the order of the scene, then the see-through ones from far to near.',
        tools(inspector) {
            const { count } = inspector.polygons;
            const painted = state().painted < 0 ? count : Math.min(state().painted, count);
            const polygons = slider('Polygons painted', 'painted', count,
                (value) => change({ painted: value, spans: 0 }));
            polygons.input.value = painted;
            polygons.shown.textContent = `${painted} of ${count}`;
            const last = inspector.spansOf(painted);
            const spans = slider('Spans of the next one', 'spans', last, (value) => change({ spans: value }));
            spans.input.value = Math.min(state().spans, last);
            spans.shown.textContent = `${Math.min(state().spans, last)} of ${last}`;
            const play = element('button', { type: 'button' }, [inspector.isPlaying() ? 'Stop' : 'Play']);
            play.addEventListener('click', () => inspector.play());
            return [polygons.label, spans.label, play];
        },
        paint(inspector) {
            const { count } = inspector.polygons;
            const painted = state().painted < 0 ? count : Math.min(state().painted, count);
            widen(inspector.renderer.paintUpTo(painted, state().spans), state().format, inspector.wide);
            inspector.details.replaceChildren();
            if (painted >= count) return;
            const told = inspector.describe(painted);
            inspector.marks.push((context) => {
                context.strokeStyle = '#ffce54';
                outlineOn(context, told.outline);
            });
            inspector.details.replaceChildren(element('p', {}, [`Next: polygon ${painted}, face ${told.face} of `
                + `'${told.object}', row ${told.row}, list '${told.list}'.`]));
        },
    },
};

const countNames = {
    objects: 'objects and parts that are prepared',
    facesTested: 'faces tested by the host',
    facesHidden: 'of these show their back',
    facesOutside: 'lie outside of the view',
    facesOnOneRow: 'lie on one row and are not kept',
    polygons: 'polygons emitted',
    facesCut: 'of these were cut at some plane',
    resolved: 'opaque, in the resolved list',
    sorted: 'see-through, in the sorted list',
    lateSorted: 'over everything, in the late sorted list',
    edges: 'edges',
    depthComparisons: 'depths compared',
    spans: 'spans of polygons',
    backgroundSpans: 'spans of the background',
    pixels: 'pixels written by polygons',
};

/** The names of the views, that of the plain picture first. */
export const viewNames = Object.freeze({
    picture: 'Picture',
    ...Object.fromEntries(Object.entries(views).map(([key, view]) => [key, view.name])),
});

/** The inspector, with its elements of the page. `repaint` asks for the picture to be painted anew. */
export function makeInspector(renderer, repaint) {
    const place = (id) => document.getElementById(id);
    let ownersOfPixels = null;
    let isTakenApart = false;
    let timer = 0;
    const told = new Map();

    const inspector = {
        renderer,
        details: place('details'),
        marks: [],
        isHeld: false, // the row that is opened up
        parts: null,
        polygons: { count: 0 },
        width: 0,
        height: 0,
        wide: null,
        describe(polygon) {
            if (!told.has(polygon)) told.set(polygon, renderer.describePolygon(polygon));
            return told.get(polygon);
        },
        spansOf: (polygon) => (polygon < inspector.polygons.count
            ? inspector.polygons.integers[polygon * polygonWord.count + polygonWord.spanCount] : 0),
        extentOf(polygon) {
            const { spans } = inspector.parts;
            let pixels = 0;
            let blocks = 0;
            for (let i = 0; i < spans.length; i += 4) {
                if (spans[i + 3] !== polygon) continue;
                pixels += spans[i + 2];
                blocks += Math.ceil(spans[i + 2] / 8);
            }
            return { pixels, blocks };
        },
        ownerAt(x, y) {
            ownersOfPixels ??= owners(inspector.parts, inspector.width, inspector.height);
            return ownersOfPixels[y * inspector.width + x];
        },
        chosen() {
            if (state().polygon >= 0) return Math.min(state().polygon, inspector.polygons.count - 1);
            return inspector.ownerAt(inspector.width >> 1, inspector.height >> 1);
        },
        isPlaying: () => timer !== 0,
        play() {
            if (timer !== 0) {
                clearInterval(timer);
                timer = 0;
                repaint();
                return;
            }
            const { count } = inspector.polygons;
            if (state().painted < 0 || state().painted >= count) change({ painted: 0, spans: 0 });
            timer = setInterval(() => {
                const next = state().painted + Math.max(1, Math.round(count / 100));
                if (state().view !== 'steps' || next >= count) inspector.play();
                change({ painted: Math.min(next, count), spans: 0 });
            }, 50);
        },
    };

    const showCounts = (counts) => {
        const rows = Object.entries(countNames).map(([key, name]) => element('tr', {}, [
            element('th', { scope: 'row' }, [name]),
            element('td', { class: 'number', 'data-count': key }, [counts[key].toLocaleString('en')])]));
        place('counts').tBodies[0].replaceChildren(...rows);
    };

    // The arrays lie in the module's memory and are taken over, because the next call may move it.
    const takeApart = (phase) => {
        showCounts(renderer.inspect(phase));
        const { count, integers, floats } = renderer.polygons();
        inspector.polygons = { count, integers: integers.slice(), floats: floats.slice() };
        inspector.parts = { polygons: inspector.polygons, spans: renderer.spans().slice() };
        ownersOfPixels = null;
        told.clear();
    };

    // Sliders that are in use stay where they are; their numbers are brought up to date.
    const showTools = (tools) => {
        const used = document.activeElement?.name;
        const isInside = place('tools').contains(document.activeElement);
        place('tools').replaceChildren(...tools);
        if (isInside && used) place('tools').querySelector(`[name="${used}"]`)?.focus();
    };

    return {
        isOpen: () => state().view in views,
        /** Draws the frame and paints the chosen view of it into the 32-bit pixels. Gives what is to be marked, as
         *  functions of a canvas context. */
        paint(width, height, wide) {
            const view = views[state().view];
            Object.assign(inspector, { width, height, wide, marks: [] });
            if (!isTakenApart) takeApart(state().phase);
            isTakenApart = true;
            widen(renderer.frame(), state().format, wide);
            place('inspector').hidden = false;
            place('explained').textContent = `How this frame was made: ${view.name.toLowerCase()}`;
            place('explanation').textContent = view.explanation;
            inspector.details.replaceChildren();
            view.paint(inspector);
            showTools(view.tools ? view.tools(inspector) : []);
            return inspector.marks;
        },
        /** What a click into the picture does in the chosen view. */
        point(x, y) {
            const view = views[state().view];
            if (view.point) view.point(inspector, x, y);
            else change({ view: 'one', polygon: inspector.ownerAt(x, y) });
        },
        /** What the pointer does to the view while no button is down. */
        hover(y) {
            views[state().view]?.hover?.(inspector, y);
        },
        /** Another frame will be there when the next view is painted. */
        forgetFrame() {
            isTakenApart = false;
        },
        close() {
            isTakenApart = false;
            place('inspector').hidden = true;
        },
    };
}
