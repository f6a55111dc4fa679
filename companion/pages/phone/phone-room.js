"use strict";

// The connection to the room, which repairs itself until it is stopped.
class PhoneRoom {
    static pauses = [500, 1000, 2000, 4000, 5000];
    static opensWithin = 6000;

    #query;
    #events;
    #socket = null;
    #isOpen = false;
    #stopped = false;
    #attempts = 0;
    #timer = 0;
    // What the room calls this phone. Its own id stays between it and the backend: with that id
    // another could take its place.
    #publicId = "";
    #taps = new PhoneTaps({
        onLost: (direction) => this.#events.onTapLost(direction),
        // No acknowledgement over an open connection: it no longer works.
        onUnanswered: () => { if (this.#isOpen) this.connect(); },
    });

    // `query` returns the query of a join, or null without a link. The events are `onState(state,
    // stopped)`, with a key of the texts' `states`, `onTapDone(direction)` and
    // `onTapLost(direction)`.
    constructor({ query, ...events }) {
        this.#query = query;
        this.#events = events;
    }

    // Whether it waits for the user instead of trying again.
    get stopped() {
        return this.#stopped;
    }

    connect() {
        clearTimeout(this.#timer);
        this.#drop();
        this.#stopped = false;
        const query = this.#query();
        if (query === null) return this.#stop("noLink");
        if (this.#attempts === 0) this.#show("connecting");
        const scheme = location.protocol === "https:" ? "wss" : "ws";
        const socket = new WebSocket(`${scheme}://${location.host}/ws?${query}`);
        this.#socket = socket;
        // A network that has just changed may leave the attempt hanging for a minute.
        this.#timer = setTimeout(() => this.#closed(socket, 0), PhoneRoom.opensWithin);
        socket.onmessage = (event) => {
            if (socket === this.#socket) this.#take(event.data);
        };
        socket.onclose = (event) => this.#closed(socket, event.code);
    }

    // For when there is a reason to believe that a connection works now.
    retryNow() {
        if (!this.#isOpen && !this.#stopped) this.connect();
    }

    restart() {
        this.#attempts = 0;
        this.connect();
    }

    tap(direction) {
        if (this.#stopped) return;
        const tap = this.#taps.add(direction);
        if (this.#isOpen) this.#sendTap(tap);
        else this.retryNow();
    }

    // Only the present place counts: nothing is kept for a slow or broken connection.
    point(x, y, visible) {
        if (!this.#isOpen || (visible && this.#socket.bufferedAmount > 0)) return;
        this.#socket.send(JSON.stringify({ type: "pointer", x, y, visible }));
    }

    #show(state) {
        this.#events.onState(state, this.#stopped);
    }

    // `#closed` ignores the dropped socket: the caller decides what happens next.
    #drop() {
        const dropped = this.#socket;
        this.#socket = null;
        this.#isOpen = false;
        dropped?.close();
    }

    #stop(state) {
        clearTimeout(this.#timer);
        this.#drop();
        this.#stopped = true;
        this.#taps.clear();
        this.#show(state);
    }

    async #closed(socket, code) {
        if (socket !== this.#socket) return;
        clearTimeout(this.#timer);
        const hadOpened = this.#isOpen;
        this.#drop();
        if (code === 4001) return this.#stop("elsewhere");
        let state = navigator.onLine === false ? "offline" : "reconnecting";
        // The pause begins now, whether or not the request below is answered.
        const { pauses } = PhoneRoom;
        const pause = pauses[Math.min(this.#attempts, pauses.length - 1)];
        this.#attempts += 1;
        this.#timer = setTimeout(() => this.connect(), pause);
        if (!hadOpened) state = await this.#refusal() ?? state;
        if (this.#socket || this.#stopped) return;
        if (state === "wrongLink" || state === "oldLink") return this.#stop(state);
        this.#show(state);
    }

    // A page cannot see why its handshake was refused. The same request without the handshake is
    // refused with the same status.
    async #refusal() {
        const abort = new AbortController();
        const timer = setTimeout(() => abort.abort(), PhoneRoom.opensWithin);
        try {
            const { status } = await fetch(`/ws?${this.#query()}`,
                { cache: "no-store", signal: abort.signal });
            return { 403: "wrongLink", 404: "oldLink", 429: "throttled", 503: "full" }[status];
        } catch {
            return undefined;
        } finally {
            clearTimeout(timer);
        }
    }

    #take(data) {
        const message = JSON.parse(data);
        switch (message.type) {
            case "welcome":
                this.#publicId = message.userId;
                this.#opened();
                break;
            case "slide_nav":
                if (message.userId === this.#publicId) this.#acknowledged(message.id);
                break;
            case "ended": this.#stop("ended"); break;
        }
    }

    #opened() {
        clearTimeout(this.#timer);
        this.#isOpen = true;
        this.#attempts = 0;
        this.#show("open");
        for (const tap of this.#taps.takeUpAgain()) this.#sendTap(tap);
    }

    #acknowledged(id) {
        const direction = this.#taps.take(id);
        if (direction) this.#events.onTapDone(direction);
    }

    #sendTap({ id, direction }) {
        this.#socket.send(JSON.stringify({ type: "slide_nav", direction, id }));
    }
}
