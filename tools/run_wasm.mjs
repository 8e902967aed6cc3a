// Runs a WebAssembly program (tools/run_wasm says how it is called). The program sees the machine's files under their
// own names, the current folder and the environment.
import fs from 'node:fs';
import { WASI } from 'node:wasi';

const [, , program, ...args] = process.argv;
if (!program) {
    console.error('usage: tools/run_wasm PROGRAM [ARG]...');
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
