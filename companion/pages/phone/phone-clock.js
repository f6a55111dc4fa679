"use strict";

// The time since joining, which continues after a reload. A tap resets it.
class PhoneClock {
    #tabMemory;
    #since;
    #timer = 0;

    constructor(tabMemory) {
        this.#tabMemory = tabMemory;
        this.#since = Number(tabMemory.get("since")) || 0;
        byId("time").addEventListener("click", () => this.#reset());
    }

    start() {
        if (!this.#since) this.#reset();
        if (!this.#timer) this.#timer = setInterval(() => this.show(), 1000);
        this.show();
    }

    // For another meeting, until it is joined.
    forget() {
        this.#since = 0;
    }

    show() {
        const since = this.#since || Date.now();
        const seconds = Math.max(0, Math.floor((Date.now() - since) / 1000));
        const two = (value) => String(value).padStart(2, "0");
        const hours = Math.floor(seconds / 3600);
        const minutes = Math.floor(seconds / 60) % 60;
        byId("elapsed").textContent =
            `${hours ? `${hours}:${two(minutes)}` : minutes}:${two(seconds % 60)}`;
    }

    #reset() {
        this.#since = Date.now();
        this.#tabMemory.set("since", String(this.#since));
        this.show();
    }
}
