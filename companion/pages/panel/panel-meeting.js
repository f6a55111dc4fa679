"use strict";

// The meeting: finds or starts one, and is in its room. What it shows is left to `PanelMeetingView`.
class PanelMeeting {
    #events;
    #link = null;
    #record = null;
    #endedByUser = false;
    #userId = BackendLink.newUserId("panel");

    // Called are: `onRecord(record or null)`, `onParticipants(list)`, `onStep(message)`,
    // `onFailure(status)`, `onLost()`.
    constructor(events) {
        this.#events = events;
    }

    get record() {
        return this.#record;
    }

    get origin() {
        return this.#link?.origin ?? null;
    }

    // A backend is there: the meeting that it has goes on, else one begins, so that a phone can
    // join without anything having been pressed here. Only who has ended a meeting is left alone.
    async use(link) {
        this.#link = link;
        link.onMessage = (message) => this.#take(message);
        // The closing that follows a meeting's end is no loss.
        link.onClosed = () => { if (this.#record) this.leaveBackend(); };
        const current = await link.request("POST", "/v1/meetings/current");
        if (link !== this.#link) return;
        if (current.status === 200) return this.#join(current.body);
        if (current.status !== 404) return this.#fail(current.status);
        if (this.#endedByUser) this.#events.onRecord(null);
        else await this.#start();
    }

    // Ends the meeting that is, and begins another.
    async startNew() {
        if (!this.#link) return;
        if (await this.#endCurrent()) await this.#start();
    }

    async end() {
        this.#endedByUser = true;
        await this.#endCurrent();
    }

    leaveBackend() {
        if (!this.#link) return;
        this.#link = null;
        this.#forget();
        this.#events.onLost();
    }

    async #start() {
        const link = this.#link;
        const { status, body } = await link.request("POST", "/v1/meetings", {});
        if (link !== this.#link) return;
        if (status === 201) this.#join(body);
        else this.#fail(status);
    }

    async #endCurrent() {
        const link = this.#link;
        if (!link) return false;
        if (!this.#record) return true;
        const { status } = await link.request("DELETE", `/v1/meetings/${this.#record.roomCode}`);
        if (link !== this.#link) return false;
        if (status !== 204 && status !== 404) {
            this.#fail(status);
            return false;
        }
        this.#forget();
        link.leave();
        return true;
    }

    #join(record) {
        this.#endedByUser = false;
        this.#record = record;
        this.#events.onRecord(record);
        this.#link.join({
            roomCode: record.roomCode,
            userId: this.#userId,
            role: "host",
            displayName: "panel",
            cursorColor: "#000000",
        });
    }

    #take(message) {
        switch (message?.type) {
            case "welcome":
            case "participants": this.#events.onParticipants(message.participants); break;
            case "slide_nav": this.#events.onStep(message); break;
            case "ended": this.#leaveEnded(); break;
        }
    }

    // By whomever it was ended: a new one is for the user to start.
    #leaveEnded() {
        this.#link.leave();
        this.#endedByUser = true;
        this.#forget();
    }

    #forget() {
        if (!this.#record) return;
        this.#record = null;
        this.#events.onParticipants([]);
        this.#events.onRecord(null);
    }

    #fail(status) {
        if (status === 0) this.leaveBackend();
        else this.#events.onFailure(status);
    }
}
