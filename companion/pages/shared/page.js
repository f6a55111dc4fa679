// What the panel and the phone's page share: elements by their ids, and texts in the user's
// language.
"use strict";

const byId = (id) => document.getElementById(id);

const pageLanguage = navigator.language.toLowerCase().startsWith("zh") ? "zh" : "en";

function writeTexts(texts) {
    document.documentElement.lang = pageLanguage === "zh" ? "zh-CN" : "en";
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
