// The page: it ties the state, the renderer, the picture and the controls together.
import { keysAreHeld, listenToPointerAndKeys, moveByKeys, placedCamera } from '#page/camera.js';
import { element, number, outlineOn, saveFile } from '#page/elements.js';
import { makeInspector, viewNames } from '#page/inspector.js';
import { listenForFiles } from '#page/own_files.js';
import { widen } from '#page/pixels.js';
import { startRenderer } from '#page/renderer.js';
import { change, defaults, fromAddress, listen, state, toAddress, toSettings } from '#page/state.js';

const place = (id) => document.getElementById(id);
const roundOfThings = 12; // seconds in which the movement goes once from 0 to 1
const roundOfCamera = 40;
const keptTimes = 120;
// Where the camera is and what is looked at, which no other scene takes over.
const ofOneScene = ['x', 'y', 'z', 'turn', 'lift', 'away', 'zoom', 'nearest', 'farthest', 'polygon'];
// What says only how a frame is looked at.
const lookingOnly = ['view', 'polygon', 'line', 'painted', 'spans'];
const rebuilding = ['scene', 'row', 'format', 'state', 'textures', 'shading', 'transparency', 'largest'];

function moduleBytes() {
    const text = atob(place('module').textContent);
    const bytes = new Uint8Array(text.length);
    for (let i = 0; i < text.length; ++i) bytes[i] = text.charCodeAt(i);
    return bytes;
}

// The canvas shows whole pixels: each takes a whole number of the screen's, as many as fit.
function fitCanvas(canvas) {
    const ratio = window.devicePixelRatio || 1;
    const room = place('show').clientWidth - 28;
    const times = Math.max(1, Math.floor((room * ratio) / canvas.width));
    canvas.style.width = `${(canvas.width * times) / ratio}px`;
}

class Picture {
    constructor() {
        this.canvas = place('frame');
        this.context = this.canvas.getContext('2d');
        this.marks = place('marks').getContext('2d');
    }

    resize(width, height) {
        for (const canvas of [this.canvas, this.marks.canvas]) {
            canvas.width = width;
            canvas.height = height;
        }
        this.image = this.context.createImageData(width, height);
        this.wide = new Uint32Array(this.image.data.buffer);
        fitCanvas(this.canvas);
    }

    show(marks) {
        this.context.putImageData(this.image, 0, 0);
        this.marks.clearRect(0, 0, this.canvas.width, this.canvas.height);
        for (const mark of marks) mark(this.marks);
    }
}

class Page {
    constructor(renderer) {
        this.renderer = renderer;
        this.picture = new Picture();
        this.inspector = makeInspector(renderer, () => this.ask());
        this.times = [];
        this.circle = 0; // of the camera, in turns, while it goes round by itself
        this.isAsked = true;
        this.picked = null;
        this.ownNames = {}; // of the model and the scene that were read from files
        this.before = null; // what was shown before files whose scene is being built
        this.sceneTexts = JSON.parse(place('scene-files').textContent);
        this.lastTick = 0;
        this.shownSecond = { began: 0, frames: 0 };
        this.addressTimer = 0;
    }

    start() {
        this.fillControls();
        this.knowScene();
        this.rebuild();
        listen((names) => this.changed(names));
        window.addEventListener('hashchange', () => {
            change(fromAddress(location.hash));
            this.knowScene();
        });
        window.addEventListener('resize', () => fitCanvas(this.picture.canvas));
        listenToPointerAndKeys(this.picture.canvas, () => this.camera, (x, y) => this.clicked(x, y));
        this.picture.canvas.addEventListener('pointermove', (event) => {
            const box = this.picture.canvas.getBoundingClientRect();
            const y = Math.floor(((event.clientY - box.top) / box.height) * this.picture.canvas.height);
            if (event.buttons === 0) this.inspector.hover(Math.min(Math.max(y, 0), this.picture.canvas.height - 1));
        });
        listenForFiles(this.renderer, place('files'), place('reading'), {
            taken: (read) => this.showOwn(read),
            set: (values) => this.useSettings(values),
            restarted: () => this.showAgain(),
        });
        place('save').addEventListener('click', () => this.savePicture());
        place('settings').addEventListener('click', () => this.saveSettings());
        place('scene-file').addEventListener('click', () => this.saveSceneFile());
        place('back').addEventListener('click', () => {
            const { scene, row, size, format } = state();
            change({ ...defaults, scene, row, size, format });
        });
        place('main').hidden = false;
        fitCanvas(this.picture.canvas);
        this.showControls();
        this.drawFrame();
        requestAnimationFrame((time) => this.tick(time));
    }

    // An address may name a scene that is not there, such as somebody else's model.
    knowScene() {
        for (const name of ['scene', 'row'])
            if (!this.isKnown(name, state()[name])) change({ [name]: defaults[name] });
    }

    // Has the frame drawn anew at the next tick.
    ask() {
        this.isAsked = true;
    }

    rebuild() {
        const values = state();
        const [width, height] = values.size.split('x').map(Number);
        const names = this.renderer.scenes.scenes.map((scene) => scene.name);
        const scene = [...names, 'gallery', 'model', 'file'].indexOf(values.scene);
        const row = this.renderer.scenes.rows.findIndex((entry) => entry.name === values.row);
        this.renderer.resize(width, height);
        const built = this.renderer.build({
            scene,
            row: Math.max(0, row),
            bitsPerPixel: values.format === '565' ? 16 : 15,
            state: values.state,
            palettised: values.textures === 'palettised',
            shading: values.shading,
            transparency: values.transparency,
            largest: values.largest,
        });
        this.ownCamera = this.renderer.cameraNumbers();
        this.picture.resize(width, height);
        place('contents').textContent = `${built.name}: ${built.contents || 'a row of the render-mode table'}`;
    }

    // Shows a model or a scene that was read from files.
    showOwn({ kind, name, text }) {
        const value = kind === 'scene' ? 'file' : 'model';
        this.before = { values: state(), names: this.ownNames, text: this.sceneTexts.file };
        this.ownNames = { ...this.ownNames, [value]: name };
        if (kind === 'scene') this.sceneTexts.file = text;
        this.offerOwn();
        if (state().scene === value) this.rebuildFrom(state());
        change({ scene: value });
        this.before = null;
    }

    // What was read, in the list of scenes.
    offerOwn() {
        const { scene } = place('choices').elements;
        for (const [value, kind] of [['model', 'model'], ['file', 'scene file']]) {
            const text = `${kind}: ${this.ownNames[value]}`;
            const option = scene.querySelector(`[value=${value}]`);
            if (!(value in this.ownNames)) option?.remove();
            else if (option) option.textContent = text;
            else scene.append(element('option', { value }, [text]));
        }
    }

    // A module was started anew. What it had trapped at is not shown; what was there before is.
    showAgain() {
        if (this.before) {
            this.ownNames = this.before.names;
            this.sceneTexts.file = this.before.text;
        }
        this.offerOwn();
        this.rebuildFrom(this.before?.values ?? state());
        this.before = null;
    }

    rebuildFrom(values) {
        if (values === state()) this.rebuild();
        else change(values);
        this.inspector.forgetFrame();
        this.forget();
        this.ask();
    }

    // Gives a problem when the settings name a scene that is not there.
    useSettings(values) {
        for (const name of ['scene', 'row']) {
            if (this.isKnown(name, values[name])) continue;
            return ['model', 'file'].includes(values.scene) && name === 'scene'
                ? `scene: it was read from files of its own; expected are these files together with the settings`
                : `${name}: there is no '${values[name]}'; expected is one of those that the page offers`;
        }
        change(values);
        return '';
    }

    isKnown(name, value) {
        return [...place('choices').elements[name].options].some((option) => option.value === value);
    }

    changed(names) {
        const values = state();
        if (names.has('scene')) {
            const others = ofOneScene.filter((name) => !names.has(name));
            change(Object.fromEntries(others.map((name) => [name, defaults[name]])));
        }
        if (names.has('size')) {
            const [width, height] = values.size.split('x').map(Number);
            this.renderer.resize(width, height);
            this.picture.resize(width, height);
        }
        if (rebuilding.some((name) => names.has(name))) this.rebuild();
        if (values.view !== 'picture' && values.moves) change({ moves: false });
        if ([...names].some((name) => !lookingOnly.includes(name))) this.inspector.forgetFrame();
        if (names.has('view') && !this.inspector.isOpen()) this.inspector.close();
        const onlyTime = [...names].every((name) => name === 'phase');
        if (!onlyTime || !values.moves) this.forget();
        this.showControls();
        this.keepAddress();
        this.ask();
    }

    // What was picked belongs to a frame, and is forgotten with it.
    forget() {
        this.picked = null;
        place('picked').textContent = '';
    }

    // Browsers slow down pages that change their address all the time.
    keepAddress() {
        if (this.addressTimer) return;
        this.addressTimer = setTimeout(() => {
            this.addressTimer = 0;
            const values = state().moves ? { ...state(), phase: defaults.phase } : state();
            const address = toAddress(values);
            history.replaceState(null, '', address ? `#${address}` : location.href.split('#')[0]);
        }, 300);
    }

    placeCamera() {
        this.camera = placedCamera(this.ownCamera, state(), this.circle);
        this.renderer.useCamera(this.camera);
        this.renderer.useLevel(state().level);
    }

    tick(time) {
        const seconds = Math.min(0.1, (time - this.lastTick) / 1000);
        this.lastTick = time;
        const { moves, circles, phase } = state();
        if (moves) change({ phase: (phase + seconds / roundOfThings) % 1 });
        if (circles && !this.inspector.isOpen()) {
            this.circle += seconds / roundOfCamera;
            this.ask();
        } else if (!circles && this.circle !== 0) {
            // The camera stays where it is.
            const { circle } = this;
            this.circle = 0;
            change({ turn: state().turn + circle });
        }
        if (keysAreHeld()) moveByKeys(this.camera, seconds);
        if (this.isAsked) this.drawFrame();
        this.showRate(time);
        requestAnimationFrame((next) => this.tick(next));
    }

    drawFrame() {
        this.isAsked = false;
        this.placeCamera();
        const { picture } = this;
        if (this.inspector.isOpen()) {
            picture.show(this.inspector.paint(picture.canvas.width, picture.canvas.height, picture.wide));
            return;
        }
        const began = performance.now();
        this.renderer.draw(state().phase);
        this.times.push(performance.now() - began);
        if (this.times.length > keptTimes) this.times.shift();
        ++this.shownSecond.frames;
        widen(this.renderer.frame(), state().format, picture.wide);
        picture.show(this.picked ? [this.picked] : []);
    }

    showRate(time) {
        const since = time - this.shownSecond.began;
        if (since < 500) return;
        place('speed').hidden = this.shownSecond.frames === 0;
        place('still').hidden = this.shownSecond.frames > 0;
        place('rate').textContent = String(Math.round((this.shownSecond.frames * 1000) / since));
        this.shownSecond = { began: time, frames: 0 };
        if (this.times.length === 0) return;
        const sorted = [...this.times].sort((a, b) => a - b);
        place('time').textContent = `${sorted[sorted.length >> 1].toFixed(1)} ms`;

        const graph = place('graph').getContext('2d');
        const { width, height } = graph.canvas;
        graph.clearRect(0, 0, width, height);
        graph.fillStyle = '#46505f';
        graph.fillRect(0, height / 2, width, 1); // 16.7 ms, of which there are 60 in a second
        graph.fillStyle = '#7cc4ff';
        this.times.forEach((milliseconds, i) => {
            const bar = Math.min(height, (milliseconds / 33.3) * height);
            graph.fillRect((i * width) / keptTimes, height - bar, width / keptTimes, bar);
        });
    }

    clicked(x, y) {
        if (this.inspector.isOpen()) {
            this.inspector.point(x, y);
            return;
        }
        change({ moves: false, circles: false });
        this.placeCamera();
        const found = this.renderer.pick(state().phase, x, y);
        this.forget();
        place('picked').textContent = found.hit
            ? `At (${x}, ${y}) lies face ${found.face} of '${found.object}', at depth ${number(found.depth)}, with the `
                + `material '${found.material ?? ''}' in row ${found.row ?? 'none'}.`
            : `At (${x}, ${y}) lies nothing.`;
        if (found.hit) {
            const spans = found.polygon < 0 ? [] : this.spansOf(found.polygon);
            this.picked = (context) => {
                context.fillStyle = 'rgb(255 206 84 / 55%)';
                for (const [left, top, length] of spans) context.fillRect(left, top, length, 1);
                context.strokeStyle = '#ffce54';
                outlineOn(context, found.outline);
            };
        }
        this.ask();
    }

    spansOf(polygon) {
        const spans = this.renderer.spans();
        const result = [];
        for (let i = 0; i < spans.length; i += 4) if (spans[i + 3] === polygon) result.push([...spans.slice(i, i + 3)]);
        return result;
    }

    savePicture() {
        this.picture.canvas.toBlob((blob) => saveFile(`${state().scene}.png`, blob));
    }

    saveSettings() {
        saveFile(`${state().scene}-settings.json`, new Blob([`${JSON.stringify(toSettings(), null, 4)}\n`],
            { type: 'application/json' }));
    }

    saveSceneFile() {
        const { scene } = state();
        const name = scene === 'file' ? this.ownNames.file : scene;
        saveFile(`${name}.json`, new Blob([this.sceneTexts[scene]], { type: 'application/json' }));
    }

    fillControls() {
        const form = place('choices');
        const { scenes, rows } = this.renderer.scenes;
        const option = (value, text) => element('option', { value }, [text]);
        form.elements.scene.append(...scenes.map((scene) => option(scene.name, `${scene.name}: ${scene.shows}`)),
            option('gallery', 'gallery: the rows of the render-mode table'));
        form.elements.row.append(...rows.map((row) => option(row.name, `${row.name}: ${row.shows}`)));
        form.addEventListener('submit', (event) => event.preventDefault());
        form.addEventListener('input', ({ target }) => {
            if (!(target.name in defaults)) return;
            const kind = typeof defaults[target.name];
            const text = target.value;
            change({ [target.name]: kind === 'boolean' ? target.checked : kind === 'number' ? Number(text) : text });
        });

        const tabs = Object.entries(viewNames).map(([view, name]) => {
            const tab = element('button', { type: 'button', role: 'tab', 'data-view': view }, [name]);
            tab.addEventListener('click', () => change({ view }));
            return tab;
        });
        place('views').append(...tabs);
        place('views').addEventListener('keydown', (event) => {
            const step = { ArrowRight: 1, ArrowLeft: -1 }[event.key];
            if (!step) return;
            const next = tabs[(tabs.indexOf(document.activeElement) + step + tabs.length) % tabs.length];
            next.focus();
            next.click();
        });
    }

    // Brings all controls in line with the state.
    showControls() {
        const values = state();
        for (const control of place('choices').elements) {
            if (!(control.name in defaults)) continue;
            const value = values[control.name];
            if (control.type === 'checkbox') control.checked = value;
            else if (control.value !== String(value)) control.value = String(value);
        }
        place('scene-file').hidden = !(values.scene in this.sceneTexts);
        place('row-choice').hidden = values.scene !== 'gallery';
        for (const tab of place('views').children) {
            const isChosen = tab.dataset.view === values.view;
            tab.setAttribute('aria-selected', isChosen);
            tab.tabIndex = isChosen ? 0 : -1;
        }
    }
}

try {
    change(fromAddress(location.hash));
    const renderer = await startRenderer(moduleBytes());
    const page = new Page(renderer);
    page.start();
    // For tests, and for those who want to look further.
    window.kardeno = { renderer, state, change, page };
} catch (error) {
    window.complain(`The page could not start: ${error.message}`);
    throw error;
}
