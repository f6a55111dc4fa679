// The panel page. It speaks to Stagehopper through `window.electronAPI`, which is there before
// this script runs, and gets no answer: it can say what it sent, never what came of it. Steps go
// that way, too, so that they work without any backend.
"use strict";

(() => {
    const host = window.electronAPI;
    const texts = panelTexts[pageLanguage];
    const steps = new PanelSteps(texts);

    // Starts at the time of loading, so that a reloaded page never repeats a tag: Stagehopper
    // takes a repeated tag for a step that it has seen. The letter keeps it apart from the numbers
    // of the meeting, which start at a time as well.
    let lastSequence = Date.now();

    function sendStep(direction) {
        lastSequence += 1;
        host.sendPptSlide(direction, `p${lastSequence}`, "panel");
        steps.addStep(direction, texts.fromHere);
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
        const direction = stepOfKey(event);
        const typing = event.target.matches("input, select");
        if (!direction || typing || !keysAreOn()) return;
        event.preventDefault();
        sendStep(direction);
    }

    function sendDebugLine(event) {
        event.preventDefault();
        const field = byId("debug-text");
        host.sendDebugLog(field.value);
        steps.addDebugLine(field.value);
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

    writeTexts(texts);
    showControlState(false);
    if (host) {
        connect();
        new PanelRoom(host, texts, steps);
    } else {
        byId("no-host").hidden = false;
        for (const id of ["controls", "debug-text", "debug-send"]) byId(id).disabled = true;
        document.body.classList.add("no-host");
    }
})();
