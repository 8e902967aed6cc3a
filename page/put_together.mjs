// Puts the page together: one HTML file that holds the module, the scripts, the style and the scenes as files, so that
// it opens from any static server and by a double click.
//
//   node page/put_together.mjs MODULE.wasm INDEX.html
//
// Scripts are ordinary modules. A browser loads none from the disk, so each becomes a data address, and an import map
// leads from the names by which they import one another ("#page/state.js") to these addresses.
import fs from 'node:fs';
import path from 'node:path';
import { fileURLToPath } from 'node:url';

const [, , moduleFile, pageFile] = process.argv;
if (!pageFile) {
    console.error('usage: node page/put_together.mjs MODULE.wasm INDEX.html');
    process.exit(2);
}
const folder = path.dirname(fileURLToPath(import.meta.url));
const read = (name) => fs.readFileSync(path.join(folder, name), 'utf8');

const imports = {};
for (const name of fs.readdirSync(path.join(folder, 'scripts')).filter((file) => file.endsWith('.js')).sort()) {
    const script = `${read(path.join('scripts', name))}\n//# sourceURL=${name}\n`;
    imports[`#page/${name}`] = `data:text/javascript;base64,${Buffer.from(script).toString('base64')}`;
}

// The texts of the scene files by their names. They stand inside of an HTML element, which a '<' could end.
const scenes = {};
const sceneFolder = path.join(folder, '../sample_host/scenes');
for (const name of fs.readdirSync(sceneFolder).filter((file) => file.endsWith('.json')).sort())
    scenes[path.basename(name, '.json')] = fs.readFileSync(path.join(sceneFolder, name), 'utf8');

const parts = {
    STYLE: read('style.css'),
    IMPORT_MAP: JSON.stringify({ imports }),
    SCENES: JSON.stringify(scenes).replaceAll('<', '\\u003c'),
    MODULE: fs.readFileSync(moduleFile).toString('base64'),
};
const page = read('index.html').replace(/<!--PUT (\w+)-->/g, (mark, name) => {
    if (!(name in parts)) throw new Error(`index.html asks for ${name}, which is not there`);
    return parts[name];
});
fs.mkdirSync(path.dirname(pageFile), { recursive: true });
fs.writeFileSync(pageFile, page);
