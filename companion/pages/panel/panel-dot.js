"use strict";

// A dot in the color of a person's pointer. The color comes from a phone: only a color may enter
// the style.
function colorDot(color) {
    const dot = document.createElement("i");
    dot.className = "dot";
    if (/^#[0-9a-f]{6}$/i.test(color)) dot.style.background = color;
    return dot;
}
