// The parent's side of the hidden frame, for the panel and the overlay.
"use strict";

// One frame for one backend. `opened` gives none when what answers there is no Stagehopper backend.
class BackendLink {
    static readyWithin = 3000;
    // The script has run when its page is loaded; its message may be a little later.
    static readyAfterLoadWithin = 500;
    static answersWithin = 5000;

    // The callbacks; each may be replaced at any time.
    onOpen = () => {};
    onMessage = () => {};
    onClosed = () => {};

    #frame;
    #origin;
    #lastRequest = 0;
    #waiting = new Map();
    #listener = (event) => this.#receive(event);
    #becameReady = () => {};

    // The id under which a page of this kind joins rooms, with an end that no other page has.
    static newUserId(kind) {
        const [number] = crypto.getRandomValues(new Uint32Array(1));
        return `${kind}-${number.toString(16).padStart(8, "0")}`;
    }

    static async opened(origin) {
        const link = new BackendLink(origin);
        if (await link.#load()) return link;
        link.close();
        return null;
    }

    constructor(origin) {
        this.#origin = origin;
        this.#frame = document.createElement("iframe");
        this.#frame.hidden = true;
        this.#frame.title = "";
        // It may not open windows, lead this page elsewhere, or ask for a camera. Without its own
        // origin the backend would not trust it.
        this.#frame.sandbox = "allow-scripts allow-same-origin";
        this.#frame.allow = "camera 'none'; microphone 'none'; geolocation 'none'; " +
            "display-capture 'none'; fullscreen 'none'";
        this.#frame.referrerPolicy = "no-referrer";
        this.#frame.src = `${origin}/link`;
        window.addEventListener("message", this.#listener);
    }

    get origin() {
        return this.#origin;
    }

    // The answer's `{status, body}`; status 0 when nobody answered.
    request(method, path, body) {
        this.#lastRequest += 1;
        const id = this.#lastRequest;
        return new Promise((resolve) => {
            const timer = setTimeout(
                () => this.#answer(id, { status: 0, body: null }), BackendLink.answersWithin);
            this.#waiting.set(id, { resolve, timer });
            this.#post({ kind: "request", id, method, path, body });
        });
    }

    join(query) {
        this.#post({ kind: "join", query });
    }

    leave() {
        this.#post({ kind: "leave" });
    }

    // After this nothing is called any more.
    close() {
        window.removeEventListener("message", this.#listener);
        this.#frame.remove();
        this.onOpen = this.onMessage = this.onClosed = () => {};
        for (const id of [...this.#waiting.keys()]) this.#answer(id, { status: 0, body: null });
    }

    #load() {
        return new Promise((resolve) => {
            const timer = setTimeout(() => resolve(false), BackendLink.readyWithin);
            this.#becameReady = (ready) => {
                clearTimeout(timer);
                resolve(ready);
            };
            this.#frame.addEventListener("load", () => {
                setTimeout(() => this.#becameReady(false), BackendLink.readyAfterLoadWithin);
            });
            document.body.append(this.#frame);
        });
    }

    #post(message) {
        this.#frame.contentWindow?.postMessage(message, this.#origin);
    }

    #answer(id, response) {
        const waiting = this.#waiting.get(id);
        if (!waiting) return;
        this.#waiting.delete(id);
        clearTimeout(waiting.timer);
        waiting.resolve(response);
    }

    #receive({ source, origin, data }) {
        if (source !== this.#frame.contentWindow || origin !== this.#origin || !data) return;
        switch (data.kind) {
            case "ready": this.#becameReady(true); break;
            case "refused": this.#becameReady(false); break;
            case "response": this.#answer(data.id, { status: data.status, body: data.body }); break;
            case "open": this.onOpen(); break;
            case "message": this.onMessage(data.data); break;
            case "closed": this.onClosed(data.code, data.reason); break;
        }
    }
}
