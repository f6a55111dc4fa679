"use strict";

// Texts that outlive a reload: in `sessionStorage` for the tab, in `localStorage` for the phone.
// Either storage may be forbidden, in private windows for example.
class PhoneMemory {
    #storage;

    constructor(storage) {
        this.#storage = storage;
    }

    // Null if the text is absent.
    get(key) {
        try {
            return window[this.#storage].getItem(`stagehopper.${key}`);
        } catch {
            return null;
        }
    }

    // Returns whether the text is kept.
    set(key, value) {
        try {
            window[this.#storage].setItem(`stagehopper.${key}`, value);
            return true;
        } catch {
            return false;
        }
    }
}
