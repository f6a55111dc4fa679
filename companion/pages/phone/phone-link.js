"use strict";

// The link to the meeting, behind the # of the address: the room's code and the secret.
class PhoneLink {
    #tabMemory;
    #code = "";
    #secret = "";

    constructor(tabMemory) {
        this.#tabMemory = tabMemory;
    }

    // Empty without a link.
    get code() {
        return this.#code;
    }

    get secret() {
        return this.#secret;
    }

    // Takes the link out of the address bar, where it could be photographed or shared by mistake,
    // and keeps it for the tab, so that reloading works. If it cannot be kept, it stays in the
    // address. Returns whether the link differs from the kept one.
    read() {
        const inAddress = location.hash.slice(1);
        const kept = this.#tabMemory.get("link");
        if (inAddress && this.#tabMemory.set("link", inAddress)) {
            history.replaceState(null, "", location.pathname);
        }
        const link = inAddress || kept || "";
        const [, code = "", secret = ""] = /^([A-Z0-9]{6})\.([\w-]+)$/.exec(link) ?? [];
        this.#code = code;
        this.#secret = secret;
        return link !== kept;
    }
}
