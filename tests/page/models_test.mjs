// Models that are dropped onto the page, or chosen: good ones are drawn, and bad ones give a sentence and change
// nothing.
import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';
import { closePage, frameHash, openPage, settled, startBrowser, still, stopBrowser } from './browser.mjs';
import { file, give, pixelsOfColour, png } from './given_files.mjs';

before(startBrowser);
after(stopBrowser);

const tetrahedron = [
    'mtllib things/colours.mtl', 'usemtl painted',
    'v 0 1 0', 'v -1 -1 1', 'v 1 -1 1', 'v 0 -1 -1', 'vt 0 0', 'vt 1 0', 'vt 0 1',
    'f 1/1 2/2 3/3', 'f 1/1 3/2 4/3', 'f 1/1 4/2 2/3', 'f 2/1 4/2 3/3', '',
].join('\n');
const colours = 'newmtl painted\nKd 0.2 0.8 0.2\nmap_Kd textures\\paint.png\n';

// The same shape as glTF: positions and indices in one buffer.
function gltfParts() {
    const positions = new Float32Array([0, 1, 0, -1, -1, 1, 1, -1, 1, 0, -1, -1]);
    const indices = new Uint16Array([0, 1, 2, 0, 2, 3, 0, 3, 1, 1, 3, 2]);
    const bytes = Buffer.concat([Buffer.from(positions.buffer), Buffer.from(indices.buffer)]);
    const json = {
        asset: { version: '2.0' },
        scene: 0,
        scenes: [{ nodes: [0] }],
        nodes: [{ mesh: 0, rotation: [0, 0, 0, 1], translation: [5, 0, 0] }],
        meshes: [{ name: 'shape', primitives: [{ attributes: { POSITION: 0 }, indices: 1, material: 0 }] }],
        materials: [{ name: 'red', pbrMetallicRoughness: { baseColorFactor: [1, 0, 0, 1] } }],
        accessors: [
            { bufferView: 0, componentType: 5126, count: 4, type: 'VEC3', min: [-1, -1, -1], max: [1, 1, 1] },
            { bufferView: 1, componentType: 5123, count: 12, type: 'SCALAR' },
        ],
        bufferViews: [
            { buffer: 0, byteOffset: 0, byteLength: 48 },
            { buffer: 0, byteOffset: 48, byteLength: 24 },
        ],
        buffers: [{ byteLength: 72 }],
    };
    return { json, bytes };
}

function gltf(alter = () => {}) {
    const { json, bytes } = gltfParts();
    json.buffers[0].uri = `data:application/octet-stream;base64,${bytes.toString('base64')}`;
    alter(json);
    return file('shape.gltf', JSON.stringify(json));
}

function glb() {
    const { json, bytes } = gltfParts();
    const text = Buffer.from(JSON.stringify(json));
    const padded = Buffer.concat([text, Buffer.alloc((4 - (text.length % 4)) % 4, 32)]);
    const part = (kind, data) => {
        const head = Buffer.alloc(8);
        head.writeUInt32LE(data.length, 0);
        head.writeUInt32LE(kind, 4);
        return Buffer.concat([head, data]);
    };
    const parts = Buffer.concat([part(0x4e4f534a, padded), part(0x004e4942, bytes)]);
    const head = Buffer.alloc(12);
    head.write('glTF');
    head.writeUInt32LE(2, 4);
    head.writeUInt32LE(12 + parts.length, 8);
    return file('shape.glb', Buffer.concat([head, parts]));
}

test('an OBJ with its material file and image is drawn in the image', async () => {
    const page = await openPage(`#${still}`);
    const said = await give(page,
        [file('shape.obj', tetrahedron), file('colours.mtl', colours), file('paint.png', png(20, 20, 240))]);
    assert.equal(said, "The model 'shape' is shown.");
    assert.equal(await page.inputValue('[name=scene]'), 'model');
    assert.ok(await pixelsOfColour(page, 2) > 2000);
    await closePage(page);
});

test('files that are dropped are taken like files that are chosen', async () => {
    const page = await openPage(`#${still}`);
    await page.evaluate((text) => {
        const data = new window.DataTransfer();
        data.items.add(new window.File([text], 'dropped.obj'));
        document.body.dispatchEvent(new window.DragEvent('drop', { dataTransfer: data, bubbles: true }));
    }, tetrahedron.replace('mtllib things/colours.mtl', ''));
    await page.waitForFunction(() => document.getElementById('reading').textContent.includes('dropped'));
    assert.match(await page.textContent('#reading'), /^The model 'dropped' is shown\./);
    await closePage(page);
});

test('glTF as text and in one file are drawn alike, in the base colour', async () => {
    const page = await openPage(`#${still}`);
    assert.equal(await give(page, [gltf()]), "The model 'shape' is shown.");
    assert.ok(await pixelsOfColour(page, 0) > 2000);
    const asText = await frameHash(page);
    assert.equal(await give(page, [glb()]), "The model 'shape' is shown.");
    assert.equal(await frameHash(page), asText);
    await closePage(page);
});

test('a corner that a sparse accessor moves is drawn where it was moved to', async () => {
    const page = await openPage(`#${still}`);
    await give(page, [gltf()]);
    const whole = await frameHash(page);
    // Corner 0, the top, takes the place of corner 1 by an index and a value of the buffer's own.
    const sparse = gltf((json) => {
        json.accessors[0].sparse = {
            count: 1, indices: { bufferView: 1, componentType: 5123 }, values: { bufferView: 0, byteOffset: 12 },
        };
    });
    assert.equal((await give(page, [sparse])).startsWith("The model 'shape' is shown."), true);
    assert.notEqual(await frameHash(page), whole);
    await closePage(page);
});

test('a glTF whose buffer is another file takes it from the files that were given', async () => {
    const page = await openPage(`#${still}`);
    const { bytes } = gltfParts();
    const outside = gltf((json) => { json.buffers[0].uri = 'shape.bin'; });
    assert.equal(await give(page, [outside, file('shape.bin', bytes)]), "The model 'shape' is shown.");
    assert.match(await give(page, [outside]), /^The model cannot be used: 'shape\.gltf' cannot be read .*shape\.bin/);
    await closePage(page);
});

test('a missing image is a remark with file, line and material, and the model is drawn in its colours', async () => {
    const page = await openPage(`#${still}`);
    const said = await give(page, [file('shape.obj', tetrahedron), file('colours.mtl', colours)]);
    assert.match(said, /^The model 'shape' is shown\./);
    assert.ok(said.includes("'colours.mtl', line 3: the image 'textures\\paint.png' of the material 'painted' is not "
        + 'among the files; the material is drawn in its colours'), said);
    assert.ok(await pixelsOfColour(page, 1) > 2000);
    await closePage(page);
});

const bad = {
    'a face that names a vertex which is not there': [
        [file('bad.obj', 'v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 9\n')],
        "'bad.obj', line 4: a face names the vertex '9'; expected is a number from 1 to 3",
    ],
    'a vertex that is no number': [
        [file('bad.obj', 'v 0 0 0\n\nv 1 zero 0\nv 0 1 0\nf 1 2 3\n')],
        "'bad.obj', line 3: a vertex needs three numbers",
    ],
    'a bad line among lines that end in a carriage return': [
        [file('old.obj', 'v 0 0 0\rv 1 0 0\rv 0 1 0\r# a face\rf 1 2 -4\r')],
        "'old.obj', line 5: a face names the vertex '-4'; expected is a number from 1 to 3",
    ],
    'an OBJ without faces': [[file('bad.obj', 'v 0 0 0\n')], "'bad.obj' has no faces"],
    'an empty file': [[file('empty.obj', '')], "'empty.obj' has no faces"],
    'a model in one place': [
        [file('dot.obj', 'v 1 1 1\nv 1 1 1\nv 1 1 1\nf 1 2 3\n')], "'dot.obj' has all of its corners in one place",
    ],
    'no model at all': [[file('paint.png', png(1, 2, 3))], 'there is no model among the files'],
    'two models': [[file('a.obj', tetrahedron), file('b.obj', tetrahedron)], "'a.obj' and 'b.obj' are two models"],
    'text that is no glTF': [[file('bad.gltf', '{"asset": ')], "'bad.gltf' cannot be read as glTF 2.0"],
    'a broken GLB': [[file('bad.glb', 'glTF and nothing else, at all')], "'bad.glb' cannot be read as glTF 2.0"],
    'an accessor beyond its buffer': [
        [gltf((json) => { json.accessors[0].count = 4000; })],
        "'shape.gltf': the positions of the mesh 'shape', accessor 0: its elements do not lie inside of a buffer",
    ],
    'an index beyond the positions': [
        [gltf((json) => { json.accessors[0].count = 2; })], 'name a position that is not there',
    ],
    'an image beyond its buffer, and a stride beyond all': [
        [gltf((json) => {
            json.images = [{ bufferView: 0, mimeType: 'image/png' }];
            json.bufferViews[0].byteStride = 4294967295;
        })],
        "'shape.gltf'",
    ],
    'nodes in a circle': [
        [gltf((json) => { json.nodes[0].children = [0]; })], 'lies in a circle of nodes',
    ],
    'nodes that share their children': [
        [gltf((json) => {
            json.nodes = Array.from({ length: 60 }, (unused, i) => ({ children: i < 59 ? [i + 1, i + 1] : [] }));
        })], 'has more than one parent',
    ],
    'values of another kind': [
        [gltf((json) => { json.meshes = 7; json.nodes[0].mesh = 'one'; })], "'shape.gltf'",
    ],
    'a required extension': [
        [gltf((json) => { json.extensionsRequired = ['KHR_draco_mesh_compression']; })],
        "needs the extension 'KHR_draco_mesh_compression'",
    ],
};
for (const [what, [files, sentence]] of Object.entries(bad)) {
    test(`${what} gives a sentence, and the scene before it stays`, async () => {
        const page = await openPage(`#${still}&scene=robots&turn=0.1`);
        await settled(page);
        const earlier = await frameHash(page);
        const said = await give(page, files);
        assert.ok(said.startsWith('The model cannot be used: ') && said.includes(sentence), said);
        assert.equal(await frameHash(page), earlier);
        assert.equal(await page.inputValue('[name=scene]'), 'robots');
        // The page is as good as before.
        assert.equal(await give(page, [gltf()]), "The model 'shape' is shown.");
        await closePage(page);
    });
}

test('a model of too many triangles is refused, and one of very many is drawn', async () => {
    const page = await openPage(`#${still}`);
    const grid = (side) => {
        const lines = [];
        for (let y = 0; y <= side; ++y)
            for (let x = 0; x <= side; ++x) lines.push(`v ${x} ${Math.sin(x / 9) * Math.cos(y / 7) * 5} ${y}`);
        const at = (x, y) => y * (side + 1) + x + 1;
        for (let y = 0; y < side; ++y)
            for (let x = 0; x < side; ++x)
                lines.push(`f ${at(x, y)} ${at(x, y + 1)} ${at(x + 1, y + 1)} ${at(x + 1, y)}`);
        return lines.join('\n');
    };
    assert.match(await give(page, [file('huge.obj', grid(330))]),
        /'huge\.obj' has 217800 triangles; the page takes up to 200000/);
    assert.equal(await give(page, [file('large.obj', grid(200))]), "The model 'large' is shown.");
    assert.match(await page.textContent('#contents'), /80000 triangles/);
    await closePage(page);
});

test('a second model takes the place of the first', async () => {
    const page = await openPage(`#${still}`);
    await give(page, [gltf()]);
    const first = await frameHash(page);
    await give(page, [file('other.obj', tetrahedron.replace('v 0 1 0', 'v 0 3 0'))]);
    assert.notEqual(await frameHash(page), first);
    assert.equal(await page.locator('[name=scene] option[value=model]').count(), 1);
    await closePage(page);
});

test('after a module has trapped at a scene, the model from before is shown again from the same place', async () => {
    const page = await openPage(`#${still}`);
    await give(page, [gltf()]);
    await page.evaluate(() => window.kardeno.change({ turn: 0.2 }));
    await settled(page);
    const earlier = await frameHash(page);
    await page.evaluate(() => {
        const { renderer } = window.kardeno;
        const { build } = renderer;
        renderer.build = () => {
            renderer.build = build;
            throw new window.WebAssembly.RuntimeError('unreachable');
        };
    });
    const said = await give(page, [file('other.json', '{"objects": []}')]);
    assert.equal(said, "The files cannot be used: 'other.json' is broken, or larger than the memory of this page.");
    assert.equal(await frameHash(page), earlier);
    assert.equal(await page.inputValue('[name=scene]'), 'model');
    assert.equal(await page.locator('[name=scene] option[value=file]').count(), 0);
    await closePage(page);
});

test('after a module has trapped a new one draws the same scene', async () => {
    const page = await openPage(`#${still}&turn=0.2`);
    await settled(page);
    const earlier = await frameHash(page);
    await page.evaluate(() => {
        const { renderer } = window.kardeno;
        const { readFiles } = renderer;
        renderer.readFiles = () => {
            renderer.readFiles = readFiles;
            throw new window.WebAssembly.RuntimeError('unreachable');
        };
    });
    const said = await give(page, [gltf()]);
    assert.equal(said, "The files cannot be used: 'shape.gltf' is broken, or larger than the memory of this page.");
    assert.equal(await frameHash(page), earlier);
    assert.equal(await give(page, [gltf()]), "The model 'shape' is shown.");
    await closePage(page);
});
