"use strict";

// The list of what was stepped, newest first: from here and from the phones.
class PanelSteps {
    static listed = 50;
    static characters = 80;

    #texts;

    constructor(texts) {
        this.#texts = texts;
    }

    addStep(direction, who, color) {
        const words = direction === "next" ? this.#texts.nextSlide : this.#texts.previousSlide;
        this.#add(direction === "next" ? "next" : "prev", words, who, color);
    }

    addDebugLine(line) {
        this.#add("debug", line.slice(0, PanelSteps.characters), "");
    }

    #add(kind, words, who, color) {
        const entry = document.createElement("li");
        entry.className = kind;
        const label = document.createElement("span");
        label.textContent = words;
        const person = document.createElement("span");
        person.className = "who";
        if (color) person.append(colorDot(color));
        person.append(who);
        const time = document.createElement("time");
        // In the engine's own locale: `navigator.language` is no language tag everywhere ("c").
        time.textContent = new Date().toLocaleTimeString();
        entry.append(label, person, time);

        byId("nothing-sent").hidden = true;
        const list = byId("sent-list");
        list.prepend(entry);
        while (list.children.length > PanelSteps.listed) list.lastElementChild.remove();
        list.scrollTop = 0;
    }
}
