"use strict";

// Finds the local backend and says what is known of it: "looking", "running", "stopped" or
// "foreign", when only other programs answer.
class PanelBackend {
    static firstPort = 3000;
    static lastPort = 3050;
    static answersWithin = 1000;
    static pause = 3000;
    // A backend that is being started is there within a second or so.
    static hurriedPause = 500;
    static hurriesFor = 6000;

    #onState;
    #onFound;
    #link = null;
    #stopped = false;
    #hurryUntil = Date.now() + PanelBackend.hurriesFor;
    #searching = false;
    #endPause = () => {};

    // `onFound` gets a `BackendLink`; `onState` gets a state and, when something
    // answers, its port.
    constructor({ onState, onFound }) {
        this.#onState = onState;
        this.#onFound = onFound;
    }

    get link() {
        return this.#link;
    }

    // To be called when the backend no longer answers, or may have gone.
    lost() {
        this.#link?.close();
        this.#link = null;
        this.search();
    }

    // The user has asked for a start: it is expected soon.
    expect() {
        this.#stopped = false;
        this.#hurryUntil = Date.now() + PanelBackend.hurriesFor;
        if (!this.#link) this.#onState("looking");
        this.#endPause();
        this.search();
    }

    // The user has asked for a stop. Whether that ends this backend shows only when it is gone.
    stopped() {
        this.#stopped = true;
    }

    async search() {
        if (this.#searching || this.#link) return;
        this.#searching = true;
        this.#onState(this.#stopped ? "stopped" : "looking");
        while (!this.#link) {
            const answering = await PanelBackend.#portsThatAnswer();
            this.#link = await PanelBackend.#firstLink(answering);
            if (this.#link) break;
            // One that is just ending answers the first question and not the second.
            const foreign = answering.length > 0 && await PanelBackend.#answers(answering[0]);
            if (foreign) this.#onState("foreign", answering[0]);
            else this.#onState(this.#stopped ? "stopped" : "looking");
            await this.#waitToSearchAgain();
        }
        this.#searching = false;
        this.#stopped = false;
        this.#onState("running", new URL(this.#link.origin).port);
        this.#onFound(this.#link);
    }

    #waitToSearchAgain() {
        const hurries = Date.now() < this.#hurryUntil;
        return new Promise((resolve) => {
            this.#endPause = resolve;
            setTimeout(resolve, hurries ? PanelBackend.hurriedPause : PanelBackend.pause);
        });
    }

    static async #portsThatAnswer() {
        const ports = [];
        for (let port = this.firstPort; port <= this.lastPort; port += 1) ports.push(port);
        const answers = await Promise.all(ports.map((port) => this.#answers(port)));
        return ports.filter((_, index) => answers[index]);
    }

    // A page from a file sees of the answer only that there is one.
    static async #answers(port) {
        const abort = new AbortController();
        const timer = setTimeout(() => abort.abort(), this.answersWithin);
        try {
            await fetch(`http://127.0.0.1:${port}/health`,
                { mode: "no-cors", cache: "no-store", signal: abort.signal });
            return true;
        } catch {
            return false;
        } finally {
            clearTimeout(timer);
        }
    }

    // One after another: what answers behind the backend is never shown in a frame.
    static async #firstLink(ports) {
        for (const port of ports) {
            const link = await BackendLink.opened(`http://127.0.0.1:${port}`);
            if (link) return link;
        }
        return null;
    }
}
