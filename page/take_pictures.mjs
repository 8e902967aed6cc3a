// Takes the pictures of the page that the documents show (docs/pictures/page*.png), from the built page.
//
//   node page/take_pictures.mjs [INDEX.html]
//
// Needs what the tests of the page need, and ImageMagick's `convert`, which gives each picture a palette of its own.
import { execFileSync } from 'node:child_process';
import fs from 'node:fs';
import path from 'node:path';
import { fileURLToPath, pathToFileURL } from 'node:url';
import { chromium } from 'playwright-core';

const folder = path.dirname(fileURLToPath(import.meta.url));
const index = path.resolve(process.argv[2] ?? path.join(folder, '../build/wasm32/page/index.html'));
const pictures = path.join(folder, '../docs/pictures');

// The name of the file, the address of what it shows, and the part of the page that is taken.
const wanted = [
    ['page', 'moves=no&view=line&line=290', 'main'],
    ['page-spans', 'moves=no&scene=robots&view=polygons', '#picture'],
    ['page-overdraw', 'moves=no&scene=particles&view=overdraw&phase=0.3', '#picture'],
    ['page-depth', 'moves=no&view=depth', '#picture'],
    ['page-steps', 'moves=no&scene=robots&view=steps&painted=700', '#picture'],
];

const browser = await chromium.launch({
    executablePath: process.env.CHROMIUM ?? '/usr/bin/chromium-headless-shell', args: ['--no-sandbox'],
});
for (const [name, hash, part] of wanted) {
    const page = await browser.newPage({ viewport: { width: 1280, height: 1000 }, colorScheme: 'dark' });
    await page.goto(`${pathToFileURL(index).href}#${hash}`);
    await page.waitForFunction(() => window.kardeno);
    await page.waitForTimeout(800); // until the page says that the picture stands still
    const file = path.join(pictures, `${name}.png`);
    await page.locator(part).screenshot({ path: file });
    execFileSync('convert', [file, '-strip', '+dither', '-colors', '256', `PNG8:${file}`]);
    await page.close();
    console.log(`${path.relative(process.cwd(), file)}: ${Math.round(fs.statSync(file).size / 1024)} KB`);
}
await browser.close();
