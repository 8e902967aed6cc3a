// A scanline opened up, as a diagram and a table.
import { colourOfPolygon } from '#page/pixels.js';
import { element, many, number, svg } from '#page/elements.js';

const css = (colour) => `rgb(${colour.join(' ')})`;
const mostLevels = 12; // of the depth stack that the diagram shows
const levelHeight = 16;
const edgeHeight = 26;

// The depth stack between the edges: for each stretch of columns the polygons from the nearest, on top, downwards.
function stackDrawing(row, width, listOf) {
    const levels = Math.min(mostLevels, Math.max(1, ...row.events.map((event) => event.stack.length)));
    const height = edgeHeight + levels * levelHeight + 24;
    const drawing = svg('svg', {
        viewBox: `0 0 ${width} ${height}`, role: 'img',
        'aria-label': 'The depth stack from left to right, the nearest polygon on top',
    });
    row.events.forEach((event, i) => {
        const left = Math.max(0, event.x);
        const right = Math.min(width, row.events[i + 1]?.x ?? width);
        if (right > left) {
            let isSeen = true;
            event.stack.slice(0, levels).forEach((polygon, level) => {
                drawing.append(svg('rect', {
                    x: left, y: edgeHeight + level * levelHeight, width: right - left, height: levelHeight - 1,
                    fill: css(colourOfPolygon(polygon)), 'fill-opacity': isSeen ? 1 : 0.28,
                }, [svg('title', {}, [`polygon ${polygon}, ${isSeen ? 'seen' : 'hidden'}`])]));
                if (listOf(polygon) === 'resolved') isSeen = false;
            });
        }
        const x = Math.min(Math.max(event.x, 0), width);
        const tip = event.enters ? 5 : -5;
        drawing.append(svg('path', {
            d: `M${x} 4 V${edgeHeight - 4} M${x} 10 l${tip} 4 l${-tip} 4`,
            stroke: event.enters ? '#7ce0a0' : '#ff9c8c', fill: 'none',
        }, [svg('title', {},
            [`x ${number(event.x)}: ${event.enters ? 'enters' : 'leaves'} polygon ${event.polygon}`])]));
    });
    for (const [x, length, polygon] of row.spans) {
        const fill = css(colourOfPolygon(polygon));
        const owner = polygon < 0 ? 'the background' : `polygon ${polygon}`;
        drawing.append(svg('rect', { x, y: height - 20, width: length, height: 16, fill },
            [svg('title', {}, [`span of ${owner}, columns ${x} to ${x + length}`])]));
    }
    return drawing;
}

function table(caption, heads, rows) {
    return element('table', {}, [
        element('caption', {}, [caption]),
        element('thead', {}, [element('tr', {}, heads.map((head) => element('th', { scope: 'col' }, [head])))]),
        element('tbody', {}, rows.map((cells) => element('tr', {}, cells.map((cell) => element('td', {}, [cell]))))),
    ]);
}

/** The diagram and the tables of a row. */
export function openedRow(row, line, width, describe) {
    const told = (polygon) => (polygon < 0 ? 'the background' : `${polygon}, '${describe(polygon).object}'`);
    const comparisons = row.events.reduce((sum, event) => sum + event.comparisons, 0);
    return element('div', {}, [
        element('p', {}, [`Row ${line}: ${many(row.events.length, 'active edge')}, `
            + `${many(comparisons, 'depth')} compared, ${many(row.spans.length, 'span')}. `, row.agrees
            ? 'The page resolved the row once more, and its spans are those that the renderer made.'
            : 'The page resolved the row once more and got other spans than the renderer: please report this.']),
        element('p', { class: 'hint' }, ['Above: the edges, green where a polygon is entered, red where it is left. '
            + 'Middle: the depth stack, the nearest polygon on top; what is hidden is pale. Below: the spans. '
            + 'The row follows the pointer over the picture until a click holds it.']),
        stackDrawing(row, width, (polygon) => describe(polygon).list),
        element('details', {}, [element('summary', {}, ['The edges and spans as tables']),
            table('Active edges', ['x', 'direction', 'polygon', 'depths compared', 'stack behind it'],
                row.events.map((event) => [number(event.x), event.enters ? 'enters' : 'leaves', told(event.polygon),
                    String(event.comparisons), event.stack.join(' ') || 'empty'])),
            table('Spans', ['columns', 'pixels', 'polygon'],
                row.spans.map(([x, length, polygon]) => [`${x} to ${x + length}`, String(length), told(polygon)])),
        ]),
    ]);
}
