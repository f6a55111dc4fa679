// The phone's page: two big buttons and a pad, and a connection that mends itself.
"use strict";

const texts = phoneTexts[pageLanguage];

// Either storage may be forbidden, in private windows for example.
const memory = {
    get(storage, key) {
        try { return window[storage].getItem(`stagehopper.${key}`); } catch { return null; }
    },
    set(storage, key, value) {
        try { window[storage].setItem(`stagehopper.${key}`, value); return true; } catch {
            return false;
        }
    },
};

function randomText(length) {
    const letters = "abcdefghijkmnpqrstuvwxyz23456789";
    return Array.from(crypto.getRandomValues(new Uint8Array(length)),
        (value) => letters[value % letters.length]).join("");
}

// Who this phone is: for this tab its meeting and its id, for this phone a name and a colour.
const identity = {
    // What the room calls this phone. Its own id stays between it and the backend: with that,
    // another could take its place.
    publicId: "",

    colours: ["#e5484d", "#f76b15", "#ffd60a", "#30a46c", "#12a5b8", "#3e82f7", "#a05de0", "#f04f9b"],

    // Out of the address bar, where it could be photographed or passed on by mistake; kept for the
    // tab, so that reloading works. Where it cannot be kept it stays in the address. True when it
    // is another one than before.
    readLink() {
        const inAddress = location.hash.slice(1);
        const kept = memory.get("sessionStorage", "link");
        if (inAddress && memory.set("sessionStorage", "link", inAddress)) {
            history.replaceState(null, "", location.pathname);
        }
        const link = inAddress || kept || "";
        const [, code = "", secret = ""] = /^([A-Z0-9]{6})\.([\w-]+)$/.exec(link) ?? [];
        this.code = code;
        this.secret = secret;
        return link !== kept;
    },

    load() {
        this.userId = memory.get("sessionStorage", "user") ?? `phone-${randomText(12)}`;
        memory.set("sessionStorage", "user", this.userId);
        this.name = memory.get("localStorage", "name") ?? "";
        const kept = memory.get("localStorage", "colour");
        this.colour = this.colours.includes(kept)
            ? kept : this.colours[Math.floor(Math.random() * this.colours.length)];
    },

    save() {
        memory.set("localStorage", "name", this.name);
        memory.set("localStorage", "colour", this.colour);
    },

    query() {
        return Object.entries({
            roomCode: this.code,
            userId: this.userId,
            role: "guest",
            displayName: this.name || texts.defaultName,
            cursorColor: this.colour,
            secret: this.secret,
        }).map(([name, value]) => `${name}=${encodeURIComponent(value)}`).join("&");
    },
};

// The connection to the room. Taps that are not acknowledged go out again after a reconnect, with
// the same id, so that none turns two slides; old ones are dropped: by then the presenter has
// looked up and does not want the slide to jump.
const room = {
    pauses: [500, 1000, 2000, 4000, 5000],
    opensWithin: 6000,
    tapLives: 3000,

    socket: null,
    isOpen: false,
    attempts: 0,
    timer: 0,
    stopped: false,
    taps: new Map(),

    connect() {
        clearTimeout(this.timer);
        this.drop();
        this.stopped = false;
        if (!identity.code) return this.stop("noLink");
        if (this.attempts === 0) page.show("connecting");
        const scheme = location.protocol === "https:" ? "wss" : "ws";
        const socket = new WebSocket(`${scheme}://${location.host}/ws?${identity.query()}`);
        this.socket = socket;
        // A network that has just changed may leave the attempt hanging for a minute.
        this.timer = setTimeout(() => this.closed(socket, 0), this.opensWithin);
        socket.onmessage = (event) => {
            if (socket === this.socket) this.take(event.data);
        };
        socket.onclose = (event) => this.closed(socket, event.code);
    },

    // Without a word to `closed`: whoever drops knows what comes next.
    drop() {
        const dropped = this.socket;
        this.socket = null;
        this.isOpen = false;
        dropped?.close();
    },

    stop(state) {
        clearTimeout(this.timer);
        this.drop();
        this.stopped = true;
        awake.release();
        for (const id of [...this.taps.keys()]) this.forget(id);
        page.show(state);
    },

    async closed(socket, code) {
        if (socket !== this.socket) return;
        clearTimeout(this.timer);
        const hadOpened = this.isOpen;
        this.drop();
        if (code === 4001) return this.stop("elsewhere");
        let state = navigator.onLine === false ? "offline" : "reconnecting";
        // The pause runs from now, whether or not the question below is answered.
        const pause = this.pauses[Math.min(this.attempts, this.pauses.length - 1)];
        this.attempts += 1;
        this.timer = setTimeout(() => this.connect(), pause);
        if (!hadOpened) state = await this.refusal() ?? state;
        if (this.socket || this.stopped) return;
        if (state === "wrongLink" || state === "oldLink") return this.stop(state);
        page.show(state);
    },

    // A page cannot see why its handshake was refused. The same request without the handshake is
    // refused with the same status.
    async refusal() {
        const abort = new AbortController();
        const timer = setTimeout(() => abort.abort(), this.opensWithin);
        try {
            const { status } = await fetch(`/ws?${identity.query()}`,
                { cache: "no-store", signal: abort.signal });
            return { 403: "wrongLink", 404: "oldLink", 429: "throttled", 503: "full" }[status];
        } catch {
            return undefined;
        } finally {
            clearTimeout(timer);
        }
    },

    // For when there is a reason to believe that it works now.
    retryNow() {
        if (!this.isOpen && !this.stopped) this.connect();
    },

    restart() {
        this.attempts = 0;
        this.connect();
    },

    take(data) {
        const message = JSON.parse(data);
        switch (message.type) {
            case "welcome":
                identity.publicId = message.userId;
                this.opened();
                break;
            case "slide_nav":
                if (message.userId === identity.publicId) this.acknowledged(message.id);
                break;
            case "ended": this.stop("ended"); break;
        }
    },

    opened() {
        clearTimeout(this.timer);
        this.isOpen = true;
        this.attempts = 0;
        page.show("open");
        clock.start();
        for (const [id, tap] of this.taps) {
            if (Date.now() - tap.at < this.tapLives) this.sendTap(id, tap);
            else this.lose(id);
        }
    },

    tap(direction) {
        if (this.stopped) return;
        const id = randomText(16);
        const timer = setTimeout(() => {
            this.lose(id);
            // Sent, and no answer: the connection is one in name only.
            if (this.isOpen) this.connect();
        }, this.tapLives);
        const tap = { direction, at: Date.now(), timer };
        this.taps.set(id, tap);
        if (this.isOpen) this.sendTap(id, tap);
        else this.retryNow();
    },

    sendTap(id, { direction }) {
        this.socket.send(JSON.stringify({ type: "slide_nav", direction, id }));
    },

    acknowledged(id) {
        const tap = this.forget(id);
        if (tap) page.confirm(tap.direction);
    },

    lose(id) {
        const tap = this.forget(id);
        if (tap) page.say(texts.tapLost[tap.direction]);
    },

    forget(id) {
        const tap = this.taps.get(id);
        if (tap) clearTimeout(tap.timer);
        this.taps.delete(id);
        return tap;
    },

    // Where it is now counts, not where it was: nothing is kept for a slow or broken connection.
    point(x, y, visible) {
        if (!this.isOpen || (visible && this.socket.bufferedAmount > 0)) return;
        this.socket.send(JSON.stringify({ type: "pointer", x, y, visible }));
    },
};

const page = {
    wordFor: 4000,
    wordTimer: 0,
    confirmTimer: 0,

    show(state) {
        const inTrouble = room.stopped;
        document.body.dataset.state = state;
        byId("state").textContent = inTrouble ? "" : texts.states[state];
        byId("trouble").hidden = !inTrouble;
        byId("trouble-text").textContent = inTrouble ? texts.states[state] : "";
        byId("again").textContent = state === "elsewhere" ? texts.useHere : texts.again;
        byId("again").hidden = state === "noLink";
        for (const id of ["previous", "next"]) byId(id).disabled = inTrouble;
    },

    say(word) {
        byId("word").textContent = word;
        clearTimeout(this.wordTimer);
        this.wordTimer = setTimeout(() => { byId("word").textContent = ""; }, this.wordFor);
    },

    confirm(direction) {
        const button = byId(direction === "next" ? "next" : "previous");
        navigator.vibrate?.(12);
        button.classList.add("done");
        clearTimeout(this.confirmTimer);
        this.confirmTimer = setTimeout(() => {
            for (const step of document.querySelectorAll(".done")) step.classList.remove("done");
        }, 250);
    },
};

// Time since joining; it goes on when the page is reloaded.
const clock = {
    since: Number(memory.get("sessionStorage", "since")) || 0,
    timer: 0,

    start() {
        if (!this.since) this.reset();
        if (!this.timer) this.timer = setInterval(() => this.show(), 1000);
        this.show();
    },

    reset() {
        this.since = Date.now();
        memory.set("sessionStorage", "since", String(this.since));
        this.show();
    },

    // For another meeting, until it is joined.
    forget() {
        this.since = 0;
    },

    show() {
        const since = this.since || Date.now();
        const seconds = Math.max(0, Math.floor((Date.now() - since) / 1000));
        const two = (value) => String(value).padStart(2, "0");
        const hours = Math.floor(seconds / 3600);
        const minutes = Math.floor(seconds / 60) % 60;
        byId("elapsed").textContent =
            `${hours ? `${hours}:${two(minutes)}` : minutes}:${two(seconds % 60)}`;
    },
};

// Swipe to turn, hold to point.
const pad = {
    holdsAfter: 250,
    moved: 12,
    swiped: 48,
    swipesWithin: 800,
    sendsEvery: 17,
    // An overlay forgets a pointer that is silent.
    repeatsEvery: 1000,

    touch: null,
    lastSent: 0,
    sendTimer: 0,
    repeatTimer: 0,

    connect() {
        const area = byId("pad");
        area.addEventListener("pointerdown", (event) => this.down(event));
        area.addEventListener("pointermove", (event) => this.move(event));
        area.addEventListener("pointerup", (event) => this.up(event));
        area.addEventListener("pointercancel", (event) => this.up(event, true));
        area.addEventListener("contextmenu", (event) => event.preventDefault());
    },

    down(event) {
        if (this.touch || !event.isPrimary || event.button !== 0) return;
        event.currentTarget.setPointerCapture(event.pointerId);
        this.touch = {
            pointer: event.pointerId,
            from: event,
            at: event,
            pointing: false,
            holdTimer: setTimeout(() => this.beginPointing(), this.holdsAfter),
        };
    },

    move(event) {
        if (event.pointerId !== this.touch?.pointer) return;
        this.touch.at = event;
        if (this.touch.pointing) return this.sendSoon();
        const { from } = this.touch;
        const distance = Math.hypot(event.clientX - from.clientX, event.clientY - from.clientY);
        if (distance > this.moved) clearTimeout(this.touch.holdTimer);
    },

    up(event, cancelled = false) {
        if (event.pointerId !== this.touch?.pointer) return;
        const { from, pointing, holdTimer } = this.touch;
        clearTimeout(holdTimer);
        if (pointing) this.endPointing();
        this.touch = null;
        if (pointing || cancelled) return;
        const right = event.clientX - from.clientX;
        const down = event.clientY - from.clientY;
        const isSwipe = Math.abs(right) >= this.swiped && Math.abs(right) > 1.5 * Math.abs(down) &&
            event.timeStamp - from.timeStamp < this.swipesWithin;
        if (isSwipe) room.tap(right < 0 ? "next" : "prev");
    },

    beginPointing() {
        this.touch.pointing = true;
        byId("dot").hidden = false;
        this.repeatTimer = setInterval(() => this.send(), this.repeatsEvery);
        this.send();
    },

    endPointing() {
        clearInterval(this.repeatTimer);
        clearTimeout(this.sendTimer);
        this.sendTimer = 0;
        byId("dot").hidden = true;
        const { x, y } = this.place();
        room.point(x, y, false);
    },

    // As shares of the pad, which stands for the whole screen.
    place() {
        const { left, top, width, height } = byId("pad").getBoundingClientRect();
        const share = (value) => Math.min(1, Math.max(0, value));
        return {
            x: share((this.touch.at.clientX - left) / width),
            y: share((this.touch.at.clientY - top) / height),
        };
    },

    sendSoon() {
        if (this.sendTimer) return;
        const pause = Math.max(0, this.lastSent + this.sendsEvery - Date.now());
        this.sendTimer = setTimeout(() => this.send(), pause);
    },

    send() {
        clearTimeout(this.sendTimer);
        this.sendTimer = 0;
        this.lastSent = Date.now();
        const { x, y } = this.place();
        const { clientWidth, clientHeight } = byId("pad");
        byId("dot").style.transform = `translate(${x * clientWidth}px, ${y * clientHeight}px)`;
        room.point(x, y, true);
    },
};

// Keeps the screen on. The proper way is there for secure pages only, and a page of the local
// network is none; a playing video does it everywhere. It must not be muted, must have sound (a
// silent one), must be seen, and must not loop by attribute: some engines sleep through any other.
const awake = {
    lock: null,

    async hold() {
        if (room.stopped || document.hidden) return;
        if (!navigator.wakeLock) return this.play();
        if (this.lock) return;
        try {
            this.lock = await navigator.wakeLock.request("screen");
            this.lock.addEventListener("release", () => { this.lock = null; });
        } catch {
            this.play();
        }
    },

    // Without a meeting the phone may sleep as it likes.
    release() {
        this.lock?.release();
        byId("awake").pause();
    },

    // Refused until the page has been touched, and after a phone call, say; the next touch helps.
    play() {
        const video = byId("awake");
        if (video.paused) video.play().catch(() => {});
    },

    connect() {
        const video = byId("awake");
        video.addEventListener("timeupdate", () => {
            if (video.currentTime > 1.5) video.currentTime = 0;
        });
        video.addEventListener("ended", () => this.hold());
        for (const kind of ["touchend", "click", "keydown"]) {
            document.addEventListener(kind, () => this.hold());
        }
    },
};

function connectButtons() {
    const bounce = 120;
    const last = { next: -Infinity, prev: -Infinity };
    const step = (direction) => {
        const now = performance.now();
        const bounced = now - last[direction] < bounce;
        last[direction] = now;
        if (!bounced) room.tap(direction);
    };
    // Clicks, not touches: screen readers and switches click.
    byId("previous").addEventListener("click", () => step("prev"));
    byId("next").addEventListener("click", () => step("next"));
    document.addEventListener("keydown", (event) => {
        const direction = stepOfKey(event);
        if (!direction || byId("settings").open) return;
        event.preventDefault();
        step(direction);
    });
    byId("time").addEventListener("click", () => clock.reset());
    byId("again").addEventListener("click", () => room.restart());
}

function connectSettings() {
    const showColour = () => document.body.style.setProperty("--colour", identity.colour);
    identity.colours.forEach((colour, index) => {
        const choice = document.createElement("input");
        choice.type = "radio";
        choice.name = "colour";
        choice.value = colour;
        choice.checked = colour === identity.colour;
        choice.setAttribute("aria-label", texts.colours[index]);
        choice.style.setProperty("--swatch", colour);
        const label = document.createElement("label");
        label.append(choice);
        byId("colours").append(label);
    });
    byId("name").value = identity.name;
    byId("open-settings").addEventListener("click", () => byId("settings").showModal());
    // However the dialog was closed: what is in it counts.
    byId("settings").addEventListener("close", () => {
        const name = byId("name").value.trim();
        const colour = byId("settings-form").elements.colour.value;
        if (name === identity.name && colour === identity.colour) return;
        Object.assign(identity, { name, colour });
        identity.save();
        showColour();
        // A name is told when joining; joining again under the same id replaces the old one.
        if (!room.stopped) room.restart();
    });
    showColour();
}

function readLink() {
    if (identity.readLink()) clock.forget();
}

writeTexts(texts);
document.title = texts.title;
readLink();
identity.load();
connectButtons();
connectSettings();
pad.connect();
awake.connect();
clock.show();
if (identity.code) room.connect();
else room.stop("noLink");

window.addEventListener("online", () => room.retryNow());
window.addEventListener("pageshow", (event) => { if (event.persisted) room.retryNow(); });
window.addEventListener("hashchange", () => {
    readLink();
    room.restart();
});
document.addEventListener("visibilitychange", () => {
    if (document.hidden) return;
    awake.hold();
    room.retryNow();
});
