// Models of one's own: files that are chosen or dropped become a scene. A model that cannot be used leaves the scene as
// it is and gives a sentence.
import { element } from '#page/elements.js';

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

/** Listens for files. `said` is the element for sentences; `taken(name)` is called when a model was read, and
 *  `restarted()` when the module had to be started anew. */
export function listenForModels(renderer, input, said, taken, restarted) {
    const say = (sentence, remarks = []) => {
        said.replaceChildren(element('p', {}, [sentence]));
        if (remarks.length > 0)
            said.append(element('ul', {}, remarks.map((remark) => element('li', {}, [remark]))));
    };

    const read = async (list) => {
        const files = [...list];
        if (files.length === 0) return;
        say('Reading the files.');
        let given;
        try {
            given = await bytesOf(files);
        } catch (error) {
            say(`The model cannot be used: ${error.message}.`);
            return;
        }
        try {
            const { problem, remarks, name } = renderer.readModel(given);
            if (problem) {
                say(`The model cannot be used: ${problem}.`);
                return;
            }
            taken(name);
            say(`The model '${name}' is shown.`, remarks);
        } catch {
            await renderer.restart();
            restarted();
            say(`The model cannot be used: '${files[0].name}' is broken, or larger than the memory of this page.`);
        }
    };

    input.addEventListener('change', () => read(input.files));
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
