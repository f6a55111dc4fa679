// What the panel's other scripts share: the page's elements and its language.
"use strict";

const byId = (id) => document.getElementById(id);

const panelLanguage = navigator.language.toLowerCase().startsWith("zh") ? "zh" : "en";

function writePanelTexts(texts) {
    document.documentElement.lang = panelLanguage === "zh" ? "zh-CN" : "en";
    for (const element of document.querySelectorAll("[data-text]")) {
        element.textContent = texts[element.dataset.text];
    }
    for (const element of document.querySelectorAll("[data-label]")) {
        element.setAttribute("aria-label", texts[element.dataset.label]);
    }
    for (const element of document.querySelectorAll("[data-placeholder]")) {
        element.placeholder = texts[element.dataset.placeholder];
    }
}

// The colour comes from a phone: anything but a colour is not let into the style.
function colourDot(color) {
    const dot = document.createElement("i");
    dot.className = "dot";
    if (/^#[0-9a-f]{6}$/i.test(color)) dot.style.background = color;
    return dot;
}
