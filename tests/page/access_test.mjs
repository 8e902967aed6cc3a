// The page is for everybody: with a keyboard alone, with a screen reader, on a phone, in the dark and in the light.
import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';
import { closePage, openPage, settled, startBrowser, still, stopBrowser } from './browser.mjs';

before(startBrowser);
after(stopBrowser);

test('every control has a label', async () => {
    const page = await openPage(`#${still}&view=steps`);
    const nameless = await page.evaluate(() => [...document.querySelectorAll('button, input, select, canvas, svg')]
        .filter((control) => !(control.labels?.length || control.textContent.trim() || control.ariaLabel
            || control.ariaHidden === 'true'))
        .map((control) => control.outerHTML));
    assert.deepEqual(nameless, []);
    await closePage(page);
});

for (const colorScheme of ['dark', 'light']) {
    test(`text stands out from what is behind it as WCAG asks at level AA, ${colorScheme}`, async () => {
        const page = await openPage(`#${still}&view=line`, { colorScheme });
        const low = await page.evaluate(() => {
            const channels = (text) => text.match(/[\d.]+/g).map(Number);
            const luminance = ([red, green, blue]) => [red, green, blue]
                .map((value) => value / 255)
                .map((value) => (value <= 0.04045 ? value / 12.92 : ((value + 0.055) / 1.055) ** 2.4))
                .reduce((sum, value, i) => sum + value * [0.2126, 0.7152, 0.0722][i], 0);
            const behind = (node) => {
                for (let at = node; at; at = at.parentElement) {
                    const colour = channels(window.getComputedStyle(at).backgroundColor);
                    if (colour.length < 4 || colour[3] > 0) return colour;
                }
                return [255, 255, 255];
            };
            const found = [];
            for (const node of document.querySelectorAll('h1, h2, p, label, legend, button, select, td, th, summary')) {
                if (!node.checkVisibility()) continue;
                const [ink, paper] = [channels(window.getComputedStyle(node).color), behind(node)].map(luminance);
                const ratio = (Math.max(ink, paper) + 0.05) / (Math.min(ink, paper) + 0.05);
                if (ratio < 4.5) found.push(`${node.tagName} ${node.textContent.slice(0, 30)}: ${ratio.toFixed(2)}`);
            }
            return found;
        });
        assert.deepEqual(low, []);
        await closePage(page);
    });
}

test('the tab key reaches the views, the picture and all choices, and arrows go from view to view', async () => {
    const page = await openPage(`#${still}`);
    const reached = new Set();
    for (let i = 0; i < 30; ++i) {
        await page.keyboard.press('Tab');
        reached.add(await page.evaluate(() => document.activeElement.id || document.activeElement.name
            || document.activeElement.dataset.view));
    }
    for (const wanted of ['picture', 'frame', 'save', 'scene', 'moves', 'state', 'zoom', 'level'])
        assert.ok(reached.has(wanted), wanted);
    await page.focus('[data-view=picture]');
    await page.keyboard.press('ArrowRight');
    await settled(page);
    assert.equal(await page.evaluate(() => window.kardeno.state().view), 'polygons');
    assert.equal(await page.evaluate(() => document.activeElement.dataset.view), 'polygons');
    await closePage(page);
});

for (const view of ['picture', 'polygons', 'overdraw', 'depth', 'line', 'one', 'steps']) {
    test(`nothing is cut off on a phone, view ${view}`, async () => {
        const page = await openPage(`#size=640x480&moves=no&scene=gallery&view=${view}`,
            { viewport: { width: 390, height: 844 }, deviceScaleFactor: 2 });
        await settled(page);
        const [wide, screen] = await page.evaluate(() => [document.documentElement.scrollWidth, window.innerWidth]);
        assert.ok(wide <= screen, `${wide} of ${screen}`);
        await closePage(page);
    });
}
