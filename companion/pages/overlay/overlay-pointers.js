"use strict";

// The phones' pointers, one for each user. What moves and fades is left to the style sheet, so that
// nothing is drawn while nothing moves.
class OverlayPointers {
    static fadesFor = 1500;
    static silentFor = 3000;

    #ground;
    #nameOf;
    #shown = new Map();

    constructor(ground, nameOf) {
        this.#ground = ground;
        this.#nameOf = nameOf;
    }

    // Takes a pointer message as it came from outside: what is wrong with it makes it ignored.
    take({ userId, x, y, visible, color }) {
        if (typeof userId !== "string") return;
        if (visible === false) return this.#fade(userId);
        if (!Number.isFinite(x) || !Number.isFinite(y)) return;
        const pointer = this.#shown.get(userId) ?? this.#made(userId);
        const share = (value) => Math.min(1, Math.max(0, value));
        const { style, classList } = pointer.element;
        style.setProperty("--x", share(x));
        style.setProperty("--y", share(y));
        style.setProperty("--color", OverlayPointers.colorOr(color));
        classList.toggle("right", x > 0.85);
        classList.toggle("low", y > 0.9);
        // In the document only now: one that has just come must not fly in from the corner.
        if (!pointer.element.isConnected) this.#ground.append(pointer.element);
        clearTimeout(pointer.timer);
        pointer.timer = setTimeout(() => this.#fade(userId), OverlayPointers.silentFor);
    }

    clear() {
        for (const { element, timer } of this.#shown.values()) {
            clearTimeout(timer);
            element.remove();
        }
        this.#shown.clear();
    }

    static colorOr(color, otherwise = "#e5484d") {
        return /^#[0-9a-f]{6}$/i.test(color) ? color : otherwise;
    }

    #made(userId) {
        const element = document.createElement("div");
        element.className = "pointer";
        const name = document.createElement("span");
        name.textContent = this.#nameOf(userId);
        element.append(name);
        const pointer = { element, timer: 0 };
        this.#shown.set(userId, pointer);
        return pointer;
    }

    // The fading one is forgotten at once: when its user points again, a new one comes where it is
    // needed.
    #fade(userId) {
        const pointer = this.#shown.get(userId);
        if (!pointer) return;
        this.#shown.delete(userId);
        clearTimeout(pointer.timer);
        pointer.element.classList.add("fading");
        setTimeout(() => pointer.element.remove(), OverlayPointers.fadesFor);
    }
}
