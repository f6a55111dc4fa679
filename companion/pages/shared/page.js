// What pages share: elements by their ids, queries, and texts in the user's language.
"use strict";

const byId = (id) => document.getElementById(id);

// The query with these names and values. Not `URLSearchParams.toString()`, which writes a blank as a
// plus sign.
function queryOf(values) {
    return Object.entries(values)
        .map(([name, value]) => `${name}=${encodeURIComponent(value)}`).join("&");
}

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
