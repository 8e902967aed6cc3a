// The inspector: what it says about a frame is true, and it changes nothing.
import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';
import {
    canvasHash, closePage, frameHash, goldenCounts, openPage, settled, startBrowser, still, stopBrowser,
} from './browser.mjs';

before(startBrowser);
after(stopBrowser);

// Scenes that between them have all lists and all rows of the table.
const scenes = [0, 1, 2].map((scene) => ({ scene, row: 0 }));
const galleryRows = Array.from({ length: 20 }, (unused, row) => ({ scene: 3, row }));

// Builds each scene small, and calls a function with it in the page. The function gives what is wrong.
async function inEveryScene(check) {
    const page = await openPage(`#${still}`);
    for (const { scene, row } of [...scenes, ...galleryRows]) {
        await page.evaluate(([s, r]) => {
            const { renderer } = window.kardeno;
            renderer.resize(160, 120);
            renderer.build({
                scene: s, row: r, bitsPerPixel: 16, state: 1, palettised: false, shading: -1, transparency: -1,
                largest: 0,
            });
            renderer.draw(0.25);
        }, [scene, row]);
        assert.deepEqual(await page.evaluate(check), [], `scene ${scene}, row ${row}`);
    }
    await closePage(page);
}

test('every row that is opened up has the spans that the renderer made', () => inEveryScene(() => {
    const { renderer } = window.kardeno;
    renderer.inspect(0.25);
    return Array.from({ length: 120 }, (unused, y) => y).filter((y) => !renderer.openRow(y).agrees);
}));

test('a frame that is inspected has the same pixels', () => inEveryScene(() => {
    const { renderer } = window.kardeno;
    const drawn = renderer.frame().pixels.slice();
    renderer.inspect(0.25);
    renderer.paintUpTo(3, 1);
    renderer.follow(0.25, 0);
    return renderer.frame().pixels.every((pixel, i) => pixel === drawn[i]) ? [] : ['other pixels'];
}));

test('painted to its end a frame is the frame, and painted up to nothing it is black', () => inEveryScene(() => {
    const { renderer } = window.kardeno;
    renderer.inspect(0.25);
    const drawn = renderer.frame().pixels.slice();
    const { count } = renderer.polygons();
    const whole = renderer.paintUpTo(count, 0).pixels.every((pixel, i) => pixel === drawn[i]);
    const black = renderer.paintUpTo(0, 0).pixels.every((pixel) => pixel === 0);
    return [...(whole ? [] : ['the end differs']), ...(black ? [] : ['the start is not black'])];
}));

test('painting span by span changes only the pixels of that span', () => inEveryScene(() => {
    const { renderer } = window.kardeno;
    renderer.inspect(0.25);
    const spans = renderer.spans().slice();
    const { count, integers } = renderer.polygons();
    const words = integers.slice();
    const wrong = [];
    for (let polygon = 0; polygon < count; polygon += 1 + (count >> 3)) {
        if (words[polygon * 9] === 2) continue;
        const [first, length] = [words[polygon * 9 + 3], words[polygon * 9 + 4]];
        for (let i = 0; i < length; i += 1 + (length >> 3)) {
            const earlier = renderer.paintUpTo(polygon, i).pixels.slice();
            const { pixels, pitch } = renderer.paintUpTo(polygon, i + 1);
            const [x, y, run] = spans.subarray(4 * (first + i));
            pixels.forEach((pixel, at) => {
                const inside = Math.floor(at / pitch) === y && at % pitch >= x && at % pitch < x + run;
                if (pixel !== earlier[at] && !inside) wrong.push([polygon, i, at]);
            });
        }
    }
    return wrong;
}));

test('the opaque spans and those of the background tile the picture', () => inEveryScene(() => {
    const { renderer } = window.kardeno;
    renderer.inspect(0.25);
    const { integers } = renderer.polygons();
    const times = new Uint8Array(160 * 120);
    const spans = renderer.spans();
    for (let i = 0; i < spans.length; i += 4) {
        const [x, y, length, polygon] = spans.subarray(i, i + 4);
        if (polygon < 0 || integers[polygon * 9] === 0)
            for (let column = x; column < x + length; ++column) ++times[y * 160 + column];
    }
    return times.every((count) => count === 1) ? [] : ['some pixel has not exactly one opaque span'];
}));

test('each face that was tested became something, and the counts add up', () => inEveryScene(() => {
    const { renderer } = window.kardeno;
    const counts = renderer.inspect(0.25);
    const wrong = [];
    const fates = counts.facesHidden + counts.facesOutside + counts.facesOnOneRow + counts.polygons;
    if (fates !== counts.facesTested) wrong.push('faces');
    if (counts.resolved + counts.sorted + counts.lateSorted !== counts.polygons) wrong.push('lists');
    const { count, integers } = renderer.polygons();
    if (count !== counts.polygons) wrong.push('polygons');
    for (let i = 0; i < count; ++i) if (integers[i * 9 + 2] < 0) wrong.push(`polygon ${i} has no face`);
    return wrong;
}));

test('the counts are those that the native command says', async () => {
    const page = await openPage(`#${still}`);
    for (const [scene, counts] of Object.entries(goldenCounts())) {
        const inspected = await page.evaluate((name) => {
            const { renderer } = window.kardeno;
            renderer.resize(160, 120);
            renderer.build({
                scene: renderer.scenes.scenes.findIndex((entry) => entry.name === name), row: 0, bitsPerPixel: 16,
                state: 1, palettised: false, shading: -1, transparency: -1, largest: 0,
            });
            return renderer.inspect(0);
        }, scene);
        assert.deepEqual(inspected, counts, scene);
    }
    await closePage(page);
});

test('what is left of a face behind the last plane is the outline of its polygon', () => inEveryScene(() => {
    const { renderer } = window.kardeno;
    renderer.inspect(0.25);
    const { count } = renderer.polygons();
    const wrong = [];
    for (let i = 0; i < count; i += 1 + (count >> 5)) {
        const { outline } = renderer.describePolygon(i);
        const stages = renderer.follow(0.25, i);
        const last = stages.at(-1)?.corners ?? [];
        const same = last.length === outline.length
            && last.every(([x, y], at) => x === outline[at][0] && Math.trunc(y) === outline[at][1]);
        if (!same) wrong.push(i);
    }
    return wrong;
}));

test('a polygon is painted behind every farther see-through one', () => inEveryScene(() => {
    const { renderer } = window.kardeno;
    renderer.inspect(0.25);
    const { count, integers } = renderer.polygons();
    const wrong = [];
    for (let i = 1; i < count; ++i) {
        const [last, here] = [integers.subarray(9 * (i - 1)), integers.subarray(9 * i)];
        if (here[0] < last[0]) wrong.push(`${i}: the lists are mixed`);
        if (here[0] === last[0] && here[0] > 0 && here[5] > last[5]) wrong.push(`${i}: farther than the last`);
    }
    return wrong;
}));

const views = ['polygons', 'overdraw', 'depth', 'line', 'one', 'steps'];
for (const view of views) {
    test(`the view ${view} opens with two sentences, and closing it shows the picture again`, async () => {
        const page = await openPage(`#${still}&phase=0.25&scene=particles`);
        await settled(page);
        const picture = await canvasHash(page);
        const frame = await frameHash(page);
        await page.click(`[data-view=${view}]`);
        await settled(page);
        if (view !== 'steps') assert.notEqual(await canvasHash(page), picture);
        assert.equal(await frameHash(page), frame);
        const sentences = (await page.textContent('#explanation')).match(/[.](\s|$)/g);
        assert.equal(sentences.length, 2);
        assert.ok(await page.locator('#counts td').count() > 10);
        await page.click('[data-view=picture]');
        await settled(page);
        assert.equal(await canvasHash(page), picture);
        assert.equal(await page.isVisible('#inspector'), false);
        await closePage(page);
    });
}

test('a click into the spans opens the polygon that lies there', async () => {
    const page = await openPage(`#${still}&view=polygons`);
    await settled(page);
    await page.locator('#frame').click({ position: { x: 40, y: 60 } });
    await settled(page);
    assert.equal(await page.evaluate(() => window.kardeno.state().view), 'one');
    assert.match(await page.textContent('#details'), /Polygon \d+ in the order of painting: face \d+ of '/);
    assert.ok(await page.locator('.stages figure').count() >= 8);
    await closePage(page);
});

test('the sliders of the views work by keyboard and keep the focus', async () => {
    const page = await openPage(`#${still}&view=line&line=100`);
    await settled(page);
    await page.focus('[name=line]');
    await page.keyboard.press('ArrowRight');
    await settled(page);
    assert.equal(await page.evaluate(() => window.kardeno.state().line), 101);
    await page.keyboard.press('ArrowRight');
    await settled(page);
    assert.equal(await page.evaluate(() => window.kardeno.state().line), 102);
    assert.match(await page.textContent('#details'), /Row 102: .*those that the renderer made/);
    await closePage(page);
});

test('the row follows the pointer until a click holds it', async () => {
    const page = await openPage(`#${still}&view=line`);
    await settled(page);
    const box = await page.locator('#frame').boundingBox();
    const moveTo = async (row) => {
        await page.mouse.move(box.x + 50, box.y + ((row + 0.5) * box.height) / 240);
        await settled(page);
        return page.evaluate(() => window.kardeno.state().line);
    };
    assert.equal(await moveTo(30), 30);
    assert.equal(await moveTo(77), 77);
    await page.mouse.down();
    await page.mouse.up();
    assert.equal(await moveTo(150), 77);
    await page.mouse.down();
    await page.mouse.up();
    assert.equal(await moveTo(151), 151);
    await closePage(page);
});

test('playing paints the frame from nothing to its end', async () => {
    const page = await openPage(`#${still}&view=steps&scene=gallery`);
    await settled(page);
    const whole = await canvasHash(page);
    await page.click('#tools button');
    await page.waitForTimeout(300);
    await settled(page);
    assert.notEqual(await canvasHash(page), whole);
    await page.waitForFunction(() => document.querySelector('#tools button').textContent === 'Play', null,
        { timeout: 30000 });
    await settled(page);
    assert.equal(await canvasHash(page), whole);
    await closePage(page);
});
