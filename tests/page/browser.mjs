// What the tests of the page share: a browser without a window, the page in it, and what to read from it.
//
//   PAGE      the built index.html
//   CHROMIUM  the browser; without it one of the usual names is looked for
import assert from 'node:assert/strict';
import fs from 'node:fs';
import http from 'node:http';
import { createRequire } from 'node:module';
import path from 'node:path';
import { fileURLToPath, pathToFileURL } from 'node:url';

const top = path.resolve(path.dirname(fileURLToPath(import.meta.url)), '../..');
const { chromium } = createRequire(path.join(top, 'page/package.json'))('playwright-core');

export const pageFile = process.env.PAGE ?? path.join(top, 'build/wasm32/page/index.html');
export const pageAddress = pathToFileURL(pageFile).href;

function browserFile() {
    const names = ['chromium-headless-shell', 'chromium', 'google-chrome'];
    const folders = (process.env.PATH ?? '').split(':');
    const files = names.flatMap((name) => folders.map((folder) => path.join(folder, name)));
    return process.env.CHROMIUM ?? files.find((file) => fs.existsSync(file));
}

let browser = null;

export async function startBrowser() {
    browser = await chromium.launch({ executablePath: browserFile(), args: ['--no-sandbox'] });
}

export async function stopBrowser() {
    await browser?.close();
}

/** Serves the page's folder as any static server would. Gives its address and a function that stops it. */
export async function serve() {
    const server = http.createServer((request, response) => {
        const isPage = ['/', '/index.html'].includes(new URL(request.url, 'http://localhost').pathname);
        response.writeHead(isPage ? 200 : 404, { 'Content-Type': 'text/html; charset=utf-8' });
        response.end(isPage ? fs.readFileSync(pageFile) : 'there is no such file');
    });
    await new Promise((resolve) => server.listen(0, '127.0.0.1', resolve));
    return { address: `http://127.0.0.1:${server.address().port}/`, stop: () => server.close() };
}

/** Opens the page. What it complains of is collected in `complaints`, and what it asks for in `requests`. */
export async function openPage(hash = '', { address = pageAddress, starts = true, prepare, ...options } = {}) {
    const context = await browser.newContext({ viewport: { width: 1280, height: 900 }, ...options });
    const page = await context.newPage();
    page.setDefaultTimeout(20000);
    page.complaints = [];
    page.requests = [];
    page.on('console', (message) => {
        // The tests read the canvas again and again, and the page does not.
        const isOfTheTests = message.text().includes('willReadFrequently');
        if (['error', 'warning'].includes(message.type()) && !isOfTheTests) page.complaints.push(message.text());
    });
    page.on('pageerror', (error) => page.complaints.push(error.message));
    page.on('request', (request) => page.requests.push(request.url()));
    if (prepare) await page.addInitScript(prepare);
    await page.goto(address + hash);
    if (starts) await page.waitForFunction(() => window.kardeno);
    return page;
}

export async function closePage(page) {
    assert.deepEqual(page.complaints, []);
    await page.context().close();
}

/** Waits until what was changed is drawn. */
export async function settled(page) {
    await page.evaluate(() => new Promise((resolve) => {
        window.requestAnimationFrame(() => window.requestAnimationFrame(() => window.requestAnimationFrame(resolve)));
    }));
}

/** FNV-1a over the 16-bit pixels of the frame, low byte first, as the golden frames have it. */
export async function frameHash(page) {
    return page.evaluate(() => {
        const { width, height, pitch, pixels } = window.kardeno.renderer.frame();
        let hash = 2166136261;
        for (let y = 0; y < height; ++y) {
            for (let x = 0; x < width; ++x) {
                const pixel = pixels[y * pitch + x];
                hash = Math.imul(hash ^ (pixel & 255), 16777619);
                hash = Math.imul(hash ^ (pixel >> 8), 16777619);
            }
        }
        return (hash >>> 0).toString(16).padStart(8, '0');
    });
}

/** A hash of what the canvas shows. */
export async function canvasHash(page) {
    return page.evaluate(() => {
        const canvas = document.getElementById('frame');
        const { data } = canvas.getContext('2d').getImageData(0, 0, canvas.width, canvas.height);
        let hash = 2166136261;
        for (let i = 0; i < data.length; ++i) hash = Math.imul(hash ^ data[i], 16777619);
        return hash >>> 0;
    });
}

/** The lines of a file of golden frames: from "scene bitsPerPixel" to the hash. */
export function goldenFrames() {
    const text = fs.readFileSync(path.join(top, 'tests/sample_host/golden_frames.txt'), 'utf8');
    return Object.fromEntries(text.trim().split('\n').map((line) => {
        const [scene, bits, hash] = line.split(' ');
        return [`${scene} ${bits}`, hash];
    }));
}

/** The counts of the frames of the page's own scenes: from the scene to its counts. */
export function goldenCounts() {
    return JSON.parse(fs.readFileSync(path.join(top, 'tests/sample_host/golden_counts.json'), 'utf8'));
}

export const still = 'moves=no&size=320x240';
