"use strict";

// Shows the meeting: its code, its link as text and QR code, and who has joined with a phone.
class PanelMeetingView {
    #texts;
    #record = null;

    constructor(texts) {
        this.#texts = texts;
        byId("address").addEventListener("change", () => this.#showLink());
        byId("copy-link").addEventListener("click", () => this.#copy());
        byId("qr").addEventListener("click", () => this.#showLarge(true));
        byId("large-qr").addEventListener("click", () => this.#showLarge(false));
        document.addEventListener("keydown", ({ key }) => {
            if (key === "Escape") this.#showLarge(false);
        });
    }

    // A meeting's record, or null with the text that says why there is none.
    show(record, reason = "") {
        this.#record = record;
        const links = record?.links ?? [];
        byId("meeting").classList.toggle("none", !record);
        byId("meeting-state").textContent = record ? "" : reason;
        byId("meeting-state").hidden = Boolean(record);
        byId("code").textContent = record?.roomCode ?? "";
        byId("no-network").hidden = !record || links.length > 0;
        byId("link-area").hidden = links.length === 0;
        byId("qr").hidden = links.length === 0;
        byId("address").hidden = links.length < 2;
        byId("address").replaceChildren(...links.map(({ address }) => new Option(address)));
        byId("copied").textContent = "";
        byId("end-meeting").disabled = !record;
        if (links.length > 0) this.#showLink();
        else this.#showLarge(false);
    }

    // Old engines have no dialogs: there it is an element with an attribute that the style knows.
    #showLarge(large) {
        const dialog = byId("large-qr");
        if (dialog.hasAttribute("open") === large) return;
        if (!dialog.showModal) dialog.toggleAttribute("open", large);
        else if (large) dialog.showModal();
        else dialog.close();
    }

    // Takes everybody in the room; only those with a phone are shown.
    showPeople(participants) {
        const phones = participants.filter(({ userId }) => !/^(overlay|panel)/.test(userId));
        byId("people-count").textContent = this.#texts.peopleCount(phones.length);
        byId("people").replaceChildren(...phones.map(({ displayName, cursorColor }) => {
            const entry = document.createElement("li");
            entry.append(colorDot(cursorColor), displayName);
            return entry;
        }));
    }

    #showLink() {
        const { url } = this.#record.links[Math.max(0, byId("address").selectedIndex)];
        byId("link").value = url;
        byId("copied").textContent = "";
        byId("large-code").textContent = this.#record.roomCode;
        for (const place of ["qr-picture", "large-qr-picture"]) drawQrCode(byId(place), url);
    }

    // The clipboard's own interface is not there in every engine; the old way needs a selection.
    async #copy() {
        const field = byId("link");
        const before = document.activeElement;
        field.focus();
        field.select();
        let copied = document.execCommand("copy");
        if (!copied) {
            copied = await (navigator.clipboard?.writeText(field.value) ?? Promise.reject())
                .then(() => true, () => false);
        }
        if (copied) before.focus();
        byId("copied").textContent = copied ? this.#texts.copied : this.#texts.copyByHand;
    }
}
