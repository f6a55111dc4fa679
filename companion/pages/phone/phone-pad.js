"use strict";

// The pad: swipe to turn, hold to point.
class PhonePad {
    static holdsAfter = 250;
    static moved = 12;
    static swiped = 48;
    static swipesWithin = 800;
    static sendsEvery = 17;
    // An overlay forgets a pointer that is silent.
    static repeatsEvery = 1000;

    #events;
    #area = byId("pad");
    #dot = byId("dot");
    #touch = null;
    #lastSent = 0;
    #sendTimer = 0;
    #repeatTimer = 0;

    // The events are `onSwipe(direction)` and `onPoint(x, y, visible)`, with shares of the pad's
    // width and height.
    constructor(events) {
        this.#events = events;
        this.#area.addEventListener("pointerdown", (event) => this.#down(event));
        this.#area.addEventListener("pointermove", (event) => this.#move(event));
        this.#area.addEventListener("pointerup", (event) => this.#up(event));
        this.#area.addEventListener("pointercancel", (event) => this.#up(event, true));
        this.#area.addEventListener("contextmenu", (event) => event.preventDefault());
    }

    #down(event) {
        if (this.#touch || !event.isPrimary || event.button !== 0) return;
        event.currentTarget.setPointerCapture(event.pointerId);
        this.#touch = {
            pointer: event.pointerId,
            from: event,
            at: event,
            pointing: false,
            holdTimer: setTimeout(() => this.#beginPointing(), PhonePad.holdsAfter),
        };
    }

    #move(event) {
        if (event.pointerId !== this.#touch?.pointer) return;
        this.#touch.at = event;
        if (this.#touch.pointing) return this.#sendSoon();
        const { from } = this.#touch;
        const distance = Math.hypot(event.clientX - from.clientX, event.clientY - from.clientY);
        if (distance > PhonePad.moved) clearTimeout(this.#touch.holdTimer);
    }

    #up(event, canceled = false) {
        if (event.pointerId !== this.#touch?.pointer) return;
        const { from, pointing, holdTimer } = this.#touch;
        clearTimeout(holdTimer);
        if (pointing) this.#endPointing();
        this.#touch = null;
        if (pointing || canceled) return;
        const right = event.clientX - from.clientX;
        const down = event.clientY - from.clientY;
        const isSwipe = Math.abs(right) >= PhonePad.swiped &&
            Math.abs(right) > 1.5 * Math.abs(down) &&
            event.timeStamp - from.timeStamp < PhonePad.swipesWithin;
        if (isSwipe) this.#events.onSwipe(right < 0 ? "next" : "prev");
    }

    #beginPointing() {
        this.#touch.pointing = true;
        this.#dot.hidden = false;
        this.#repeatTimer = setInterval(() => this.#send(), PhonePad.repeatsEvery);
        this.#send();
    }

    #endPointing() {
        clearInterval(this.#repeatTimer);
        clearTimeout(this.#sendTimer);
        this.#sendTimer = 0;
        this.#dot.hidden = true;
        const { x, y } = this.#place();
        this.#events.onPoint(x, y, false);
    }

    // As shares of the pad, which stands for the whole screen.
    #place() {
        const { left, top, width, height } = this.#area.getBoundingClientRect();
        const share = (value) => Math.min(1, Math.max(0, value));
        return {
            x: share((this.#touch.at.clientX - left) / width),
            y: share((this.#touch.at.clientY - top) / height),
        };
    }

    #sendSoon() {
        if (this.#sendTimer) return;
        const pause = Math.max(0, this.#lastSent + PhonePad.sendsEvery - Date.now());
        this.#sendTimer = setTimeout(() => this.#send(), pause);
    }

    #send() {
        clearTimeout(this.#sendTimer);
        this.#sendTimer = 0;
        this.#lastSent = Date.now();
        const { x, y } = this.#place();
        const { clientWidth, clientHeight } = this.#area;
        this.#dot.style.transform = `translate(${x * clientWidth}px, ${y * clientHeight}px)`;
        this.#events.onPoint(x, y, true);
    }
}
