"use strict";

// Without letters and digits that look alike.
function randomText(length) {
    const letters = "abcdefghijkmnpqrstuvwxyz23456789";
    return Array.from(crypto.getRandomValues(new Uint8Array(length)),
        (value) => letters[value % letters.length]).join("");
}
