"use strict";

// The switch of the overlay. Stagehopper passes the room on to the overlay once, and says nothing
// of whether the overlay was already listening; the room's list of participants does.
class PanelOverlay {
    static askAgainAfter = 2000;
    static asksAtMost = 10;

    #host;
    #roomOf;
    #on = false;
    #joined = false;
    #timer = 0;

    // `roomOf` gives the room to show, `{origin, code}`, or null.
    constructor(host, roomOf) {
        this.#host = host;
        this.#roomOf = roomOf;
    }

    get on() {
        return this.#on;
    }

    toggle() {
        this.#on = !this.#on;
        if (this.#on) {
            this.#host.showOverlay();
            this.roomChanged();
        } else {
            clearTimeout(this.#timer);
            this.#host.hideOverlay();
        }
    }

    roomChanged() {
        this.#joined = false;
        this.#ask(PanelOverlay.asksAtMost);
    }

    // An overlay whose page was loaded again knows no room.
    takeParticipants(participants) {
        const wasJoined = this.#joined;
        this.#joined = participants.some(({ userId }) => /^overlay-(?!native)/.test(userId));
        if (wasJoined && !this.#joined) this.#ask(PanelOverlay.asksAtMost);
    }

    #ask(times) {
        clearTimeout(this.#timer);
        const room = this.#roomOf();
        if (!this.#on || !room) return;
        this.#host.connectOverlayWs(room.origin, room.code);
        this.#timer = setTimeout(() => {
            if (!this.#joined && times > 1) this.#ask(times - 1);
        }, PanelOverlay.askAgainAfter);
    }
}
