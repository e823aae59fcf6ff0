// Reads what stands in the page and puts the parts together.

function embeddedTexts(className) {
    return [...document.querySelectorAll(`script.${className}`)].map(element =>
        ({ name: element.dataset.name, text: element.textContent }));
}

// Data that stands in the page; a picture that was left out there is beside it.
function pictureAddress(file) {
    for (const element of document.querySelectorAll("script.picture")) {
        if (element.dataset.name === file) return `data:image/png;base64,${element.textContent.trim()}`;
    }
    return encodeURIComponent(file);
}

function stepOf(call) {
    return call.steps.findLast(step => step.isOpen);
}

function makeNotices(trace, select) {
    const notices = [];
    const add = (className, ...content) => notices.push(make("p", `notice ${className}`, ...content));
    for (const call of trace.open) {
        const step = stepOf(call);
        const begin = step ? step.begin : call.begin;
        const notice = ["The run stopped in: "];
        if (step) notice.push(make("strong", "", `step ${step.kind}, ${visibleText(step.text)}`), ", of ");
        notice.push(`call ${call.number}, `, makeCode(call.text.slice(0, 500)), `, began at ${clockText(trace, begin)}`);
        const after = call.end - begin;
        notice.push(after > 1000 ? ` and had not ended ${durationText(after)} later.` : ".", " ",
                    makeButton("Show the call", () => select(call)));
        add("bad hang", ...notice);
    }
    for (const process of trace.processes) {
        const isOpen = trace.open.some(call => call.process === process);
        if (!process.isStopped && !isOpen) {
            add("", `${fileName(process.program) || process.name} ${process.id} ended between two calls without ` +
                "letting go of Ghosthand: it was ended from outside, it crashed, or it runs still.");
        }
        if (process.version !== 1) add("", `${process.name} was written by another version of Ghosthand: what this ` +
            "report does not know is left out.");
    }
    for (const reason of trace.lost) add("bad", `The trace is not complete: ${visibleText(reason)}.`);
    if (trace.damaged > 0) add("", `${countText(trace.damaged, "line")} of the trace could not be read and ` +
        `${trace.damaged === 1 ? "was" : "were"} left out.`);
    if (trace.calls.length === 0) add("", "The script made no call.");
    return notices;
}

function makeHead(trace) {
    const first = trace.processes[0];
    const commandLine = textOf(trace.run?.commandLine) || first?.commandLine || "";
    byId("title").textContent = visibleText(commandLine) || "Trace of a run";
    document.title = `Trace: ${commandLine || "a run"}`;

    const state = byId("state");
    const isBad = trace.open.length > 0 || trace.failed > 0;
    state.className = isBad ? "bad" : "good";
    state.textContent = trace.open.length > 0 ? "stopped in a call"
        : trace.failed > 0 ? countText(trace.failed, "failed call") : "no failed call";

    const add = (name, value) => byId("summary").append(
        make("div", "", make("dt", "", name), make("dd", "", value)));
    if (first) add("Program", [...new Set(trace.processes.map(process => fileName(process.program)))].join(", "));
    if (first?.isTimed) add("When", `${dateText(trace)} ${clockText(trace, 0, 0)}`);
    add("How long", durationText(trace.duration));
    add("Calls", trace.calls.length.toLocaleString("en"));
    add("Failed", trace.failed.toLocaleString("en"));
    add("Waited", durationText(trace.waiting));
    if (isNumber(trace.run?.exitCode)) add("Exit code", String(trace.run.exitCode));
}

// Paper has no scroll bars: what is shown goes there as one table, then the selected call and the failed ones.
function fillPrint(trace, shown, selected) {
    const most = 1000;
    const detailed = [...new Set([selected, ...shown.filter(call => call.isFailed)])].filter(Boolean).slice(0, 20);
    byId("print").replaceChildren(
        make("h2", "", "Calls"),
        makeTable("printed", ["No.", "Time", "Call", "Result", "Took", "Waited"], shown.slice(0, most).map(call => [
            String(call.number), clockText(trace, call.begin), makeCode(call.text.slice(0, 400)),
            call.isOpen ? "not ended" : visibleText(call.result.slice(0, 100)), durationText(call.duration),
            durationText(call.waiting)])),
        shown.length > most ? make("p", "", `${countText(shown.length - most, "more call")}.`) : "",
        ...detailed.map(call => make("article", "", ...makeDetails(trace, call, pictureAddress))));
}

class Page {
    constructor(trace) {
        this.trace = trace;
        this.shown = trace.calls;
        this.selected = null;
        const select = call => this.select(call);
        this.list = new CallList(trace, select, () => byId("details").focus());
        this.timeline = new Timeline(trace, select);
        makeHead(trace);
        byId("notices").append(...makeNotices(trace, select));
        this.prepareFilter();
        this.filter();
        document.addEventListener("keydown", event => this.key(event));
        addEventListener("beforeprint", () => fillPrint(trace, this.shown, this.selected));
        addEventListener("afterprint", () => byId("print").replaceChildren());
        // What a tester comes for: where it stopped.
        const wanted = trace.open.at(-1) || trace.calls.findLast(call => call.isFailed) || trace.calls.at(-1);
        if (wanted) this.select(wanted);
        else byId("details").append(make("p", "", "No call."));
    }

    select(call) {
        if (!call) return;
        this.selected = call;
        this.list.mark(call);
        this.timeline.mark(call);
        byId("details").replaceChildren(...makeDetails(this.trace, call, pictureAddress));
        byId("details").scrollTop = 0;
    }

    prepareFilter() {
        const processes = this.trace.processes;
        if (processes.length > 1) {
            byId("process").append(new Option("All processes", ""), ...processes.map((process, index) =>
                new Option(`${fileName(process.program)} ${process.id}`, index)));
            byId("process").hidden = false;
        }
        for (const id of ["search", "only-failed", "slower", "process"]) {
            byId(id).addEventListener("input", () => this.filter());
        }
        byId("next-failed").addEventListener("click", () => this.selectFailed(1));
        byId("previous-failed").addEventListener("click", () => this.selectFailed(-1));
    }

    filter() {
        const text = byId("search").value.toLowerCase();
        const onlyFailed = byId("only-failed").checked;
        const least = byId("slower").valueAsNumber || 0;
        const process = this.trace.processes[byId("process").value || -1];
        const isShown = call => (!onlyFailed || call.isFailed || call.isOpen) && call.duration >= least &&
            (!process || call.process === process) && (text === "" || call.searchable.includes(text));
        this.shown = this.trace.calls.filter(isShown);
        byId("shown").textContent = this.shown.length === this.trace.calls.length
            ? countText(this.shown.length, "call")
            : `${this.shown.length.toLocaleString("en")} of ${countText(this.trace.calls.length, "call")}`;
        this.timeline.isShown = isShown;
        this.timeline.schedule();
        this.list.show(this.shown);
    }

    selectFailed(direction) {
        const failed = this.shown.filter(call => call.isFailed || call.isOpen);
        const at = this.selected ? this.selected.index : -1;
        this.select(direction > 0 ? failed.find(call => call.index > at) : failed.findLast(call => call.index < at));
    }

    key(event) {
        if (event.target.closest("input, select, dialog") || event.ctrlKey || event.altKey || event.metaKey) return;
        if (event.key === "/") byId("search").focus();
        else if (event.key === "n") this.selectFailed(1);
        else if (event.key === "p") this.selectFailed(-1);
        else return;
        event.preventDefault();
    }
}

const page = new Page(readTrace(embeddedTexts("trace")));
