// The module as scripts see it: numbers, typed arrays over its memory, and objects from its JSON answers. An array is
// valid until the next call, which may move the memory.

const wordsOfPolygon = 9;
const wordsOfSpan = 4;

/** The texts that the module writes to its standard error, the last one last. */
const complaints = [];

// The module asks its surroundings for the time and for a place to complain. There is nothing else that it could reach.
function surroundings(memory) {
    const success = 0;
    const unsupported = 52;
    return {
        clock_time_get(clock, precision, address) {
            new DataView(memory().buffer).setBigUint64(address, BigInt(Math.round(performance.now() * 1e6)), true);
            return success;
        },
        fd_write(file, list, count, written) {
            const view = new DataView(memory().buffer);
            let bytes = 0;
            let text = '';
            for (let i = 0; i < count; ++i) {
                const length = view.getUint32(list + 8 * i + 4, true);
                const part = new Uint8Array(memory().buffer, view.getUint32(list + 8 * i, true), length);
                text += new TextDecoder().decode(part);
                bytes += length;
            }
            view.setUint32(written, bytes, true);
            complaints.push(text);
            return success;
        },
        fd_close: () => unsupported,
        fd_seek: () => unsupported,
        fd_read: () => unsupported,
        fd_fdstat_get: () => unsupported,
        environ_get: () => success,
        environ_sizes_get(count, size) {
            new DataView(memory().buffer).setUint32(count, 0, true);
            new DataView(memory().buffer).setUint32(size, 0, true);
            return success;
        },
        proc_exit(code) {
            throw new Error(`the module ended with ${code}: ${complaints.at(-1) ?? ''}`);
        },
    };
}

/** The renderer, from the bytes of its module. */
export async function startRenderer(bytes) {
    const compiled = await WebAssembly.compile(bytes);
    let memory = null;
    let calls = null;

    // A module that has trapped is of no use any more. A new one starts without a scene.
    const restart = async () => {
        const instance = await WebAssembly.instantiate(compiled, {
            wasi_snapshot_preview1: surroundings(() => memory),
        });
        calls = instance.exports;
        memory = calls.memory;
        calls._initialize();
    };
    await restart();

    const text = (address) => {
        const all = new Uint8Array(memory.buffer);
        return new TextDecoder().decode(all.subarray(address, all.indexOf(0, address)));
    };
    const answer = (address) => JSON.parse(text(address));
    let width = 0;
    let height = 0;
    // Calls use(address) with bytes that lie in the module's memory for so long.
    const withBytes = (given, use) => {
        const address = calls.reserve(Math.max(1, given.length));
        if (address === 0) throw new Error('there is not enough memory');
        new Uint8Array(memory.buffer, address, given.length).set(given);
        use(address);
        calls.release(address);
    };
    const pixelsAt = (address) => new Uint16Array(memory.buffer, address, calls.framePitch() * height);

    return {
        scenes: answer(calls.listScenes()),

        /** Makes the frame buffer anew. */
        resize(newWidth, newHeight) {
            width = newWidth;
            height = newHeight;
            calls.resize(width, height);
        },
        /** Builds a scene; gives its name and a few words about what is in it. */
        build(wanted) {
            return answer(
                calls.build(wanted.scene, wanted.row, wanted.bitsPerPixel, wanted.state, wanted.palettised ? 1 : 0,
                    wanted.shading, wanted.transparency, wanted.largest),
            );
        },
        /** The numbers of the scene's camera: target (3), distance, height, turn, turns per round, sway, zoom, near,
         *  far. */
        cameraNumbers: () => Array.from(new Float64Array(memory.buffer, calls.cameraNumbers(), 11)),
        useCamera(numbers) {
            new Float64Array(memory.buffer, calls.cameraNumbers(), 11).set(numbers);
            calls.useCamera();
        },
        restart,
        /** Reads the scene or the model among files, each with a name and its bytes. Gives its kind, its name and
         *  remarks, or a problem. */
        readFiles(files) {
            calls.forgetFiles();
            for (const { name, bytes: content } of files) {
                const encoded = new TextEncoder().encode(name);
                withBytes(encoded, (nameAt) => withBytes(content,
                    (contentAt) => calls.giveFile(nameAt, encoded.length, contentAt, content.length)));
            }
            return answer(calls.takeFiles());
        },
        useLevel: (level) => calls.useLevel(level),
        draw: (phase) => calls.draw(phase),

        /** The 16-bit frame: pixel (x, y) is pixels[y * pitch + x]. */
        frame: () => ({ width, height, pitch: calls.framePitch(), pixels: pixelsAt(calls.framePixels()) }),
        pick: (phase, x, y) => answer(calls.pick(phase, x, y)),

        /** Takes the frame apart and gives its counts; the calls below are about this frame. */
        inspect: (phase) => answer(calls.inspect(phase)),
        /** Polygons in the order of painting, as arrays of words: see PaintedPolygon. */
        polygons() {
            const count = calls.polygonCount();
            const address = calls.polygons();
            return {
                count,
                integers: new Int32Array(memory.buffer, address, count * wordsOfPolygon),
                floats: new Float32Array(memory.buffer, address, count * wordsOfPolygon),
            };
        },
        /** Spans in the order of painting, four integers each: x, y, length, polygon. The background's come last. */
        spans: () => new Int32Array(memory.buffer, calls.spans(), calls.spanCount() * wordsOfSpan),
        paintUpTo(polygons, spans) {
            const address = calls.paintUpTo(polygons, spans);
            return { width, height, pitch: calls.framePitch(), pixels: pixelsAt(address) };
        },
        describePolygon: (polygon) => answer(calls.describePolygon(polygon)),
        openRow: (y) => answer(calls.openRow(y)),
        follow: (phase, polygon) => answer(calls.follow(phase, polygon)),
    };
}

/** Named places of a polygon's words. */
export const polygonWord = Object.freeze({
    list: 0,
    row: 1,
    face: 2,
    firstSpan: 3,
    spanCount: 4,
    sortDepth: 5,
    stepX: 6,
    stepY: 7,
    origin: 8,
    count: wordsOfPolygon,
});
