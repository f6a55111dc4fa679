"use strict";

// The two buttons, and the keys that do the same. A thumb that bounces steps once.
class PhoneButtons {
    static bounce = 120;

    #onStep;
    #last = { next: -Infinity, prev: -Infinity };

    constructor(onStep) {
        this.#onStep = onStep;
        // Clicks, not touches: screen readers and switches click.
        byId("previous").addEventListener("click", () => this.#step("prev"));
        byId("next").addEventListener("click", () => this.#step("next"));
        document.addEventListener("keydown", (event) => {
            const direction = stepOfKey(event);
            if (!direction || byId("settings").open) return;
            event.preventDefault();
            this.#step(direction);
        });
    }

    #step(direction) {
        const now = performance.now();
        const bounced = now - this.#last[direction] < PhoneButtons.bounce;
        this.#last[direction] = now;
        if (!bounced) this.#onStep(direction);
    }
}
