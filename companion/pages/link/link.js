// Runs in a hidden frame of the panel and the overlay. Those are local files, whose requests the
// backend does not trust; this page's own come from the backend's origin. It passes on what its
// parent asks for, after it has made sure that its parent is a page of Stagehopper.
"use strict";

(() => {
    const tell = (message) => window.parent.postMessage(message, "*");

    // Stagehopper writes the mark into each frame of its own views. A page in a browser cannot
    // write into this frame, for it has another origin.
    const isInStagehoppersView = window.stagehopperView === true;

    // In such a view only the page itself may be around this one, not another frame. `self.origin`,
    // not `location.origin`: in a sandbox, where a frame can hide its own name, the first is "null"
    // and the second is not.
    function mayWorkHere() {
        if (window.parent === window) return false;
        if (!/^http:\/\/127\.0\.0\.1(:\d+)?$/.test(self.origin)) return false;
        const ancestors = location.ancestorOrigins;
        if (!ancestors || ancestors.length === 0) return false;
        return Array.from(ancestors).every((name) => name === "null" || name === "file://");
    }

    // `null` for a body that is no JSON: an error's status says enough.
    async function bodyOf(response) {
        try {
            return await response.json();
        } catch {
            return null;
        }
    }

    async function request({ id, method, path, body }) {
        const options = { method, cache: "no-store" };
        if (body !== undefined && body !== null) {
            options.headers = { "Content-Type": "application/json" };
            options.body = JSON.stringify(body);
        }
        try {
            // Some paths name another server: "//h/x", and "/\\h/x" as well.
            const url = new URL(path, self.origin);
            if (url.origin !== self.origin) throw new TypeError("not a path of this server");
            const response = await fetch(url, options);
            tell({ kind: "response", id, status: response.status, body: await bodyOf(response) });
        } catch {
            tell({ kind: "response", id, status: 0, body: null });
        }
    }

    let socket = null;

    function leave() {
        const left = socket;
        socket = null;
        if (left) left.close(1000);
    }

    function join(query) {
        leave();
        const joined = new WebSocket(`ws://${location.host}/ws?${queryOf(query)}`);
        socket = joined;
        const whileCurrent = (act) => (event) => {
            if (socket === joined) act(event);
        };
        joined.onopen = whileCurrent(() => tell({ kind: "open" }));
        joined.onmessage = whileCurrent((event) => {
            try {
                tell({ kind: "message", data: JSON.parse(event.data) });
            } catch {
                // No JSON: nothing that this side of the connection knows.
            }
        });
        joined.onclose = whileCurrent((event) => {
            socket = null;
            tell({ kind: "closed", code: event.code, reason: event.reason });
        });
    }

    function send(data) {
        if (socket && socket.readyState === WebSocket.OPEN) socket.send(JSON.stringify(data));
    }

    function onMessage(event) {
        if (event.source !== window.parent || !event.data) return;
        switch (event.data.kind) {
            case "request": request(event.data); break;
            case "join": join(event.data.query); break;
            case "send": send(event.data.data); break;
            case "leave": leave(); break;
        }
    }

    // A page of a browser gets no answer at all: it need not learn what runs here.
    if (!isInStagehoppersView) return;
    if (mayWorkHere()) {
        window.addEventListener("message", onMessage);
        tell({ kind: "ready" });
    } else {
        tell({ kind: "refused" });
    }
})();
