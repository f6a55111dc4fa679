"use strict";

// Brings together the backend, its meeting, and the overlay that shows the meeting's room.
class PanelRoom {
    static looksAfterStop = [200, 400, 800, 1600, 3200];

    #host;
    #texts;
    #steps;
    #view;
    #people = new Map();

    #backend = new PanelBackend({
        onState: (state, port) => this.#showBackend(state, port),
        onFound: (link) => this.#meeting.use(link),
    });
    #meeting = new PanelMeeting({
        onRecord: (record) => this.#showMeeting(record),
        onParticipants: (participants) => this.#takeParticipants(participants),
        onStep: (message) => this.#listStep(message),
        onFailure: (status) => this.#view.show(null, this.#texts.meetingFailed(status)),
        onLost: () => this.#lose(),
    });
    #overlay;

    constructor(host, texts, steps) {
        this.#host = host;
        this.#texts = texts;
        this.#steps = steps;
        this.#view = new PanelMeetingView(texts);
        this.#overlay = new PanelOverlay(host, () => this.#room());
        this.#connect();
        this.#view.show(null, texts.meetingWaits);
        this.#view.showPeople([]);
        this.#showOverlay();
        this.#backend.search();
    }

    #connect() {
        const onClick = (id, act) => byId(id).addEventListener("click", act);
        onClick("start-backend", () => {
            this.#host.startBundledBackend();
            this.#backend.expect();
        });
        onClick("stop-backend", () => {
            this.#host.stopBundledBackend();
            this.#backend.stopped();
            this.#lookWhetherItIsGone();
        });
        onClick("new-meeting", () => this.#meeting.startNew());
        onClick("end-meeting", () => this.#meeting.end());
        onClick("overlay", () => {
            this.#overlay.toggle();
            this.#showOverlay();
        });
        if (/^Mac/.test(navigator.platform)) {
            byId("awdl-row").hidden = false;
            onClick("awdl", () => this.#host.requestAwdlBeforeMeeting());
        }
        // Without a meeting there is no connection that would tell of a backend's end.
        window.addEventListener("focus", () => this.#lookWhetherItIsGone([0]));
    }

    #room() {
        const { record, origin } = this.#meeting;
        return record && origin ? { origin, code: record.roomCode } : null;
    }

    #showBackend(state, port) {
        byId("backend").dataset.state = state;
        byId("backend-state").textContent = this.#texts.backendStates[state](port);
        const runs = state === "running";
        const focused = document.activeElement;
        byId("start-backend").hidden = runs;
        byId("stop-backend").hidden = !runs;
        byId("new-meeting").disabled = !runs;
        // Whoever has just pressed the one is on the other now, not nowhere.
        if (focused === byId("start-backend") && runs) byId("stop-backend").focus();
        if (focused === byId("stop-backend") && !runs) byId("start-backend").focus();
    }

    #showMeeting(record) {
        const { meetingEnded, meetingWaits } = this.#texts;
        this.#view.show(record, this.#backend.link ? meetingEnded : meetingWaits);
        this.#people.clear();
        this.#overlay.roomChanged();
    }

    #showOverlay() {
        const { on } = this.#overlay;
        byId("overlay").setAttribute("aria-pressed", String(on));
        byId("overlay-state").textContent = on ? this.#texts.overlayOn : this.#texts.overlayOff;
    }

    // Those who have left are kept in mind: their last step may still be to come.
    #takeParticipants(participants) {
        for (const person of participants) this.#people.set(person.userId, person);
        this.#view.showPeople(participants);
        this.#overlay.takeParticipants(participants);
    }

    // Only listed: the program has its own connection to the room, and turns the slide itself.
    #listStep({ direction, userId }) {
        const person = this.#people.get(userId);
        this.#steps.addStep(direction, person?.displayName ?? userId, person?.cursorColor);
    }

    #lose() {
        this.#backend.lost();
        this.#view.show(null, this.#texts.meetingWaits);
    }

    async #lookWhetherItIsGone(pauses = PanelRoom.looksAfterStop) {
        const link = this.#backend.link;
        for (const pause of pauses) {
            await new Promise((resolve) => { setTimeout(resolve, pause); });
            if (!link || link !== this.#backend.link) return;
            const { status } = await link.request("GET", "/health");
            if (status === 0 && link === this.#backend.link) return this.#meeting.leaveBackend();
        }
    }
}
