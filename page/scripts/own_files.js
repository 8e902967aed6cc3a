// Files of one's own that are chosen or dropped: a model or a scene file, with the files that it names, becomes a
// scene, and saved settings become those of the page. What cannot be used changes nothing and gives a sentence.
import { element } from '#page/elements.js';
import { fromSettings, settingsIn } from '#page/state.js';

const mostBytes = 256 * 1024 * 1024;

async function bytesOf(files) {
    const total = files.reduce((sum, file) => sum + file.size, 0);
    if (total > mostBytes)
        throw new Error(`the files have ${Math.round(total / 1048576)} MB together; the page takes up to 256 MB`);
    return Promise.all(files.map(async (file) => ({
        name: file.name,
        bytes: new Uint8Array(await file.arrayBuffer()),
    })));
}

// The settings in a file; undefined when it is another one. Text that is no JSON is left to the reader of scenes, which
// tells the line.
function settingsOf({ name, bytes }) {
    if (!/\.json$/i.test(name)) return undefined;
    try {
        return settingsIn(JSON.parse(new TextDecoder().decode(bytes)));
    } catch {
        return undefined;
    }
}

// A problem as the end of a sentence; some end as one already.
function ended(problem) {
    return /[.?!]$/.test(problem) ? problem : `${problem}.`;
}

/** Listens for files. `said` is the element for sentences; `taken({ kind, name, text })` is called when a model or a
 *  scene was read, `set(values)` with settings, which gives a problem or nothing, and `restarted()` when the module had
 *  to be started anew; it has read the model and the scene from before again. */
export function listenForFiles(renderer, input, said, { taken, set, restarted }) {
    const say = (sentence, remarks = []) => {
        said.replaceChildren(element('p', {}, [sentence]));
        if (remarks.length > 0)
            said.append(element('ul', {}, remarks.map((remark) => element('li', {}, [remark]))));
    };

    const shown = {}; // by their kind, the files that were shown last

    // Gives whether the files could be used.
    const readScene = async (given) => {
        try {
            const { kind, problem, remarks, name } = renderer.readFiles(given);
            if (problem) {
                say(`The ${kind} cannot be used: ${ended(problem)}`);
                return false;
            }
            const scene = kind === 'scene' && given.find((file) => /\.json$/i.test(file.name));
            taken({ kind, name, text: scene ? new TextDecoder().decode(scene.bytes) : '' });
            shown[kind] = given;
            say(`The ${kind} '${name}' is shown.`, remarks);
            return true;
        } catch {
            await renderer.restart();
            for (const files of Object.values(shown)) renderer.readFiles(files);
            restarted();
            say(`The files cannot be used: '${given[0].name}' is broken, or larger than the memory of this page.`);
            return false;
        }
    };

    const read = async (list) => {
        const files = [...list];
        if (files.length === 0) return;
        say('Reading the files.');
        let given;
        try {
            given = await bytesOf(files);
        } catch (error) {
            say(`The files cannot be used: ${ended(error.message)}`);
            return;
        }
        const settings = given.map(settingsOf);
        const scene = given.filter((file, i) => settings[i] === undefined);
        const [at, another] = settings.flatMap((held, i) => (held === undefined ? [] : [i]));
        if (another !== undefined) {
            say(`The settings cannot be used: '${given[at].name}' and '${given[another].name}' are two of them.`);
            return;
        }
        if (at === undefined) {
            await readScene(scene);
            return;
        }
        const { values, problem } = fromSettings(settings[at]);
        if (!problem && scene.length > 0 && !await readScene(scene)) return;
        const fault = problem || set(values);
        if (fault) say(`The settings cannot be used: '${given[at].name}', ${ended(fault)}`);
        else say(`The settings of '${given[at].name}' are set.`);
    };

    input.addEventListener('change', async () => {
        await read(input.files);
        input.value = ''; // so that the same file can be chosen again when it was mended
    });
    const { body } = document;
    const show = (isDropping) => (event) => {
        event.preventDefault();
        body.classList.toggle('dropping', isDropping);
    };
    body.addEventListener('dragover', show(true));
    body.addEventListener('dragleave', show(false));
    body.addEventListener('drop', (event) => {
        show(false)(event);
        read(event.dataTransfer.files);
    });
}
