"use strict";

// The dialog with the user's name and color.
class PhoneSettings {
    #identity;
    #onChange;

    constructor(identity, { colorNames, onChange }) {
        this.#identity = identity;
        this.#onChange = onChange;
        byId("colors").append(...PhoneIdentity.colors.map(
            (color, index) => this.#choice(color, colorNames[index])));
        byId("name").value = identity.name;
        byId("open-settings").addEventListener("click", () => byId("settings").showModal());
        // Its content counts, no matter how the dialog was closed.
        byId("settings").addEventListener("close", () => this.#save());
        this.#showColor();
    }

    #choice(color, name) {
        const choice = document.createElement("input");
        choice.type = "radio";
        choice.name = "color";
        choice.value = color;
        choice.checked = color === this.#identity.color;
        choice.setAttribute("aria-label", name);
        choice.style.setProperty("--swatch", color);
        const label = document.createElement("label");
        label.append(choice);
        return label;
    }

    #save() {
        const name = byId("name").value.trim();
        const color = byId("settings-form").elements.color.value;
        if (name === this.#identity.name && color === this.#identity.color) return;
        this.#identity.change(name, color);
        this.#showColor();
        this.#onChange();
    }

    #showColor() {
        document.body.style.setProperty("--color", this.#identity.color);
    }
}
