"use strict";

// The keys that turn slides: "next", "prev", or undefined for any other key. A key with a modifier
// belongs to the browser, and a key that is held down steps once.
function stepOfKey(event) {
    const modified = event.ctrlKey || event.altKey || event.metaKey || event.shiftKey;
    if (modified || event.repeat) return undefined;
    switch (event.key) {
        case "ArrowRight":
        case "PageDown": return "next";
        case "ArrowLeft":
        case "PageUp": return "prev";
        default: return undefined;
    }
}
