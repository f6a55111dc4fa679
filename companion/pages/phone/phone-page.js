"use strict";

// What the page shows: the state of the connection, short messages, and which step has arrived.
class PhonePage {
    static wordFor = 4000;
    static confirmationFor = 250;

    #texts;
    #wordTimer = 0;
    #confirmTimer = 0;

    constructor(texts) {
        this.#texts = texts;
        writeTexts(texts);
        document.title = texts.title;
    }

    // While the connection is stopped, its state covers the pad.
    show(state, stopped) {
        const words = this.#texts.states[state];
        document.body.dataset.state = state;
        byId("state").textContent = stopped ? "" : words;
        byId("trouble").hidden = !stopped;
        byId("trouble-text").textContent = stopped ? words : "";
        byId("again").textContent = state === "elsewhere" ? this.#texts.useHere : this.#texts.again;
        byId("again").hidden = state === "noLink";
        for (const id of ["previous", "next"]) byId(id).disabled = stopped;
    }

    sayTapLost(direction) {
        byId("word").textContent = this.#texts.tapLost[direction];
        clearTimeout(this.#wordTimer);
        this.#wordTimer = setTimeout(() => { byId("word").textContent = ""; }, PhonePage.wordFor);
    }

    confirm(direction) {
        const button = byId(direction === "next" ? "next" : "previous");
        navigator.vibrate?.(12);
        button.classList.add("done");
        clearTimeout(this.#confirmTimer);
        this.#confirmTimer = setTimeout(() => {
            for (const step of document.querySelectorAll(".done")) step.classList.remove("done");
        }, PhonePage.confirmationFor);
    }
}
