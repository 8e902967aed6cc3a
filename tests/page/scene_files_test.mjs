// Scene files and saved settings that are given to the page: good ones are drawn, and bad ones give a sentence and
// change nothing. The sentences are those of the command line, because one reader reads the files.
import assert from 'node:assert/strict';
import fs from 'node:fs';
import path from 'node:path';
import { after, before, test } from 'node:test';
import { fileURLToPath } from 'node:url';
import { closePage, frameHash, openPage, settled, startBrowser, still, stopBrowser } from './browser.mjs';
import { file, give, pixelsOfColour, png } from './given_files.mjs';

before(startBrowser);
after(stopBrowser);

const scenes = path.join(path.dirname(fileURLToPath(import.meta.url)), '../../sample_host/scenes');
const sceneOf = (name) => fs.readFileSync(path.join(scenes, `${name}.json`), 'utf8');

async function saved(page, id) {
    const [download] = await Promise.all([page.waitForEvent('download'), page.click(id)]);
    return { name: download.suggestedFilename(), text: fs.readFileSync(await download.path(), 'utf8') };
}

for (const name of ['room', 'robots', 'particles']) {
    test(`the file of the scene ${name} draws the same pixels as the scene, and the page hands it out`, async () => {
        const page = await openPage(`#${still}&scene=${name}&phase=0.3`);
        await settled(page);
        const byCode = await frameHash(page);
        const handed = await saved(page, '#scene-file');
        assert.equal(handed.name, `${name}.json`);
        assert.equal(handed.text, sceneOf(name));
        assert.equal(await give(page, [file('own.json', handed.text)]), "The scene 'own' is shown.");
        assert.equal(await page.inputValue('[name=scene]'), 'file');
        assert.equal(await frameHash(page), byCode);
        assert.deepEqual(await saved(page, '#scene-file'), { name: 'own.json', text: handed.text });
        await closePage(page);
    });
}

const square = 'v -1 -1 0\nv 1 -1 0\nv 1 1 0\nv -1 1 0\nf 1 2 3 4\n';
const boardAndModel = JSON.stringify({
    camera: { target: [0, 0, 0], distance: 4, height: 0 },
    light: { ambient: 1 },
    materials: { paper: { texture: { file: 'images/blue.png' } } },
    meshes: {
        board: [{ board: { material: 'paper', corner: [-2, -1, 0], right: [1.5, 0, 0], up: [0, 2, 0] } }],
        square: { model: 'models/red.obj' },
    },
    objects: [{ mesh: 'board' }, { name: 'square', mesh: 'square', place: [1, 0, 0] }],
});
const red = `mtllib red.mtl\nusemtl red\n${square}`;

test('a scene file takes the model and the image that it names from the files given with it', async () => {
    const page = await openPage(`#${still}`);
    const said = await give(page, [file('red.mtl', 'newmtl red\nKa 1 0 0\nKd 1 0 0\n'), file('red.obj', red),
        file('board.json', boardAndModel), file('blue.png', png(20, 20, 240))]);
    assert.equal(said, "The scene 'board' is shown.");
    assert.ok(await pixelsOfColour(page, 0) > 2000);
    assert.ok(await pixelsOfColour(page, 2) > 2000);
    await closePage(page);
});

const bad = {
    'text that is no JSON': [[file('bad.json', '{\n"camera": {},\n}')],
        "the scene 'bad.json' cannot be read: parse error at line 3, column 1"],
    'an empty file': [[file('bad.json', '')], "the scene 'bad.json' cannot be read: parse error at line 1"],
    'a number without an end': [[file('bad.json', '{"objects": 1e999}')], "the scene 'bad.json' cannot be read: "],
    'a list instead of an object': [[file('bad.json', '[]')],
        "'bad.json', expected is an object with keys in braces, not []"],
    'a mistyped key': [[file('bad.json', '{"object": []}')],
        "'bad.json', there is no key 'object' here; did you mean 'objects'?"],
    'a value of another kind': [[file('bad.json', '{"camera": {"zoom": "big"}, "objects": []}')],
        '\'bad.json\', camera.zoom: expected is a number from 0.001 to 1e+06, not "big"'],
    'a thing that is not there': [[file('bad.json', '{"objects": [{"thing": "robot"}]}')],
        "'bad.json', objects[0].thing: there is no thing 'robot'; there are none"],
    'levels that are not there': [[file('bad.json', '{"objects": [{"levels": ["far"], "limits": []}]}')],
        "'bad.json', objects[0].levels[0]: there is no level 'far'; there are none"],
    'sprites of no material': [[file('bad.json',
        '{"objects": [{"fire": {"count": 9, "size": 1, "mouth": [0, 0, 0], "materials": []}}]}')],
    "'bad.json', objects[0].fire.materials: expected is a list of materials, not []"],
    'polygons without vertices': [[file('bad.json', JSON.stringify({
        materials: { a: {} },
        meshes: { m: [{ polygons: { material: 'a', normal: [0, 0, 1], vertices: [], polygons: [[1, 2, 3]] } }] },
        objects: [],
    }))], "'bad.json', meshes.m[0].polygons.vertices: expected is a list of places, not []"],
    'a tree that is too deep': [[file('bad.json',
        `{"objects": [${'{"children": ['.repeat(40)}${']}'.repeat(40)}]}`)], 'the tree is too deep'],
    'a model that was not given': [[file('board.json', boardAndModel), file('blue.png', png(1, 2, 3))],
        "'board.json', meshes.square.model: the model 'models/red.obj' is not among the files"],
    'an image that was not given': [[file('board.json', boardAndModel), file('red.obj', square)],
        "'board.json', materials.paper.texture.file: the image 'images/blue.png' is not among the files"],
    'an image that is none': [
        [file('board.json', boardAndModel), file('red.obj', square), file('blue.png', 'no picture')],
        "the image 'images/blue.png' is none that can be read; expected is PNG"],
    'a model that is broken': [
        [file('board.json', boardAndModel), file('red.obj', 'v 0 0 0\nf 1 2 3\n'), file('blue.png', png(1, 2, 3))],
        "meshes.square.model: 'red.obj', line 2: a face names the vertex '2'; expected is a number from 1 to 1"],
    'more polygons than anybody waits for': [[file('m.json', JSON.stringify({
        materials: { a: {} },
        meshes: {
            b: [{
                board: { material: 'a', corner: [0, 0, 0], right: [1, 0, 0], up: [0, 1, 0], columns: 256, rows: 256 },
            }],
        },
        objects: Array(4).fill({ mesh: 'b' }),
    }))], "'m.json' has 262144 polygons; the page takes up to 200000"],
    'two scenes': [[file('a.json', '{"objects": []}'), file('b.json', '{"objects": []}')],
        "'a.json' and 'b.json' are two scenes"],
};
for (const [what, [files, sentence]] of Object.entries(bad)) {
    test(`a scene file with ${what} gives a sentence, and the scene before it stays`, async () => {
        const page = await openPage(`#${still}&scene=robots&turn=0.1`);
        await settled(page);
        const earlier = await frameHash(page);
        const said = await give(page, files);
        assert.ok(said.startsWith('The scene cannot be used: ') && said.includes(sentence), said);
        assert.equal(await frameHash(page), earlier);
        assert.equal(await page.inputValue('[name=scene]'), 'robots');
        // The page is as good as before.
        assert.equal(await give(page, [file('room.json', sceneOf('room'))]), "The scene 'room' is shown.");
        await closePage(page);
    });
}

test('the page opens the settings that it has saved, and shows the same frame', async () => {
    const page = await openPage(`#${still}&scene=robots&turn=0.2&away=0.7&state=0&format=555&phase=0.6&view=overdraw`);
    await settled(page);
    const first = await frameHash(page);
    const settings = await saved(page, '#settings');
    assert.equal(settings.name, 'robots-settings.json');
    await closePage(page);

    const other = await openPage(`#${still}`);
    const said = await give(other, [file('any.json', settings.text)]);
    assert.equal(said, "The settings of 'any.json' are set.");
    assert.equal(await frameHash(other), first);
    assert.equal(await other.evaluate(() => window.kardeno.state().view), 'overdraw');
    assert.equal(await other.inputValue('[name=scene]'), 'robots');
    await closePage(other);
});

test('settings of a scene file are opened together with it', async () => {
    const page = await openPage(`#${still}`);
    await give(page, [file('own.json', sceneOf('robots'))]);
    await page.evaluate(() => window.kardeno.change({ turn: 0.3 }));
    await settled(page);
    const first = await frameHash(page);
    const settings = await saved(page, '#settings');
    await closePage(page);

    const other = await openPage(`#${still}`);
    const alone = await give(other, [file('s.json', settings.text)]);
    assert.match(alone, /^The settings cannot be used: 's\.json', scene: it was read from files of its own; /);
    assert.equal(await other.inputValue('[name=scene]'), 'room');
    assert.equal(await give(other, [file('s.json', settings.text), file('own.json', sceneOf('robots'))]),
        "The settings of 's.json' are set.");
    assert.equal(await frameHash(other), first);
    await closePage(other);
});

const badSettings = {
    '{"zoom": "big"}': 'zoom: expected is a number from 0.1 to 20, not "big"',
    '{"zoom": 21}': 'zoom: expected is a number from 0.1 to 20, not 21',
    '{"size": "1x1"}': 'size: expected is 320x240, 640x480 or 1024x768, not "1x1"',
    '{"moves": 1}': 'moves: expected is true or false, not 1',
    '{"zom": 1}': 'zom: there is no such setting; expected are scene, row, size, ',
    '{"scene": "hall"}': "scene: there is no 'hall'; expected is one of those that the page offers",
    '[1]': 'settings of the page: expected is an object with keys in braces',
    null: 'settings of the page: expected is an object with keys in braces',
};
test('settings that mean nothing give a sentence with file, key and what is expected, and change nothing', async () => {
    const page = await openPage(`#${still}&scene=robots`);
    for (const [settings, sentence] of Object.entries(badSettings)) {
        const earlier = await page.evaluate(() => JSON.stringify(window.kardeno.state()));
        const said = await give(page, [file('s.json', `{"settings of the page": ${settings}}`)]);
        assert.ok(said.startsWith(`The settings cannot be used: 's.json', ${sentence}`), said);
        assert.equal(await page.evaluate(() => JSON.stringify(window.kardeno.state())), earlier);
    }
    await closePage(page);
});

test('a link with another scene and a turned camera shows both', async () => {
    const page = await openPage(`#${still}&scene=robots&turn=0.25`);
    await settled(page);
    const wanted = await frameHash(page);
    await closePage(page);
    const other = await openPage(`#${still}`);
    await other.evaluate((hash) => { window.location.hash = hash; }, `#${still}&scene=robots&turn=0.25`);
    await other.waitForFunction(() => window.kardeno.state().scene === 'robots');
    await settled(other);
    assert.equal(await frameHash(other), wanted);
    await closePage(other);
});
