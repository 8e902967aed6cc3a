// Files as the tests give them to the page, and what they then read from it.
import zlib from 'node:zlib';
import { settled } from './browser.mjs';

export const file = (name, content) => ({ name, mimeType: '', buffer: Buffer.from(content) });

/** A PNG of one colour, 16 x 16. */
export function png(red, green, blue) {
    const chunk = (name, data) => {
        const body = Buffer.concat([Buffer.from(name), data]);
        const length = Buffer.alloc(4);
        length.writeUInt32BE(data.length);
        const sum = Buffer.alloc(4);
        let crc = 0xffffffff;
        for (const byte of body) {
            crc ^= byte;
            for (let bit = 0; bit < 8; ++bit) crc = (crc >>> 1) ^ (crc & 1 ? 0xedb88320 : 0);
        }
        sum.writeUInt32BE((crc ^ 0xffffffff) >>> 0);
        return Buffer.concat([length, body, sum]);
    };
    const head = Buffer.from([0, 0, 0, 16, 0, 0, 0, 16, 8, 2, 0, 0, 0]);
    const row = [0, ...Array.from({ length: 16 }, () => [red, green, blue]).flat()];
    const rows = Buffer.from(Array.from({ length: 16 }, () => row).flat());
    return Buffer.concat([Buffer.from([137, 80, 78, 71, 13, 10, 26, 10]), chunk('IHDR', head),
        chunk('IDAT', zlib.deflateSync(rows)), chunk('IEND', Buffer.alloc(0))]);
}

/** Chooses files and gives what the page then says. */
export async function give(page, files) {
    await page.evaluate(() => document.getElementById('reading').replaceChildren());
    await page.setInputFiles('#files', files);
    await page.waitForFunction(() => {
        const said = document.getElementById('reading').textContent;
        return said !== '' && said !== 'Reading the files.';
    });
    await settled(page);
    return page.textContent('#reading');
}

/** How many pixels of the frame have a channel that outweighs the others by far. */
export async function pixelsOfColour(page, channel) {
    return page.evaluate((which) => {
        const canvas = document.getElementById('frame');
        const { data } = canvas.getContext('2d').getImageData(0, 0, canvas.width, canvas.height);
        let count = 0;
        for (let i = 0; i < data.length; i += 4) {
            const [own, others] = [data[i + which], [0, 1, 2].filter((c) => c !== which).map((c) => data[i + c])];
            if (own > 60 && own > 2 * Math.max(...others)) ++count;
        }
        return count;
    }, channel);
}
