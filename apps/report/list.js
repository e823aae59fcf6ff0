// The calls as rows, of which only the visible ones exist.

class CallList {
    // `select(call)` is told what the user selects; `open()` that he wants its details.
    constructor(trace, select, open) {
        this.trace = trace;
        this.select = select;
        this.frame = byId("list");
        this.body = byId("rows");
        this.shown = trace.calls;
        this.selected = null;
        this.pool = [];
        this.isPending = false;
        this.measure();
        this.frame.addEventListener("scroll", () => this.schedule());
        this.frame.addEventListener("keydown", event => this.key(event, open));
        this.body.addEventListener("click", event => {
            const row = event.target.closest(".row");
            if (row) this.select(this.shown[row.index]);
        });
        new ResizeObserver(() => { this.measure(); this.schedule(); }).observe(this.frame);
    }

    measure() {
        this.rowHeight = parseFloat(getComputedStyle(this.frame).getPropertyValue("--row-height"));
    }

    show(calls) {
        this.shown = calls;
        this.longest = calls.reduce((longest, call) => Math.max(longest, call.duration), 1);
        this.draw();
        if (this.selected) this.reveal();
    }

    mark(call) {
        this.selected = call;
        this.reveal();
        this.draw();
    }

    // Where the selected call stands among those that are shown, or -1: they are in the order of their indices.
    position() {
        if (!this.selected) return -1;
        let low = 0;
        let high = this.shown.length;
        while (low < high) {
            const middle = (low + high) >> 1;
            if (this.shown[middle].index < this.selected.index) low = middle + 1; else high = middle;
        }
        return this.shown[low] === this.selected ? low : -1;
    }

    reveal() {
        const position = this.position();
        if (position < 0) return;
        const top = position * this.rowHeight;
        const height = this.frame.clientHeight;
        if (top < this.frame.scrollTop || top + this.rowHeight > this.frame.scrollTop + height) {
            this.frame.scrollTop = top - (height - this.rowHeight) / 2;
        }
    }

    key(event, open) {
        const page = Math.max(1, Math.floor(this.frame.clientHeight / this.rowHeight) - 1);
        const steps = { ArrowDown: 1, ArrowUp: -1, PageDown: page, PageUp: -page, Home: -Infinity, End: Infinity };
        if (event.key === "Enter") {
            open();
        } else if (event.key in steps && !event.ctrlKey && !event.altKey && this.shown.length > 0) {
            const position = this.position() < 0 ? 0 : this.position() + steps[event.key];
            this.select(this.shown[Math.min(Math.max(position, 0), this.shown.length - 1)]);
        } else {
            return;
        }
        event.preventDefault();
    }

    schedule() {
        if (this.isPending) return;
        this.isPending = true;
        requestAnimationFrame(() => { this.isPending = false; this.draw(); });
    }

    draw() {
        const height = this.shown.length * this.rowHeight;
        this.body.style.height = `${height}px`;
        this.frame.style.setProperty("--rows-height", `${height}px`);
        const first = Math.max(0, Math.floor(this.frame.scrollTop / this.rowHeight) - 4);
        const count = Math.ceil(this.frame.clientHeight / this.rowHeight) + 8;
        const visible = this.shown.slice(first, first + count);
        while (this.pool.length < visible.length) this.pool.push(this.makeRow());
        this.pool.splice(visible.length).forEach(row => row.remove());
        visible.forEach((call, offset) => this.fill(this.pool[offset], call, first + offset));
        if (this.position() < 0) this.frame.removeAttribute("aria-activedescendant");
        else this.frame.setAttribute("aria-activedescendant", `call-${this.selected.index}`);
    }

    makeRow() {
        const row = make("div", "row");
        row.setAttribute("role", "option");
        for (const name of ["number", "time", "text", "result", "share", "duration", "waiting"]) {
            row[name] = make("span", name);
            row.append(row[name]);
        }
        row.object = make("span", "object");
        row.member = make("span", "member");
        row.text.append(row.object, row.member);
        row.share.append(make("i", "work"), make("i", "wait"), make("i", "synchronise"), make("i", "pause"));
        this.body.append(row);
        return row;
    }

    fill(row, call, position) {
        row.index = position;
        row.id = `call-${call.index}`;
        row.style.transform = `translateY(${position * this.rowHeight}px)`;
        row.className = "row" + (call.isFailed ? " failed" : "") + (call.isOpen ? " open" : "") +
            (call === this.selected ? " selected" : "") + (call.index % 2 ? " odd" : "");
        row.setAttribute("aria-selected", call === this.selected);
        row.setAttribute("aria-posinset", position + 1);
        row.setAttribute("aria-setsize", this.shown.length);
        row.number.textContent = call.number;
        row.time.textContent = clockText(this.trace, call.begin);
        // The end of a chain tells calls apart: where room is short, it stays.
        const object = call.text.startsWith(call.object + ".") ? call.object : "";
        row.object.textContent = visibleText(object.slice(0, 400));
        row.member.textContent = visibleText(call.text.slice(object.length, object.length + 400));
        row.text.title = call.text.length > 60 ? call.text.slice(0, 2000) : "";
        row.result.textContent = call.isOpen ? "not ended" : visibleText(call.result.slice(0, 100));
        row.duration.textContent = durationText(call.duration);
        row.waiting.textContent = call.waiting >= 0.05 ? durationText(call.waiting) : "";
        const parts = { work: call.duration - call.waiting, wait: 0, synchronise: 0, pause: 0 };
        for (const wait of call.waits) parts[wait.kind] += wait.end - wait.begin;
        for (const bar of row.share.children) {
            bar.style.width = `${100 * Math.max(0, parts[bar.className]) / this.longest}%`;
        }
    }
}
