// Small helpers for what a page is made of.

function filled(node, attributes, children) {
    for (const [name, value] of Object.entries(attributes)) node.setAttribute(name, value);
    node.append(...children);
    return node;
}

export function element(name, attributes = {}, children = []) {
    return filled(document.createElement(name), attributes, children);
}

export function svg(name, attributes = {}, children = []) {
    return filled(document.createElementNS('http://www.w3.org/2000/svg', name), attributes, children);
}

/** A number for people. */
export function number(value) {
    return value === null || !Number.isFinite(value) ? 'none' : String(Number(value.toPrecision(5)));
}

/** A count with its word: "1 span" or "3 spans". */
export function many(count, one, several = `${one}s`) {
    return `${count} ${count === 1 ? one : several}`;
}

/** Draws the outline of a polygon on a canvas. */
export function outlineOn(context, corners) {
    context.beginPath();
    for (const [x, y] of corners) context.lineTo(x, y);
    context.closePath();
    context.stroke();
}

/** Hands the user a file. */
export function saveFile(name, blob) {
    const link = element('a', { download: name, href: URL.createObjectURL(blob) });
    link.click();
    setTimeout(() => URL.revokeObjectURL(link.href), 10000);
}
