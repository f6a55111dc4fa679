"use strict";

// The taps that the room has not acknowledged. After a reconnect they are sent again with the same
// id, so that no tap turns two slides. Old ones are dropped: by then the presenter has looked up
// and does not want the slide to jump.
class PhoneTaps {
    static liveFor = 3000;

    #events;
    #waiting = new Map();

    // The events are `onLost(direction)` for each tap that is dropped for its age, and
    // `onUnanswered()` after it if the timer ran out.
    constructor(events) {
        this.#events = events;
    }

    // Returns the tap, `{id, direction}`.
    add(direction) {
        const id = randomText(16);
        const timer = setTimeout(() => {
            this.#lose(id);
            this.#events.onUnanswered();
        }, PhoneTaps.liveFor);
        this.#waiting.set(id, { direction, at: Date.now(), timer });
        return { id, direction };
    }

    // The tap no longer waits. Returns its direction, or undefined if it did not wait.
    take(id) {
        const tap = this.#waiting.get(id);
        clearTimeout(tap?.timer);
        this.#waiting.delete(id);
        return tap?.direction;
    }

    // Returns the taps to be sent again. The age is tested too: timers stop while the phone sleeps.
    takeUpAgain() {
        const young = [];
        for (const [id, { direction, at }] of this.#waiting) {
            if (Date.now() - at < PhoneTaps.liveFor) young.push({ id, direction });
            else this.#lose(id);
        }
        return young;
    }

    clear() {
        for (const { timer } of this.#waiting.values()) clearTimeout(timer);
        this.#waiting.clear();
    }

    #lose(id) {
        const direction = this.take(id);
        this.#events.onLost(direction);
    }
}
