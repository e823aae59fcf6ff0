// The lines of the trace become one model. A line that cannot be used is counted, never more.

const kStepKinds = { wait: "wait", synchronise: "synchronise", marker: "synchronise", popup: "synchronise",
                     idle: "synchronise", pause: "pause" };

function isNumber(value) {
    return typeof value === "number" && Number.isFinite(value);
}

function textOf(value) {
    if (value === undefined || value === null) return "";
    return typeof value === "string" ? value : JSON.stringify(value);
}

// [left, top, right, bottom], or null for what is no rectangle.
function rectangleOf(value) {
    return Array.isArray(value) && value.length === 4 && value.every(isNumber) &&
        value[2] > value[0] && value[3] > value[1] ? value : null;
}

// "2026-11-25T20:14:02.123+01:00": the moment, and how far the clock there is from UTC, both in milliseconds.
function momentOf(text) {
    const moment = Date.parse(textOf(text));
    if (Number.isNaN(moment)) return null;
    const offset = /([+-])(\d\d):(\d\d)$/.exec(text);
    const minutes = offset ? (offset[1] + "1") * (60 * offset[2] + 1 * offset[3]) : 0;
    return { moment, offset: minutes * 60000 };
}

// Takes the events of one process, one after the other.
class ProcessReader {
    constructor(name) {
        this.process = { name, id: 0, program: "", commandLine: "", module: "", version: 1, start: 0, offset: 0,
                         isTimed: false, isStopped: false, last: 0 };
        this.calls = new Map();
        this.steps = new Map();
        this.lost = [];
    }

    // False for what makes no sense.
    take(event) {
        if (event.event === "start") return this.start(event);
        if (!isNumber(event.t)) return false;
        this.process.last = Math.max(this.process.last, event.t);
        switch (event.event) {
        case "call": return this.call(event);
        case "step": return this.step(event);
        case "stepEnd": return this.stepEnd(event);
        case "search": return this.ofCall(event, call => call.searches.push({
            text: textOf(event.text), windows: event.windows, rounds: event.rounds, isFound: event.found === true }));
        case "miss": return this.ofCall(event, call => call.misses.push(this.miss(event)));
        case "picture": return this.ofCall(event, call => call.picture = {
            file: textOf(event.file), desktop: rectangleOf(event.desktop), frame: rectangleOf(event.frame) });
        case "end": return this.ofCall(event, call => {
            call.end = Math.max(event.t, call.begin);
            call.result = textOf(event.result);
            call.isFailed = event.failed === true;
        });
        case "note":
            if (event.call === undefined) return true;
            return this.ofCall(event, call => call.notes.push(textOf(event.text)));
        case "lost": this.lost.push(textOf(event.reason)); return true;
        case "stop": this.process.isStopped = true; return true;
        }
        return true; // of a newer version
    }

    start(event) {
        const time = momentOf(event.time);
        Object.assign(this.process, { id: event.process, program: textOf(event.program), version: event.version,
                                      commandLine: textOf(event.commandLine), module: textOf(event.module) });
        if (time) Object.assign(this.process, { start: time.moment, offset: time.offset, isTimed: true });
        return time !== null;
    }

    call(event) {
        if (!isNumber(event.call) || this.calls.has(event.call)) return false;
        const object = textOf(event.object);
        const member = textOf(event.member);
        this.calls.set(event.call, {
            process: this.process, number: event.call, thread: event.thread, object, member,
            kind: textOf(event.kind), text: textOf(event.text) || `${object}.${member}`,
            arguments: Array.isArray(event.arguments) ? event.arguments : [],
            begin: event.t, end: null, result: "", isFailed: false,
            steps: [], searches: [], misses: [], notes: [], picture: null,
        });
        return true;
    }

    step(event) {
        if (event.call === undefined) {
            this.steps.set(event.step, { begin: event.t }); // of no call: nothing to show
            return true;
        }
        return this.ofCall(event, call => {
            const step = { kind: textOf(event.kind), text: textOf(event.text), begin: event.t, end: null,
                           outcome: "", depth: 0 };
            for (let above = call.steps.at(-1); above; above = above.parent) {
                if (above.end === null) {
                    step.parent = above;
                    step.depth = above.depth + 1;
                    break;
                }
            }
            call.steps.push(step);
            this.steps.set(event.step, step);
        });
    }

    stepEnd(event) {
        const step = this.steps.get(event.step);
        if (!step) return false;
        step.end = Math.max(event.t, step.begin);
        step.outcome = textOf(event.outcome);
        return true;
    }

    miss(event) {
        return { name: textOf(event.name), reasons: Array.isArray(event.reasons) ? event.reasons.map(textOf) : [],
                 hint: textOf(event.hint), line: textOf(event.line), rectangle: rectangleOf(event.rectangle) };
    }

    ofCall(event, use) {
        const call = this.calls.get(event.call);
        if (!call) return false;
        use(call);
        return true;
    }
}

// Moves the call's times to the run's clock and finds what of it was waiting. Waits lie one behind the other:
// what lies within a wait belongs to it.
function finishCall(call, shift, lastMoment) {
    call.begin += shift;
    call.isOpen = call.end === null;
    call.end = call.isOpen ? Math.max(lastMoment, call.begin) : call.end + shift;
    call.duration = call.end - call.begin;
    call.waits = [];
    let covered = -Infinity;
    for (const step of call.steps) {
        step.begin += shift;
        step.isOpen = step.end === null;
        step.end = step.isOpen ? call.end : step.end + shift;
        const kind = kStepKinds[step.kind];
        if (kind && step.begin >= covered) {
            call.waits.push({ kind, begin: step.begin, end: step.end });
            covered = step.end;
        }
    }
    call.waiting = call.waits.reduce((sum, wait) => sum + wait.end - wait.begin, 0);
    call.searchable = `${call.text}\n${call.result}`.toLowerCase();
}

// `sources`: the files of the trace, [{name, text}]. Times of the result are in milliseconds since its `start`.
function readTrace(sources) {
    const readers = [];
    let run = null;
    let damaged = 0;
    for (const source of sources) {
        const reader = new ProcessReader(source.name);
        for (const line of source.text.split("\n")) {
            if (line.trim() === "") continue;
            let event = null;
            try {
                event = JSON.parse(line);
            } catch {
                // counted below
            }
            if (event === null || typeof event !== "object" || Array.isArray(event)) {
                ++damaged;
            } else if (event.event === "run") {
                run = event;
            } else if (!reader.take(event)) {
                ++damaged;
            }
        }
        if (reader.process.isTimed || reader.calls.size > 0) readers.push(reader);
    }

    const timed = readers.filter(reader => reader.process.isTimed).map(reader => reader.process);
    const start = timed.length ? Math.min(...timed.map(process => process.start)) : 0;
    const offset = timed.length ? timed.reduce((a, b) => a.start <= b.start ? a : b).offset : 0;
    const ended = run ? momentOf(run.ended) : null;
    const runEnd = ended ? ended.moment - start : -Infinity;
    const calls = [];
    for (const reader of readers) {
        const process = reader.process;
        process.shift = process.isTimed ? process.start - start : 0;
        process.last += process.shift;
        process.firstCall = calls.length;
        for (const call of reader.calls.values()) {
            finishCall(call, process.shift, process.isStopped ? process.last : Math.max(process.last, runEnd));
            calls.push(call);
        }
    }
    calls.sort((a, b) => a.begin - b.begin || a.number - b.number);
    calls.forEach((call, index) => call.index = index);
    const processes = readers.map(reader => reader.process);
    return {
        processes, calls, run, damaged, start, offset,
        lost: readers.flatMap(reader => reader.lost),
        open: calls.filter(call => call.isOpen),
        failed: calls.filter(call => call.isFailed).length,
        waiting: calls.reduce((sum, call) => sum + call.waiting, 0),
        duration: calls.reduce((last, call) => Math.max(last, call.end),
                               processes.reduce((last, process) => Math.max(last, process.last), 0)),
    };
}
