"use strict";

// Keeps the screen on. Wake locks exist for secure pages only, and a page of the local network is
// not secure; a playing video works everywhere. It must not be muted, must have sound (a silent
// one), must be visible, and must not loop by attribute: some engines sleep through any other.
class PhoneAwake {
    #video = byId("awake");
    #needed = true;
    #lock = null;

    constructor() {
        this.#video.addEventListener("timeupdate", () => {
            if (this.#video.currentTime > 1.5) this.#video.currentTime = 0;
        });
        this.#video.addEventListener("ended", () => this.hold());
        for (const kind of ["touchend", "click", "keydown"]) {
            document.addEventListener(kind, () => this.hold());
        }
    }

    // Without a meeting the phone may sleep. When it is needed again, the next touch holds it.
    setNeeded(needed) {
        this.#needed = needed;
        if (needed) return;
        this.#lock?.release();
        this.#video.pause();
    }

    async hold() {
        if (!this.#needed || document.hidden) return;
        if (!navigator.wakeLock) return this.#play();
        if (this.#lock) return;
        try {
            this.#lock = await navigator.wakeLock.request("screen");
            this.#lock.addEventListener("release", () => { this.#lock = null; });
        } catch {
            this.#play();
        }
    }

    // A browser refuses it until the page has been touched, and after a phone call. The next touch
    // tries again.
    #play() {
        if (this.#video.paused) this.#video.play().catch(() => {});
    }
}
