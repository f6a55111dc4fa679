// The panel page. It speaks to Stagehopper through `window.electronAPI`, which is there before
// this script runs, and gets no answer: it can say what it sent, never what came of it.
"use strict";

(() => {
    const listedSteps = 50;
    const listedCharacters = 80;
    const stepKeys = { ArrowRight: "next", PageDown: "next", ArrowLeft: "prev", PageUp: "prev" };

    const host = window.electronAPI;
    const language = navigator.language.toLowerCase().startsWith("zh") ? "zh" : "en";
    const texts = panelTexts[language];
    const byId = (id) => document.getElementById(id);

    // Starts at the time of loading, so that a reloaded page never repeats a tag: Stagehopper
    // takes a repeated tag for a step that it has seen.
    let lastSequence = Date.now();

    function writeTexts() {
        document.documentElement.lang = language === "zh" ? "zh-CN" : "en";
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

    function listSent(kind, name) {
        const entry = document.createElement("li");
        entry.className = kind;
        const label = document.createElement("span");
        label.textContent = name;
        const time = document.createElement("time");
        // In the engine's own locale: `navigator.language` is no language tag everywhere ("c").
        time.textContent = new Date().toLocaleTimeString();
        entry.append(label, time);

        byId("nothing-sent").hidden = true;
        const list = byId("sent-list");
        list.prepend(entry);
        while (list.children.length > listedSteps) list.lastElementChild.remove();
        list.scrollTop = 0;
    }

    function sendStep(direction) {
        lastSequence += 1;
        host.sendPptSlide(direction, lastSequence, "panel");
        listSent(direction, direction === "next" ? texts.nextSlide : texts.previousSlide);
    }

    function keysAreOn() {
        return byId("slide-control").getAttribute("aria-pressed") === "true";
    }

    function showControlState(on) {
        byId("slide-control").setAttribute("aria-pressed", String(on));
        byId("control-state").textContent = on ? texts.controlOn : texts.controlOff;
    }

    function toggleSlideControl() {
        const on = !keysAreOn();
        showControlState(on);
        // Stagehopper checks its permission now, while the user is looking, and calls for the
        // hints below when it is missing.
        if (on) host.enableSlideControl();
    }

    function onKey(event) {
        const direction = stepKeys[event.key];
        const modified = event.ctrlKey || event.altKey || event.metaKey || event.shiftKey;
        const typing = event.target instanceof HTMLInputElement;
        if (!direction || modified || typing || event.repeat || !keysAreOn()) return;
        event.preventDefault();
        sendStep(direction);
    }

    function sendDebugLine(event) {
        event.preventDefault();
        const field = byId("debug-text");
        host.sendDebugLog(field.value);
        listSent("debug", field.value.slice(0, listedCharacters));
        field.value = "";
    }

    function connect() {
        byId("previous").addEventListener("click", () => sendStep("prev"));
        byId("next").addEventListener("click", () => sendStep("next"));
        byId("slide-control").addEventListener("click", toggleSlideControl);
        byId("debug").addEventListener("submit", sendDebugLine);
        byId("open-settings").addEventListener("click", () => host.openAccessibilitySettings());
        for (const button of document.querySelectorAll("[data-dismisses]")) {
            button.addEventListener("click", () => {
                byId(button.dataset.dismisses).hidden = true;
            });
        }
        document.addEventListener("keydown", onKey);

        // Called by Stagehopper when the permission is missing.
        window._showAccessibilityHint = () => { byId("permission-hint").hidden = false; };
        window._showAccessibilityRestartHint = () => { byId("restart-hint").hidden = false; };
    }

    writeTexts();
    showControlState(false);
    if (host) {
        connect();
    } else {
        byId("no-host").hidden = false;
        byId("controls").disabled = true;
    }
})();
