// The calls as bars over time, a lane for each thread of each process.

class Timeline {
    static axisHeight = 22;
    static laneHeight = 38;
    static nameHeight = 15;

    constructor(trace, select) {
        this.trace = trace;
        this.select = select;
        this.canvas = byId("bars");
        this.isShown = () => true;
        this.selected = null;
        this.whole = [0, Math.max(trace.duration, 1)];
        this.range = this.whole;
        this.lanes = this.makeLanes();
        this.canvas.style.height = `${Timeline.axisHeight + this.lanes.length * Timeline.laneHeight + 4}px`;
        this.width = 1; // of the canvas when it was drawn
        this.isPending = false;
        this.drag = null;
        new ResizeObserver(() => this.schedule()).observe(this.canvas);
        matchMedia("(prefers-color-scheme: dark)").addEventListener("change", () => this.schedule());
        this.canvas.addEventListener("keydown", event => this.key(event));
        this.canvas.addEventListener("pointerdown", event => this.pointerDown(event));
        this.canvas.addEventListener("pointermove", event => this.pointerMove(event));
        this.canvas.addEventListener("pointerup", event => this.pointerUp(event));
        this.canvas.addEventListener("pointercancel", () => { this.drag = null; this.schedule(); });
        this.canvas.addEventListener("dblclick", () => this.zoomWhole());
        this.canvas.addEventListener("wheel", event => this.wheel(event), { passive: false });
        byId("zoom-in").addEventListener("click", () => this.zoom(0.5));
        byId("zoom-out").addEventListener("click", () => this.zoom(2));
        byId("zoom-whole").addEventListener("click", () => this.zoomWhole());
    }

    makeLanes() {
        const lanes = new Map();
        for (const call of this.trace.calls) {
            const key = `${call.process.name} ${call.thread}`;
            if (!lanes.has(key)) {
                const name = fileName(call.process.program) || call.process.name;
                lanes.set(key, { name: `${name} ${call.process.id}`, thread: call.thread, calls: [], reach: [] });
            }
            lanes.get(key).calls.push(call);
        }
        const result = [...lanes.values()];
        for (const lane of result) {
            // Up to each call, the latest end so far: finds the first one that reaches into a range.
            let reach = 0;
            lane.reach = lane.calls.map(call => reach = Math.max(reach, call.end));
            if (result.some(other => other !== lane && other.name === lane.name)) lane.name += `, thread ${lane.thread}`;
        }
        return result;
    }

    mark(call) {
        this.selected = call;
        const [from, to] = this.range;
        if (call && (call.end < from || call.begin > to)) {
            const half = (to - from) / 2;
            this.setRange((call.begin + call.end) / 2 - half, (call.begin + call.end) / 2 + half);
        }
        this.schedule();
    }

    setRange(from, to) {
        const [first, last] = this.whole;
        const length = Math.min(Math.max(to - from, 0.5), last - first);
        const begin = Math.min(Math.max(from, first), last - length);
        this.range = [begin, begin + length];
        this.schedule();
    }

    // Around the selected call where that is in sight.
    zoom(factor, around = null) {
        const [from, to] = this.range;
        if (around === null) {
            const middle = this.selected ? (this.selected.begin + this.selected.end) / 2 : -1;
            around = middle >= from && middle <= to ? middle : (from + to) / 2;
        }
        this.setRange(around - (around - from) * factor, around + (to - around) * factor);
    }

    zoomWhole() {
        this.setRange(...this.whole);
    }

    timeAt(x) {
        const [from, to] = this.range;
        return from + (to - from) * x / this.width;
    }

    xAt(time) {
        const [from, to] = this.range;
        return (time - from) / (to - from) * this.width;
    }

    // The call nearest to a point of the canvas, at most some pixels away.
    callAt(x, y) {
        const lane = this.lanes[Math.floor((y - Timeline.axisHeight) / Timeline.laneHeight)];
        if (!lane) return null;
        let nearest = null;
        let least = 8;
        for (let index = this.firstOf(lane, this.timeAt(x - least)); index < lane.calls.length; ++index) {
            const call = lane.calls[index];
            const left = this.xAt(call.begin);
            if (left > x + least) break;
            const distance = Math.max(left - x, x - this.xAt(call.end), 0) + (this.isShown(call) ? 0 : 1);
            if (distance <= least) { // of two, the later one: it lies within the earlier
                least = distance;
                nearest = call;
            }
        }
        return nearest;
    }

    firstOf(lane, time) {
        let low = 0;
        let high = lane.calls.length;
        while (low < high) {
            const middle = (low + high) >> 1;
            if (lane.reach[middle] < time) low = middle + 1; else high = middle;
        }
        return low;
    }

    key(event) {
        const calls = this.trace.calls;
        const index = this.selected ? this.selected.index : -1;
        const target = { ArrowRight: index + 1, ArrowLeft: index - 1, Home: 0, End: calls.length - 1 }[event.key];
        if (event.ctrlKey || event.altKey) return;
        if (target !== undefined && calls[target]) this.select(calls[target]);
        else if (event.key === "+") this.zoom(0.5);
        else if (event.key === "-") this.zoom(2);
        else if (event.key === "0") this.zoomWhole();
        else return;
        event.preventDefault();
    }

    wheel(event) {
        if (!event.ctrlKey && !event.shiftKey) return; // scrolls the page
        event.preventDefault();
        this.zoom(event.deltaY + event.deltaX > 0 ? 1.25 : 0.8, this.timeAt(event.offsetX));
    }

    pointerDown(event) {
        if (event.button === 0) this.drag = { from: event.offsetX, to: event.offsetX };
        if (event.pointerType === "mouse") this.canvas.setPointerCapture(event.pointerId);
    }

    pointerMove(event) {
        if (this.drag && event.pointerType === "mouse") {
            this.drag.to = event.offsetX;
            this.schedule();
            return;
        }
        const call = this.callAt(event.offsetX, event.offsetY);
        this.canvas.title = call ? `${call.number}: ${call.text.slice(0, 300)}\n${durationText(call.duration)}` : "";
        this.canvas.style.cursor = call ? "pointer" : "";
    }

    // A click selects; a range that was drawn with the mouse is what is shown next.
    pointerUp(event) {
        const drag = this.drag;
        this.drag = null;
        if (!drag) return;
        if (Math.abs(drag.to - drag.from) > 5) {
            this.setRange(this.timeAt(Math.min(drag.from, drag.to)), this.timeAt(Math.max(drag.from, drag.to)));
        } else {
            const call = this.callAt(event.offsetX, event.offsetY);
            if (call) this.select(call);
        }
        this.schedule();
    }

    schedule() {
        if (this.isPending) return;
        this.isPending = true;
        requestAnimationFrame(() => { this.isPending = false; this.draw(); });
    }

    draw() {
        const width = this.width = Math.max(this.canvas.clientWidth, 1);
        const height = this.canvas.clientHeight;
        const scale = devicePixelRatio || 1;
        this.canvas.width = Math.round(width * scale);
        this.canvas.height = Math.round(height * scale);
        const context = this.canvas.getContext("2d");
        context.scale(scale, scale);
        const style = getComputedStyle(this.canvas);
        const colour = name => style.getPropertyValue(`--${name}`).trim();
        context.font = `12px ${style.fontFamily}`;
        const paint = {
            work: colour("work"), synchronise: colour("synchronise"), failed: colour("failed"),
            wait: this.stripes(context, colour("wait"), colour("wait-pale"), true),
            pause: this.stripes(context, colour("pause"), colour("pause-pale"), false),
            mark: colour("text"),
        };
        this.drawAxis(context, width, height, colour("muted"), colour("line"));
        this.lanes.forEach((lane, index) => {
            const top = Timeline.axisHeight + index * Timeline.laneHeight;
            context.fillStyle = colour("muted");
            context.fillText(lane.name, 2, top + 11);
            this.drawLane(context, lane, top + Timeline.nameHeight, width, paint);
        });
        if (this.drag) {
            context.globalAlpha = 0.25;
            context.fillStyle = colour("accent");
            context.fillRect(this.drag.from, 0, this.drag.to - this.drag.from, height);
            context.globalAlpha = 1;
        }
    }

    stripes(context, colour, pale, slanting) {
        const tile = make("canvas");
        tile.width = tile.height = 6;
        const pen = tile.getContext("2d");
        pen.fillStyle = pale;
        pen.fillRect(0, 0, 6, 6);
        pen.strokeStyle = pen.fillStyle = colour;
        pen.lineWidth = 2;
        if (slanting) {
            for (const shift of [-6, 0, 6]) {
                pen.moveTo(shift - 1, 7);
                pen.lineTo(shift + 7, -1);
            }
            pen.stroke();
        } else {
            pen.fillRect(0, 0, 2, 6);
        }
        return context.createPattern(tile, "repeat");
    }

    drawAxis(context, width, height, ink, line) {
        const [from, to] = this.range;
        const least = (to - from) * 110 / width;
        const minute = 60000;
        const steps = [1, 2, 5, 10, 20, 50, 100, 200, 500, 1000, 2000, 5000, 10000, 30000, minute, 2 * minute,
                       5 * minute, 10 * minute, 30 * minute, 60 * minute, 180 * minute];
        const step = steps.find(candidate => candidate >= least) || 720 * minute;
        // On full seconds and minutes of the clock.
        const clock = (this.trace.start + this.trace.offset) % (1440 * minute);
        context.fillStyle = ink;
        for (let time = Math.ceil((from + clock) / step) * step - clock; time <= to; time += step) {
            const x = Math.round(this.xAt(time));
            context.fillStyle = line;
            context.fillRect(x, 0, 1, height);
            context.fillStyle = ink;
            context.fillText(clockText(this.trace, time, step < 1000 ? 3 : 0), x + 4, 13);
        }
    }

    drawLane(context, lane, top, width, paint) {
        const barHeight = 16;
        const [, to] = this.range;
        // Up to here there is something already, faded or not: thousands of calls may share a pixel.
        const painted = { faded: -1, shown: -1 };
        for (let index = this.firstOf(lane, this.range[0]); index < lane.calls.length; ++index) {
            const call = lane.calls[index];
            if (call.begin > to) break;
            const left = this.xAt(call.begin);
            const right = Math.max(this.xAt(call.end), left + 1);
            const manner = this.isShown(call) ? "shown" : "faded";
            if (Math.ceil(right) > painted[manner] || call.isFailed) {
                context.globalAlpha = manner === "shown" ? 1 : 0.25;
                context.fillStyle = paint.work;
                context.fillRect(left, top, right - left, barHeight);
                if (right - left > 2) {
                    for (const wait of call.waits) {
                        const begin = this.xAt(wait.begin);
                        context.fillStyle = paint[wait.kind];
                        context.fillRect(begin, top, Math.max(this.xAt(wait.end) - begin, 0.5), barHeight);
                    }
                }
                if (call.isFailed || call.isOpen) {
                    context.fillStyle = paint.failed;
                    context.fillRect(left, top + barHeight, Math.max(right - left, 3), 4);
                }
                painted.faded = Math.max(painted.faded, Math.ceil(right));
                if (manner === "shown") painted.shown = Math.max(painted.shown, Math.ceil(right));
            }
        }
        context.globalAlpha = 1;
        const selected = this.selected;
        if (selected && lane.calls.includes(selected)) {
            const left = this.xAt(selected.begin);
            context.strokeStyle = paint.mark;
            context.lineWidth = 2;
            context.strokeRect(left - 1, top - 1, Math.max(this.xAt(selected.end) - left, 2) + 2, barHeight + 2);
        }
    }
}
