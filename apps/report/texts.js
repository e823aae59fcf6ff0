// How values are written, and small helpers for the page's elements.

function durationText(milliseconds) {
    if (milliseconds < 1000) {
        return `${milliseconds < 100 ? Math.round(milliseconds * 10) / 10 : Math.round(milliseconds)} ms`;
    }
    const seconds = milliseconds / 1000;
    if (seconds < 60) return `${seconds.toFixed(2)} s`;
    if (seconds < 3600) return `${Math.floor(seconds / 60)} min ${Math.floor(seconds % 60)} s`;
    return `${Math.floor(seconds / 3600)} h ${Math.floor(seconds / 60 % 60)} min`;
}

function countText(count, one, many = one + "s") {
    return `${count.toLocaleString("en")} ${count === 1 ? one : many}`;
}

// By the clock of the machine that ran the script.
function clockText(trace, milliseconds, digits = 3) {
    const text = new Date(trace.start + trace.offset + milliseconds).toISOString();
    return text.slice(11, digits > 0 ? 20 + digits : 19);
}

function dateText(trace) {
    return new Date(trace.start + trace.offset).toISOString().slice(0, 10);
}

// Control characters by their pictures, so that a text stays on its line and hides nothing.
function visibleText(text) {
    return text.replace(/[\0-\x1f]/g, character => String.fromCharCode(0x2400 + character.charCodeAt(0)))
        .replace(/\x7f/g, "\u2421");
}

function fileName(path) {
    return path.split(/[\\/]/).at(-1);
}

function byId(id) {
    return document.getElementById(id);
}

// make("p", "hint", "text", child): an element with a class, and texts and elements in it.
function make(tag, className, ...children) {
    const element = document.createElement(tag);
    if (className) element.className = className;
    element.append(...children.filter(child => child !== null));
    return element;
}

function makeButton(label, action, className = "") {
    const button = make("button", className, label);
    button.type = "button";
    button.addEventListener("click", () => action(button));
    return button;
}

async function copyText(text) {
    try {
        await navigator.clipboard.writeText(text);
        return true;
    } catch {
        // A browser that does not trust a local file with the clipboard has the old way.
        const field = make("textarea", "off-screen");
        field.value = text;
        document.body.append(field);
        field.select();
        const copied = document.execCommand("copy");
        field.remove();
        return copied;
    }
}

function makeCopyButton(label, text) {
    return makeButton(label, async button => {
        const copied = await copyText(text);
        button.textContent = copied ? "Copied" : "Not copied: mark the text by hand";
        byId("spoken").textContent = button.textContent;
        setTimeout(() => button.textContent = label, 1500);
    }, "copy");
}
