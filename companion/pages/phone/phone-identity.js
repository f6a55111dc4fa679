"use strict";

// Who this phone is: an id for the tab, a name and a color for the phone.
class PhoneIdentity {
    static colors =
        ["#e5484d", "#f76b15", "#ffd60a", "#30a46c", "#12a5b8", "#3e82f7", "#a05de0", "#f04f9b"];

    #phoneMemory;
    #defaultName;
    #userId;
    #name;
    #color;

    constructor({ tabMemory, phoneMemory, defaultName }) {
        this.#phoneMemory = phoneMemory;
        this.#defaultName = defaultName;
        this.#userId = tabMemory.get("user") ?? `phone-${randomText(12)}`;
        tabMemory.set("user", this.#userId);
        this.#name = phoneMemory.get("name") ?? "";
        const { colors } = PhoneIdentity;
        const kept = phoneMemory.get("colour");
        this.#color =
            colors.includes(kept) ? kept : colors[Math.floor(Math.random() * colors.length)];
    }

    // As the user wrote it; it may be empty.
    get name() {
        return this.#name;
    }

    get color() {
        return this.#color;
    }

    change(name, color) {
        this.#name = name;
        this.#color = color;
        this.#phoneMemory.set("name", name);
        this.#phoneMemory.set("colour", color);
    }

    // The query with which this phone joins the meeting of a link.
    joinQuery({ code, secret }) {
        return queryOf({
            roomCode: code,
            userId: this.#userId,
            role: "guest",
            displayName: this.#name || this.#defaultName,
            cursorColor: this.#color,
            secret,
        });
    }
}
