// The picture of the page: it opens anywhere, its pixels are those of every other build, and its controls work.
import assert from 'node:assert/strict';
import fs from 'node:fs';
import { after, before, test } from 'node:test';
import {
    canvasHash, closePage, frameHash, goldenFrames, openPage, pageFile, serve, settled, startBrowser, still,
    stopBrowser,
} from './browser.mjs';

before(startBrowser);
after(stopBrowser);

test('the page opens by its file and asks for nothing else', async () => {
    const page = await openPage();
    await settled(page);
    assert.deepEqual(page.requests.filter((url) => !url.startsWith('data:')).length, 1);
    assert.equal(await page.isVisible('#frame'), true);
    await closePage(page);
});

test('the page opens from a static server and asks it for nothing else', async () => {
    const server = await serve();
    const page = await openPage('', { address: server.address });
    await settled(page);
    assert.deepEqual(page.requests.filter((url) => !url.startsWith('data:')), [server.address]);
    await closePage(page);
    server.stop();
});

test('the module is smaller than a megabyte', () => {
    const text = fs.readFileSync(pageFile, 'utf8');
    const module = /id="module">([A-Za-z0-9+/=]+)</.exec(text)[1];
    assert.ok(module.length * 0.75 < 1e6);
});

test('every golden frame of the native build is drawn to the pixel', async () => {
    const golden = goldenFrames();
    const page = await openPage(`#${still}`);
    const draw = (request) => page.evaluate(({ scene, row, bits, state, width, height, phase }) => {
        const { renderer } = window.kardeno;
        renderer.resize(width, height);
        renderer.build({
            scene, row, bitsPerPixel: bits, state, palettised: false, shading: -1, transparency: -1, largest: 0,
        });
        renderer.draw(phase);
    }, request);

    const names = await page.evaluate(() => window.kardeno.renderer.scenes);
    let compared = 0;
    for (const bits of [15, 16]) {
        for (const [scene, { name }] of names.scenes.entries()) {
            for (const state of [0, 1]) {
                await draw({ scene, row: 0, bits, state, width: 160, height: 120, phase: 0.25 });
                assert.equal(await frameHash(page), golden[`${name}_${state ? 'lit' : 'unlit'} ${bits}`], name);
                ++compared;
            }
        }
        for (const [row, { name }] of names.rows.entries()) {
            await draw({ scene: names.scenes.length, row, bits, state: 1, width: 88, height: 66, phase: 0 });
            assert.equal(await frameHash(page), golden[`${name} ${bits}`], name);
            ++compared;
        }
    }
    assert.equal(compared, Object.keys(golden).length);
    await closePage(page);
});

for (const format of ['565', '555']) {
    test(`the canvas shows the 16-bit frame with its channels widened, ${format}`, async () => {
        const page = await openPage(`#${still}&format=${format}&phase=0.4`);
        await settled(page);
        const wrong = await page.evaluate((isWide) => {
            const canvas = document.getElementById('frame');
            const shown = canvas.getContext('2d').getImageData(0, 0, canvas.width, canvas.height).data;
            const { width, height, pitch, pixels } = window.kardeno.renderer.frame();
            let differing = width === canvas.width && height === canvas.height ? 0 : -1;
            for (let y = 0; y < height; ++y) {
                for (let x = 0; x < width; ++x) {
                    const pixel = pixels[y * pitch + x];
                    const at = 4 * (y * width + x);
                    const red = isWide ? pixel >> 11 : (pixel >> 10) & 31;
                    const green = isWide ? (pixel >> 5) & 63 : (pixel >> 5) & 31;
                    const wide = (value, greatest) => Math.floor((value * 255) / greatest + 0.5);
                    // Repeating the upper bits comes within one of the exact quotient.
                    const near = Math.abs(shown[at] - wide(red, 31)) <= 1
                        && Math.abs(shown[at + 1] - wide(green, isWide ? 63 : 31)) <= 1
                        && Math.abs(shown[at + 2] - wide(pixel & 31, 31)) <= 1;
                    if (!near || shown[at + 3] !== 255) ++differing;
                }
            }
            return differing;
        }, format === '565');
        assert.equal(wrong, 0);
        await closePage(page);
    });
}

const choices = [
    ['scene', 'robots'], ['scene', 'particles'], ['scene', 'gallery'], ['size', '1024x768'], ['format', '555'],
    ['state', '0'], ['state', '3'], ['shading', '2'], ['transparency', '50'], ['largest', '16'], ['nearest', '3'],
    ['farthest', '4'], ['zoom', '2'], ['phase', '0.5'], ['textures', 'palettised', 'state=0'],
    ['level', '2', 'scene=robots'], ['row', 'SpareA', 'scene=gallery'],
];
for (const [name, value, others = ''] of choices) {
    test(`the choice ${name} ${value} changes the picture, and the address keeps it`, async () => {
        const page = await openPage(`#${still}&${others}`);
        await settled(page);
        const earlier = await frameHash(page);
        await page.evaluate(([control, wanted]) => {
            const input = document.getElementById('choices').elements[control];
            input.value = wanted;
            input.dispatchEvent(new window.Event('input', { bubbles: true }));
        }, [name, value]);
        await settled(page);
        const changed = await frameHash(page);
        assert.notEqual(changed, earlier);

        await page.waitForTimeout(400);
        const hash = new URL(page.url()).hash;
        assert.match(hash, new RegExp(`${name}=${value}(&|$)`));
        const again = await openPage(hash);
        await settled(again);
        assert.equal(await frameHash(again), changed);
        await closePage(again);
        await closePage(page);
    });
}

const nonsense = {
    'scene=nowhere&row=nothing': { scene: 'room', row: 'LitTextured' },
    'scene=model': { scene: 'room' },
    'state=many&zoom=&nearest=NaN&away=Infinity': { state: 1, zoom: 1, nearest: 0, away: 1 },
    'size=99999x99999&format=24&view=inside': { size: '320x240', format: '565', view: 'picture' },
    'moves=maybe&bogus=1&%zz&textures=%E0%A4%A&=&&__proto__=1': { moves: false, textures: '16-bit' },
    'zoom=1e9&line=-7&level=0.4': { zoom: 20, line: 0, level: 0 },
};
test('words in the address that mean nothing are passed over, and numbers are kept in their limits', async () => {
    for (const [address, expected] of Object.entries(nonsense)) {
        const page = await openPage(`#${still}&${address}`);
        await settled(page);
        const values = await page.evaluate(() => window.kardeno.state());
        for (const [key, value] of Object.entries(expected))
            if (!(key in { size: 1, moves: 1 })) assert.equal(values[key], value, `${address}: ${key}`);
        assert.equal(values.moves, false);
        assert.match(values.size, /^320x240$|^640x480$/);
        await closePage(page);
    }
});

async function middle(page) {
    const box = await page.locator('#frame').boundingBox();
    return [box.x + box.width / 2, box.y + box.height / 2];
}

const movements = {
    'dragging turns': async (page, [x, y]) => {
        await page.mouse.down();
        await page.mouse.move(x + 60, y + 10, { steps: 4 });
        await page.mouse.up();
        return ['turn', 'lift'];
    },
    'dragging with Shift moves': async (page, [x, y]) => {
        await page.keyboard.down('Shift');
        await page.mouse.down();
        await page.mouse.move(x + 40, y + 30, { steps: 4 });
        await page.mouse.up();
        await page.keyboard.up('Shift');
        return ['x', 'y', 'z'];
    },
    'the wheel goes nearer': async (page) => {
        await page.mouse.wheel(0, -200);
        return ['away'];
    },
};
for (const [what, movement] of Object.entries(movements)) {
    test(`${what}, and the picture follows`, async () => {
        const page = await openPage(`#${still}`);
        await settled(page);
        const earlier = await frameHash(page);
        const values = await page.evaluate(() => window.kardeno.state());
        const at = await middle(page);
        await page.mouse.move(...at);
        const names = await movement(page, at);
        await settled(page);
        const moved = await page.evaluate(() => window.kardeno.state());
        for (const name of names) assert.notEqual(moved[name], values[name], name);
        assert.notEqual(await frameHash(page), earlier);
        assert.equal(await page.textContent('#picked'), ''); // a drag is no click
        await closePage(page);
    });
}

const keys = {
    ArrowLeft: 'turn', ArrowRight: 'turn', ArrowUp: 'lift', ArrowDown: 'lift',
    KeyW: 'z', KeyS: 'z', KeyA: 'x', KeyD: 'x', KeyR: 'y', KeyF: 'y', Equal: 'away', Minus: 'away',
};
test('held keys turn, walk and go nearer while the picture has the focus', async () => {
    const page = await openPage(`#${still}`);
    await page.focus('#frame');
    for (const [key, name] of Object.entries(keys)) {
        const earlier = await page.evaluate(() => window.kardeno.state());
        await page.keyboard.down(key);
        await page.waitForTimeout(80);
        await page.keyboard.up(key);
        await settled(page);
        const later = await page.evaluate(() => window.kardeno.state());
        assert.notEqual(later[name], earlier[name], key);
    }
    await closePage(page);
});

test('two fingers that part go nearer', async () => {
    const page = await openPage(`#${still}`, { hasTouch: true });
    await page.evaluate(() => {
        const canvas = document.getElementById('frame');
        canvas.setPointerCapture = () => {}; // these pointers are not real ones
        const send = (type, id, x, y) => canvas.dispatchEvent(new window.PointerEvent(type,
            { pointerId: id, pointerType: 'touch', clientX: x, clientY: y, bubbles: true }));
        send('pointerdown', 1, 200, 300);
        send('pointerdown', 2, 220, 300);
        for (let step = 1; step <= 5; ++step) {
            send('pointermove', 1, 200 - 10 * step, 300);
            send('pointermove', 2, 220 + 10 * step, 300);
        }
        send('pointerup', 1, 150, 300);
        send('pointerup', 2, 270, 300);
    });
    assert.ok(await page.evaluate(() => window.kardeno.state().away) < 0.5);
    await closePage(page);
});

test('things move by themselves, and Space holds them', async () => {
    const page = await openPage('#size=320x240');
    await settled(page);
    const first = await frameHash(page);
    await page.waitForTimeout(300);
    assert.notEqual(await frameHash(page), first);
    await page.focus('#frame');
    await page.keyboard.press('Space');
    await settled(page);
    const held = await frameHash(page);
    await page.waitForTimeout(300);
    assert.equal(await frameHash(page), held);
    assert.equal(await page.isChecked('[name=moves]'), false);
    await closePage(page);
});

test('the camera goes round when it is asked to, and stays where it is afterwards', async () => {
    const page = await openPage(`#${still}`);
    await page.check('[name=circles]');
    await page.waitForTimeout(400);
    await page.uncheck('[name=circles]');
    await settled(page);
    assert.ok(await page.evaluate(() => window.kardeno.state().turn) > 0);
    const stopped = await frameHash(page);
    await page.waitForTimeout(200);
    assert.equal(await frameHash(page), stopped);
    await closePage(page);
});

test('the time of a frame and the number of frames are shown while things move', async () => {
    const page = await openPage('#size=320x240');
    await page.waitForFunction(() => Number(document.getElementById('rate').textContent) > 0);
    assert.match(await page.textContent('#time'), /^\d+\.\d ms$/);
    await closePage(page);
});

// What the native sample host says: sample_host --scene robots pick 290 290
test('a click tells what lies there as the native pick does, and the face lights up', async () => {
    const page = await openPage('#scene=robots&moves=no');
    await settled(page);
    const box = await page.locator('#frame').boundingBox();
    await page.mouse.click(box.x + ((290.5) * box.width) / 640, box.y + ((290.5) * box.height) / 480);
    await settled(page);
    const said = await page.textContent('#picked');
    assert.match(said, /^At \(290, 290\) lies face 0 of 'robot 1, torso', at depth 4\.0848, /);
    const marked = await page.evaluate(() => {
        const marks = document.getElementById('marks');
        const { data } = marks.getContext('2d').getImageData(0, 0, marks.width, marks.height);
        return data[4 * (290 * marks.width + 290) + 3];
    });
    assert.ok(marked > 0);
    await closePage(page);
});

test('Enter tells what lies in the middle, and where nothing lies it says so', async () => {
    const page = await openPage(`#${still}`);
    await page.focus('#frame');
    await page.keyboard.press('Enter');
    assert.match(await page.textContent('#picked'), /^At \(160, 120\) lies face /);
    await page.evaluate(() => window.kardeno.change({ farthest: 0.2, nearest: 0.1 }));
    await settled(page);
    assert.equal(await page.textContent('#picked'), '');
    await page.keyboard.press('Enter');
    assert.equal(await page.textContent('#picked'), 'At (160, 120) lies nothing.');
    await closePage(page);
});

test('the picture is saved as a PNG of its size, and the settings as JSON', async () => {
    const page = await openPage(`#${still}`);
    const saved = async (id) => {
        const [download] = await Promise.all([page.waitForEvent('download'), page.click(id)]);
        return [download.suggestedFilename(), fs.readFileSync(await download.path())];
    };
    const [name, png] = await saved('#save');
    assert.equal(name, 'room.png');
    assert.equal(png.subarray(1, 4).toString(), 'PNG');
    assert.deepEqual([png.readUInt32BE(16), png.readUInt32BE(20)], [320, 240]);
    const [, settings] = await saved('#settings');
    assert.equal(JSON.parse(settings)['settings of the page'].size, '320x240');
    await closePage(page);
});

test('going back to the start undoes the camera and the choices', async () => {
    const page = await openPage(`#${still}`);
    await settled(page);
    const first = await frameHash(page);
    await page.evaluate(() => window.kardeno.change({ turn: 0.2, lift: 0.1, transparency: 50 }));
    await settled(page);
    assert.notEqual(await frameHash(page), first);
    await page.click('#back');
    await page.evaluate(() => window.kardeno.change({ moves: false, phase: 0 }));
    await settled(page);
    assert.equal(await frameHash(page), first);
    await closePage(page);
});

test('without WebAssembly the page says so in a sentence', async () => {
    const page = await openPage('', { starts: false, prepare: () => delete window.WebAssembly });
    await page.waitForSelector('#problem:not([hidden])');
    assert.match(await page.textContent('#problem'), /WebAssembly|could not start/);
    await page.context().close();
});

test('the canvas follows the frame from one picture to the next', async () => {
    const page = await openPage(`#${still}`);
    await settled(page);
    const first = await canvasHash(page);
    await page.evaluate(() => window.kardeno.change({ phase: 0.3 }));
    await settled(page);
    assert.notEqual(await canvasHash(page), first);
    await closePage(page);
});
