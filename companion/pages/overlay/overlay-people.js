"use strict";

// Who is in the room, shown for a moment when that changes.
class OverlayPeople {
    static shownFor = 4000;
    static shownAtMost = 8;

    #list;
    #known = null;
    #timer = 0;

    constructor(list) {
        this.#list = list;
    }

    nameOf(userId) {
        return this.#known?.get(userId)?.displayName ?? "";
    }

    // The first list after `forget` is only learnt: nobody in it has just come.
    take(participants) {
        if (!Array.isArray(participants)) return;
        const before = this.#known;
        this.#known = new Map(participants.filter(OverlayPeople.#isPerson)
            .map((person) => [person.userId, person]));
        if (!before) return;
        const gone = [...before.values()].filter(({ userId }) => !this.#known.has(userId));
        const came = [...this.#known.keys()].some((userId) => !before.has(userId));
        if (came || gone.length > 0) this.#show([...this.#known.values()], gone);
    }

    forget() {
        this.#known = null;
        this.#hide();
    }

    // The panel and the overlays are in the room, too.
    static #isPerson(participant) {
        return typeof participant?.userId === "string" &&
            !/^(overlay|panel)/.test(participant.userId);
    }

    #show(present, gone) {
        const item = (kind, text, color) => {
            const element = document.createElement("li");
            element.className = kind;
            element.style.setProperty("--color", OverlayPointers.colorOr(color, "#8b8d98"));
            const name = document.createElement("span");
            name.textContent = text;
            element.append(name);
            return element;
        };
        const all = [
            ...gone.map((person) => item("gone", person.displayName, person.cursorColor)),
            ...present.map((person) => item("", person.displayName, person.cursorColor)),
        ];
        const hidden = all.length - OverlayPeople.shownAtMost;
        if (hidden > 0) {
            all.length = OverlayPeople.shownAtMost;
            all.push(item("more", `+${hidden}`));
        }
        this.#list.replaceChildren(...all);
        this.#list.hidden = false;
        clearTimeout(this.#timer);
        this.#timer = setTimeout(() => this.#hide(), OverlayPeople.shownFor);
    }

    #hide() {
        clearTimeout(this.#timer);
        this.#list.hidden = true;
        this.#list.replaceChildren();
    }
}
