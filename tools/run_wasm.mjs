// Runs a WebAssembly program under node, for CMake as the emulator of the wasm32 build and for people.
//
//   node --no-warnings tools/run_wasm.mjs PROGRAM.wasm [ARG]...
//
// The program sees the machine's files under their own names, the current folder and the environment.
import fs from 'node:fs';
import { WASI } from 'node:wasi';

const [, , program, ...args] = process.argv;
if (!program) {
    console.error('usage: node tools/run_wasm.mjs PROGRAM.wasm [ARG]...');
    process.exit(2);
}
const wasi = new WASI({
    version: 'preview1',
    args: [program, ...args],
    env: process.env,
    preopens: { '/': '/', '.': process.cwd() },
    returnOnExit: true,
});
const compiled = await WebAssembly.compile(fs.readFileSync(program));
const instance = await WebAssembly.instantiate(compiled, { wasi_snapshot_preview1: wasi.wasiImport });
process.exitCode = wasi.start(instance);
