// The overlay page: joins the room that the program names, and shows who points where.
"use strict";

(() => {
    const retryAfter = 1000;
    const userId = BackendLink.newUserId("overlay");

    const people = new OverlayPeople(document.getElementById("people"));
    const pointers = new OverlayPointers(
        document.getElementById("pointers"), (user) => people.nameOf(user));

    // The room to be in. Replaced as a whole, so that whatever is still under way for an earlier
    // one sees that it is late.
    let wanted = null;
    let link = null;

    function onMessage(message) {
        switch (message?.type) {
            case "welcome":
            case "participants": people.take(message.participants); break;
            case "pointer": pointers.take(message); break;
            case "ended": disconnect(); break;
        }
    }

    function disconnect() {
        wanted = null;
        link?.close();
        link = null;
        pointers.clear();
        people.forget();
    }

    function retry(room) {
        setTimeout(() => { if (wanted === room) connect(room); }, retryAfter);
    }

    async function connect(room) {
        if (!link) {
            const opened = await BackendLink.opened(room.origin);
            if (wanted !== room) return opened?.close();
            if (!opened) return retry(room);
            link = opened;
            link.onMessage = onMessage;
            link.onClosed = () => {
                pointers.clear();
                people.forget();
                retry(room);
            };
        }
        link.join({
            roomCode: room.code,
            userId,
            role: "guest",
            displayName: "overlay",
            cursorColor: "#000000",
        });
    }

    // Called by Stagehopper with the backend's address and the room's code.
    window._connectOverlay = (url, code) => {
        const origin = url.replace(/\/$/, "");
        if (!/^http:\/\/127\.0\.0\.1:\d+$/.test(origin)) return;
        // Connected, or about to be.
        if (wanted && wanted.origin === origin && wanted.code === code) return;
        disconnect();
        wanted = { origin, code };
        connect(wanted);
    };

    window.electronAPI?.onOverlayData((pointer) => pointers.take(pointer ?? {}));
    window.electronAPI?.onParticipantsUpdate((participants) => people.take(participants));
})();
