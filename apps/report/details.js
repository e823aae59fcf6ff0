// What is known of one call. Builds elements from texts only: a text of the trace never becomes HTML.

function makeTable(className, heads, rows) {
    const table = make("table", className);
    if (heads) {
        table.append(make("thead", "", make("tr", "", ...heads.map(head => make("th", "", head)))));
    }
    table.append(make("tbody", "", ...rows.map(cells => make("tr", "", ...cells.map(cell =>
        make("td", "", cell))))));
    return table;
}

// May break before a member of the chain rather than within it.
function makeCode(text) {
    const code = make("code", "");
    const parts = text.length < 2000 ? text.split(/(?=\.[A-Z])/) : [text];
    parts.forEach((part, index) => code.append(index > 0 ? make("wbr", "") : "", visibleText(part)));
    return code;
}

function makePart(title, ...content) {
    return make("section", "part", make("h3", "", title), ...content);
}

function makeFacts(trace, call) {
    const list = make("dl", "facts");
    const add = (name, value) => list.append(make("div", "", make("dt", "", name), make("dd", "", value)));
    add("Result", call.isOpen ? "not ended" : call.result ? makeCode(call.result) : "none");
    add("Began", clockText(trace, call.begin));
    add("Took", durationText(call.duration));
    add("Waited", call.waiting >= 0.05
        ? `${durationText(call.waiting)} (${Math.round(100 * call.waiting / Math.max(call.duration, 0.001))} %)` : "no");
    if (trace.processes.length > 1) add("Process", `${fileName(call.process.program)} ${call.process.id}`);
    return list;
}

function makeSteps(call) {
    const scale = 100 / Math.max(call.duration, 0.001);
    return makeTable("steps", null, call.steps.map(step => {
        const bar = make("i", kStepKinds[step.kind] || "work");
        bar.style.left = `${Math.min((step.begin - call.begin) * scale, 99)}%`;
        bar.style.width = `${Math.max((step.end - step.begin) * scale, 0.5)}%`;
        const name = make("span", "step-name", make("b", "", step.kind), " ", make("span", "", visibleText(step.text)));
        name.style.paddingLeft = `${step.depth}em`;
        if (step.isOpen) name.append(" ", make("em", "bad", "not ended"));
        else if (step.outcome) name.append(" ", make("em", "", visibleText(step.outcome)));
        return [name, make("span", "step-bar", bar), durationText(step.end - step.begin)];
    }));
}

function makeSearches(call) {
    const number = value => isNumber(value) ? value.toLocaleString("en") : "";
    return makeTable("searches", ["Looked for", "Windows", "Rounds", "Found"], call.searches.map(search =>
        [visibleText(search.text), number(search.windows), number(search.rounds), search.isFound ? "yes" : "no"]));
}

function makeMiss(miss) {
    return make("li", "",
        make("strong", "", visibleText(miss.name)),
        make("ul", "", ...miss.reasons.map(reason => make("li", "", visibleText(reason)))),
        miss.hint ? make("p", "hint", visibleText(miss.hint)) : null,
        miss.line ? make("div", "line", makeCode(miss.line), makeCopyButton("Copy line", miss.line)) : null);
}

// The picture with frames over it: what was searched in, and the misses by their numbers.
function makePicture(call, pictures) {
    const { file, desktop, frame } = call.picture;
    const figure = make("figure", "picture");
    const image = make("img");
    image.alt = "The desktop when the search gave up";
    image.addEventListener("error", () => {
        figure.replaceChildren(make("p", "bad", `The picture ${file} is damaged or not there.`));
    });
    const canvas = make("div", "framed", image);
    image.src = pictures(file);
    if (desktop) {
        const [left, top, right, bottom] = desktop;
        canvas.style.aspectRatio = `${right - left} / ${bottom - top}`;
        const addFrame = (rectangle, className, label) => {
            const clipped = rectangle && rectangleOf([Math.max(rectangle[0], left), Math.max(rectangle[1], top),
                                                      Math.min(rectangle[2], right), Math.min(rectangle[3], bottom)]);
            if (!clipped) return;
            const box = make("div", className, make("span", "", label));
            Object.assign(box.style, {
                left: `${100 * (clipped[0] - left) / (right - left)}%`,
                top: `${100 * (clipped[1] - top) / (bottom - top)}%`,
                width: `${100 * (clipped[2] - clipped[0]) / (right - left)}%`,
                height: `${100 * (clipped[3] - clipped[1]) / (bottom - top)}%`,
            });
            canvas.append(box);
        };
        addFrame(frame, "frame", "searched here");
        call.misses.forEach((miss, index) => addFrame(miss.rectangle, "miss", String(index + 1)));
    }
    figure.append(canvas, make("figcaption", "",
        makeButton("Enlarge", () => {
            const dialog = byId("large-picture");
            const close = makeButton("Close", () => dialog.close());
            dialog.replaceChildren(close, canvas.cloneNode(true));
            dialog.showModal();
        })));
    return figure;
}

// `pictures(file)` gives an address.
function makeDetails(trace, call, pictures) {
    const parts = [make("h2", "", makeCode(call.text)),
                   make("p", "heading", `Call ${call.number}`, makeCopyButton("Copy call", call.text)),
                   makeFacts(trace, call)];
    if (call.misses.length > 0) {
        parts.push(makePart("What came near", make("ol", "misses", ...call.misses.map(makeMiss))));
    } else if (call.isFailed && call.searches.some(search => !search.isFound)) {
        parts.push(makePart("What came near", make("p", "", "Nothing: no window was like the one that was looked for.")));
    }
    if (call.picture) parts.push(makePart("The desktop", makePicture(call, pictures)));
    if (call.steps.length > 0) parts.push(makePart("Steps", makeSteps(call)));
    if (call.searches.length > 0) parts.push(makePart("Searches", makeSearches(call)));
    if (call.notes.length > 0) {
        parts.push(makePart("Notes", ...call.notes.map(note => make("p", "", visibleText(note)))));
    }
    if (call.arguments.length > 0) {
        parts.push(makePart("Arguments", make("ol", "arguments", ...call.arguments.map(argument =>
            make("li", "", makeCode(JSON.stringify(argument)))))));
    }
    return parts;
}
